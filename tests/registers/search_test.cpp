#include "app/shell_fixture.h"
#include "platform/data/error.h"
#include "registers/buscas.h"
#include "support/caughterrors.h"

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
        QString searchTitle = u"PESQUISA PELO NOME"_qs;
        Qt::Key newKey = Qt::Key_F12;
        bool rightByRow = false;
        QString afterEnter = u"Command1"_qs;
        QString code = u"2"_qs;
        QString name = u"ANA"_qs;
    };

    Searches()
    {
        for (const auto& [tenant, name] : {std::pair(u"C1"_qs, u"BIA"_qs), std::pair(u"C1"_qs, u"ANA"_qs),
                                           std::pair(u"C2"_qs, u"ANABEL"_qs)})
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
                    "insert into produtos (idlic,cdpro,dspro) values ('%1','%2','%2')"_qs.arg(tenant, name));
        execute(u"insert into procedimentos (idlic,nmproc,ondeatd) values ('C1','ANA CASA','1');"
                "insert into profissionais (idlic,nmpro,fonefixo,fonecel,ondeatd) values "
                "('C1','ANA CLINICA','11','22','0')"_qs);
    }

    static QString names(const ScreenDriver& screen) { return column(screen, u"DataGrid1"_qs, 1); }

    /// Gives the right to the register, or takes it. A row of the rights counts with an empty user, of
    /// whatever tenant.
    static void allow(const Dialog& dialog, bool on)
    {
        if (!dialog.rightByRow)
            return Menu::principal().setEnabled(dialog.entry, on);
        if (on)
            return addRight(u"C2"_qs, u""_qs, dialog.entry, u"0"_qs);
        execute(u"update perfilusuario set nmusuario = 'MARIA'"_qs);
    }

    /// The list, the search by name, the way to the register and the choice.
    template <class Screen>
    void walk(const Dialog& dialog)
    {
        SCOPED_TRACE(Screen::staticMetaObject.className());
        const QString grid = u"DataGrid1"_qs;
        dialogs.expectInput(u"NOME:"_qs, u"ana"_qs, dialog.searchTitle);
        dialogs.expect(dialog.refusal, u"Atenção"_qs);
        allow(dialog, true);
        RetornoCodigo = u"1"_qs; // procedures of the clinic are shown to whoever asks
        RetornoNome = u"BEFORE"_qs;
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
        return Dialog{caption, entry, u"Perfil sem permissão!"_qs, opens};
    };
    const auto people = [](const QString& caption, const QString& entry, const QString& opens) {
        return Dialog{caption, entry, u"Perfil não autorizado!"_qs, opens,
                      u"PESQUISA PELO NOME DO PACIENTE"_qs};
    };
    const auto centres = [](const QString& caption, const QString& entry, const QString& opens) {
        Dialog dialog{caption, entry, u"--- Perfil não autorizado!"_qs, opens};
        dialog.rightByRow = true;
        return dialog;
    };
    walk<frmBuscaConvenios>(plain(u"Convênios - Pesquisa"_qs, u"cadConv"_qs, u"frmCadConvenios"_qs));
    walk<frmBuscaEspecialidades>(
        plain(u"Especialidades - Pesquisa"_qs, u"cadEsp"_qs, u"frmCadEspecialidade"_qs));
    walk<frmBuscaGrupo>(plain(u"Pesquisa Grupo de Estoque"_qs, u"cadgru"_qs, u"frmCadGrupoEstoque"_qs));
    walk<frmBuscaCentroCusto>(
        centres(u"Centro de Custos - Pesquisa"_qs, u"ctpgcadcen"_qs, u"frmCadCentroCusto"_qs));
    walk<frmBuscaSubCentroCusto>(
        centres(u"SubCentro de Custos - Pesquisa"_qs, u"ctpgcadscen"_qs, u"frmCadSubCentro"_qs));
    walk<frmBuscaProcedimentos>(
        plain(u"Procedimentos - Pesquisa"_qs, u"cadproc"_qs, u"frmCadProcedimentos"_qs));
    walk<frmBuscaFornecedor>(plain(u"Pesquisa de Fornecedores"_qs, u"cadfor"_qs, u"frmCadFor"_qs));
    walk<frmBuscaPacientes>(people(u"Pacientes - Pesquisa"_qs, u"cadPac"_qs, u"frmcadcli"_qs));
    walk<frmBuscaProf>(people(u"Profissionais - Pesquisa"_qs, u"cadProf"_qs, u"frmCadProfissionais"_qs));

    Dialog products = plain(u"Insumos - Pesquisa"_qs, u"cadinsi"_qs, u"frmCadProduto"_qs);
    products.newKey = Qt::Key_F5;
    products.afterEnter = u"DataGrid1"_qs;
    products.code = u"ANA"_qs;
    products.name = u"BEFORE"_qs;
    walk<frmBuscaProd>(products);
}

