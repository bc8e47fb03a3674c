#include "app/core/instalacao.h"
#include "app/core/menu.h"
#include "app/frmprincipal.h"
#include "app/telas.h"
#include "platform/forms/application.h"
#include "platform/forms/dialogs.h"
#include "platform/forms/theme.h"
#include "platform/system/files.h"
#include "support/modaldriver.h"
#include "support/report.h"

#include <cstdio>

/// The program under a driver, for what ends it: shell_test starts it, and looks at its exit status and at
/// the boxes that it wrote down.
///   shell_scenario FOLDER SCENARIO [sim|nao ...]
/// FOLDER is the program's folder; the answers are for the questions that come, in order.

namespace {

/// One line a box, with its line feeds as "\n".
class WrittenDialogs : public Dialogs
{
public:
    explicit WrittenDialogs(QStringList answers) : answers_(std::move(answers)) {}

    Answer message(const MessageBox& box) override
    {
        std::printf("%s|%s%s\n", qPrintable(box.title),
                    qPrintable(QString(box.text).replace(QLatin1Char('\n'), QLatin1String("\\n"))),
                    box.icon == Icon::Critical ? "|critical" : "");
        if (box.buttons == Buttons::Ok)
            return Answer::Ok;
        return !answers_.isEmpty() && answers_.takeFirst() == QLatin1String("sim") ? Answer::Yes : Answer::No;
    }
    std::optional<QString> input(const QString&, const QString&, const QString&) override { return {}; }
    std::optional<QString> file(const FileDialog&) override { return {}; }

private:
    QStringList answers_;
};

void login(ModalDriver& modal)
{
    modal.expect(QStringLiteral("frmtelainicial"), [](ScreenDriver& screen) {
        screen.type(QStringLiteral("txtUsuario"), QStringLiteral("maria"));
        screen.type(QStringLiteral("txtSenha"), QStringLiteral("segredo"));
        screen.press(Qt::Key_Return);
    });
}

void escape(ModalDriver& modal, const char* screen)
{
    modal.expect(QString::fromLatin1(screen), [](ScreenDriver& opened) { opened.press(Qt::Key_Escape); });
}

void play(const QString& scenario, ModalDriver& modal)
{
    auto& principal = Form::of<frmPrincipal>();
    ScreenDriver window(principal);
    if (scenario == QLatin1String("close-login")) {
        escape(modal, "frmtelainicial");
    } else if (scenario == QLatin1String("configure")) {
        modal.expect(QStringLiteral("frmconfig"), [](ScreenDriver& screen) {
            screen.type(QStringLiteral("txtString"), QStringLiteral("Servidor"));
            screen.type(QStringLiteral("txtIdLic"), QStringLiteral("c1"));
            screen.click(QStringLiteral("Command2"));
        });
    } else if (scenario == QLatin1String("first-user")) {
        modal.expect(QStringLiteral("frmcadusuario"), [](ScreenDriver& screen) {
            screen.type(QStringLiteral("Combo1"), QStringLiteral("ana"));
            screen.type(QStringLiteral("txtsenha"), QStringLiteral("x"));
            screen.type(QStringLiteral("txtoksenha"), QStringLiteral("x"));
            screen.click(QStringLiteral("Command2"));
            screen.click(QStringLiteral("Command1"));
            screen.press(Qt::Key_Escape);
        });
    } else if (scenario == QLatin1String("quote-at-login")) {
        modal.expect(QStringLiteral("frmtelainicial"), [](ScreenDriver& screen) {
            screen.type(QStringLiteral("txtUsuario"), QStringLiteral("d'avila"));
            screen.click(QStringLiteral("Command1"));
        });
    } else {
        login(modal);
    }
    principal.Show();
    settle();

    if (scenario == QLatin1String("log-off")) {
        escape(modal, "frmtelainicial");
        window.press(Qt::Key_F10);
    } else if (scenario == QLatin1String("close-window")) {
        principal.close();
    } else if (scenario.startsWith(QLatin1String("update"))) {
        if (scenario == QLatin1String("update-over-old"))
            Files::write(Files::inProgramFolder(QStringLiteral("\\adm_atu.exe")), "old");
        Menu::principal().run(QStringLiteral("mnuupdate"));
    } else if (scenario == QLatin1String("quote-in-a-screen")) {
        modal.expect(QStringLiteral("frmcadusuario"), [](ScreenDriver& screen) {
            screen.type(QStringLiteral("Combo1"), QStringLiteral("o'hara"));
            screen.press(Qt::Key_Tab);
        });
        Menu::principal().run(QStringLiteral("cadUsu"));
    }
    Report::fail(QStringLiteral("the program goes on"));
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    Application application(argc, argv);
    Application::setApplicationName(Instalacao::nomePrograma());
    Theme::apply(application);
    ligaMenu();
    const QStringList arguments = Application::arguments();
    Files::setProgramFolder(arguments[1]);
    Dialogs::install(std::make_unique<WrittenDialogs>(arguments.mid(3)));
    Report::setHandler([](const QString& what) {
        std::printf("driver: %s\n", qPrintable(what));
        Application::end(3);
    });
    ModalDriver modal;
    QMetaObject::invokeMethod(
        &application, [&] { play(arguments[2], modal); }, Qt::QueuedConnection);
    return Application::exec();
}
