#include "platform/forms/theme.h"
#include "support/caughterrors.h"
#include "support/offscreen.h"
#include "support/report.h"

#include <cstdio>
#include <cstdlib>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// A warning of the window library is a fault of ours until it is shown to be otherwise.
void warningsFail(QtMsgType type, const QMessageLogContext&, const QString& message)
{
    // What the window system off the screen cannot do it says at every window.
    if (message.startsWith(QLatin1String("This plugin does not support")))
        return;
    if (type == QtWarningMsg || type == QtCriticalMsg)
        ADD_FAILURE() << "Qt says: " << message.toStdString();
    if (type == QtFatalMsg)
        std::abort();
}

} // namespace

/// One main for all test programs: the windows are drawn off the screen, the clock is Brazil's with its
/// summer time, and what goes wrong in an event handler fails the test. So does the program's own end, which
/// would take the tests that are still to come with it.
int main(int argc, char** argv)
{
    const OffScreen screen;
    qputenv("TZ", "America/Sao_Paulo");
    testing::InitGoogleTest(&argc, argv);
    testing::GTEST_FLAG(death_test_style) = "threadsafe";
    Application application(argc, argv);
    Application::setApplicationName(u"Tremosilva 1.0"_s);
    Theme::apply(application);
    qInstallMessageHandler(warningsFail);
    Report::setHandler([](const QString& what) { ADD_FAILURE() << what.toStdString(); });
    CaughtErrors::failTheTest();
    std::at_quick_exit([] {
        std::fputs("the program was ended in the middle of a test\n", stderr);
        std::_Exit(1);
    });
    return RUN_ALL_TESTS();
}
