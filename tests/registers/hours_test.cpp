#include "app/shell_fixture.h"
#include "platform/forms/codedcombo.h"
#include "registers/frmcadferiados.h"
#include "registers/frmcadhorarios.h"

using namespace Qt::StringLiterals;

namespace {

QStringList items(const ScreenDriver& screen, const QString& combo)
{
    const auto* box = static_cast<QComboBox*>(screen.find(combo));
    QStringList texts;
    for (int i = 0; i < box->count(); ++i)
        texts << box->itemText(i);
    return texts;
}

class Hours : public LoggedIn
{
protected:
    Hours()
    {
        execute(u"insert into especialidades (idesp,idlic,nmesp) values (3,'C1','CARDIOLOGIA');"
                "insert into profissionais (idpro,idlic,nmpro,idesp,ondeatd) values (11,'C1','CARLA',3,'0'),"
                "(12,'C1','BRUNO',9,'2'),(13,'C2','ALHEIA',3,'0'),(14,'C1','ANA|BIA',3,'1'),"
                "(15,'C1','SEM ESPECIALIDADE',null,'0')"_s);
    }
};

using Holidays = LoggedIn;

const QString save = u"Command1"_s;

} // namespace

TEST_F(Hours, TheProfessionalDecidesThePlaces)
{
    const QString clinic = u"0 - CLINICA"_s;
    const QString home = u"1 - HOME"_s;
    on<frmCadHorarios>([&](ScreenDriver& screen) {
        const QStringList people = items(screen, u"cboPro"_s);
        ASSERT_EQ(people.size(), 5) << "those of the tenant, by name, and home care";
        EXPECT_EQ(people[2], QString(u"CARLA"_s.leftJustified(45) + u'|' +
                                     u"CARDIOLOGIA"_s.leftJustified(45) + u"|0|3|11"_s));
        const auto* box = static_cast<CodedCombo*>(screen.find(u"cboPro"_s));
        EXPECT_EQ(box->shown(people[2]), u"CARLA - CARDIOLOGIA");
        EXPECT_EQ(box->shown(people[4]), u"HOME");
        EXPECT_EQ(screen.text(u"cboPro"_s), u"") << "nobody is chosen for the user";
        EXPECT_FALSE(screen.enabled(u"Command1"_s));

        const QList<QPair<QString, QStringList>> places = {{u"CARLA"_s, {clinic}},
                                                           {u"BRUNO"_s, {clinic, home}},
                                                           {u"ANA|BIA"_s, {home}},
                                                           {u"HOME"_s, {home}}};
        for (const auto& [person, offered] : places) {
            screen.choose(u"cboPro"_s, person);
            EXPECT_EQ(items(screen, u"cboCH"_s), offered) << person.toStdString();
            EXPECT_EQ(screen.text(u"cboCH"_s), u"");
            EXPECT_EQ(screen.focused(), u"cboCH");
        }
        fill(screen, u"cboCH=1|cboDia=7|txtHR=8:00"_s, save);
    });
    EXPECT_EQ(value(u"select concat_ws('|',idlic,idpro,idesp,ondeatd,dia,hr,evcad,evup) from diahr"_s),
              u"C1|0|0|1|7 - SÁBADO|8:00|MARIA - 16/03/2026 08:30:15|MARIA- 16/03/2026 08:30:15");
}

TEST_F(Hours, TimesAreKeptAsTypedOrRefused)
{
    const QString incorrect = u"--- ERRO --- DADOS INCORRETO!"_s;
    const QStringList good = u"8:15/9:20/13:30 8:5 0:00/23:59 8/14:30 8:15:99"_s.split(u' ');
    const QStringList bad =
        u"24:00 10:60 -1:00 8:15/ /8:15 8: 8:15/9:20/25:00 OITO:00 24 9999999999999999999:00"_s.split(u' ');
    dialogs.expect(incorrect, u"ATENÇÃO"_s);
    dialogs.expect(u"--- ERRO --- INFORME O(s) HORÁRIO(s)"_s, u"ATENÇÃO"_s);
    for (int i = 0; i < bad.size(); ++i)
        dialogs.expect(u"--- ERRO --- HORÁRIOS POSSUI HORA INVÁLIDA!"_s, u"Atenção"_s);
    dialogs.expect(incorrect);
    on<frmCadHorarios>([&](ScreenDriver& screen) {
        fill(screen, u"cboPro=CARLA|cboCH=0"_s, save);
        for (const QString& hours : QStringList{u"  "_s} + bad + good)
            fill(screen, u"cboCH=0|cboDia=2|txtHR="_s + hours, save);
        EXPECT_EQ(screen.focused(), u"cboDia");
        EXPECT_EQ(screen.grid(u"DataGrid2"_s).size(), good.size());
        fill(screen, u"cboPro=SEM|cboCH=0|cboDia=2|txtHR=8:00"_s, save);
    });
    EXPECT_EQ(value(u"select group_concat(hr order by idreg separator ' ') from diahr where idpro = 11 "
                    "and idesp = 3 and dia = '2 - SEGUNDA-FEIRA'"_s),
              good.join(u' '))
        << "several rows of one day, all of them";
}

