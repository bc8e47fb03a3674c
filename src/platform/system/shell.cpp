#include "platform/system/shell.h"

#include "platform/values/error.h"

#include <QDesktopServices>
#include <QFileInfo>
#include <QProcess>
#include <QUrl>

using namespace Qt::StringLiterals;

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
        throw RuntimeError(53, u"Arquivo não encontrado: %1"_s.arg(target));
    if (!file.isExecutable() || file.isDir())
        QDesktopServices::openUrl(QUrl::fromLocalFile(file.absoluteFilePath()));
    else if (!QProcess::startDetached(file.absoluteFilePath(), {}, file.absolutePath()))
        Errors::fileAccess(target, u"o programa não pode ser iniciado"_s);
}

void setHandler(std::function<void(const QString&)> newHandler)
{
    handler() = std::move(newHandler);
}

} // namespace Shell
