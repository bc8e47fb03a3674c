#include "app/frmcadusuario.h"
#include "shell_fixture.h"

using namespace Qt::StringLiterals;

using namespace Variaveis;

namespace {

class Users : public LoggedIn
{
protected:
    static void name(ScreenDriver& screen, const QString& text) { enter(screen, u"Combo1"_s, text); }

    static QString granted(const QString& user)
    {
        return value(u"select group_concat(trim(campo) order by campo) from perfilusuario "
                     "where idlic = 'C1' and nmusuario = '%1' and valor = '0'"_s.arg(user));
    }
};

} // namespace

TEST_F(Users, ANewUserGetsARowForEveryEntry)
{
    dialogs.expect(u"Salvo com sucesso!"_s, u"Atenção"_s);
    on<frmcadusuario>([&](ScreenDriver& screen) {
        EXPECT_FALSE(screen.enabled(u"Command1"_s));
        name(screen, u"recepção"_s);
        const QStringList lines = screen.list(u"List1"_s);
        ASSERT_EQ(lines.size(), 30);
        EXPECT_EQ(lines[20], u"............Cadastrar Sub Centro de Custos                               - "
                             u"ctpgcadscen         ");

        fill(screen, u"txtsenha=abc|txtoksenha=ab"_s);
        EXPECT_FALSE(screen.enabled(u"Command1"_s));
        screen.typeOn(u"c"_s);
        EXPECT_TRUE(screen.enabled(u"Command1"_s));
        EXPECT_TRUE(screen.enabled(u"Command3"_s));
        screen.clickRow(u"List1"_s, 0);
        screen.clickRow(u"List1"_s, 1);
        screen.clickRow(u"List1"_s, 12);
        screen.click(u"Command1"_s);

        EXPECT_EQ(shown(screen, u"Combo1 txtsenha"_s), u"|");
        EXPECT_TRUE(screen.list(u"List1"_s).isEmpty());
        EXPECT_FALSE(screen.enabled(u"Command1"_s));
    });
    EXPECT_EQ(RetornoCodigo, u"N");
    EXPECT_EQ(flat(u"select idlic,ususenha,evcad,evup from usuarios where nmusuario = 'RECEPÇÃO'"_s),
              QStringList{u"C1|ABC|%1|%1"_s.arg(boundStamp)});
    EXPECT_EQ(flat(u"select count(*), min(length(campo)), max(length(campo)), min(ususenha), min(evcad) "
                   "from perfilusuario"_s),
              QStringList{u"30|20|20|ABC|"_s + boundStamp});
    EXPECT_EQ(granted(u"RECEPÇÃO"_s), u"cadConv,cliAG,mnuCad");
}

TEST_F(Users, AKnownUserIsShownAndItsPasswordChanged)
{
    addRight(u"C1"_s, u"MARIA"_s, u"cadPac              "_s, u"0"_s);
    addRight(u"C1"_s, u"MARIA"_s, u"cliAG               "_s, u"1"_s);
    addRight(u"C1"_s, u"MARIA"_s, u"mnurel              "_s, u"0"_s);
    execute(u"update perfilusuario set ususenha = 'OUTRA' where campo like 'mnurel%'"_s);
    dialogs.expect(u"Salvo com sucesso!"_s);
    on<frmcadusuario>([](ScreenDriver& screen) {
        screen.choose(u"Combo1"_s, u"MARIA"_s);
        screen.press(Qt::Key_Return);
        EXPECT_EQ(screen.text(u"txtsenha"_s), u"SEGREDO");
        ASSERT_EQ(screen.selected(u"List1"_s).size(), 1)
            << "a row under another password is as good as absent";
        EXPECT_TRUE(screen.selected(u"List1"_s)[0].endsWith(u"cadPac              "_s));
        fill(screen, u"txtsenha=nova|txtoksenha=nova"_s);
        screen.click(u"Command2"_s);
        EXPECT_EQ(screen.selected(u"List1"_s).size(), 30);
        screen.click(u"Command5"_s);
        screen.clickRow(u"List1"_s, 11);
        screen.click(u"Command1"_s);
    });
    EXPECT_EQ(flat(u"select ususenha,evcad,evup from usuarios where nmusuario = 'MARIA'"_s),
              QStringList{u"NOVA||"_s + boundStamp});
    EXPECT_EQ(flat(u"select count(*), count(distinct ususenha), min(ususenha) from perfilusuario"_s),
              QStringList{u"30|1|NOVA"_s});
    EXPECT_EQ(granted(u"MARIA"_s), u"cadUsu");
}

