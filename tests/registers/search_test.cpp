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
        QString entry, refusal, opens;
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
    QString found(Qt::Key key, const QString& prompt, const QString& text)
    {
        dialogs.expectInput(prompt, text);
        QString shown;
        on<Screen>([&](ScreenDriver& screen) {
            screen.press(key);
            shown = names(screen);
        });
        return shown;
    }
};

} // namespace

TEST_F(Searches, EachFindsChoosesAndOpensItsRegister)
{
    const QString plain = u"Perfil sem permissão!"_s;
    const QString people = u"Perfil não autorizado!"_s;
    const QString byPatient = u"PESQUISA PELO NOME DO PACIENTE"_s;
    const QString centres = u"--- Perfil não autorizado!"_s;
    walk<frmBuscaConvenios>({u"cadConv"_s, plain, u"frmCadConvenios"_s});
    walk<frmBuscaEspecialidades>({u"cadEsp"_s, plain, u"frmCadEspecialidade"_s});
    walk<frmBuscaGrupo>({u"cadgru"_s, plain, u"frmCadGrupoEstoque"_s});
    walk<frmBuscaProcedimentos>({u"cadproc"_s, plain, u"frmCadProcedimentos"_s});
    walk<frmBuscaFornecedor>({u"cadfor"_s, plain, u"frmCadFor"_s});
    walk<frmBuscaPacientes>({u"cadPac"_s, people, u"frmcadcli"_s, byPatient});
    walk<frmBuscaProf>({u"cadProf"_s, people, u"frmCadProfissionais"_s, byPatient});
    walk<frmBuscaCentroCusto>(
        {.entry = u"ctpgcadcen"_s, .refusal = centres, .opens = u"frmCadCentroCusto"_s, .rightByRow = true});
    walk<frmBuscaSubCentroCusto>(
        {.entry = u"ctpgcadscen"_s, .refusal = centres, .opens = u"frmCadSubCentro"_s, .rightByRow = true});
    walk<frmBuscaProd>({.entry = u"cadinsi"_s,
                        .refusal = plain,
                        .opens = u"frmCadProduto"_s,
                        .newKey = Qt::Key_F5,
                        .afterEnter = u"DataGrid1"_s,
                        .code = u"ANA"_s,
                        .name = u"BEFORE"_s});
}

TEST_F(Searches, TheListOfASearchStaysUntilTheNext)
{
    dialogs.expectInput(u"NOME:"_s, u"bi"_s);
    dialogs.expectInput(u"NOME:"_s, std::nullopt);
    dialogs.expectInput(u"NOME:"_s, u""_s);
    open<frmBuscaConvenios>([this](ScreenDriver& screen) {
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
    EXPECT_EQ(found<frmBuscaFornecedor>(Qt::Key_F3, u"APELIDO:"_s, u"x"_s), u"BIA ANA") << "XAIB, XANA";
    EXPECT_EQ(found<frmBuscaFornecedor>(Qt::Key_F4, u"CPF/CNPJ:"_s, u"1"_s), own);
    EXPECT_EQ(found<frmBuscaFornecedor>(Qt::Key_F5, u"FONE:"_s, u"11"_s), own);
    EXPECT_EQ(found<frmBuscaFornecedor>(Qt::Key_F5, u"FONE:"_s, u"22"_s), all);

    const QString phone = u"TELEFONE:"_s;
    EXPECT_EQ(found<frmBuscaPacientes>(Qt::Key_F3, phone, u"11"_s), own);
    EXPECT_EQ(found<frmBuscaPacientes>(Qt::Key_F3, phone, u"22"_s), all);
    EXPECT_EQ(found<frmBuscaPacientes>(Qt::Key_F3, phone, u"33"_s), all);

    // Only the last branch carries the place: somebody of the clinic is found by the first telephone.
    EXPECT_EQ(found<frmBuscaProf>(Qt::Key_F3, phone, u"11"_s), u"ANA ANA CLINICA BIA");
    EXPECT_EQ(found<frmBuscaProf>(Qt::Key_F3, phone, u"22"_s), all);
}

TEST_F(Searches, ChoosingWhereNoRowIs)
{
    idlic = u"C3"_s;
    const CaughtErrors errors;
    on<frmBuscaPacientes>([](ScreenDriver& screen) { screen.press(Qt::Key_F10); });
    EXPECT_EQ(errors.numbers(), QList<int>());
    on<frmBuscaEspecialidades>([](ScreenDriver& screen) { screen.press(Qt::Key_F10); });
    EXPECT_EQ(errors.numbers(), QList<int>{ADODB::Error::NoCurrentRow});
}
