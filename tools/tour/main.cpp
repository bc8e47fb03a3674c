#include "agenda.h"
#include "registers.h"
#include "tour.h"

#include "app/core/instalacao.h"
#include "app/core/menu.h"
#include "app/frmprincipal.h"
#include "app/frmprogresso.h"
#include "app/telas.h"
#include "platform/forms/application.h"
#include "platform/forms/theme.h"
#include "platform/system/files.h"
#include "support/fixedclock.h"
#include "support/offscreen.h"
#include "support/oneanswer.h"
#include "support/openedtargets.h"
#include "support/report.h"

#include <QMenu>
#include <cstdio>

namespace {

void failTheWalk(const std::exception& error)
{
    Report::fail(QString::fromUtf8(error.what()));
}

void login(Tour& tour, ScreenDriver& login)
{
    tour.picture(QStringLiteral("frmtelainicial"), login);
    tour.box(QStringLiteral("frmtelainicial_suporte"), QStringLiteral("OK"));
    login.press(Qt::Key_F10);
    login.type(QStringLiteral("txtUsuario"), QStringLiteral("admin"));
    login.press(Qt::Key_Return);
    login.typeOn(QStringLiteral("errada"));
    tour.box(QStringLiteral("frmtelainicial_recusado"), QStringLiteral("OK"));
    login.press(Qt::Key_Return);
    login.type(QStringLiteral("txtSenha"), QStringLiteral("admin"));
    login.press(Qt::Key_Return);
}

void users(Tour& tour)
{
    tour.screen(QStringLiteral("frmcadusuario"), [&tour](ScreenDriver& users) {
        users.type(QStringLiteral("Combo1"), QStringLiteral("recepcao"));
        users.press(Qt::Key_Return);
        users.press(Qt::Key_Return);
        tour.picture(QStringLiteral("frmcadusuario"), users);
        tour.resized(QStringLiteral("frmcadusuario"), users);

        // A quote breaks the statement. The program would end behind the box; the walk goes on.
        Application::setFailureHandler(Application::tell);
        tour.box(QStringLiteral("erro_do_servidor"), QStringLiteral("OK"));
        users.type(QStringLiteral("Combo1"), QStringLiteral("d'avila"));
        users.press(Qt::Key_Tab);
        Application::setFailureHandler(failTheWalk);
        users.press(Qt::Key_Escape);
    });
    Menu::principal().run(QStringLiteral("cadUsu"));
}

void configuration(Tour& tour)
{
    tour.screen(QStringLiteral("frmconfig"), [&tour](ScreenDriver& configuration) {
        // The socket's path is another one at each walk.
        configuration.type(QStringLiteral("txtString"), QStringLiteral("servidor.clinica;Port=3306"));
        configuration.type(QStringLiteral("txtSenha"), QStringLiteral("segredo"));
        tour.picture(QStringLiteral("frmconfig"), configuration);
        tour.box(QStringLiteral("frmconfig_confirma"), QStringLiteral("Não"));
        configuration.click(QStringLiteral("Command2"));
        configuration.click(QStringLiteral("Command1"));
    });
    Menu::principal().run(QStringLiteral("mnupram"));
}

void update(Tour& tour)
{
    OneAnswer vendor(OneAnswer::http("404 Not Found", {}));
    vendor.hold();
    qputenv("TREMOSILVA_HOST_DOWNLOAD", vendor.host().toUtf8());
    QTimer::singleShot(0, [&] {
        tour.picture(QStringLiteral("frmProgresso"), ScreenDriver(Form::of<frmProgresso>()));
        vendor.release();
    });
    tour.box(QStringLiteral("frmProgresso_recusado"), QStringLiteral("OK"));
    Menu::principal().run(QStringLiteral("mnuupdate"));
    qunsetenv("TREMOSILVA_HOST_DOWNLOAD");
}

void walk(Tour& tour)
{
    auto& principal = Form::of<frmPrincipal>();
    ScreenDriver window(principal);
    tour.screen(QStringLiteral("frmtelainicial"), [&tour](ScreenDriver& screen) { login(tour, screen); });
    principal.Show();
    settle();

    tour.picture(QStringLiteral("frmPrincipal"), window);
    for (QAction* action : principal.findChildren<QAction*>(QStringLiteral("mnuCad")))
        tour.pictureWithMenu(QStringLiteral("frmPrincipal_menu"), window, *action->menu());
    tour.resized(QStringLiteral("frmPrincipal"), window);
    users(tour);
    configuration(tour);
    walkRegisters(tour);
    walkAgenda(tour);
    update(tour);

    tour.screen(QStringLiteral("frmtelainicial"), [&tour](ScreenDriver& screen) {
        tour.picture(QStringLiteral("frmtelainicial_logoff"), screen);
        std::printf("tour: %d pictures\n", tour.count());
        // Closing the login ends the program, here with the status of a walk that went well.
        screen.press(Qt::Key_Escape);
    });
    window.press(Qt::Key_F10);
    Report::fail(QStringLiteral("closing the login did not end the program"));
}

} // namespace

/// tremosilva-tour FOLDER PICTURES [WIDTHxHEIGHT]: FOLDER holds the configuration file, PICTURES gets the
/// pictures; the last one is the size of the screen.
int main(int argc, char** argv)
{
    const QStringList sides =
        QString::fromLocal8Bit(argc > 3 ? argv[3] : "1920x1080").split(QLatin1Char('x'));
    const OffScreen screen({sides.first().toInt(), sides.last().toInt()});
    Application application(argc, argv);
    Application::setApplicationName(Instalacao::nomePrograma());
    const QStringList arguments = Application::arguments();
    if (arguments.size() < 3) {
        std::fputs("tremosilva-tour: a program folder and a folder for the pictures are wanted\n", stderr);
        return 2;
    }
    Theme::apply(application);
    ligaMenu();
    Files::setProgramFolder(arguments[1]);
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString& message) {
        // What the window system off the screen cannot do it says at every window.
        if (!message.startsWith(QLatin1String("This plugin does not support")))
            std::fprintf(stderr, "%s\n", qPrintable(message));
    });
    Report::setHandler([](const QString& what) {
        std::fprintf(stderr, "tour: %s\n", qPrintable(what));
        Application::end(1);
    });
    Application::setFailureHandler(
        [](const std::exception& error) { Report::fail(QString::fromUtf8(error.what())); });

    const OpenedTargets opened; // by no other program: a document is kept with the pictures
    const FixedClock clock(QDateTime(QDate(2026, 3, 16), QTime(8, 30)));
    Tour tour(arguments[2]);
    QMetaObject::invokeMethod(
        &application, [&tour] { walk(tour); }, Qt::QueuedConnection);
    return Application::exec();
}
