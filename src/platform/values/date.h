#pragma once

#include <QDateTime>
#include <QString>
#include <optional>

/// Dates as a Brazilian workstation writes and reads them.
///
/// Read are: d/m/yyyy and d/m/yy (years 00 to 29 are 2000 to 2029, 30 to 99 are 1930 to 1999), yyyy/m/d and
/// yyyy-m-d, years from 100 on, each alone or followed by one blank (or "T") and a time h:nn or h:nn:ss; or
/// such a time alone, which belongs to 30/12/1899. Blanks around it are dropped. A day that no calendar has
/// is no date.
///
/// The result is local time. Summer time began at midnight in Brazil until 2018, so that a day such as
/// 04/11/2018 has no 00:00: its date() and time() are right, but QDateTime::isValid() is false, and two
/// moments of the hour that was left out have no order. Whether a moment is set is for date().isValid() to
/// tell.
std::optional<QDateTime> readDate(QStringView text);

bool isDate(QStringView text);

/// Throws RuntimeError 13 where isDate is false.
QDateTime toDate(QStringView text);

/// So many days or calendar months later, or earlier for a negative number; a month that lacks the day gives
/// its last one. Throws RuntimeError 13 for an invalid date, 5 where the result lies before 01/01/0100 or
/// behind 31/12/9999.
QDate addDays(QDate date, qint32 days);
QDate addMonths(QDate date, qint32 months);

/// The same with hours and minutes, which are added to date and time as a clock shows them: 12 hours behind
/// 20:00 it is 08:00, also in the night in which summer time begins or ends.
QDateTime addHours(const QDateTime& moment, qint32 hours);
QDateTime addMinutes(const QDateTime& moment, qint32 minutes);

/// 1 for Sunday to 7 for Saturday. Throws RuntimeError 13 for an invalid date.
int weekday(QDate date);

/// "domingo", "segunda-feira" to "sábado", for 1 to 7. Throws RuntimeError 9 for any other number.
QString weekdayName(int weekday);

/// "janeiro" to "dezembro", for 1 to 12. Throws RuntimeError 9 for any other number.
QString monthName(int month);

/// The default text form: "dd/mm/yyyy hh:nn:ss"; without the time at midnight; the time alone on 30/12/1899.
/// An invalid date gives an empty text.
QString generalDate(const QDateTime& moment);
