#pragma once

#include <QDateTime>
#include <QString>
#include <optional>

/// Dates as a Brazilian workstation writes and reads them.
///
/// Read are: d/m/yyyy and d/m/yy (years 00 to 29 are 2000 to 2029, 30 to 99 are 1930 to 1999), yyyy/m/d and
/// yyyy-m-d, each alone or followed by a blank (or "T") and a time h:nn or h:nn:ss; or such a time alone,
/// which belongs to 30/12/1899. Blanks around it are dropped. A day that no calendar has is no date.
std::optional<QDateTime> readDate(QStringView text);

bool isDate(QStringView text);

/// Throws RuntimeError 13 where isDate is false.
QDateTime toDate(QStringView text);

/// 1 for Sunday to 7 for Saturday.
int weekday(QDate date);

/// "domingo" to "sábado", for 1 to 7.
QString weekdayName(int weekday);

/// "janeiro" to "dezembro", for 1 to 12.
QString monthName(int month);

/// The default text form: "dd/mm/yyyy hh:nn:ss"; without the time at midnight; the time alone on 30/12/1899.
QString generalDate(const QDateTime& moment);
