#include "app/core/funcoes.h"
#include "ending.h"

#include <QAction>
#include <QMenuBar>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

using namespace Variaveis;

using testing::AllOf;
using testing::ElementsAre;
using testing::EndsWith;
using testing::IsEmpty;
using testing::StartsWith;

namespace {

const QStringList always = {u"mnuoff"_s, u"mnuupdate"_s};

QString panel(int number)
{
    return Form::of<frmPrincipal>().findChild<StatusBar*>()->panel(number);
}

} // namespace

TEST_F(Program, StartCleansUpReadsTheConfigurationAndLogsIn)
{
    Files::write(Files::inProgramFolder(u"\\adm_atu.exe"_s), "x");
    dialogs.expect(u"--- ERRO --- USUÁRIO E/OU SENHA NÃO CONFEREM!"_s, u"ATENÇÃO"_s, Icon::Information);
    modal.expect(u"frmtelainicial"_s, [](ScreenDriver& login) {
        ScreenDriver principal(Form::of<frmPrincipal>());
        EXPECT_FALSE(Files::exists(Files::inProgramFolder(u"\\adm_atu.exe"_s)));
        EXPECT_TRUE(principal.visible(u"cmdST"_s));
        EXPECT_EQ(panel(3), u"Usuário: Não Logado");
        EXPECT_EQ(login.focused(), u"txtUsuario");
        EXPECT_EQ(static_cast<QLineEdit*>(login.find(u"txtSenha"_s))->echoMode(), QLineEdit::Password);
        login.type(u"txtUsuario"_s, u"12345678901"_s);
        EXPECT_EQ(login.text(u"txtUsuario"_s), u"1234567890");
        typeLogin(login, u"maria"_s, u"errada"_s);
        EXPECT_EQ(login.text(u"txtUsuario"_s) + login.text(u"txtSenha"_s), u"MARIAERRADA")
            << "the fields keep their text";
        EXPECT_EQ(Logado, u"N");
        login.typeOn(u"segredo"_s); // in the place of what was refused
        login.press(Qt::Key_Return);
    });
    Form::of<frmPrincipal>().Show();
    settle();

    ScreenDriver principal(Form::of<frmPrincipal>());
    EXPECT_EQ(Logado, u"S");
    EXPECT_EQ(Usuario, u"MARIA");
    EXPECT_EQ(StringConexao, Database::instance().connectionString());
    EXPECT_EQ(Conexao.State(), 0) << "the login closes the connection behind itself";
    EXPECT_FALSE(principal.visible(u"cmdST"_s));
    EXPECT_EQ(panel(3), u"Usuário: MARIA");
    EXPECT_EQ(enabledEntries(), always) << "a user without rows has the two last entries alone";
    EXPECT_FALSE(Form::of<frmPrincipal>().findChild<QAction*>(u"mnuCad"_s)->isEnabled())
        << "a sub-menu head is an entry too";
}

TEST_F(Program, RightsGoRowByRowAndTheLastOneDecides)
{
    for (const char* right : {"MNUCAD              =0", " cadConv=1", "cadConv             =0", " cadEsp=0",
                              "cadEsp              =1", "cliAG=2", "mnuoff              =1", "gone=0"}) {
        const QStringList parts = QString::fromLatin1(right).split(u'=');
        addRight(u"C1"_s, u"MARIA"_s, parts[0], parts[1]);
    }
    addRight(u"C2"_s, u"MARIA"_s, u"cadPac              "_s, u"0"_s);
    start();
    EXPECT_EQ(enabledEntries(), (QStringList{u"mnuCad"_s, u"cadConv"_s, u"cliAG"_s} + always));

    idlic = u"C1"_s;
    EXPECT_EQ(Funcoes::PerfilValor(u"MARIA"_s, u"cadConv"_s), u"0");
    EXPECT_EQ(Funcoes::PerfilValor(u"MARIA"_s, u"cadEsp"_s), u"1");
    EXPECT_EQ(Funcoes::PerfilValor(u"MARIA"_s, u"cadPac"_s), u"0") << "rows of every tenant count here";
    EXPECT_EQ(Funcoes::PerfilValor(u""_s, u"cadConv"_s), u"1");
}

