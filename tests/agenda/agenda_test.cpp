#include "agenda/agenda_fixture.h"
#include "agenda/frmcli_agenda_pesquisa.h"
#include "platform/forms/calendar.h"
#include "platform/forms/listbox.h"
#include "support/errorof.h"

#include <QHeaderView>
#include <QTableView>

using namespace Qt::StringLiterals;

using namespace Variaveis;

namespace {

QString wide(const char* text, int width)
{
    return QString::fromUtf8(text).leftJustified(width, u' ', true);
}

} // namespace

TEST_F(AgendaTest, TheDayOfAProfessional)
{
    book(u"K2"_s, 11, 22, u"RITA"_s, u"2026-03-16"_s, u"08:30"_s, u"1"_s);
    book(u"K1"_s, 11, 21, u"JOÃO DA SILVA"_s, u"2026-03-16"_s, u"08:30"_s);
    book(u"GONE"_s, 11, 21, u"HORA TIRADA"_s, u"2026-03-16"_s, u"07:00"_s);
    book(u"OTHER"_s, 13, 21, u"DE CARLA"_s, u"2026-03-16"_s, u"09:00"_s);
    book(u"LATER"_s, 11, 21, u"AMANHÃ"_s, u"2026-03-17"_s, u"09:00"_s);
    bookElsewhere(u"K1"_s);
    book(u"HOME"_s, 0, 21, u"EM CASA"_s, u"2026-03-16"_s, u"08:00"_s);
    execute(
        u"insert into feriados (idlic,dia,Mes,obs) values ('C1',16,3,'ANIVERSÁRIO'),('C2',17,3,'ALHEIO')"_s);
    on<frmCli_Agenda>([&](ScreenDriver& agenda) {
        EXPECT_EQ(agenda.text(u"lHoje"_s), u"HOJE: segunda-feira, 16 de março de 2026");
        EXPECT_EQ(agenda.text(u"cboPro"_s), wide("ANA", 45) + u"|11|200,00|3|0"_s);
        EXPECT_EQ(static_cast<QComboBox*>(agenda.find(u"cboPro"_s))->count(), 3)
            << "not who visits at home only";
        EXPECT_EQ(agenda.text(u"lDia"_s), u"AGENDA DO DIA: 16/03/2026");
        EXPECT_EQ(agenda.text(u"lFeriado"_s), u"FERIADO: ANIVERSÁRIO");
        EXPECT_EQ(agenda.text(u"lTit"_s),
                  u"Horário"_s.left(5) + u'|' + wide("Paciente", 40) + u'|' + wide("Telefone", 15) + u'|' +
                      wide("C/R", 20) + u"|Mobil? |CF?|"_s + wide("Convênio", 15) + u'|' + wide("OBS", 30));
        const QString tail = u'|' + wide("FONE", 15) + u'|' + wide("32 RETORNO", 20) + u"|1 - Sim|"_s;
        const QString end = u"  |"_s + wide("SAÚDE TOTAL", 15) + u'|' + wide("OBSERVAÇÃO", 30) + u"|Y|"_s;
        EXPECT_EQ(
            agenda.list(u"List1"_s),
            (QStringList{u"08:00"_s, u"08:30|"_s + wide("JOÃO DA SILVA", 40) + tail + u'0' + end + u"K1"_s,
                         u"08:30|"_s + wide("RITA", 40) + tail + u'1' + end + u"K2"_s, u"09:00"_s, u"13:00"_s,
                         u"13:30"_s}));
        EXPECT_EQ(agenda.text(u"lQT"_s), u"Clínica: 2 Home: 0");

        agenda.focus(u"Calendar1"_s);
        agenda.press(Qt::Key_Right);
        EXPECT_EQ(agenda.list(u"List1"_s), QStringList{u"10:00"_s});
        EXPECT_EQ(agenda.text(u"lDia"_s), u"AGENDA DO DIA: 17/03/2026");
        EXPECT_EQ(agenda.text(u"lFeriado"_s), u"") << "another tenant's holiday";
        EXPECT_EQ(agenda.text(u"lQT"_s), u"Clínica: 0 Home: 0");
        auto* calendar = static_cast<MonthCalendar*>(agenda.find(u"Calendar1"_s));
        EXPECT_TRUE(calendar->isAncestorOf(agenda.window().focusWidget())) << "one day after another";
        calendar->showNextMonth();
        EXPECT_EQ(agenda.list(u"List1"_s), QStringList{u"10:00"_s}) << "no day was chosen";

        agenda.choose(u"cboPro"_s, u"DAVI"_s);
        EXPECT_EQ(calendar->Value(), QDate(2026, 3, 16)) << "another professional comes back to today";
        EXPECT_EQ(agenda.list(u"List1"_s), QStringList{u"BLOQUEADA"_s});
        agenda.focus(u"List1"_s);
        agenda.click(u"lHoje"_s);
        EXPECT_FALSE(static_cast<ListBox*>(agenda.find(u"List1"_s))->Selected(0)) << "nobody chose it";
        agenda.focus(u"Calendar1"_s);
        agenda.press(Qt::Key_Down);
        agenda.click(u"lHoje"_s);
        EXPECT_EQ(calendar->Value(), QDate(2026, 3, 16));
        for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Space}) {
            agenda.focus(u"Calendar1"_s);
            agenda.press(Qt::Key_Up);
            agenda.press(Qt::Key_Return);
            EXPECT_EQ(agenda.focused(), u"lHoje");
            agenda.press(key);
            EXPECT_EQ(calendar->Value(), QDate(2026, 3, 16));
        }
    });
}

