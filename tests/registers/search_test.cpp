#include "app/shell_fixture.h"
#include "platform/data/error.h"
#include "registers/buscas.h"
#include "support/caughterrors.h"

using namespace Variaveis;

namespace {

class Searches : public LoggedIn
{
protected:
    /// Opens the dialog and searches with F2 for each text; returns the names that it then shows.
    template <class Dialog>
    void shows(const std::optional<QString>& text, const QStringList& names, int column = 1)
    {
        if (text)
            dialogs.expectInput(u"NOME:"_qs, *text);
        open<Dialog>([&](ScreenDriver& screen) {
            if (text)
                screen.press(Qt::Key_F2);
            QStringList shown;
            for (const QStringList& row : screen.grid(u"DataGrid1"_qs))
                shown << row[column];
            EXPECT_EQ(shown, names) << screen.window().windowTitle().toStdString();
            EXPECT_EQ(screen.focused(), u"DataGrid1");
            screen.press(Qt::Key_Escape);
        });
        EXPECT_EQ(RetornoCodigo, u"");
    }
};

} // namespace

TEST_F(Searches, FindsChoosesAndGivesUp)
{
    execute(
        u"insert into convenios (idlic,nmconv) values ('C1','PRATA'),('C1','OURO'),('C2','OURO FINO'),('C1','BOURON')"_qs);
    dialogs.expectInput(u"NOME:"_qs, u"our"_qs, u"PESQUISA PELO NOME"_qs);
    dialogs.expectInput(u"NOME:"_qs, std::nullopt);
    dialogs.expectInput(u"NOME:"_qs, u""_qs);
    open<frmBuscaConvenios>([](ScreenDriver& screen) {
        EXPECT_EQ(screen.window().windowTitle(), u"Convênios - Pesquisa");
        EXPECT_EQ(screen.text(u"Command1"_qs), u"F2 PESQUISA NOME");
        EXPECT_EQ(screen.text(u"Command5"_qs), u"F10 SELECIONAR");
        EXPECT_EQ(screen.text(u"Command6"_qs), u"F12 NOVO");
        EXPECT_FALSE(screen.visible(u"Command2"_qs));
        screen.press(Qt::Key_F2);
        EXPECT_EQ(screen.grid(u"DataGrid1"_qs).size(), 2);
        screen.click(u"Command1"_qs); // cancelled: the list stays
        EXPECT_EQ(screen.grid(u"DataGrid1"_qs).size(), 2);
        screen.press(Qt::Key_F2);
        EXPECT_EQ(screen.grid(u"DataGrid1"_qs).size(), 3);
        screen.press(Qt::Key_Down);
        screen.press(Qt::Key_F10);
    });
    EXPECT_EQ(RetornoCodigo, u"2");
    EXPECT_EQ(RetornoNome, u"OURO");

    open<frmBuscaConvenios>([](ScreenDriver& screen) { screen.doubleClickRow(u"DataGrid1"_qs, 2); });
    EXPECT_EQ(RetornoNome, u"PRATA");
    open<frmBuscaConvenios>([](ScreenDriver& screen) { screen.press(Qt::Key_Escape); });
    EXPECT_EQ(RetornoCodigo + RetornoNome, u"") << "whatever was chosen before";
    RetornoCodigo = u"7"_qs;
    open<frmBuscaConvenios>([](ScreenDriver& screen) { screen.window().close(); });
    EXPECT_EQ(RetornoCodigo, u"");
}

TEST_F(Searches, EachShowsItsTenantsRowsInOrder)
{
    execute(u"insert into especialidades (idlic,nmesp) values ('C1','B'),('C1','A'),('C2','A2');"
            "insert into grupoestoque (idlic,dsgrupo) values ('C1','B'),('C1','A'),('C2','A2');"
            "insert into centrocusto (idlic,nmcen) values ('C1','B'),('C1','A'),('C2','A2');"
            "insert into subcentrocusto (idlic,nmscen) values ('C1','B'),('C1','A'),('C2','A2');"
            "insert into procedimentos (idlic,nmproc,ondeatd) values "
            "('C1','B','0'),('C1','A','0'),('C1','CASA A','1'),('C2','A2','0')"_qs);
    const QStringList all = {u"A"_qs, u"B"_qs};
    const QStringList found = {u"A"_qs};
    shows<frmBuscaEspecialidades>({}, all);
    shows<frmBuscaEspecialidades>(u"a"_qs, found);
    shows<frmBuscaGrupo>({}, all);
    shows<frmBuscaGrupo>(u"a"_qs, found);
    shows<frmBuscaCentroCusto>({}, all);
    shows<frmBuscaCentroCusto>(u"a"_qs, found);
    shows<frmBuscaSubCentroCusto>({}, all);
    shows<frmBuscaSubCentroCusto>(u"a"_qs, found);
    RetornoCodigo = u"1"_qs; // whoever asks: the clinic's procedures
    shows<frmBuscaProcedimentos>({}, all);
    shows<frmBuscaProcedimentos>(u"a"_qs, found);
}

TEST_F(Searches, TheRegisterOpensToWhoMayOpenIt)
{
    dialogs.expect(u"Perfil sem permissão!"_qs, u"Atenção"_qs);
    open<frmBuscaConvenios>([this](ScreenDriver& screen) {
        modal.expect(u"frmCadConvenios"_qs, [](ScreenDriver& plans) {
            plans.type(u"txtnome"_qs, u"novo"_qs);
            plans.type(u"txtPDesc"_qs, u"0"_qs);
            plans.click(u"cmdsalva"_qs);
            plans.press(Qt::Key_Escape);
        });
        screen.press(Qt::Key_F12);
        EXPECT_EQ(screen.grid(u"DataGrid1"_qs).size(), 1) << "the new row is there";
        Menu::principal().setEnabled(u"cadConv"_qs, false);
        screen.click(u"Command6"_qs);
        screen.press(Qt::Key_F10);
    });
    EXPECT_EQ(RetornoNome, u"NOVO") << "and can still be chosen";
}

TEST_F(Searches, CostCentresAskForARowWithAnEmptyUser)
{
    for (int i = 0; i < 2; ++i)
        dialogs.expect(u"--- Perfil não autorizado!"_qs, u"Atenção"_qs);
    open<frmBuscaCentroCusto>([](ScreenDriver& screen) {
        screen.press(Qt::Key_F12);
        screen.press(Qt::Key_Escape);
    });
    EXPECT_EQ(Resultado.toString(), u"1");
    addRight(u"C1"_qs, u"MARIA"_qs, u"ctpgcadscen"_qs, u"0"_qs);
    open<frmBuscaSubCentroCusto>([](ScreenDriver& screen) {
        screen.press(Qt::Key_F12);
        screen.press(Qt::Key_Escape);
    });
    addRight(u"C2"_qs, u""_qs, u"ctpgcadscen"_qs, u"0"_qs); // of whatever tenant
    open<frmBuscaSubCentroCusto>([this](ScreenDriver& screen) {
        modal.expect(u"frmCadSubCentro"_qs, [](ScreenDriver& centres) { centres.press(Qt::Key_Escape); });
        screen.press(Qt::Key_F12);
        screen.press(Qt::Key_Escape);
    });
}

TEST_F(Searches, SelectingInAnEmptyGridIsAnError)
{
    const CaughtErrors errors;
    open<frmBuscaEspecialidades>([](ScreenDriver& screen) {
        screen.press(Qt::Key_F10);
        screen.press(Qt::Key_Escape);
    });
    EXPECT_EQ(errors.numbers(), QList<int>{ADODB::Error::NoCurrentRow});
}