TEST_F(Users, NamesOfTenAndElevenCharacters)
{
    const QString tooLong = u"--- ERRO --- O NOME DE USUÁRIO NÃO PODE TER MAIS QUE 10 CARACTERES!"_s;
    dialogs.expect(u"--- ERRO --- INFORME O NOME DE USUÁRIO!"_s, u"ATENÇÃO"_s, Icon::Information);
    dialogs.expect(tooLong, u"ATENÇÃO"_s, Icon::Critical);
    dialogs.expect(tooLong);
    dialogs.expect(u"Salvo com sucesso!"_s);
    on<frmcadusuario>([](ScreenDriver& screen) {
        screen.focus(u"Combo1"_s);
        screen.press(Qt::Key_Return);
        EXPECT_FALSE(screen.enabled(u"Command1"_s));
        name(screen, u"12345678901"_s);
        EXPECT_TRUE(screen.list(u"List1"_s).isEmpty());
        name(screen, u"1234567890"_s);
        EXPECT_EQ(screen.list(u"List1"_s).size(), 30);
        fill(screen, u"txtsenha=x|txtoksenha=x"_s);
        name(screen, u"12345678901"_s);
        EXPECT_TRUE(screen.enabled(u"Command1"_s)) << "as it was before";
        screen.click(u"Command1"_s);
    });
    EXPECT_EQ(flat(u"select nmusuario from usuarios where nmusuario like '1%'"_s),
              QStringList{u"12345678901"_s});
}

TEST_F(Users, PasswordsThatDifferOrAreMissingAreRefused)
{
    dialogs.expect(u"Existem campos em branco que não podem ficar em branco."_s, u"ATENÇÃO"_s,
                   Icon::Exclamation);
    dialogs.expect(u"--- ERRO --- Senhas não conferem!"_s, u"Atenção"_s);
    on<frmcadusuario>([](ScreenDriver& screen) {
        name(screen, u"ana"_s);
        fill(screen, u"txtsenha=x|txtoksenha=x"_s);
        // The buttons look at the passwords only when the second box is used.
        fill(screen, u"txtsenha="_s, u"Command1"_s);
        fill(screen, u"txtsenha=y"_s, u"Command1"_s);
        EXPECT_EQ(screen.text(u"Combo1"_s), u"ANA") << "nothing typed is lost";
        screen.focus(u"txtoksenha"_s);
        EXPECT_FALSE(screen.enabled(u"Command1"_s)) << "coming back to the second box compares as well";
        name(screen, u"bia"_s);
        EXPECT_EQ(shown(screen, u"txtsenha txtoksenha"_s), u"|") << "another name, other passwords";
    });
    EXPECT_EQ(value(u"select count(*) from usuarios"_s), u"1");
}

TEST_F(Users, DeletionReachesEveryTenant)
{
    addUser(u"C2"_s, u"MARIA"_s, u"Z"_s);
    addUser(u"C2"_s, u"JOSE"_s, u"Z"_s);
    addRight(u"C2"_s, u"MARIA"_s, u"cliAG"_s, u"0"_s);
    dialogs.expectQuestion(u"Confirma a exclusão?"_s, false, u"Exclusão de Usuário"_s, Icon::Question);
    dialogs.expectQuestion(u"Confirma a exclusão?"_s, true, u"Exclusão de Usuário"_s);
    dialogs.expect(u"Excluído com sucesso!"_s, u"Atenção"_s);
    on<frmcadusuario>([](ScreenDriver& screen) {
        name(screen, u"maria"_s);
        screen.focus(u"txtoksenha"_s);
        screen.click(u"Command3"_s);
        EXPECT_EQ(value(u"select count(*) from usuarios"_s), u"3");
        screen.click(u"Command3"_s);
        EXPECT_FALSE(screen.enabled(u"Command3"_s));
    });
    EXPECT_EQ(flat(u"select idlic,nmusuario from usuarios"_s), QStringList{u"C2|JOSE"_s});
    EXPECT_EQ(value(u"select count(*) from perfilusuario"_s), u"0");
}