/// On the least screen that a workstation has, and in windows drawn smaller and larger.
TEST_F(AgendaTest, ADayOfSeventeenLinesIsSeenWholeEachLineWithItsState)
{
    using Theme::Role;
    execute(u"delete from diahr; insert into diahr (idlic,idpro,dia,hr) values ('C1',11,'2 - SEGUNDA-FEIRA',"
            "'08:00/08:30/09:00/09:30/10:00/10:30/11:00/11:30/12:00/12:30/13:00/13:30/14:00/14:30/15:00/15:30"
            "/16:00')"_s);
    for (const QString& status : {u"0"_s, u"1"_s, u"2"_s})
        book(status, 11, 21, u"JOÃO"_s, u"2026-03-16"_s, u"1%1:00"_s.arg(status), status);
    execute(
        u"update agenda_clinica set obs = 'TRAZER EXAMES ANTERIORES';"
        "insert into feriados (idlic,dia,Mes,obs) values ('C1',16,3,'FUNDAÇÃO DA CIDADE E DE SEU POVO')"_s);
    auto& screen = Form::of<frmCli_Agenda>();
    screen.Load();
    const QSize least(1358, screen.minimumSizeHint().height());
    EXPECT_LE(least.height(), 698) << "what 1366 x 768 leave";
    screen.setGeometry(QRect({}, least));
    screen.Show();
    ScreenDriver agenda(screen);
    settle();
    auto* list = static_cast<ListBox*>(agenda.find(u"List1"_s));
    auto* visits = static_cast<QTableView*>(agenda.find(u"DataGrid1"_s));

    EXPECT_EQ(hintAt(agenda.find(u"lFeriado"_s), {5, 5}), u"FERIADO: FUNDAÇÃO DA CIDADE E DE SEU POVO");
    EXPECT_TRUE(hintAt(list->viewport(), list->visualItemRect(list->item(4)).center())
                    .endsWith(u"\nTRAZER EXAMES ANTERIORES"_s))
        << "what is cut at the list's edge";

    for (const double factor : {1.0, 0.66, 0.75, 1.35, 2.0}) {
        screen.resize(least * factor);
        settle();
        EXPECT_LE(list->visualItemRect(list->item(16)).bottom(), list->viewport()->height()) << factor;
        EXPECT_GE(visits->viewport()->height(), 3 * visits->verticalHeader()->defaultSectionSize()) << factor;
    }

    const auto expectLine = [&](int line, Role bar) {
        for (const bool isChosen : {false, true}) {
            list->setCurrentRow(isChosen ? line : -1);
            const QImage seen = list->viewport()->grab().toImage();
            const int above = list->visualItemRect(list->item(line)).top() + 3; // the letters
            EXPECT_EQ(seen.pixelColor(2, above), Theme::colour(bar)) << line << isChosen;
            EXPECT_EQ(seen.pixelColor(seen.width() - 4, above),
                      Theme::colour(isChosen ? Role::Selection : Role::Card))
                << line;
        }
    };
    expectLine(0, Role::FreePale);
    expectLine(4, Role::Booked);
    expectLine(6, Role::Notified);
    expectLine(8, Role::Closed);
    agenda.focus(u"Calendar1"_s);
    agenda.press(Qt::Key_Right);
    expectLine(0, Role::Blocked);
    screen.Unload();
}

TEST_F(AgendaTest, HomeVisitsBelongToTheDay)
{
    execute(
        u"update pacientes set dtnasc = '1950-12-31' where idpac = 21;"
        "insert into contrato_agenda (idlic,idcontrato,idlan,idproc,data,hora,idpac,idprof,status) values "
        "('C1','A','1',33,'2026-03-16','14:00',21,0,'0'),('C1','A','2',33,'2026-03-16','08:00',22,12,'0'),"
        "('C1','A','3',33,'2026-03-16','16:00',21,12,'1'),('C1','A','4',33,'2026-03-17','08:00',21,0,'0'),"
        "('C2','B','1',33,'2026-03-16','08:00',23,0,'0')"_s);
    const auto visits = textTable(u"08:00=RITA===CURATIVO|14:00=JOÃO DA SILVA=3333-1111=31/12/1950=CURATIVO|"
                                  "16:00=JOÃO DA SILVA=3333-1111=31/12/1950=CURATIVO");
    dialogs.expect(u"PROCEDIMENTO JÁ CONCLUIDO!"_s, u"ATENÇAO"_s, Icon::Exclamation);
    dialogs.expectQuestion(u"Procedimento já iniciado! Deseja prosseguir?"_s, false);
    on<frmCli_Agenda>([&](ScreenDriver& agenda) {
        EXPECT_EQ(agenda.grid(u"DataGrid1"_s), visits);
        agenda.choose(u"cboPro"_s, u"DAVI"_s);
        EXPECT_EQ(agenda.grid(u"DataGrid1"_s), visits) << "whoever the professional is";
        agenda.doubleClickRow(u"DataGrid1"_s, 2);
        agenda.doubleClickRow(u"DataGrid1"_s, 0);
        agenda.focus(u"Calendar1"_s);
        agenda.press(Qt::Key_Right);
        EXPECT_EQ(agenda.grid(u"DataGrid1"_s).size(), 1);
    });
}