TEST_F(Hours, ARowIsDeletedAfterTheQuestion)
{
    execute(u"insert into diahr (idlic,idpro,dia,hr,ondeatd,idesp) values ('C1',12,'2 - S','9:00','1',3),"
            "('C1',12,'3 - T','9:30','0',3),('C1',12,'2 - S','7:00','0',3),"
            "('C1',11,'2 - S','6:00','0',3),('C2',12,'2 - S','5:00','0',3)"_s);
    dialogs.expectQuestion(u"Confirma a exclusão?"_s, false, u"Atenção"_s);
    dialogs.expectQuestion(u"Confirma a exclusão?"_s, true, u"Atenção"_s);
    on<frmCadHorarios>([&](ScreenDriver& screen) {
        screen.choose(u"cboPro"_s, u"BRUNO"_s);
        EXPECT_EQ(column(screen, u"DataGrid2"_s, 1), u"7:00 9:30 9:00") << "by place and day";
        screen.doubleClickRow(u"DataGrid2"_s, 1);
        EXPECT_EQ(value(u"select count(*) from diahr"_s), u"5");
        screen.doubleClickRow(u"DataGrid2"_s, 1);
        EXPECT_EQ(screen.grid(u"DataGrid2"_s).size(), 2);
    });
    EXPECT_EQ(value(u"select group_concat(hr order by idreg) from diahr"_s), u"9:00,7:00,6:00,5:00");
}

TEST_F(Holidays, ADayThatThisYearHasIsSaved)
{
    const QString incomplete = u"--- ERRO -- DADOS INCOMPLETOS!"_s;
    const QString invalid = u"--- ERRO --- DIA / MÊS INVÁLIDO!"_s;
    for (const QString& refusal : {incomplete, invalid, invalid})
        dialogs.expect(refusal, u"ATENÇÃO"_s);
    on<frmCadFeriados>([&](ScreenDriver& screen) {
        fill(screen, u"cboDia=25"_s, save);
        fill(screen, u"cboDia=31|cboMes=4,|txtobs=x"_s, save);
        fill(screen, u"cboDia=29|cboMes=2,|txtobs=dia d'água"_s, save);
        EXPECT_EQ(screen.text(u"txtobs"_s), u"DIA D'ÁGUA") << "nothing typed is lost";
        clock.set(QDateTime(QDate(2028, 1, 2), QTime(3, 4, 5)));
        screen.click(u"Command1"_s);
        EXPECT_EQ(screen.text(u"txtobs"_s), u"");
        EXPECT_EQ(screen.focused(), u"cboDia");
    });
    EXPECT_EQ(flat(u"select idlic,dia,mes,nmes,obs,evcad,evup from feriados"_s),
              QStringList{u"C1|29|2|FEVEREIRO|DIA D'ÁGUA|%1|%1"_s.arg(u"MARIA - 02/01/2028 03:04:05"_s)});
}

TEST_F(Holidays, ASecondSaveChangesTheRemarkAndADoubleClickDeletes)
{
    execute(u"insert into feriados (idlic,dia,Mes,nMes,obs,evcad,evup) values "
            "('C1',25,12,'DEZEMBRO','VELHO','A','B'),('C1',25,10,'OUTUBRO','X','A','B'),"
            "('C1',2,12,'DEZEMBRO','X','A','B'),"
            "('C2',25,12,'DEZEMBRO','ALHEIO','A','B')"_s);
    dialogs.expectQuestion(u"Confirma a exclusão?"_s, true, u"Atenção"_s);
    on<frmCadFeriados>([&](ScreenDriver& screen) {
        EXPECT_EQ(column(screen, u"DataGrid2"_s, 0), u"25 2 25") << "by month and day";
        fill(screen, u"cboDia=25|cboMes=12|txtobs=natal"_s, save);
        EXPECT_EQ(screen.grid(u"DataGrid2"_s).size(), 3);
        screen.doubleClickRow(u"DataGrid2"_s, 0);
        EXPECT_EQ(screen.grid(u"DataGrid2"_s).size(), 2) << "all that are left";
    });
    EXPECT_EQ(
        value(u"select group_concat(concat_ws(' ',idlic,dia,mes,obs,evcad,evup) order by idlic,mes,dia) "
              "from feriados"_s),
        u"C1 2 12 X A B,C1 25 12 NATAL A MARIA - 16/03/2026 08:30:15,C2 25 12 ALHEIO A B");
}
