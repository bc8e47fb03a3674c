#include "app/shell_fixture.h"
#include "registers/frmcadferiados.h"
#include "registers/frmcadhorarios.h"

#include <QTableView>
#include <QTest>

namespace {

QStringList items(const ScreenDriver& screen, const QString& combo)
{
    const auto* box = static_cast<QComboBox*>(screen.find(combo));
    QStringList texts;
    for (int i = 0; i < box->count(); ++i)
        texts << box->itemText(i);
    return texts;
}

/// A double click on the grid where no row is.
void doubleClickBelow(const ScreenDriver& screen)
{
    QWidget* area = static_cast<QTableView*>(screen.find(u"DataGrid2"_qs))->viewport();
    QTest::mouseDClick(area, Qt::LeftButton, {}, QPoint(20, area->height() - 5));
    settle();
}

class Hours : public LoggedIn
{
protected:
    Hours()
    {
        execute(
            u"insert into especialidades (idesp,idlic,nmesp) values (3,'C1','CARDIOLOGIA');"
            "insert into profissionais (idpro,idlic,nmpro,idesp,ondeatd) values (11,'C1','CARLA LIMA',3,'0'),"
            "(12,'C1','BRUNO REIS',9,'2'),(13,'C2','ALHEIA',3,'0'),(14,'C1','ANA|BIA',3,'1'),"
            "(15,'C1','SEM ESPECIALIDADE',null,'0')"_qs);
    }

    static void fill(ScreenDriver& screen, const QString& where, const QString& day, const QString& hours)
    {
        screen.choose(u"cboCH"_qs, where);
        screen.choose(u"cboDia"_qs, day);
        screen.type(u"txtHR"_qs, hours);
    }
};

using Holidays = LoggedIn;

} // namespace

TEST_F(Hours, TheProfessionalDecidesThePlaces)
{
    const QString clinic = u"0 - CLINICA"_qs;
    const QString home = u"1 - HOME"_qs;
    open<frmCadHorarios>([&](ScreenDriver& screen) {
        EXPECT_EQ(screen.window().windowTitle(), u"Disponibilidade de Horários dos Profissionais");
        const QStringList people = items(screen, u"cboPro"_qs);
        ASSERT_EQ(people.size(), 5) << "those of the tenant, by name, and home care";
        EXPECT_EQ(people[2], QString(u"CARLA LIMA"_qs.leftJustified(45) + u'|' +
                                     u"CARDIOLOGIA"_qs.leftJustified(45) + u"|0|3|11"_qs));
        EXPECT_EQ(people[4],
                  QString(u"HOME"_qs.leftJustified(45) + u'|' + u"HOME"_qs.leftJustified(45) + u"|1|0|0"_qs));
        EXPECT_EQ(screen.text(u"cboPro"_qs), u"") << "nobody is chosen for the user";
        for (const QString& control : {u"cboCH"_qs, u"cboDia"_qs, u"txtHR"_qs, u"Command1"_qs})
            EXPECT_FALSE(screen.enabled(control)) << control.toStdString();
        doubleClickBelow(screen);

        const QList<QPair<QString, QStringList>> places = {{u"CARLA"_qs, {clinic}},
                                                           {u"ANA|BIA"_qs, {home}},
                                                           {u"BRUNO"_qs, {clinic, home}},
                                                           {u"HOME"_qs, {home}}};
        for (const auto& [person, offered] : places) {
            screen.choose(u"cboPro"_qs, person);
            EXPECT_EQ(items(screen, u"cboCH"_qs), offered) << person.toStdString();
            EXPECT_EQ(screen.text(u"cboCH"_qs), u"");
            EXPECT_EQ(screen.focused(), u"cboCH");
        }
        fill(screen, u"1"_qs, u"7"_qs, u"8:00"_qs);
        screen.click(u"Command1"_qs);
        screen.press(Qt::Key_Escape);
    });
    EXPECT_EQ(rows(u"select idlic,idpro,idesp,ondeatd,dia,hr,evcad,evup from diahr"_qs),
              (QList<QStringList>{{u"C1"_qs, u"0"_qs, u"0"_qs, u"1"_qs, u"7 - SÁBADO"_qs, u"8:00"_qs,
                                   boundStamp, u"MARIA- 16/03/2026 08:30:15"_qs}}));
}