TEST_F(AgendaTest, AClinicWithoutProfessionalsHasNoAgenda)
{
    execute(u"delete from profissionais where idlic = 'C1'"_s);
    EXPECT_EQ(errorOf([] { Form::of<frmCli_Agenda>().Show(); }), 380);
    delete &Form::of<frmCli_Agenda>();
}

/// At each keystroke, with all professionals; the agenda goes to the day of the choice.
TEST_F(AgendaTest, TheSearchFindsTheAppointmentsFromTodayOn)
{
    book(u"a"_s, 11, 21, u"MARIA ONTEM"_s, u"2026-03-15"_s, u"08:00"_s);
    book(u"b"_s, 11, 21, u"MARIA HOJE"_s, u"2026-03-16"_s, u"07:00"_s);
    book(u"c"_s, 0, 21, u"ANA MARIA"_s, u"2026-04-02"_s, u"09:30"_s); // at home
    book(u"d"_s, 13, 21, u"ANA MARIA"_s, u"2026-03-20"_s, u"10:00"_s);
    book(u"e"_s, 11, 21, u"ANA MARIA"_s, u"2026-03-20"_s, u"09:00"_s);
    bookElsewhere(u"MARIA"_s);
    execute(u"update agenda_clinica set nmpac = 'MARIA ALHEIA' where idlic = 'B2';"
            "update agenda_clinica set idproc = 99 where idagenda = 'd'"_s);
    RetornoCodigo = u"11"_s;
    open<frmCli_Agenda_Pesquisa>([](ScreenDriver& screen) {
        const auto rows = [&screen] { return screen.grid(u"DataGrid1"_s).size(); };
        EXPECT_EQ(screen.focused(), u"txtnmpac");
        screen.press(Qt::Key_F10); // nothing searched yet
        screen.type(u"txtnmpac"_s, u"maria"_s);
        EXPECT_EQ(screen.grid(u"DataGrid1"_s), textTable(u"ANA MARIA=20/03/2026=09:00=FONE=RETORNO=ANA|"
                                                         "ANA MARIA=20/03/2026=10:00=FONE==CARLA|"
                                                         "ANA MARIA=02/04/2026=09:30=FONE=RETORNO=|"
                                                         "MARIA HOJE=16/03/2026=07:00=FONE=RETORNO=ANA"));
        screen.typeOn(u"x"_s);
        EXPECT_EQ(rows(), 0);
        screen.press(Qt::Key_F10);
        EXPECT_TRUE(screen.isOpen()) << "there is no row to choose";
        screen.press(Qt::Key_Backspace);
        EXPECT_EQ(rows(), 4);
        screen.type(u"txtnmpac"_s, u"  "_s);
        EXPECT_EQ(rows(), 0) << "blanks find nobody, though every name would hold them";
        EXPECT_FALSE(screen.enabled(u"Command1"_s));
        screen.typeOn(u"maria"_s);
        EXPECT_EQ(rows(), 0) << "the blanks belong to the part of the name";
        screen.window().close();
    });
    EXPECT_EQ(RetornoCodigo + RetornoNome, u"") << "given up";
    open<frmCli_Agenda_Pesquisa>([](ScreenDriver& screen) {
        screen.typeOn(u"maria"_s);
        screen.doubleClickRow(u"DataGrid1"_s, 1);
    });
    EXPECT_EQ(RetornoCodigo + u' ' + RetornoNome, u"20/03/2026 10:00");
    on<frmCli_Agenda>([this](ScreenDriver& agenda) {
        modal.expect(u"frmCli_Agenda_Pesquisa"_s, [](ScreenDriver& screen) {
            EXPECT_EQ(screen.text(u"txtnmpac"_s), u"") << "a fresh search";
            screen.typeOn(u"maria"_s);
            screen.press(Qt::Key_Return);
            EXPECT_EQ(screen.focused(), u"DataGrid1");
            screen.press(Qt::Key_Down);
            screen.press(Qt::Key_Down);
            screen.press(Qt::Key_F10);
        });
        agenda.press(Qt::Key_F2);
        EXPECT_EQ(agenda.text(u"lDia"_s), u"AGENDA DO DIA: 02/04/2026");
        EXPECT_EQ(RetornoCodigo + RetornoNome, u"") << "read";
        answer(u"frmCli_Agenda_Pesquisa"_s, {Qt::Key_Escape});
        agenda.press(Qt::Key_F2);
        EXPECT_EQ(agenda.text(u"lDia"_s), u"AGENDA DO DIA: 02/04/2026") << "given up";
    });
}
