#include "platform/forms/application.h"

#include "platform/forms/dialogs.h"
#include "platform/forms/librarytexts.h"
#include "platform/system/shell.h"
#include "platform/values/error.h"

#include <QDir>
#include <QLibraryInfo>
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

/// A document or address that no program of the workstation has shown.
void tellUnopened(const QString& target)
{
    const QString text = target.contains(u"://"_s)
                             ? u"Nenhum programa desta estação abriu o endereço.\nAbra-o no navegador:"_s
                             : u"Nenhum programa desta estação abriu o documento.\nEle está gravado em:"_s;
    MsgBox(text + u"\n\n"_s + QDir::toNativeSeparators(target), u"Atenção"_s, Icon::Exclamation);
}

} // namespace

Application::Application(int& argc, char** argv) : QApplication(argc, argv)
{
    setBrazilianLocale();
    speakPortuguese();
    Shell::setFailureHandler(tellUnopened);
}

/// The translator that comes last is asked first. The library's own translation, where the workstation has
/// it, is for what seldom comes up, such as the reasons of a failed connection.
void Application::speakPortuguese()
{
    auto* all = new QTranslator(this);
    if (all->load(u"qtbase_pt_BR"_s, QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        installTranslator(all);
    installTranslator(new LibraryTexts(this));
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
