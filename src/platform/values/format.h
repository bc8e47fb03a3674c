#pragma once

#include <QDateTime>
#include <QString>

/// Values to text by a mask.
///
/// Number masks: "0" a digit or zero, "#" a digit or nothing, "." the place of the decimal comma, "," between
/// digit places groups of three; "\x" and any other character stand as they are. The number is rounded half
/// away from zero on its decimal digits (15 significant), so that 1.005 in "0.00" is "1,01". More digits than places are all written.
///   Format(1234.5, "##########0.00") == "1234,50"; Format(7, "000") == "007"
///   Format(12345678000195, "0#\.###\.###\/####\-##") == "12.345.678/0001-95"
///
/// Date masks: d, dd, m, mm (minutes right behind an hour or in front of seconds, the month otherwise), yy, yyyy, h, hh
/// (24 hours), n, nn, s, ss, upper or lower case; "\x" and any other character stand as they are.
///   Format(moment, "yymmddhhmmss") == "240303140509"
///
/// A text is read first, as a number or a date as the mask asks; a text that is neither comes back as it is.
QString Format(double value, QStringView mask);
QString Format(const QDateTime& value, QStringView mask);
QString Format(QDate value, QStringView mask);
QString Format(const QString& text, QStringView mask);

/// The currency form: "R$ 1.234,56", "-R$ 1.234,56". Rounded half away from zero to two places.
QString Currency(double value);
