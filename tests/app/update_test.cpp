#include "app/core/instalacao.h"
#include "app/frmprogresso.h"
#include "ending.h"
#include "support/oneanswer.h"
#include "support/openedtargets.h"

#include <QAction>
#include <QTest>

using namespace Qt::StringLiterals;

using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

namespace {

/// The vendor's server, as long as the object lives.
class Vendor
{
public:
    explicit Vendor(const QString& host) { qputenv("TREMOSILVA_HOST_DOWNLOAD", host.toUtf8()); }
    ~Vendor() { qunsetenv("TREMOSILVA_HOST_DOWNLOAD"); }
};

/// A program that leaves a line in the folder that it is started in.
const QByteArray script = "#!/bin/sh\necho started >>trace\n";

QString updater()
{
    return Files::inProgramFolder(u"\\adm_atu.exe"_s);
}

/// Waits until the script has run.
bool hasRun()
{
    const QString trace = Files::inProgramFolder(u"\\trace"_s);
    return QTest::qWaitFor([&] { return Files::exists(trace) && Files::read(trace) == "started\n"; });
}

} // namespace

TEST_F(Ending, TheUpdaterTakesOverAndTheNextStartRemovesIt)
{
    OneAnswer server(OneAnswer::http("200 OK", script));
    const Vendor vendor(server.host());
    EXPECT_THAT(boxes(u"update"_s, 0), IsEmpty());
    EXPECT_TRUE(server.request().startsWith("GET /down/tremosilva/adm_atu.exe HTTP/1.1\r\n"));
    EXPECT_TRUE(server.request().contains("\r\nUser-Agent: Mozilla/5.0\r\n"));
    EXPECT_TRUE(hasRun());
    EXPECT_EQ(Files::read(updater()), script) << "it stays until the next start";
    boxes(u"close-login"_s, 0);
    EXPECT_FALSE(Files::exists(updater()));
}

TEST_F(Ending, AFailedUpdateEndsTheProgramWithAnError)
{
    const auto expectError = [&](const QString& host, int number) {
        const Vendor vendor(host);
        EXPECT_THAT(boxes(u"update"_s, 1),
                    ElementsAre(StartsWith("Tremosilva 1.0|Erro " + std::to_string(number) + "\\n")));
    };
    OneAnswer cut(OneAnswer::http("200 OK", script).chopped(5));
    expectError(cut.host(), 12030);
    expectError(OneAnswer::closedHost(), 12029);
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden), QStringList{u"tremosilva.ini"_s})
        << "nothing of it is left";
    OneAnswer noProgram(OneAnswer::http("200 OK", "<html>no program</html>"));
    expectError(noProgram.host(), 75);
}

TEST_F(Program, AnUpdateThatIsRefusedIsToldAndTheProgramGoesOn)
{
    OneAnswer server(OneAnswer::http("404 Not Found", script));
    server.hold();
    const Vendor vendor(server.host());
    const OpenedTargets opened;
    start();
    // Nothing is read from the server before this has looked.
    QTimer::singleShot(0, [&] {
        auto& progress = Form::of<frmProgresso>();
        const ScreenDriver screen(progress);
        EXPECT_TRUE(progress.isVisible());
        EXPECT_EQ(screen.text(u"lMSG"_s), u"Aguarde... Baixando Atualização...");
        ASSERT_TRUE(QGuiApplication::overrideCursor());
        EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
        server.release();
    });
    dialogs.setWatcher([](const MessageBox&) {
        EXPECT_FALSE(Form::of<frmProgresso>().isVisible());
        EXPECT_FALSE(QGuiApplication::overrideCursor());
    });
    dialogs.expect(u"Erro ao baixar atualização. Código: 404"_s);
    Form::of<frmPrincipal>().findChild<QAction*>(u"mnuupdate"_s)->trigger();

    EXPECT_FALSE(Files::exists(updater()));
    EXPECT_TRUE(opened.list().isEmpty());
    EXPECT_TRUE(Form::of<frmPrincipal>().isVisible());
}

TEST_F(Program, SupportFromTheLoginWindow)
{
    const Vendor vendor(u"https://vendor.example"_s);
    dialogs.expect(u"Atenção!!! APP Não instalado! O Sistema irá fazer o downlaod do APP.!"_s,
                   Instalacao::fornecedor());
    modal.expect(u"frmtelainicial"_s, [](ScreenDriver& login) {
        auto opened = std::make_unique<OpenedTargets>();
        login.press(Qt::Key_F10);
        EXPECT_EQ(opened->list(), QStringList(u"https://vendor.example/down/suporte.exe"_s));
        opened.reset();
        const QString tool = Files::inProgramFolder(u"\\suporte.exe"_s);
        Files::write(tool, script);
        Files::makeExecutable(tool);
        login.click(u"Label4"_s);
        EXPECT_TRUE(hasRun());
        EXPECT_TRUE(login.isOpen()) << "the login goes on";
        typeLogin(login, u"maria"_s, u"segredo"_s);
    });
    Form::of<frmPrincipal>().Show();
    settle();
}
