#include "platform/system/files.h"

#include "platform/values/codepage.h"
#include "platform/values/error.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

using namespace Qt::StringLiterals;

namespace Files {

namespace {

QString& substituteFolder()
{
    static QString folder;
    return folder;
}

/// The entry of `folder` that has this name but for its case; the name itself where there is none.
QString nameAsItStands(const QString& folder, const QString& name)
{
    if (QFileInfo::exists(folder + QLatin1Char('/') + name))
        return name;
    const QStringList entries =
        QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    for (const QString& entry : entries)
        if (entry.compare(name, Qt::CaseInsensitive) == 0)
            return entry;
    return name;
}

} // namespace

QString programFolder()
{
    return substituteFolder().isEmpty() ? QCoreApplication::applicationDirPath() : substituteFolder();
}

void setProgramFolder(const QString& folder)
{
    substituteFolder() = folder.isEmpty() ? folder : QDir(folder).absolutePath();
}

QString inProgramFolder(const QString& name)
{
    QString path = programFolder();
    const QStringList parts = ownPath(name).split(QLatin1Char('/'), Qt::SkipEmptyParts);
    for (const QString& part : parts)
        path += QLatin1Char('/') + nameAsItStands(path, part);
    return path;
}

QString ownPath(const QString& path)
{
    return QString(path).replace(QLatin1Char('\\'), QLatin1Char('/'));
}

bool exists(const QString& path)
{
    return QFileInfo::exists(path);
}

QStringList filesOf(const QString& folder)
{
    const QDir dir(folder);
    if (!dir.exists())
        throw RuntimeError(76, u"Caminho não encontrado: %1"_s.arg(folder));
    return dir.entryList(QDir::Files | QDir::Hidden, QDir::Name | QDir::IgnoreCase);
}

void removeFile(const QString& path)
{
    QFile file(path);
    if (file.remove())
        return;
    // A write-protected file refuses on some systems until the protection is taken away.
    file.setPermissions(file.permissions() | QFile::WriteOwner | QFile::WriteUser);
    if (!file.remove())
        Errors::fileAccess(path, file.errorString());
}

void makeFolder(const QString& path)
{
    if (!QDir().mkpath(path))
        Errors::fileAccess(path, u"a pasta não pode ser criada"_s);
}

QByteArray read(const QString& path)
{
    if (!exists(path))
        throw RuntimeError(53, u"Arquivo não encontrado: %1"_s.arg(path));
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        Errors::fileAccess(path, file.errorString());
    return file.readAll();
}

void write(const QString& path, const QByteArray& content)
{
    QSaveFile file(path);
    file.setDirectWriteFallback(true); // a file that may be written in a folder that may not
    // What is still in the buffer goes to the disk first: commit() would not tell that it does not fit.
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size() || !file.flush() ||
        !file.commit())
        Errors::fileAccess(path, file.errorString());
}

void makeExecutable(const QString& path)
{
    QFile file(path);
    QFile::Permissions permissions = file.permissions() | QFile::ExeOwner | QFile::ExeUser;
    permissions.setFlag(QFile::ExeGroup, permissions.testFlag(QFile::ReadGroup));
    permissions.setFlag(QFile::ExeOther, permissions.testFlag(QFile::ReadOther));
    if (!file.setPermissions(permissions))
        Errors::fileAccess(path, file.errorString());
}

QString profileValue(const QString& section, const QString& key, const QString& fallback, const QString& path,
                     qsizetype bufferSize)
{
    QString value = fallback;
    if (exists(path)) {
        bool inSection = false;
        const QStringList lines = CodePage::decode(read(path)).split(QLatin1Char('\n'));
        for (const QString& raw : lines) {
            const QString line = raw.trimmed();
            if (line.startsWith(QLatin1Char('['))) {
                inSection = line.mid(1)
                                .section(QLatin1Char(']'), 0, 0)
                                .trimmed()
                                .compare(section, Qt::CaseInsensitive) == 0;
                continue;
            }
            const qsizetype equals = line.indexOf(QLatin1Char('='));
            if (inSection && equals >= 0 &&
                line.first(equals).trimmed().compare(key, Qt::CaseInsensitive) == 0) {
                value = line.sliced(equals + 1).trimmed();
                break;
            }
        }
    }
    return value.left(bufferSize - 1);
}

} // namespace Files
