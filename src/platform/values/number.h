#pragma once

#include <QString>
#include <optional>

/// Numbers as a Brazilian workstation writes and reads them.
///
/// Read are: an optional sign in front, an optional "R$" before or after the sign, digits with a decimal
/// comma (on one side of it there may be none), well-formed groups of three with points, and blanks around
/// each of these. A single point that cannot be the mark of a group ("12.5", "0.125", "1.2345") is a decimal
/// point: so a value read back from the database is read as well. "1.234" is one thousand two hundred and
/// thirty-four. No exponent is read, and nothing beyond the range of a double.
std::optional<double> readNumber(QStringView text);

bool isNumeric(QStringView text);

/// The number in the text. Throws RuntimeError 13 where isNumeric is false.
double toNumber(QStringView text);

/// The quotient. Throws RuntimeError 11 where the divisor is zero, whatever the dividend, 6 where the
/// quotient is not finite.
double divide(double dividend, double divisor);

/// The nearest single-precision number. As a double it is what its binary digits are and not what was typed:
/// toSingle(33.3333) is 33.33330154418945. Throws RuntimeError 6 beyond the type's range.
float toSingle(double value);

/// The nearest whole number, a half going to the even neighbour: 0.5 -> 0, 1.5 -> 2, 2.5 -> 2, -1.5 -> -2.
/// Throws RuntimeError 6 outside the type's range and for a number that is not finite.
qint16 toInt16(double value);
qint32 toInt32(double value);
qint64 toInt64(double value);

/// The whole part, towards zero: the code in a box that holds "12,5" is 12. Read as readNumber does, exact on
/// all 64 bits. Throws RuntimeError 13 for a text that is no number, 6 outside the range.
qint64 integerPart(QStringView text);

/// The number that the text starts with, a point being the decimal mark and blanks skipped wherever they
/// stand: "8.5 x 11" -> 8.5, "12,5" -> 12, "- 3" -> -3, "abc" -> 0. Never fails.
double leadingNumber(QStringView text);

/// The number on 15 significant digits with a point as decimal mark and no exponent, for a place that wants
/// no mask: 1234.5 -> "1234.5", 0.1 + 0.2 -> "0.3". Throws RuntimeError 6 for a number that is not finite.
QString plainNumber(double value);

/// The same for a single-precision number, on its seven significant digits, and also with a point: 860.585f
/// -> "860.585". With an exponent from 10 million on and where more than seven digits would stand behind the
/// point: 49210480 -> "4.921048E+07", 1 / 30 -> "3.333333E-02".
QString plainSingle(float value);
