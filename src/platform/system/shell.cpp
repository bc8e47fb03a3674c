#include "platform/system/shell.h"

#include "platform/values/error.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QProcess>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace Shell {

namespace {

std::function<void(const QString&)>& handler()
{
    static std::function<void(const QString&)> instance;
    return instance;
}

std::function<void(const QString&)>& failureHandler()
{
    static std::function<void(const QString&)> instance;
    return instance;
}

/// An opener that has nothing to open with ends soon. One that ends later has shown something: on a bare
/// workstation it stays for as long as the viewer is open, and ends with the viewer's own status.
constexpr qint64 patience = 8000; // milliseconds

/// The desktop's opener, watched until it ends. It outlives this program, as what it has opened does: that is
/// why nobody owns the process.
void handOver(const QString& target)
{
    auto* opener = new QProcess;
    QElapsedTimer since;
    since.start();
    const auto over = [opener, target, since](bool opened) {
        opener->deleteLater();
        if (!opened && since.elapsed() < patience && failureHandler())
            QMetaObject::invokeMethod(
                qApp, [target] { failureHandler()(target); }, Qt::QueuedConnection);
    };
    QObject::connect(opener, &QProcess::finished, opener, [over](int code, QProcess::ExitStatus status) {
        over(code == 0 && status == QProcess::NormalExit);
    });
    QObject::connect(opener, &QProcess::errorOccurred, opener, [over](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart)
            over(false);
    });
    opener->setStandardInputFile(QProcess::nullDevice());
    opener->setStandardOutputFile(QProcess::nullDevice());
    opener->setStandardErrorFile(QProcess::nullDevice());
    // What the terminal of this program is told, such as to stop, is not for the viewer.
    opener->setChildProcessModifier([] { setsid(); });
    opener->setWorkingDirectory(QDir::homePath());
    opener->start(u"xdg-open"_s, {target});
}

} // namespace

void open(const QString& target)
{
    if (handler())
        return handler()(target);

    if (target.contains(QLatin1String("://")))
        return handOver(target);
    const QFileInfo file(target);
    if (!file.exists())
        throw RuntimeError(53, u"Arquivo não encontrado: %1"_s.arg(target));
    if (!file.isExecutable() || file.isDir())
        handOver(file.absoluteFilePath());
    else if (!QProcess::startDetached(file.absoluteFilePath(), {}, file.absolutePath()))
        Errors::fileAccess(target, u"o programa não pode ser iniciado"_s);
}

void setFailureHandler(std::function<void(const QString&)> newHandler)
{
    failureHandler() = std::move(newHandler);
}

void setHandler(std::function<void(const QString&)> newHandler)
{
    handler() = std::move(newHandler);
}

} // namespace Shell
