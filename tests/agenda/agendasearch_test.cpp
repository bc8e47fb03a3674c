#include "agenda/frmcli_agenda_pesquisa.h"
#include "app/shell_fixture.h"

using namespace Qt::StringLiterals;

using namespace Variaveis;

namespace {

/// The clock stands on 16/03/2026.
class AgendaSearch : public LoggedIn
{
protected:
    AgendaSearch()
    {
        execute(u"insert into profissionais (idpro,idlic,nmpro,ondeatd) values (12,'C1','DRA. ANA','0');"
                "insert into procedimentos (idproc,idlic,nmproc,ondeatd) values (3,'C1','CONSULTA','0');"
                "insert into agenda_clinica (idlic,idagenda,idpro,idproc,dia,hr,nmpac,fone) values "
                "('C1','a',12,3,'2026/03/15','08:00','MARIA ONTEM','1'),"
                "('C1','b',12,3,'2026/03/16','07:00','MARIA HOJE','2'),"
                "('C1','c',0,3,'2026/04/02','09:30','ANA MARIA','3'),"
                "('C1','d',12,9,'2026/03/20','10:00','ANA MARIA','4'),"
                "('C1','e',12,3,'2026/03/20','09:00','ANA MARIA','5'),"
                "('C1','f',12,3,'2026/03/20','09:00','BEATRIZ','6'),"
                "('C2','g',12,3,'2026/03/20','09:00','MARIA ALHEIA','7')"_s);
        RetornoCodigo = u"12"_s;
        RetornoNome = u"DRA. ANA"_s;
    }
};

} // namespace

TEST_F(AgendaSearch, FindsTheAppointmentsFromTodayOnOfAllProfessionals)
{
    on<frmCli_Agenda_Pesquisa>([](ScreenDriver& screen) {
        EXPECT_EQ(screen.focused(), u"txtnmpac");
        EXPECT_FALSE(screen.enabled(u"Command1"_s));
        screen.type(u"txtnmpac"_s, u"maria"_s);
        EXPECT_EQ(screen.grid(u"DataGrid1"_s),
                  (QList<QStringList>{
                      u"ANA MARIA|20/03/2026|09:00|5|CONSULTA|DRA. ANA"_s.split(u'|'),
                      u"ANA MARIA|20/03/2026|10:00|4||DRA. ANA"_s.split(u'|'),
                      u"ANA MARIA|02/04/2026|09:30|3|CONSULTA|"_s.split(u'|'), // at home
                      u"MARIA HOJE|16/03/2026|07:00|2|CONSULTA|DRA. ANA"_s.split(u'|'),
                  }));
    });
    EXPECT_EQ(RetornoCodigo + RetornoNome, u"") << "given up";
}

TEST_F(AgendaSearch, EachKeystrokeSearchesAndAnEmptyBoxEmptiesTheGrid)
{
    open<frmCli_Agenda_Pesquisa>([](ScreenDriver& screen) {
        const auto rows = [&screen] { return screen.grid(u"DataGrid1"_s).size(); };
        screen.press(Qt::Key_F10); // nothing searched yet
        screen.typeOn(u"z"_s);
        EXPECT_EQ(rows(), 1);
        screen.typeOn(u"x"_s);
        EXPECT_EQ(rows(), 0);
        screen.press(Qt::Key_F10);
        EXPECT_TRUE(screen.isOpen()) << "there is no row to choose";
        screen.press(Qt::Key_Backspace);
        EXPECT_EQ(rows(), 1);
        screen.type(u"txtnmpac"_s, u"  "_s);
        EXPECT_EQ(rows(), 0) << "blanks find nobody, though every name would hold them";
        EXPECT_FALSE(screen.enabled(u"Command1"_s));
        screen.typeOn(u"beatriz"_s);
        EXPECT_EQ(rows(), 0) << "the blanks belong to the part of the name";
        screen.window().close();
    });
    EXPECT_EQ(RetornoCodigo + RetornoNome, u"");
}

TEST_F(AgendaSearch, TheChosenRowGoesBackAsDayAndTime)
{
    open<frmCli_Agenda_Pesquisa>([](ScreenDriver& screen) {
        screen.typeOn(u"maria"_s);
        screen.press(Qt::Key_Return);
        EXPECT_EQ(screen.focused(), u"DataGrid1");
        screen.press(Qt::Key_Down);
        screen.press(Qt::Key_Down);
        screen.press(Qt::Key_F10);
    });
    EXPECT_EQ(RetornoCodigo + u' ' + RetornoNome, u"02/04/2026 09:30");
    open<frmCli_Agenda_Pesquisa>([](ScreenDriver& screen) {
        EXPECT_EQ(screen.text(u"txtnmpac"_s), u"") << "a fresh search";
        screen.typeOn(u"maria"_s);
        screen.doubleClickRow(u"DataGrid1"_s, 1);
    });
    EXPECT_EQ(RetornoCodigo + u' ' + RetornoNome, u"20/03/2026 10:00");
}
