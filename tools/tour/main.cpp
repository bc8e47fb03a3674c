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
#include <QMenuBar>
#include <QTest>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

void failTheWalk(const std::exception& error)
{
    Report::fail(QString::fromUtf8(error.what()));
}

void login(Tour& tour, ScreenDriver& login)
{
    tour.picture(u"frmtelainicial"_s, login);
    tour.box(u"frmtelainicial_suporte"_s, u"OK"_s);
    login.press(Qt::Key_F10);
    login.type(u"txtUsuario"_s, u"admin"_s);
    login.press(Qt::Key_Return);
    login.typeOn(u"errada"_s);
    tour.box(u"frmtelainicial_recusado"_s, u"OK"_s);
    login.press(Qt::Key_Return);
    login.type(u"txtSenha"_s, u"admin"_s);
    login.press(Qt::Key_Return);
}

void users(Tour& tour)
{
    tour.screen(u"frmcadusuario"_s, [&tour](ScreenDriver& users) {
        users.type(u"Combo1"_s, u"recepcao"_s);
        users.press(Qt::Key_Return);
        users.press(Qt::Key_Return);
        tour.picture(u"frmcadusuario"_s, users);
        tour.resized(u"frmcadusuario"_s, users);

        tour.box(u"frmcadusuario_exclui"_s, u"Não"_s);
        users.click(u"Command3"_s);
        users.type(u"txtoksenha"_s, u"outra"_s);
        tour.picture(u"frmcadusuario_senhas"_s, users);

        // A quote breaks the statement. The program would end behind the box; the walk goes on.
        Application::setFailureHandler(Application::tell);
        tour.box(u"erro_do_servidor"_s, u"OK"_s);
        users.type(u"Combo1"_s, u"d'avila"_s);
        users.press(Qt::Key_Tab);
        Application::setFailureHandler(failTheWalk);
        users.press(Qt::Key_Escape);
    });
    Menu::principal().run(u"cadUsu"_s);
}

void configuration(Tour& tour)
{
    tour.screen(u"frmconfig"_s, [&tour](ScreenDriver& configuration) {
        // The socket's path is another one at each walk.
        configuration.type(u"txtString"_s, u"servidor.clinica;Port=3306"_s);
        configuration.type(u"txtSenha"_s, u"segredo"_s);
        tour.picture(u"frmconfig"_s, configuration);
        tour.box(u"frmconfig_confirma"_s, u"Não"_s);
        configuration.click(u"Command2"_s);
        configuration.click(u"Command1"_s);
    });
    Menu::principal().run(u"mnupram"_s);
}

void update(Tour& tour)
{
    OneAnswer vendor(OneAnswer::http("404 Not Found", {}));
    vendor.hold();
    qputenv("TREMOSILVA_HOST_DOWNLOAD", vendor.host().toUtf8());
    QTimer::singleShot(0, [&] {
        tour.picture(u"frmProgresso"_s, ScreenDriver(Form::of<frmProgresso>()));
        vendor.release();
    });
    tour.box(u"frmProgresso_recusado"_s, u"OK"_s);
    Menu::principal().run(u"mnuupdate"_s);
    qunsetenv("TREMOSILVA_HOST_DOWNLOAD");
}

/// With the sub-menus of its last entry, as the Right key opens them.
void openMenu(Tour& tour, const ScreenDriver& window, const QString& head)
{
    const auto* entry = window.window().findChild<QAction*>(head);
    auto* bar = window.window().findChild<QMenuBar*>();
    const QRect place = bar->actionGeometry(const_cast<QAction*>(entry));
    entry->menu()->popup(bar->mapToGlobal(place.bottomLeft()));
    settle();
    QTest::keyClick(entry->menu(), Qt::Key_Up);
    for (int i = 0; i < 2; ++i)
        QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Right);
    tour.picture(u"frmPrincipal_"_s + head, window);
}

void walk(Tour& tour)
{
    auto& principal = Form::of<frmPrincipal>();
    ScreenDriver window(principal);
    tour.screen(u"frmtelainicial"_s, [&tour](ScreenDriver& screen) { login(tour, screen); });
    principal.Show();
    settle();

    tour.picture(u"frmPrincipal"_s, window);
    for (const char* head : {"mnuCad", "mnumov", "mnurel", "mnuti"})
        openMenu(tour, window, QString::fromLatin1(head));
    tour.resized(u"frmPrincipal"_s, window);
    tour.altHeld(u"frmPrincipal_alt"_s, window);
    tour.box(u"ainda_nao"_s, u"OK"_s);
    Menu::principal().run(u"movcont"_s);
    users(tour);
    configuration(tour);
    walkRegisters(tour);
    walkAgenda(tour);
    update(tour);

    tour.screen(u"frmtelainicial"_s, [&tour](ScreenDriver& screen) {
        tour.picture(u"frmtelainicial_logoff"_s, screen);
        std::printf("tour: %d pictures, %d texts cut\n", tour.count(), tour.cut());
        // Closing the login ends the program, here with the status of a walk that went well.
        screen.press(Qt::Key_Escape);
    });
    window.press(Qt::Key_F10);
    Report::fail(u"closing the login did not end the program"_s);
}

} // namespace

/// tremosilva-tour FOLDER PICTURES [WIDTHxHEIGHT [PERCENT]]: FOLDER holds the configuration file, PICTURES
/// gets the pictures; then come the screen's size in pixels and its scaling, as a user sets it for the whole
/// display.
int main(int argc, char** argv)
{
    const QStringList sides =
        QString::fromLocal8Bit(argc > 3 ? argv[3] : "1920x1080").split(QLatin1Char('x'));
    const OffScreen screen({sides.first().toInt(), sides.last().toInt()},
                           argc > 4 ? QByteArray(argv[4]).toInt() : 100);
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
    QTimer::singleShot(std::chrono::minutes(5), &application,
                       [] { Report::fail(u"the walk stands still"_s); });
    QMetaObject::invokeMethod(
        &application, [&tour] { walk(tour); }, Qt::QueuedConnection);
    return Application::exec();
}
