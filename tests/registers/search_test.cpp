#include "app/shell_fixture.h"
#include "platform/data/error.h"
#include "registers/telasdebusca.h"
#include "support/caughterrors.h"

using namespace Qt::StringLiterals;

using namespace Variaveis;

namespace {

/// Every table holds BIA and ANA of the tenant, with the codes 1 and 2, and ANABEL of another one, all with
/// the same telephones; ANA also as a procedure done at home and as a professional of the clinic.
class Searches : public LoggedIn
{
protected:
    struct Dialog
    {
        QString caption, entry, refusal, opens;
        QString searchTitle = u"PESQUISA PELO NOME"_s;
        Qt::Key newKey = Qt::Key_F12;
        bool rightByRow = false;
        QString afterEnter = u"Command1"_s;
        QString code = u"2"_s;
        QString name = u"ANA"_s;
    };

    Searches()
    {
        for (const auto& [tenant, name] :
             {std::pair(u"C1"_s, u"BIA"_s), std::pair(u"C1"_s, u"ANA"_s), std::pair(u"C2"_s, u"ANABEL"_s)})
            execute(u"insert into convenios (idlic,nmconv,pdesc) values ('%1','%2',0);"
                    "insert into especialidades (idlic,nmesp) values ('%1','%2');"
                    "insert into procedimentos (idlic,nmproc,ondeatd) values ('%1','%2','0');"
                    "insert into grupoestoque (idlic,dsgrupo) values ('%1','%2');"
                    "insert into centrocusto (idlic,nmcen) values ('%1','%2');"
                    "insert into subcentrocusto (idlic,nmscen) values ('%1','%2');"
                    "insert into pacientes (idlic,nmPac,fonepac,fonecel,foneresp) values "
                    "('%1','%2','11','22','33');"
                    "insert into profissionais (idlic,nmpro,fonefixo,fonecel,idesp,ondeatd) values "
                    "('%1','%2','11','22',2,'2');"
                    "insert into fornecedores (idlic,nmfor,nmfant,cpf,fonefixo,fonecel) values "
                    "('%1','%2',concat('X',reverse('%2')),'1','11','22');"
                    "insert into produtos (idlic,cdpro,dspro) values ('%1','%2','%2')"_s.arg(tenant, name));
        execute(u"insert into procedimentos (idlic,nmproc,ondeatd) values ('C1','ANA CASA','1');"
                "insert into profissionais (idlic,nmpro,fonefixo,fonecel,ondeatd) values "
                "('C1','ANA CLINICA','11','22','0')"_s);
    }

    static QString names(const ScreenDriver& screen) { return column(screen, u"DataGrid1"_s, 1); }

    /// Gives the right to the register, or takes it. A row of the rights counts with an empty user, of
    /// whatever tenant.
    static void allow(const Dialog& dialog, bool on)
    {
        if (!dialog.rightByRow)
            return Menu::principal().setEnabled(dialog.entry, on);
        if (on)
            return addRight(u"C2"_s, u""_s, dialog.entry, u"0"_s);
        execute(u"update perfilusuario set nmusuario = 'MARIA'"_s);
    }

    /// The list, the search by name, the way to the register and the choice.
    template <class Screen>
    void walk(const Dialog& dialog)
    {
        SCOPED_TRACE(Screen::staticMetaObject.className());
        const QString grid = u"DataGrid1"_s;
        dialogs.expectInput(u"NOME:"_s, u"ana"_s, dialog.searchTitle);
        dialogs.expect(dialog.refusal, u"Atenção"_s);
        allow(dialog, true);
        RetornoCodigo = u"1"_s; // procedures of the clinic are shown to whoever asks
        RetornoNome = u"BEFORE"_s;
        open<Screen>([&](ScreenDriver& screen) {
            EXPECT_EQ(screen.window().windowTitle(), dialog.caption);
            EXPECT_EQ(names(screen), u"ANA BIA");
            EXPECT_EQ(screen.focused(), grid);
            screen.press(Qt::Key_Return);
            EXPECT_EQ(screen.focused(), dialog.afterEnter);
            screen.press(Qt::Key_F2);
            EXPECT_EQ(names(screen), u"ANA");
            EXPECT_EQ(screen.focused(), grid);
            answer(dialog.opens, {Qt::Key_Escape});
            screen.press(dialog.newKey);
            allow(dialog, false);
            screen.press(dialog.newKey);
            screen.press(Qt::Key_F10);
        });
        EXPECT_EQ(RetornoCodigo, dialog.code);
        EXPECT_EQ(RetornoNome, dialog.name);
        open<Screen>([](ScreenDriver& screen) { screen.press(Qt::Key_Escape); });
        EXPECT_EQ(RetornoCodigo + RetornoNome, u"") << "whatever was chosen before";
    }

