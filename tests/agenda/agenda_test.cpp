#include "agenda/agenda_fixture.h"
#include "platform/forms/calendar.h"
#include "support/errorof.h"

namespace {

QString wide(const char* text, int width)
{
    return QString::fromUtf8(text).leftJustified(width, u' ', true);
}

MonthCalendar& calendar(const ScreenDriver& agenda)
{
    return *static_cast<MonthCalendar*>(agenda.find(u"Calendar1"_qs));
}

} // namespace

TEST_F(AgendaTest, TheDayOfAProfessional)
{
    book(u"K2"_qs, 11, 22, u"RITA"_qs, u"2026-03-16"_qs, u"08:30"_qs, u"1"_qs);
    book(u"K1"_qs, 11, 21, u"JOÃO DA SILVA"_qs, u"2026-03-16"_qs, u"08:30"_qs);
    book(u"GONE"_qs, 11, 21, u"HORA TIRADA"_qs, u"2026-03-16"_qs, u"07:00"_qs);
    book(u"OTHER"_qs, 13, 21, u"DE CARLA"_qs, u"2026-03-16"_qs, u"09:00"_qs);
    book(u"LATER"_qs, 11, 21, u"AMANHÃ"_qs, u"2026-03-17"_qs, u"09:00"_qs);
    bookElsewhere(u"K1"_qs);
    book(u"HOME"_qs, 0, 21, u"EM CASA"_qs, u"2026-03-16"_qs, u"08:00"_qs);
    execute(
        u"insert into feriados (idlic,dia,Mes,obs) values ('C1',16,3,'ANIVERSÁRIO'),('C2',17,3,'ALHEIO')"_qs);
    on<frmCli_Agenda>([&](ScreenDriver& agenda) {
        EXPECT_EQ(agenda.text(u"lHoje"_qs), u"HOJE: segunda-feira, 16 de março de 2026");
        EXPECT_EQ(agenda.text(u"cboPro"_qs), wide("ANA", 45) + u"|11|200,00|3|0"_qs);
        EXPECT_EQ(static_cast<QComboBox*>(agenda.find(u"cboPro"_qs))->count(), 3)
            << "not who visits at home only";
        EXPECT_EQ(agenda.text(u"lDia"_qs), u"AGENDA DO DIA: 16/03/2026");
        EXPECT_EQ(agenda.text(u"lFeriado"_qs), u"FERIADO: ANIVERSÁRIO");
        EXPECT_EQ(agenda.text(u"lTit"_qs),
                  u"Horário"_qs.left(5) + u'|' + wide("Paciente", 40) + u'|' + wide("Telefone", 15) + u'|' +
                      wide("C/R", 20) + u"|Mobil? |CF?|"_qs + wide("Convênio", 15) + u'|' + wide("OBS", 30));
        const QString tail = u'|' + wide("FONE", 15) + u'|' + wide("32 RETORNO", 20) + u"|1 - Sim|"_qs;
        const QString end = u"  |"_qs + wide("SAÚDE TOTAL", 15) + u'|' + wide("OBSERVAÇÃO", 30) + u"|Y|"_qs;
        EXPECT_EQ(
            agenda.list(u"List1"_qs),
            (QStringList{u"08:00"_qs, u"08:30|"_qs + wide("JOÃO DA SILVA", 40) + tail + u'0' + end + u"K1"_qs,
                         u"08:30|"_qs + wide("RITA", 40) + tail + u'1' + end + u"K2"_qs, u"09:00"_qs,
                         u"13:00"_qs, u"13:30"_qs}));
        EXPECT_EQ(agenda.text(u"lQT"_qs), u"Clínica: 2 Home: 0");

        agenda.focus(u"Calendar1"_qs);
        agenda.press(Qt::Key_Right);
        EXPECT_EQ(agenda.list(u"List1"_qs), QStringList{u"10:00"_qs});
        EXPECT_EQ(agenda.text(u"lDia"_qs), u"AGENDA DO DIA: 17/03/2026");
        EXPECT_EQ(agenda.text(u"lFeriado"_qs), u"") << "another tenant's holiday";
        EXPECT_EQ(agenda.text(u"lQT"_qs), u"Clínica: 0 Home: 0");
        EXPECT_TRUE(calendar(agenda).isAncestorOf(agenda.window().focusWidget())) << "one day after another";
        calendar(agenda).showNextMonth();
        EXPECT_EQ(agenda.list(u"List1"_qs), QStringList{u"10:00"_qs}) << "no day was chosen";

        agenda.choose(u"cboPro"_qs, u"DAVI"_qs);
        EXPECT_EQ(calendar(agenda).Value(), QDate(2026, 3, 16)) << "another professional comes back to today";
        EXPECT_EQ(agenda.list(u"List1"_qs), QStringList{u"BLOQUEADA"_qs});
        agenda.focus(u"Calendar1"_qs);
        agenda.press(Qt::Key_Down);
        agenda.click(u"lHoje"_qs);
        EXPECT_EQ(calendar(agenda).Value(), QDate(2026, 3, 16));
    });
}

TEST_F(AgendaTest, HomeVisitsBelongToTheDay)
{
    execute(
        u"update pacientes set dtnasc = '1950-12-31' where idpac = 21;"
        "insert into contrato_agenda (idlic,idcontrato,idlan,idproc,data,hora,idpac,idprof,status) values "
        "('C1','A','1',33,'2026-03-16','14:00',21,0,'0'),('C1','A','2',33,'2026-03-16','08:00',22,12,'0'),"
        "('C1','A','3',33,'2026-03-16','16:00',21,12,'1'),('C1','A','4',33,'2026-03-17','08:00',21,0,'0'),"
        "('C2','B','1',33,'2026-03-16','08:00',23,0,'0')"_qs);
    const QList<QStringList> visits = {
        {u"08:00"_qs, u"RITA"_qs, {}, {}, u"CURATIVO"_qs},
        {u"14:00"_qs, u"JOÃO DA SILVA"_qs, u"3333-1111"_qs, u"31/12/1950"_qs, u"CURATIVO"_qs},
        {u"16:00"_qs, u"JOÃO DA SILVA"_qs, u"3333-1111"_qs, u"31/12/1950"_qs, u"CURATIVO"_qs}};
    dialogs.expect(u"PROCEDIMENTO JÁ CONCLUIDO!"_qs, u"ATENÇAO"_qs, Icon::Exclamation);
    dialogs.expectQuestion(u"Procedimento já iniciado! Deseja prosseguir?"_qs, false);
    on<frmCli_Agenda>([&](ScreenDriver& agenda) {
        EXPECT_EQ(agenda.grid(u"DataGrid1"_qs), visits);
        agenda.choose(u"cboPro"_qs, u"DAVI"_qs);
        EXPECT_EQ(agenda.grid(u"DataGrid1"_qs), visits) << "whoever the professional is";
        agenda.doubleClickRow(u"DataGrid1"_qs, 2);
        agenda.doubleClickRow(u"DataGrid1"_qs, 0);
        agenda.focus(u"Calendar1"_qs);
        agenda.press(Qt::Key_Right);
        EXPECT_EQ(agenda.grid(u"DataGrid1"_qs).size(), 1);
    });
}

TEST_F(AgendaTest, AClinicWithoutProfessionalsHasNoAgenda)
{
    execute(u"delete from profissionais where idlic = 'C1'"_qs);
    EXPECT_EQ(errorOf([] { Form::of<frmCli_Agenda>().Show(); }), 380);
    delete &Form::of<frmCli_Agenda>();
}
