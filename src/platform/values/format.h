#pragma once

#include <QDateTime>
#include <QString>

/// Values to text by a mask, in the manner of pt_BR whatever the workstation's own locale is.
///
/// Number masks: "0" a digit or zero, "#" a digit or nothing, the first "." the place of the decimal comma
/// (written even if no digit follows), "," between places of the whole part groups of three with points; "\x"
/// and any other character stand as they are. From the first "0" to the comma and from the comma to the last
/// "0" every place is written. The number is rounded half away from zero on its decimal digits (15
/// significant), so that 1.005 in "0.00" is "1,01"; a negative one starts with "-", unless it is rounded to
/// zero. More digits than places are all written, at the first place.
///   Format(1234.5, u"##########0.00") == "1234,50"
///   Format(12.5, u"#########0.00##") == "12,50"
///   Format(12345678000195, u"0#\\.###\\.###\\/####\\-##") == "12.345.678/0001-95"
///
/// Date masks: d, dd, m, mm (minutes right behind an hour or in front of seconds, the month otherwise), yy,
/// yyyy, h, hh (24 hours), n, nn, s, ss, upper or lower case; "\x" and any other character stand as they are.
///   Format(moment, u"yymmddhhmmss") == "240303140509"
///
/// Throws RuntimeError 6 for a number that is not finite. An invalid date gives an empty text. The date and
/// the time that a QDateTime shows are written even when summer time skipped that moment, and QDateTime calls
/// it invalid.
QString Format(double value, QStringView mask);
QString Format(const QDateTime& value, QStringView mask);
QString Format(QDate value, QStringView mask);

/// A text is read first, as a number if the mask has a "0" or "#" to fill, as a date otherwise; a text that
/// is not what the mask asks for comes back as it is.
QString Format(const QString& text, QStringView mask);

/// The currency form: "R$ 1.234,56", "-R$ 1.234,56". Rounded half away from zero to two places. Throws
/// RuntimeError 6 for a number that is not finite.
QString Currency(double value);