    /// What the search under the key shows for the text.
    template <class Screen>
    QString found(Qt::Key key, const QString& title, const QString& prompt, const QString& text)
    {
        dialogs.expectInput(prompt, text, title);
        QString shown;
        on<Screen>([&](ScreenDriver& screen) {
            screen.press(key);
            shown = names(screen);
        });
        return shown;
    }

    /// The errors of a choice where no row is.
    template <class Screen>
    QList<int> choosesNothing()
    {
        const CaughtErrors errors;
        on<Screen>([](ScreenDriver& screen) { screen.press(Qt::Key_F10); });
        return errors.numbers();
    }
};

} // namespace

TEST_F(Searches, EachFindsChoosesAndOpensItsRegister)
{
    const auto plain = [](const QString& caption, const QString& entry, const QString& opens) {
        return Dialog{caption, entry, u"Perfil sem permissão!"_s, opens};
    };
    const auto people = [](const QString& caption, const QString& entry, const QString& opens) {
        return Dialog{caption, entry, u"Perfil não autorizado!"_s, opens,
                      u"PESQUISA PELO NOME DO PACIENTE"_s};
    };
    const auto centres = [](const QString& caption, const QString& entry, const QString& opens) {
        Dialog dialog{caption, entry, u"--- Perfil não autorizado!"_s, opens};
        dialog.rightByRow = true;
        return dialog;
    };
    walk<frmBuscaConvenios>(plain(u"Convênios - Pesquisa"_s, u"cadConv"_s, u"frmCadConvenios"_s));
    walk<frmBuscaEspecialidades>(
        plain(u"Especialidades - Pesquisa"_s, u"cadEsp"_s, u"frmCadEspecialidade"_s));
    walk<frmBuscaGrupo>(plain(u"Pesquisa Grupo de Estoque"_s, u"cadgru"_s, u"frmCadGrupoEstoque"_s));
    walk<frmBuscaCentroCusto>(
        centres(u"Centro de Custos - Pesquisa"_s, u"ctpgcadcen"_s, u"frmCadCentroCusto"_s));
    walk<frmBuscaSubCentroCusto>(
        centres(u"SubCentro de Custos - Pesquisa"_s, u"ctpgcadscen"_s, u"frmCadSubCentro"_s));
    walk<frmBuscaProcedimentos>(plain(u"Procedimentos - Pesquisa"_s, u"cadproc"_s, u"frmCadProcedimentos"_s));
    walk<frmBuscaFornecedor>(plain(u"Pesquisa de Fornecedores"_s, u"cadfor"_s, u"frmCadFor"_s));
    walk<frmBuscaPacientes>(people(u"Pacientes - Pesquisa"_s, u"cadPac"_s, u"frmcadcli"_s));
    walk<frmBuscaProf>(people(u"Profissionais - Pesquisa"_s, u"cadProf"_s, u"frmCadProfissionais"_s));

    Dialog products = plain(u"Insumos - Pesquisa"_s, u"cadinsi"_s, u"frmCadProduto"_s);
    products.newKey = Qt::Key_F5;
    products.afterEnter = u"DataGrid1"_s;
    products.code = u"ANA"_s;
    products.name = u"BEFORE"_s;
    walk<frmBuscaProd>(products);
}