TEST_F(Program, AfterALogOffOnlyTheNextUsersRowsCount)
{
    addUser(u"C1"_s, u"ANA"_s, u"X"_s);
    addRight(u"C1"_s, u"MARIA"_s, u"cliAG               "_s, u"0"_s);
    addRight(u"C1"_s, u"ANA"_s, u"mnurel              "_s, u"0"_s);
    start();
    EXPECT_EQ(enabledEntries(), (QStringList{u"cliAG"_s} + always));
    // What is configured from now on counts at the next start.
    ArquivosINI::Grava({u"nowhere"_s, {}, {}, {}, u"C2"_s});

    modal.expect(u"frmtelainicial"_s, [](ScreenDriver& login) {
        EXPECT_EQ(Logado, u"N");
        EXPECT_EQ(panel(3), u"Usuário:");
        typeLogin(login, u"ana"_s, u"x"_s);
    });
    ScreenDriver principal(Form::of<frmPrincipal>());
    principal.press(Qt::Key_Escape);
    EXPECT_TRUE(principal.isOpen());
    principal.press(Qt::Key_F10);
    settle();
    EXPECT_EQ(idlic, u"C1");
    EXPECT_EQ(enabledEntries(), (QStringList{u"mnurel"_s} + always));
    EXPECT_EQ(panel(3), u"Usuário: ANA");
}

TEST_F(Program, TheLineAboveThePanelsTellsWhatAnEntryIsFor)
{
    addRight(u"C1"_s, u"MARIA"_s, u"cliAG               "_s, u"0"_s);
    start();
    auto& principal = Form::of<frmPrincipal>();
    auto* hint = principal.findChild<QLabel*>(u"lDica"_s);
    auto* bar = principal.findChild<QMenuBar*>();
    for (const Menu::Entry& entry : Menu::principal().entries())
        EXPECT_TRUE(entry.description.endsWith(u'.')) << entry.name.toStdString();
    bar->setActiveAction(principal.findChild<QAction*>(u"cliAG"_s));
    EXPECT_THAT(hint->text().toStdString(),
                AllOf(StartsWith("Os atendimentos do dia"), EndsWith("imprimir.")));
    bar->setActiveAction(nullptr);
    EXPECT_THAT(hint->text().toStdString(), StartsWith("Shift+F1 "));
    QTest::mouseMove(bar, bar->actionGeometry(principal.findChild<QAction*>(u"mnurel"_s)).center());
    settle();
    EXPECT_THAT(hint->text().toStdString(), EndsWith("Seu usuário não tem acesso."));
    QTest::mouseMove(bar, bar->rect().bottomRight());
    settle();
    EXPECT_THAT(hint->text().toStdString(), StartsWith("Shift+F1 "));
    EXPECT_EQ(panel(3), u"Usuário: MARIA");
}

TEST_F(Program, TheWindowOpensAsItWasLeftAndItsFontsFollow)
{
    // On this screen the height decides.
    const auto signToHeight = [] {
        auto& principal = Form::of<frmPrincipal>();
        return principal.findChild<QPushButton*>(u"cmdST"_s)->font().pointSizeF() /
               principal.clientArea()->height();
    };
    start();
    auto& principal = Form::of<frmPrincipal>();
    EXPECT_TRUE(principal.isMaximized());
    const double proportion = signToHeight();
    const QSize half = principal.openingSize() / 2;
    principal.showNormal();
    principal.resize(half);
    UserSettings::setValue(u"frmPrincipal"_s, principal.saveGeometry());
    delete &principal;
    Logado = u"N"_s;
    start();
    EXPECT_EQ(Form::of<frmPrincipal>().size(), half);
    EXPECT_NEAR(signToHeight() / proportion, 1, 0.02);
}

TEST_F(Program, ALogoFillsTheWindowBehindEverything)
{
    QImage image(40, 30, QImage::Format_RGB32);
    image.fill(Qt::red);
    image.save(Files::inProgramFolder(u"\\logo.jpg"_s));
    start();
    auto& principal = Form::of<frmPrincipal>();
    auto* logo = principal.findChild<QLabel*>(u"Image1"_s);
    EXPECT_TRUE(logo->isVisible());
    principal.resize(1400, 900);
    settle();
    EXPECT_EQ(logo->geometry(), principal.clientArea()->rect());
}

