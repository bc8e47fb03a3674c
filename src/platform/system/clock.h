#pragma once

#include <QDateTime>
#include <functional>

/// The only clock of the program: local time of the workstation, to the second's fraction.
namespace Clock {

QDateTime now();
QDate today();

/// Puts another source in the place of the workstation's clock; an empty one gives it back.
void setSource(std::function<QDateTime()> source);

} // namespace Clock
