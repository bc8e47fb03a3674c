#include "app/core/funcoes.h"
#include "app/core/instalacao.h"
#include "app/frmtelainicial.h"
#include "ending.h"

#include <QAction>
#include <QTest>

using namespace Variaveis;

namespace {

const QStringList always = {u"mnuoff"_qs, u"mnuupdate"_qs};

QString panel(int number)
{
    return Form::of<frmPrincipal>().findChild<StatusBar*>()->panel(number);
}

} // namespace

TEST_F(Program, StartCleansUpReadsTheConfigurationAndLogsIn)
{
    Files::write(Files::inProgramFolder(u"\\adm_atu.exe"_qs), "x");
    dialogs.expect(u"--- ERRO --- USUÁRIO E/OU SENHA NÃO CONFEREM!"_qs, u"ATENÇÃO"_qs, Icon::Information);
    modal.expect(u"frmtelainicial"_qs, [this](ScreenDriver& login) {
        ScreenDriver principal(Form::of<frmPrincipal>());
        EXPECT_FALSE(Files::exists(Files::inProgramFolder(u"\\adm_atu.exe"_qs)));
        EXPECT_EQ(principal.text(u"cmdST"_qs), u"Efetue a Login...");
        EXPECT_TRUE(principal.visible(u"cmdST"_qs));
        EXPECT_EQ(panel(3), u"Usuário: Não Logado");
        EXPECT_EQ(login.focused(), u"txtUsuario");
        EXPECT_EQ(login.window().windowTitle(), u"Login");
        const QString sentence = login.text(u"Label1"_qs);
        QTest::qWait(600);
        EXPECT_NE(login.text(u"Label1"_qs), sentence) << "it moves";
        login.type(u"txtUsuario"_qs, u"12345678901"_qs);
        EXPECT_EQ(login.text(u"txtUsuario"_qs), u"1234567890");
        EXPECT_EQ(static_cast<QLineEdit*>(login.find(u"txtSenha"_qs))->echoMode(), QLineEdit::Password);
        typeLogin(login, u"maria"_qs, u"errada"_qs);
        EXPECT_EQ(login.text(u"txtUsuario"_qs) + login.text(u"txtSenha"_qs), u"MARIAERRADA")
            << "the fields keep their text";
        EXPECT_EQ(Logado, u"N");
        login.type(u"txtSenha"_qs, u"segredo"_qs);
        login.click(u"Command1"_qs);
    });
    Form::of<frmPrincipal>().Show();
    settle();

    ScreenDriver principal(Form::of<frmPrincipal>());
    EXPECT_EQ(Form::of<frmPrincipal>().windowTitle(), u"Tremosilva 1.0");
    EXPECT_EQ(Logado, u"S");
    EXPECT_EQ(Usuario, u"MARIA");
    EXPECT_EQ(LoginAberto, u"");
    EXPECT_EQ(idlic, u"C1");
    EXPECT_EQ(StringConexao, Database::instance().connectionString());
    EXPECT_EQ(Conexao.State(), 0) << "the login closes the connection behind itself";
    EXPECT_FALSE(principal.visible(u"cmdST"_qs));
    EXPECT_FALSE(principal.visible(u"Image1"_qs));
    EXPECT_EQ(panel(1), Instalacao::site());
    EXPECT_EQ(panel(2), u"16/03/2026");
    EXPECT_EQ(panel(3), u"Usuário: MARIA");
    EXPECT_EQ(enabledEntries(), always) << "a user without rows has the two last entries alone";
    EXPECT_FALSE(Form::of<frmPrincipal>().findChild<QAction*>(u"mnuCad"_qs)->isEnabled())
        << "a sub-menu head is an entry too";
}

TEST_F(Program, RightsGoRowByRowAndTheLastOneDecides)
{
    for (const char* right : {"MNUCAD              =0", " cadConv=1", "cadConv             =0", " cadEsp=0",
                              "cadEsp              =1", "cliAG=2", "mnuoff              =1", "gone=0"}) {
        const QStringList parts = QString::fromLatin1(right).split(u'=');
        addRight(u"C1"_qs, u"MARIA"_qs, parts[0], parts[1]);
    }
    addRight(u"C2"_qs, u"MARIA"_qs, u"cadPac              "_qs, u"0"_qs);
    start();
    EXPECT_EQ(enabledEntries(), (QStringList{u"mnuCad"_qs, u"cadConv"_qs, u"cliAG"_qs} + always));

    idlic = u"C1"_qs;
    EXPECT_EQ(Funcoes::PerfilValor(u"MARIA"_qs, u"cadConv"_qs), u"0");
    EXPECT_EQ(Funcoes::PerfilValor(u"MARIA"_qs, u"cadEsp"_qs), u"1");
    EXPECT_EQ(Funcoes::PerfilValor(u"MARIA"_qs, u"cadPac"_qs), u"0") << "rows of every tenant count here";
    EXPECT_EQ(Funcoes::PerfilValor(u""_qs, u"cadConv"_qs), u"1");
}

