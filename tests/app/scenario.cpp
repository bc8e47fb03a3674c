#include "app/core/instalacao.h"
#include "app/core/menu.h"
#include "app/frmprincipal.h"
#include "app/telas.h"
#include "platform/forms/application.h"
#include "platform/forms/dialogs.h"
#include "platform/forms/theme.h"
#include "platform/system/files.h"
#include "support/modaldriver.h"
#include "support/offscreen.h"
#include "support/report.h"

#include <cstdio>

using namespace Qt::StringLiterals;

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
                    qPrintable(QString(box.text).replace(u'\n', u"\\n"_s)),
                    box.icon == Icon::Critical ? "|critical" : "");
        if (box.buttons == Buttons::Ok)
            return Answer::Ok;
        return !answers_.isEmpty() && answers_.takeFirst() == u"sim" ? Answer::Yes : Answer::No;
    }
    std::optional<QString> input(const QString&, const QString&, const QString&) override { return {}; }
    std::optional<QString> file(const FileDialog&) override { return {}; }

private:
    QStringList answers_;
};

void play(const QString& scenario, ModalDriver& modal)
{
    auto& principal = Form::of<frmPrincipal>();
    const auto escape = [](ScreenDriver& screen) { screen.press(Qt::Key_Escape); };
    if (scenario == u"close-login")
        modal.expect(u"frmtelainicial"_s, escape);
    else if (scenario == u"configure")
        modal.expect(u"frmconfig"_s, [](ScreenDriver& screen) {
            screen.type(u"txtString"_s, u"Servidor"_s);
            screen.type(u"txtIdLic"_s, u"c1"_s);
            screen.click(u"Command2"_s);
        });
    else if (scenario == u"first-user")
        modal.expect(u"frmcadusuario"_s, [escape](ScreenDriver& screen) {
            screen.type(u"Combo1"_s, u"ana"_s);
            screen.type(u"txtsenha"_s, u"x"_s);
            screen.type(u"txtoksenha"_s, u"x"_s);
            screen.click(u"Command2"_s);
            screen.click(u"Command1"_s);
            escape(screen);
        });
    else
        modal.expect(u"frmtelainicial"_s, [&](ScreenDriver& screen) {
            const bool quote = scenario == u"quote-at-login";
            screen.type(u"txtUsuario"_s, quote ? u"d'avila"_s : u"maria"_s);
            screen.type(u"txtSenha"_s, quote ? QString() : u"segredo"_s);
            screen.click(u"Command1"_s);
        });
    principal.Show();
    settle();

    if (scenario == u"log-off") {
        modal.expect(u"frmtelainicial"_s, escape);
        ScreenDriver(principal).press(Qt::Key_F10);
    } else if (scenario == u"close-window") {
        principal.close();
    } else if (scenario == u"update") {
        Menu::principal().run(u"mnuupdate"_s);
    }
    Report::fail(u"the program goes on"_s);
}

} // namespace

int main(int argc, char** argv)
{
    const OffScreen screen;
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