TEST_F(Searches, TheListOfASearchStaysUntilTheNext)
{
    dialogs.expectInput(u"NOME:"_qs, u"bi"_qs);
    dialogs.expectInput(u"NOME:"_qs, std::nullopt);
    dialogs.expectInput(u"NOME:"_qs, u""_qs);
    open<frmBuscaConvenios>([this](ScreenDriver& screen) {
        EXPECT_EQ(shown(screen, u"Command1 Command5 Command6"_qs),
                  u"F2 PESQUISA NOME|F10 SELECIONAR|F12 NOVO");
        EXPECT_FALSE(screen.visible(u"Command2"_qs));
        screen.press(Qt::Key_F2);
        screen.click(u"Command1"_qs); // cancelled
        EXPECT_EQ(names(screen), u"BIA");
        EXPECT_EQ(screen.focused(), u"DataGrid1");
        modal.expect(u"frmCadConvenios"_qs, [](ScreenDriver& plans) {
            execute(u"insert into convenios (idlic,nmconv) values ('C1','BIANCA')"_qs);
            plans.press(Qt::Key_Escape);
        });
        screen.click(u"Command6"_qs);
        EXPECT_EQ(screen.focused(), u"DataGrid1");
        EXPECT_EQ(names(screen), u"BIA BIANCA");
        screen.press(Qt::Key_F2);
        EXPECT_EQ(names(screen), u"ANA BIA BIANCA");
        screen.press(Qt::Key_Down);
        screen.click(u"Command5"_qs);
    });
    EXPECT_EQ(RetornoCodigo + RetornoNome, u"1BIA");
    open<frmBuscaConvenios>([](ScreenDriver& screen) { screen.doubleClickRow(u"DataGrid1"_qs, 2); });
    EXPECT_EQ(RetornoNome, u"BIANCA");
}

TEST_F(Searches, WhatStandsBehindAnOrIsOfAnyTenant)
{
    const QString own = u"ANA BIA"_qs;
    const QString all = u"ANA ANABEL BIA"_qs;
    const auto supplier = [this](Qt::Key key, const QString& by, const QString& text) {
        return found<frmBuscaFornecedor>(key, u"PESQUISA PELO "_qs + by, by + u':', text);
    };
    EXPECT_EQ(supplier(Qt::Key_F3, u"APELIDO"_qs, u"x"_qs), u"BIA ANA") << "XAIB, XANA";
    EXPECT_EQ(supplier(Qt::Key_F4, u"CPF/CNPJ"_qs, u"1"_qs), own);
    EXPECT_EQ(supplier(Qt::Key_F5, u"FONE"_qs, u"11"_qs), own);
    EXPECT_EQ(supplier(Qt::Key_F5, u"FONE"_qs, u"22"_qs), all);

    const QString byPhone = u"PESQUISA PELO TELEFONE"_qs;
    const QString phone = u"TELEFONE:"_qs;
    EXPECT_EQ(found<frmBuscaPacientes>(Qt::Key_F3, byPhone, phone, u"11"_qs), own);
    EXPECT_EQ(found<frmBuscaPacientes>(Qt::Key_F3, byPhone, phone, u"22"_qs), all);
    EXPECT_EQ(found<frmBuscaPacientes>(Qt::Key_F3, byPhone, phone, u"33"_qs), all);

    // Only the last branch carries the place: somebody of the clinic is found by the first telephone.
    EXPECT_EQ(found<frmBuscaProf>(Qt::Key_F3, byPhone, phone, u"11"_qs), u"ANA ANA CLINICA BIA");
    EXPECT_EQ(found<frmBuscaProf>(Qt::Key_F3, byPhone, phone, u"22"_qs), all);
}

TEST_F(Searches, ChoosingWhereNoRowIs)
{
    idlic = u"C3"_qs;
    EXPECT_EQ(choosesNothing<frmBuscaEspecialidades>(), QList<int>{ADODB::Error::NoCurrentRow});
    EXPECT_EQ(choosesNothing<frmBuscaPacientes>(), QList<int>());
    EXPECT_EQ(choosesNothing<frmBuscaProf>(), QList<int>());
    EXPECT_EQ(RetornoCodigo, u"");
}
