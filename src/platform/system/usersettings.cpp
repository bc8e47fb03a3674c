#include "platform/system/usersettings.h"

#include <QSettings>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace UserSettings {

namespace {

QString file()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           u"/tremosilva/janelas.ini"_s;
}

} // namespace

QByteArray value(const QString& key)
{
    return QSettings(file(), QSettings::IniFormat).value(key).toByteArray();
}

void setValue(const QString& key, const QByteArray& value)
{
    QSettings(file(), QSettings::IniFormat).setValue(key, value);
}

} // namespace UserSettings
