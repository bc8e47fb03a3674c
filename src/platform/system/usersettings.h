#pragma once

#include <QByteArray>
#include <QString>

/// What the program remembers of one user of the workstation, such as a window's size: in that user's own
/// folder of settings, so that it needs no right on the program's folder and is nobody else's.
namespace UserSettings {

/// Empty for what was never kept, or cannot be read.
QByteArray value(const QString& key);

/// Nothing here is worth a message: where it cannot be written, the next start has forgotten it.
void setValue(const QString& key, const QByteArray& value);

} // namespace UserSettings