TEST_F(Program, AfterALogOffOnlyTheNextUsersRowsCount)
{
    addUser(u"C1"_qs, u"ANA"_qs, u"X"_qs);
    addRight(u"C1"_qs, u"MARIA"_qs, u"cliAG               "_qs, u"0"_qs);
    addRight(u"C1"_qs, u"ANA"_qs, u"mnurel              "_qs, u"0"_qs);
    start();
    EXPECT_EQ(enabledEntries(), (QStringList{u"cliAG"_qs} + always));
    // What is configured from now on counts at the next start.
    ArquivosINI::Grava({u"nowhere"_qs, {}, {}, {}, u"C2"_qs});

    modal.expect(u"frmtelainicial"_qs, [](ScreenDriver& login) {
        EXPECT_EQ(Usuario, u"");
        EXPECT_EQ(Logado, u"N");
        EXPECT_EQ(panel(3), u"Usuário:");
        typeLogin(login, u"ana"_qs, u"x"_qs);
    });
    ScreenDriver principal(Form::of<frmPrincipal>());
    principal.press(Qt::Key_Escape);
    EXPECT_TRUE(principal.isOpen());
    principal.press(Qt::Key_F10);
    settle();
    EXPECT_EQ(idlic, u"C1");
    EXPECT_EQ(enabledEntries(), (QStringList{u"mnurel"_qs} + always));
    EXPECT_EQ(panel(3), u"Usuário: ANA");
    EXPECT_FALSE(principal.visible(u"cmdST"_qs));
}

TEST_F(Program, TheLoginIsLeftWithoutAUser)
{
    Usuario = u"OLD"_qs;
    for (const bool byEsc : {false, true}) {
        modal.expect(u"frmtelainicial"_qs, [byEsc](ScreenDriver& login) {
            EXPECT_EQ(Conexao.State(), 1);
            RetornoFechamento = u"x"_qs;
            byEsc ? login.press(Qt::Key_Escape) : login.click(u"Command2"_qs);
        });
        idlic = u"C1"_qs;
        StringConexao = Database::instance().connectionString();
        Form::of<frmtelainicial>().ShowModal();
        EXPECT_EQ(RetornoFechamento, u"N");
        EXPECT_EQ(Conexao.State(), 0);
        EXPECT_EQ(Usuario, byEsc ? u"" : u"OLD");
        EXPECT_EQ(Logado, u"N");
    }
}

TEST_F(Program, ALogoFillsTheWindowBehindEverything)
{
    QImage image(40, 30, QImage::Format_RGB32);
    image.fill(Qt::red);
    image.save(Files::inProgramFolder(u"\\logo.jpg"_qs));
    start();
    auto& principal = Form::of<frmPrincipal>();
    auto* logo = principal.findChild<QLabel*>(u"Image1"_qs);
    EXPECT_TRUE(logo->isVisible());
    principal.resize(1400, 900);
    settle();
    EXPECT_EQ(logo->geometry(), principal.clientArea()->rect());
}

TEST_F(Program, TheConfigurationScreenKeepsTheFile)
{
    addRight(u"C1"_qs, u"MARIA"_qs, u"mnupram             "_qs, u"0"_qs);
    start();
    const QByteArray before = Files::read(ArquivosINI::Caminho());
    const QString connection = StringConexao;
    dialogs.expectQuestion(u"Confirma os dados?"_qs, false, u"Atenção"_qs, Icon::Question);
    dialogs.expectQuestion(u"Confirma os dados?"_qs, true, u"Atenção"_qs);
    dialogs.expect(u"Configuração salva com sucesso!"_qs, {}, Icon::Information);
    modal.expect(u"frmconfig"_qs, [&](ScreenDriver& screen) {
        EXPECT_EQ(screen.text(u"txtNmBco"_qs), Database::instance().name());
        EXPECT_EQ(screen.text(u"txtSenha"_qs), Database::instance().password());
        screen.type(u"txtString"_qs, u" Servidor;Port=3307 "_qs);
        screen.type(u"txtSenha"_qs, u""_qs);
        screen.type(u"txtIdLic"_qs, u"1234567890123456"_qs);
        screen.click(u"Command2"_qs);
        EXPECT_EQ(Files::read(ArquivosINI::Caminho()), before);
        EXPECT_TRUE(screen.isOpen());
        screen.click(u"Command2"_qs);
    });
    Menu::principal().run(u"mnupram"_qs);
    const auto values = ArquivosINI::Le(ArquivosINI::Caminho());
    EXPECT_EQ(values.conexao, u"Servidor;Port=3307");
    EXPECT_EQ(values.senha, u"");
    EXPECT_EQ(values.idlic, u"123456789012345");
    EXPECT_EQ(StringConexao, connection) << "the running program keeps its configuration";
}

