#pragma once

#include "lookups/json/jsonvalue.h"

#include <QStringView>
#include <optional>

/// The numbers of a JSON document as text, whatever the locale of the workstation.
namespace JsonNumber {

/// Room for any number that `write` writes.
inline constexpr std::size_t longest = 32;

/// A number is digits with an optional minus in front, an optional point behind the first of them, and an
/// optional exponent: "-12", "1.", "007", "2.5e-3". Nothing for another text or a number beyond the type's
/// range; a number too small for a double is zero.
std::optional<double> readDouble(QStringView text);

/// The same as a decimal: 28 significant digits are kept, a half going away from zero. The magnitude is at
/// most 2^96 - 1, the bound of the decimal type of databases and spreadsheets; whole numbers of 29 digits up
/// to there are kept in full.
std::optional<Decimal> readDecimal(QStringView text);

/// Writes the shortest text that reads back as the same double, with a point and a lower-case exponent:
/// "0.1", "100000", "1e+20". Plain digits are used from 0.00001 up to 2^53. `buffer` has room for `longest`
/// characters; returns how many there are, 0 for a number that is not finite.
std::size_t write(double value, char* buffer);

} // namespace JsonNumber
