#include "app/frmcadusuario.h"
#include "shell_fixture.h"

using namespace Variaveis;

namespace {

class Users : public LoggedIn
{
protected:
    static void name(ScreenDriver& screen, const QString& text) { enter(screen, u"Combo1"_qs, text); }

    static void passwords(ScreenDriver& screen, const QString& one, const QString& other)
    {
        screen.type(u"txtsenha"_qs, one);
        screen.type(u"txtoksenha"_qs, other);
    }

    static QString granted(const QString& user)
    {
        return value(u"select group_concat(trim(campo) order by campo) from perfilusuario "
                     "where idlic = 'C1' and nmusuario = '%1' and valor = '0'"_qs.arg(user));
    }
};

} // namespace

TEST_F(Users, ANewUserGetsARowForEveryEntry)
{
    dialogs.expect(u"Salvo com sucesso!"_qs, u"Atenção"_qs);
    on<frmcadusuario>([&](ScreenDriver& screen) {
        EXPECT_EQ(screen.window().windowTitle(), u"Usuários - Manutenção");
        EXPECT_EQ(screen.find(u"Command1"_qs)->toolTip(), u"Confirma os dados");
        EXPECT_EQ(screen.find(u"Command3"_qs)->toolTip(), u"Exclui um usuário cadastrado");
        EXPECT_EQ(screen.list(u"List1"_qs), QStringList());
        EXPECT_FALSE(screen.enabled(u"Command1"_qs));
        name(screen, u"recepção"_qs);
        const QStringList lines = screen.list(u"List1"_qs);
        ASSERT_EQ(lines.size(), 30);
        EXPECT_EQ(lines[1],
                  u"....Convênios                                                    - cadConv             ");
        EXPECT_EQ(lines[20], u"............Cadastrar Sub Centro de Custos                               - "
                             u"ctpgcadscen         ");

        passwords(screen, u"abc"_qs, u"ab"_qs);
        EXPECT_FALSE(screen.enabled(u"Command1"_qs));
        screen.typeOn(u"c"_qs);
        EXPECT_TRUE(screen.enabled(u"Command1"_qs));
        EXPECT_TRUE(screen.enabled(u"Command3"_qs));
        screen.clickRow(u"List1"_qs, 0);
        screen.clickRow(u"List1"_qs, 1);
        screen.clickRow(u"List1"_qs, 12);
        screen.click(u"Command1"_qs);

        EXPECT_EQ(shown(screen, u"Combo1 txtsenha"_qs), u"|");
        EXPECT_TRUE(screen.list(u"List1"_qs).isEmpty());
        EXPECT_FALSE(screen.enabled(u"Command1"_qs));
    });
    EXPECT_EQ(RetornoCodigo, u"N");
    EXPECT_EQ(flat(u"select idlic,ususenha,evcad,evup from usuarios where nmusuario = 'RECEPÇÃO'"_qs),
              QStringList{u"C1|ABC|%1|%1"_qs.arg(boundStamp)});
    EXPECT_EQ(flat(u"select count(*), min(length(campo)), max(length(campo)), min(ususenha), min(evcad) "
                   "from perfilusuario"_qs),
              QStringList{u"30|20|20|ABC|"_qs + boundStamp});
    EXPECT_EQ(granted(u"RECEPÇÃO"_qs), u"cadConv,cliAG,mnuCad");
}

TEST_F(Users, AKnownUserIsShownAndItsPasswordChanged)
{
    addRight(u"C1"_qs, u"MARIA"_qs, u"cadPac              "_qs, u"0"_qs);
    addRight(u"C1"_qs, u"MARIA"_qs, u"cliAG               "_qs, u"1"_qs);
    execute(
        u"insert into perfilusuario (idlic,nmusuario,ususenha,campo,valor) values ('C1','MARIA','OUTRA','mnurel','0')"_qs);
    dialogs.expect(u"Salvo com sucesso!"_qs);
    on<frmcadusuario>([](ScreenDriver& screen) {
        screen.choose(u"Combo1"_qs, u"MARIA"_qs);
        screen.press(Qt::Key_Return);
        EXPECT_EQ(screen.text(u"txtsenha"_qs), u"SEGREDO");
        ASSERT_EQ(screen.selected(u"List1"_qs).size(), 1)
            << "a row under another password is as good as absent";
        EXPECT_TRUE(screen.selected(u"List1"_qs)[0].endsWith(u"cadPac              "_qs));
        passwords(screen, u"nova"_qs, u"nova"_qs);
        screen.click(u"Command2"_qs);
        EXPECT_EQ(screen.selected(u"List1"_qs).size(), 30);
        screen.click(u"Command5"_qs);
        screen.clickRow(u"List1"_qs, 11);
        screen.click(u"Command1"_qs);
    });
    EXPECT_EQ(flat(u"select ususenha,evcad,evup from usuarios where nmusuario = 'MARIA'"_qs),
              QStringList{u"NOVA||"_qs + boundStamp});
    EXPECT_EQ(flat(u"select count(*), count(distinct ususenha), min(ususenha) from perfilusuario"_qs),
              QStringList{u"30|1|NOVA"_qs});
    EXPECT_EQ(granted(u"MARIA"_qs), u"cadUsu");
}