TEST_F(Hours, TimesAreKeptAsTypedOrRefused)
{
    const QString invalid = u"--- ERRO --- HORÁRIOS POSSUI HORA INVÁLIDA!"_qs;
    const QStringList good = {u"8:15/9:20/13:30"_qs, u"8:5"_qs, u"0:00/23:59"_qs, u"8/14:30"_qs,
                              u"8:15:99"_qs};
    const QStringList bad = {u"24:00"_qs,           u"10:60"_qs,   u"-1:00"_qs, u"8:15/"_qs,
                             u"/8:15"_qs,           u"8:"_qs,

                             u"8:15/9:20/25:00"_qs, u"OITO:00"_qs, u"24"_qs,    u"9999999999999999999:00"_qs};
    dialogs.expect(u"--- ERRO --- DADOS INCORRETO!"_qs, u"ATENÇÃO"_qs);
    dialogs.expect(u"--- ERRO --- DADOS INCORRETO!"_qs);
    dialogs.expect(u"--- ERRO --- INFORME O(s) HORÁRIO(s)"_qs, u"ATENÇÃO"_qs);
    for (int i = 0; i < bad.size(); ++i)
        dialogs.expect(invalid, u"Atenção"_qs);
    dialogs.expect(u"--- ERRO --- DADOS INCORRETO!"_qs);
    open<frmCadHorarios>([&](ScreenDriver& screen) {
        screen.choose(u"cboPro"_qs, u"CARLA"_qs);
        screen.click(u"Command1"_qs);
        screen.choose(u"cboCH"_qs, u"0"_qs);
        screen.click(u"Command1"_qs);
        fill(screen, u"0"_qs, u"2"_qs, u"  "_qs);
        screen.click(u"Command1"_qs);
        for (const QString& hours : good + bad) {
            screen.type(u"txtHR"_qs, hours);
            screen.click(u"Command1"_qs);
            if (good.contains(hours)) {
                EXPECT_EQ(screen.focused(), u"cboDia") << hours.toStdString();
            }
        }
        EXPECT_EQ(screen.grid(u"DataGrid2"_qs).size(), good.size());
        screen.choose(u"cboPro"_qs, u"SEM"_qs);
        fill(screen, u"0"_qs, u"2"_qs, u"8:00"_qs);
        screen.click(u"Command1"_qs);
        screen.press(Qt::Key_Escape);
    });
    QStringList kept;
    for (
        const QStringList& row : rows(
            u"select hr from diahr where idpro = 11 and idesp = 3 and dia = '2 - SEGUNDA-FEIRA' order by idreg"_qs))
        kept << row[0];
    EXPECT_EQ(kept, good) << "several rows of one day, all of them";
}

TEST_F(Hours, ARowIsDeletedAfterTheQuestion)
{
    execute(u"insert into diahr (idlic,idpro,dia,hr,ondeatd,idesp) values ('C1',12,'2 - "
            u"SEGUNDA-FEIRA','9:00','1',3),"
            "('C1',12,'3 - TERÇA-FEIRA','9:00','0',3),('C1',12,'2 - SEGUNDA-FEIRA','7:00','0',3),"
            "('C1',11,'2 - SEGUNDA-FEIRA','6:00','0',3),('C2',12,'2 - SEGUNDA-FEIRA','5:00','0',3)"_qs);
    dialogs.expectQuestion(u"Confirma a exclusão?"_qs, false, u"Atenção"_qs);
    dialogs.expectQuestion(u"Confirma a exclusão?"_qs, true, u"Atenção"_qs);
    open<frmCadHorarios>([&](ScreenDriver& screen) {
        screen.choose(u"cboPro"_qs, u"BRUNO"_qs);
        QStringList hours;
        for (const QStringList& row : screen.grid(u"DataGrid2"_qs))
            hours << row[2] + u' ' + row[0].left(1) + u' ' + row[1];
        EXPECT_EQ(hours, (QStringList{u"0 2 7:00"_qs, u"0 3 9:00"_qs, u"1 2 9:00"_qs}));
        doubleClickBelow(screen);
        screen.doubleClickRow(u"DataGrid2"_qs, 1);
        EXPECT_EQ(value(u"select count(*) from diahr"_qs), u"5");
        screen.doubleClickRow(u"DataGrid2"_qs, 1);
        EXPECT_EQ(screen.grid(u"DataGrid2"_qs).size(), 2);
        screen.press(Qt::Key_Escape);
    });
    EXPECT_EQ(value(u"select group_concat(hr order by idreg) from diahr"_qs), u"9:00,7:00,6:00,5:00");
}