TEST_F(Ending, WithoutConfigurationTheFirstAccessIsOffered)
{
    QFile::remove(ArquivosINI::Caminho());
    const QString question = u"Atenção|SE FOR O PRIMEIRO ACESSO CLIQUE SIM!\\nOU CONTATE O SUPORTE!"_qs;
    const Outcome no = run(u"close-login"_qs, {u"nao"_qs});
    EXPECT_EQ(no.status, 0);
    ASSERT_EQ(no.boxes.size(), 2);
    EXPECT_TRUE(no.boxes[0].startsWith(u"ATENÇÃO|"_qs)) << no.boxes[0].toStdString();
    EXPECT_EQ(no.boxes[1], question);
    EXPECT_FALSE(Files::exists(ArquivosINI::Caminho()));

    const Outcome yes = run(u"configure"_qs, {u"sim"_qs, u"sim"_qs});
    EXPECT_EQ(yes.status, 0);
    EXPECT_EQ(yes.boxes.mid(1), (QStringList{question, u"Atenção|Confirma os dados?"_qs,
                                             u"Atenção|Configuração salva com sucesso!"_qs}));
    EXPECT_EQ(ArquivosINI::Le(ArquivosINI::Caminho()).conexao, u"Servidor");
    EXPECT_EQ(ArquivosINI::Le(ArquivosINI::Caminho()).idlic, u"c1");
}

TEST_F(Ending, ATenantWithoutUsersIsOfferedItsFirst)
{
    Database::instance().execute(
        u"delete from usuarios; insert into usuarios (idlic,nmusuario) values ('C2','X')"_qs);
    const QString question = u"Atenção|PRIMEIRO ACESSO --- DESEJA CRIAR O USUÁRIO ADMINISTRADOR AGORA?"_qs;
    const Outcome no = run(u"close-login"_qs, {u"nao"_qs});
    EXPECT_EQ(no.status, 0);
    EXPECT_EQ(no.boxes, QStringList{question});

    const Outcome yes = run(u"first-user"_qs, {u"sim"_qs});
    EXPECT_EQ(yes.status, 0);
    EXPECT_EQ(yes.boxes, (QStringList{question, u"Atenção|Salvo com sucesso!"_qs}));
    EXPECT_EQ(rows(u"select nmusuario,ususenha from usuarios where idlic = 'C1'"_qs),
              (QList<QStringList>{{u"ANA"_qs, u"X"_qs}}));
    EXPECT_EQ(Database::instance().value(
                  u"select count(*) from perfilusuario where idlic = 'C1' and valor = '0'"_qs),
              u"30");
}

TEST_F(Ending, ClosingTheLoginOrTheWindowEndsTheProgram)
{
    Files::write(Files::inProgramFolder(u"\\adm_atu.exe"_qs), "x");
    for (const QString& scenario : {u"close-login"_qs, u"log-off"_qs, u"close-window"_qs}) {
        const Outcome end = run(scenario);
        EXPECT_EQ(end.status, 0) << scenario.toStdString();
        EXPECT_TRUE(end.boxes.isEmpty()) << end.boxes.join(u'\n').toStdString();
        EXPECT_FALSE(Files::exists(Files::inProgramFolder(u"\\adm_atu.exe"_qs)));
    }
}

TEST_F(Ending, AFailedStatementIsToldInOneBoxAndEndsTheProgram)
{
    const Outcome login = run(u"quote-at-login"_qs);
    EXPECT_EQ(login.status, 1);
    ASSERT_EQ(login.boxes.size(), 1);
    EXPECT_TRUE(login.boxes[0].startsWith(u"Tremosilva 1.0|Erro 1064\\n"_qs)) << login.boxes[0].toStdString();
    EXPECT_TRUE(login.boxes[0].endsWith(
        u"\\n\\nselect * from usuarios where idlic = 'C1' and nmusuario = 'D'AVILA' and ususenha = ''|critical"_qs))
        << login.boxes[0].toStdString();

    const Outcome screen = run(u"quote-in-a-screen"_qs);
    EXPECT_EQ(screen.status, 1);
    ASSERT_EQ(screen.boxes.size(), 1);
    EXPECT_TRUE(screen.boxes[0].contains(u"Erro 1064"_qs) && screen.boxes[0].contains(u"'O'HARA'"_qs))
        << screen.boxes[0].toStdString();
}

TEST_F(Ending, ALogoThatIsNoPictureStopsTheStart)
{
    Files::write(Files::inProgramFolder(u"\\logo.jpg"_qs), "no picture");
    const Outcome end = run(u"close-login"_qs);
    EXPECT_EQ(end.status, 1);
    ASSERT_EQ(end.boxes.size(), 1);
    EXPECT_TRUE(end.boxes[0].startsWith(u"Tremosilva 1.0|Erro 481\\n"_qs)) << end.boxes[0].toStdString();
}
