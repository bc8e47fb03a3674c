#include "platform/forms/application.h"

#include "platform/forms/dialogs.h"
#include "platform/values/error.h"

#include <QLocale>
#include <clocale>
#include <cstdio>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace {

std::function<void(const std::exception&)>& failureHandler()
{
    static std::function<void(const std::exception&)> handler;
    return handler;
}

/// While the box is open a timer may fail again: the first failure is the one to tell.
bool failing = false;

QString textOf(const std::exception& error)
{
    const auto* runtime = dynamic_cast<const RuntimeError*>(&error);
    if (!runtime)
        return QString::fromLocal8Bit(error.what());
    QString text = u"Erro %1\n%2"_s.arg(runtime->number()).arg(runtime->description());
    if (!runtime->detail().isEmpty())
        text += u"\n\n"_s + runtime->detail();
    return text;
}

} // namespace

Application::Application(int& argc, char** argv) : QApplication(argc, argv)
{
    setBrazilianLocale();
}

bool Application::notify(QObject* receiver, QEvent* event)
{
    try {
        return QApplication::notify(receiver, event);
    } catch (const std::exception& error) {
        if (failureHandler())
            failureHandler()(error);
        else if (!failing)
            fail(error);
        return true;
    }
}

void Application::end(int status)
{
    std::fflush(nullptr);
    // Not exit(): objects of windows that are still at work further up the stack must not be destroyed.
    std::quick_exit(status);
}

void Application::tell(const std::exception& error)
{
    MsgBox(textOf(error), applicationName(), Icon::Critical);
}

void Application::fail(const std::exception& error)
{
    failing = true;
    tell(error);
    end(1);
}

void Application::setFailureHandler(std::function<void(const std::exception&)> handler)
{
    failureHandler() = std::move(handler);
}

void Application::setBrazilianLocale()
{
    QLocale::setDefault(QLocale(QLocale::Portuguese, QLocale::Brazil));
    std::setlocale(LC_NUMERIC, "C");
}