TEST_F(Holidays, ADayThatThisYearHasIsSaved)
{
    const struct
    {
        int year;
        QString day, month;
        QString refusal;
    } attempts[] = {
        {2026, {}, {}, u"--- ERRO -- DADOS INCOMPLETOS!"_qs},
        {2026, u"25"_qs, {}, u"--- ERRO -- DADOS INCOMPLETOS!"_qs},
        {2026, u"31"_qs, u"4,"_qs, u"--- ERRO --- DIA / MÊS INVÁLIDO!"_qs},
        {2026, u"29"_qs, u"2,"_qs, u"--- ERRO --- DIA / MÊS INVÁLIDO!"_qs},
        {2028, u"29"_qs, u"2,"_qs, {}},
        {2026, u"1"_qs, u"3,"_qs, {}},
    };
    for (const auto& attempt : attempts)
        if (!attempt.refusal.isEmpty())
            dialogs.expect(attempt.refusal, u"ATENÇÃO"_qs);
    open<frmCadFeriados>([&](ScreenDriver& screen) {
        EXPECT_EQ(screen.window().windowTitle(), u"Calendário de Feriados");
        EXPECT_EQ(items(screen, u"cboDia"_qs).size(), 31);
        EXPECT_EQ(items(screen, u"cboMes"_qs).mid(1, 2), (QStringList{u"2, FEVEREIRO"_qs, u"3, MARÇO"_qs}));
        doubleClickBelow(screen);
        for (const auto& attempt : attempts) {
            clock.set(QDateTime(QDate(attempt.year, 3, 16), QTime(8, 30, 15)));
            if (!attempt.day.isEmpty())
                screen.choose(u"cboDia"_qs, attempt.day);
            if (!attempt.month.isEmpty())
                screen.choose(u"cboMes"_qs, attempt.month);
            screen.type(u"txtobs"_qs, u"festa d'água"_qs);
            screen.click(u"Command1"_qs);
            const bool saved = attempt.refusal.isEmpty();
            EXPECT_EQ(screen.text(u"txtobs"_qs), saved ? u""_qs : u"FESTA D'ÁGUA"_qs);
            if (saved) {
                EXPECT_EQ(screen.focused(), u"cboDia");
            }
        }
        screen.press(Qt::Key_Escape);
    });
    EXPECT_EQ(rows(u"select idlic,dia,mes,nmes,obs,evcad,evup from feriados order by mes desc"_qs),
              (QList<QStringList>{
                  {u"C1"_qs, u"1"_qs, u"3"_qs, u"MARÇO"_qs, u"FESTA D'ÁGUA"_qs, boundStamp, boundStamp},
                  {u"C1"_qs, u"29"_qs, u"2"_qs, u"FEVEREIRO"_qs, u"FESTA D'ÁGUA"_qs,
                   u"MARIA - 16/03/2028 08:30:15"_qs, u"MARIA - 16/03/2028 08:30:15"_qs}}));
}

TEST_F(Holidays, ASecondSaveChangesTheRemarkAndADoubleClickDeletes)
{
    execute(u"insert into feriados (idlic,dia,Mes,nMes,obs,evcad,evup) values "
            u"('C1',25,12,'DEZEMBRO','VELHO','A','B'),"
            "('C1',12,10,'OUTUBRO','X','A','B'),('C1',7,9,'SETEMBRO','X','A','B'),('C1',2,12,'DEZEMBRO','X','"
            "A','B'),"
            "('C2',25,12,'DEZEMBRO','DE OUTRO','A','B')"_qs);
    dialogs.expectQuestion(u"Confirma a exclusão?"_qs, false, u"Atenção"_qs);
    dialogs.expectQuestion(u"Confirma a exclusão?"_qs, true, u"Atenção"_qs);
    open<frmCadFeriados>([&](ScreenDriver& screen) {
        QStringList days;
        for (const QStringList& row : screen.grid(u"DataGrid2"_qs))
            days << row[0] + u' ' + row[1];
        EXPECT_EQ(days,
                  (QStringList{u"7 SETEMBRO"_qs, u"12 OUTUBRO"_qs, u"2 DEZEMBRO"_qs, u"25 DEZEMBRO"_qs}));
        screen.doubleClickRow(u"DataGrid2"_qs, 1);
        screen.choose(u"cboDia"_qs, u"25"_qs);
        screen.choose(u"cboMes"_qs, u"12"_qs);
        screen.type(u"txtobs"_qs, u"natal"_qs);
        screen.click(u"Command1"_qs);
        EXPECT_EQ(screen.grid(u"DataGrid2"_qs).size(), 1) << "the saved row alone";
        screen.choose(u"cboDia"_qs, u"7"_qs);
        screen.choose(u"cboMes"_qs, u"9"_qs);
        screen.type(u"txtobs"_qs, u"y"_qs);
        screen.click(u"Command1"_qs);
        screen.doubleClickRow(u"DataGrid2"_qs, 0);
        EXPECT_EQ(screen.grid(u"DataGrid2"_qs).size(), 3) << "all that are left";
        screen.press(Qt::Key_Escape);
    });
    EXPECT_EQ(rows(u"select idlic,dia,mes,obs,evcad,evup from feriados order by idlic,mes,dia"_qs),
              (QList<QStringList>{{u"C1"_qs, u"12"_qs, u"10"_qs, u"X"_qs, u"A"_qs, u"B"_qs},
                                  {u"C1"_qs, u"2"_qs, u"12"_qs, u"X"_qs, u"A"_qs, u"B"_qs},
                                  {u"C1"_qs, u"25"_qs, u"12"_qs, u"NATAL"_qs, u"A"_qs, boundStamp},
                                  {u"C2"_qs, u"25"_qs, u"12"_qs, u"DE OUTRO"_qs, u"A"_qs, u"B"_qs}}));
}