TEST_F(Users, NamesOfTenAndElevenCharacters)
{
    const QString tooLong = u"--- ERRO --- O NOME DE USUÁRIO NÃO PODE TER MAIS QUE 10 CARACTERES!"_qs;
    dialogs.expect(u"--- ERRO --- INFORME O NOME DE USUÁRIO!"_qs, u"ATENÇÃO"_qs, Icon::Information);
    dialogs.expect(tooLong, u"ATENÇÃO"_qs, Icon::Critical);
    dialogs.expect(tooLong);
    dialogs.expect(u"Salvo com sucesso!"_qs);
    on<frmcadusuario>([](ScreenDriver& screen) {
        screen.focus(u"Combo1"_qs);
        screen.press(Qt::Key_Return);
        EXPECT_FALSE(screen.enabled(u"Command1"_qs));
        name(screen, u"12345678901"_qs);
        EXPECT_TRUE(screen.list(u"List1"_qs).isEmpty());
        name(screen, u"1234567890"_qs);
        EXPECT_EQ(screen.list(u"List1"_qs).size(), 30);
        passwords(screen, u"x"_qs, u"x"_qs);
        name(screen, u"12345678901"_qs);
        EXPECT_TRUE(screen.enabled(u"Command1"_qs)) << "as it was before";
        screen.click(u"Command1"_qs);
    });
    EXPECT_EQ(flat(u"select nmusuario from usuarios where nmusuario like '1%'"_qs),
              QStringList{u"12345678901"_qs});
}

TEST_F(Users, PasswordsThatDifferOrAreMissingAreRefused)
{
    dialogs.expect(u"Existem campos em branco que não podem ficar em branco."_qs, u"ATENÇÃO"_qs,
                   Icon::Exclamation);
    dialogs.expect(u"--- ERRO --- Senhas não conferem!"_qs, u"Atenção"_qs);
    on<frmcadusuario>([](ScreenDriver& screen) {
        name(screen, u"ana"_qs);
        passwords(screen, u"x"_qs, u"x"_qs);
        // The buttons look at the passwords only when the second box is used.
        screen.type(u"txtsenha"_qs, u""_qs);
        screen.click(u"Command1"_qs);
        screen.type(u"txtsenha"_qs, u"y"_qs);
        screen.click(u"Command1"_qs);
        EXPECT_EQ(screen.text(u"Combo1"_qs), u"ANA") << "nothing typed is lost";
        screen.focus(u"txtoksenha"_qs);
        EXPECT_FALSE(screen.enabled(u"Command1"_qs)) << "coming back to the second box compares as well";
        name(screen, u"bia"_qs);
        EXPECT_EQ(shown(screen, u"txtsenha txtoksenha"_qs), u"|") << "another name, other passwords";
    });
    EXPECT_EQ(value(u"select count(*) from usuarios"_qs), u"1");
}

TEST_F(Users, DeletionReachesEveryTenant)
{
    addUser(u"C2"_qs, u"MARIA"_qs, u"Z"_qs);
    addUser(u"C2"_qs, u"JOSE"_qs, u"Z"_qs);
    addRight(u"C2"_qs, u"MARIA"_qs, u"cliAG"_qs, u"0"_qs);
    dialogs.expectQuestion(u"Confirma a exclusão?"_qs, false, u"Exclusão de Usuário"_qs, Icon::Question);
    dialogs.expectQuestion(u"Confirma a exclusão?"_qs, true, u"Exclusão de Usuário"_qs);
    dialogs.expect(u"Excluído com sucesso!"_qs, u"Atenção"_qs);
    on<frmcadusuario>([](ScreenDriver& screen) {
        name(screen, u"maria"_qs);
        screen.focus(u"txtoksenha"_qs);
        screen.click(u"Command3"_qs);
        EXPECT_EQ(value(u"select count(*) from usuarios"_qs), u"3");
        screen.click(u"Command3"_qs);
        EXPECT_FALSE(screen.enabled(u"Command3"_qs));
    });
    EXPECT_EQ(flat(u"select idlic,nmusuario from usuarios"_qs), QStringList{u"C2|JOSE"_qs});
    EXPECT_EQ(value(u"select count(*) from perfilusuario"_qs), u"0");
}