TEST_F(Searches, TheListOfASearchStaysUntilTheNext)
{
    dialogs.expectInput(u"NOME:"_s, u"bi"_s);
    dialogs.expectInput(u"NOME:"_s, std::nullopt);
    dialogs.expectInput(u"NOME:"_s, u""_s);
    open<frmBuscaConvenios>([this](ScreenDriver& screen) {
        EXPECT_EQ(shown(screen, u"Command1 Command5 Command6"_s),
                  u"F2 PESQUISA NOME|F10 SELECIONAR|F12 NOVO");
        EXPECT_FALSE(screen.visible(u"Command2"_s));
        screen.press(Qt::Key_F2);
        screen.click(u"Command1"_s); // cancelled
        EXPECT_EQ(names(screen), u"BIA");
        EXPECT_EQ(screen.focused(), u"DataGrid1");
        modal.expect(u"frmCadConvenios"_s, [](ScreenDriver& plans) {
            execute(u"insert into convenios (idlic,nmconv) values ('C1','BIANCA')"_s);
            plans.press(Qt::Key_Escape);
        });
        screen.click(u"Command6"_s);
        EXPECT_EQ(screen.focused(), u"DataGrid1");
        EXPECT_EQ(names(screen), u"BIA BIANCA");
        screen.press(Qt::Key_F2);
        EXPECT_EQ(names(screen), u"ANA BIA BIANCA");
        screen.press(Qt::Key_Down);
        screen.click(u"Command5"_s);
    });
    EXPECT_EQ(RetornoCodigo + RetornoNome, u"1BIA");
    open<frmBuscaConvenios>([](ScreenDriver& screen) { screen.doubleClickRow(u"DataGrid1"_s, 2); });
    EXPECT_EQ(RetornoNome, u"BIANCA");
}

TEST_F(Searches, WhatStandsBehindAnOrIsOfAnyTenant)
{
    const QString own = u"ANA BIA"_s;
    const QString all = u"ANA ANABEL BIA"_s;
    const auto supplier = [this](Qt::Key key, const QString& by, const QString& text) {
        return found<frmBuscaFornecedor>(key, u"PESQUISA PELO "_s + by, by + u':', text);
    };
    EXPECT_EQ(supplier(Qt::Key_F3, u"APELIDO"_s, u"x"_s), u"BIA ANA") << "XAIB, XANA";
    EXPECT_EQ(supplier(Qt::Key_F4, u"CPF/CNPJ"_s, u"1"_s), own);
    EXPECT_EQ(supplier(Qt::Key_F5, u"FONE"_s, u"11"_s), own);
    EXPECT_EQ(supplier(Qt::Key_F5, u"FONE"_s, u"22"_s), all);

    const QString byPhone = u"PESQUISA PELO TELEFONE"_s;
    const QString phone = u"TELEFONE:"_s;
    EXPECT_EQ(found<frmBuscaPacientes>(Qt::Key_F3, byPhone, phone, u"11"_s), own);
    EXPECT_EQ(found<frmBuscaPacientes>(Qt::Key_F3, byPhone, phone, u"22"_s), all);
    EXPECT_EQ(found<frmBuscaPacientes>(Qt::Key_F3, byPhone, phone, u"33"_s), all);

    // Only the last branch carries the place: somebody of the clinic is found by the first telephone.
    EXPECT_EQ(found<frmBuscaProf>(Qt::Key_F3, byPhone, phone, u"11"_s), u"ANA ANA CLINICA BIA");
    EXPECT_EQ(found<frmBuscaProf>(Qt::Key_F3, byPhone, phone, u"22"_s), all);
}

TEST_F(Searches, ChoosingWhereNoRowIs)
{
    idlic = u"C3"_s;
    EXPECT_EQ(choosesNothing<frmBuscaEspecialidades>(), QList<int>{ADODB::Error::NoCurrentRow});
    EXPECT_EQ(choosesNothing<frmBuscaPacientes>(), QList<int>());
    EXPECT_EQ(choosesNothing<frmBuscaProf>(), QList<int>());
    EXPECT_EQ(RetornoCodigo, u"");
}