TEST_F(Program, TheConfigurationScreenKeepsTheFile)
{
    addRight(u"C1"_s, u"MARIA"_s, u"mnupram             "_s, u"0"_s);
    start();
    const QByteArray before = Files::read(ArquivosINI::Caminho());
    const QString connection = StringConexao;
    dialogs.expectQuestion(u"Confirma os dados?"_s, false, u"Atenção"_s, Icon::Question);
    dialogs.expectQuestion(u"Confirma os dados?"_s, true, u"Atenção"_s);
    dialogs.expect(u"Configuração salva com sucesso!"_s, {}, Icon::Information);
    modal.expect(u"frmconfig"_s, [&](ScreenDriver& screen) {
        EXPECT_EQ(screen.text(u"txtNmBco"_s), Database::instance().name());
        fill(screen, u"txtString= Servidor;Port=3307 |txtSenha=|txtIdLic=1234567890123456"_s, u"Command2"_s);
        EXPECT_EQ(Files::read(ArquivosINI::Caminho()), before);
        EXPECT_TRUE(screen.isOpen());
        screen.click(u"Command2"_s);
    });
    Menu::principal().run(u"mnupram"_s);
    const auto values = ArquivosINI::Le(ArquivosINI::Caminho());
    EXPECT_EQ(values.conexao, u"Servidor;Port=3307");
    EXPECT_EQ(values.senha, u"");
    EXPECT_EQ(values.idlic, u"123456789012345");
    EXPECT_EQ(StringConexao, connection) << "the running program keeps its configuration";
}

TEST_F(Ending, WithoutConfigurationTheFirstAccessIsOffered)
{
    QFile::remove(ArquivosINI::Caminho());
    const std::string question = "Atenção|SE FOR O PRIMEIRO ACESSO CLIQUE SIM!\\nOU CONTATE O SUPORTE!";
    EXPECT_THAT(boxes(u"close-login"_s, 0, {u"nao"_s}), ElementsAre(StartsWith("ATENÇÃO|"), question));
    EXPECT_FALSE(Files::exists(ArquivosINI::Caminho()));

    EXPECT_THAT(boxes(u"configure"_s, 0, {u"sim"_s, u"sim"_s}),
                ElementsAre(StartsWith("ATENÇÃO|"), question, "Atenção|Confirma os dados?",
                            "Atenção|Configuração salva com sucesso!"));
    EXPECT_EQ(ArquivosINI::Le(ArquivosINI::Caminho()).conexao, u"Servidor");
    EXPECT_EQ(ArquivosINI::Le(ArquivosINI::Caminho()).idlic, u"c1");
}

TEST_F(Ending, ATenantWithoutUsersIsOfferedItsFirst)
{
    Database::instance().execute(
        u"delete from usuarios; insert into usuarios (idlic,nmusuario) values ('C2','X')"_s);
    const std::string question = "Atenção|PRIMEIRO ACESSO --- DESEJA CRIAR O USUÁRIO ADMINISTRADOR AGORA?";
    EXPECT_THAT(boxes(u"close-login"_s, 0, {u"nao"_s}), ElementsAre(question));
    EXPECT_THAT(boxes(u"first-user"_s, 0, {u"sim"_s}), ElementsAre(question, "Atenção|Salvo com sucesso!"));
    EXPECT_EQ(rows(u"select nmusuario,ususenha from usuarios where idlic = 'C1'"_s),
              (QList<QStringList>{{u"ANA"_s, u"X"_s}}));
    EXPECT_EQ(Database::instance().value(
                  u"select count(*) from perfilusuario where idlic = 'C1' and valor = '0'"_s),
              u"30");
}

TEST_F(Ending, ClosingTheLoginOrTheWindowEndsTheProgram)
{
    Files::write(Files::inProgramFolder(u"\\adm_atu.exe"_s), "x");
    for (const QString& scenario : {u"close-login"_s, u"log-off"_s, u"close-window"_s}) {
        UserSettings::setValue(u"frmPrincipal"_s, {});
        EXPECT_THAT(boxes(scenario, 0), IsEmpty());
        EXPECT_FALSE(Files::exists(Files::inProgramFolder(u"\\adm_atu.exe"_s)));
        EXPECT_FALSE(UserSettings::value(u"frmPrincipal"_s).isEmpty()) << "the window's size is kept";
    }
}

TEST_F(Ending, AFailedStatementIsToldInOneBoxAndEndsTheProgram)
{
    EXPECT_THAT(boxes(u"quote-at-login"_s, 1),
                ElementsAre(AllOf(StartsWith("Tremosilva 1.0|Erro 1064\\n"),
                                  EndsWith("\\n\\nselect * from usuarios where idlic = 'C1' and nmusuario = "
                                           "'D'AVILA' and ususenha = ''|critical"))));
}
