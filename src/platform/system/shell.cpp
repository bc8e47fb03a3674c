#include "platform/system/shell.h"

#include "platform/system/error.h"

#include <QDesktopServices>
#include <QFileInfo>
#include <QProcess>
#include <QUrl>

namespace Shell {

namespace {
std::function<void(const QString&)>& handler()
{
    static std::function<void(const QString&)> instance;
    return instance;
}
} // namespace

void open(const QString& target)
{
    if (handler())
        return handler()(target);

    if (target.contains(QLatin1String("://"))) {
        QDesktopServices::openUrl(QUrl(target));
        return;
    }
    const QFileInfo file(target);
    if (!file.exists())
        throw RuntimeError(53, QStringLiteral("Arquivo não encontrado: %1").arg(target));
    if (!file.isExecutable() || file.isDir())
        QDesktopServices::openUrl(QUrl::fromLocalFile(file.absoluteFilePath()));
    else if (!QProcess::startDetached(file.absoluteFilePath(), {}, file.absolutePath()))
        Errors::fileAccess(target, QStringLiteral("o programa não pode ser iniciado"));
}

void setHandler(std::function<void(const QString&)> newHandler)
{
    handler() = std::move(newHandler);
}

} // namespace Shell
