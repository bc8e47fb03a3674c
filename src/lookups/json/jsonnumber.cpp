#include "lookups/json/jsonnumber.h"

#include <QVarLengthArray>
#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace JsonNumber {

namespace {

/// The parts of a number's text.
struct Parts
{
    bool negative = false;
    QStringView whole;
    QStringView fraction;
    QStringView exponent; ///< with its sign; empty for none
};

bool isDigit(QChar c)
{
    return c >= u'0' && c <= u'9';
}

qsizetype digitsAt(QStringView text)
{
    return std::find_if_not(text.begin(), text.end(), isDigit) - text.begin();
}

QStringView take(QStringView& text, qsizetype count)
{
    const QStringView taken = text.first(count);
    text = text.sliced(count);
    return taken;
}

std::optional<Parts> partsOf(QStringView text)
{
    Parts parts;
    parts.negative = text.startsWith(u'-');
    if (parts.negative)
        text = text.sliced(1);
    parts.whole = take(text, digitsAt(text));
    if (parts.whole.isEmpty())
        return std::nullopt;
    if (text.startsWith(u'.')) {
        text = text.sliced(1);
        parts.fraction = take(text, digitsAt(text));
    }
    if (text.isEmpty())
        return parts;
    if (text.front().toLower() != u'e')
        return std::nullopt;
    parts.exponent = text.sliced(1);
    const qsizetype sign = parts.exponent.startsWith(u'-') || parts.exponent.startsWith(u'+') ? 1 : 0;
    const QStringView digits = parts.exponent.sliced(sign);
    return !digits.isEmpty() && digitsAt(digits) == digits.size() ? std::optional(parts) : std::nullopt;
}

/// The exponent; one that no type reaches is cut down to a thousand million, which no type reaches either.
int exponentOf(const Parts& parts)
{
    constexpr int beyond = 1'000'000'000;
    const QByteArray text = parts.exponent.toLatin1();
    const bool negative = text.startsWith('-');
    const char* begin = text.begin() + (negative || text.startsWith('+') ? 1 : 0);
    int value = 0;
    if (std::from_chars(begin, text.end(), value).ec == std::errc::result_out_of_range || value > beyond)
        value = beyond;
    return negative ? -value : value;
}

bool isZero(const Parts& parts)
{
    const auto zero = [](QChar c) { return c == u'0'; };
    return std::all_of(parts.whole.begin(), parts.whole.end(), zero) &&
           std::all_of(parts.fraction.begin(), parts.fraction.end(), zero);
}

/// Where the decimal mark stands in front of (negative: how many zeros before) the first digit that counts;
/// the magnitude is below ten to this power. Of a number that is not zero.
qint64 powerOf(const Parts& parts)
{
    const auto counts = [](QChar c) { return c != u'0'; };
    const auto first = std::find_if(parts.whole.begin(), parts.whole.end(), counts);
    const auto behind = std::find_if(parts.fraction.begin(), parts.fraction.end(), counts);
    const qint64 power =
        first != parts.whole.end() ? parts.whole.end() - first : parts.fraction.begin() - behind;
    return power + exponentOf(parts);
}

constexpr std::array powersOfTen{1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
                                 1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

/// A number of up to 15 digits and without exponent: two doubles that are exact give a quotient that is the
/// nearest one.
std::optional<double> readShort(QStringView text)
{
    constexpr qsizetype exactDigits = 15;
    const bool negative = text.startsWith(u'-');
    if (negative)
        text = text.sliced(1);
    if (text.isEmpty() || text.size() > exactDigits + 1)
        return std::nullopt;
    quint64 digits = 0;
    qsizetype count = 0;
    qsizetype places = -1; // behind the point, once there is one
    for (const QChar c : text) {
        if (isDigit(c)) {
            digits = digits * 10 + (c.unicode() - u'0');
            ++count;
            places += places >= 0 ? 1 : 0;
        } else if (c == u'.' && places < 0 && count > 0) {
            places = 0;
        } else {
            return std::nullopt;
        }
    }
    if (count > exactDigits)
        return std::nullopt;
    double value = static_cast<double>(digits);
    if (places > 0)
        value /= powersOfTen[static_cast<std::size_t>(places)];
    return negative ? -value : value;
}

} // namespace

std::optional<double> readDouble(QStringView text)
{
    if (const auto value = readShort(text))
        return value;
    const auto parts = partsOf(text);
    if (!parts)
        return std::nullopt;
    QVarLengthArray<char, 64> ascii(text.size());
    std::transform(text.begin(), text.end(), ascii.begin(), [](QChar c) { return c.toLatin1(); });
    double value = 0;
    const auto result = std::from_chars(ascii.cbegin(), ascii.cend(), value);
    if (result.ec == std::errc::result_out_of_range) {
        if (powerOf(*parts) > 0)
            return std::nullopt;
        value = parts->negative ? -0.0 : 0.0;
    }
    return value;
}

std::optional<Decimal> readDecimal(QStringView text)
{
    constexpr qint64 significant = 28;
    constexpr qint64 smallest = -323;
    static const QByteArray greatest("79228162514264337593543950335");
    const auto parts = partsOf(text);
    if (!parts)
        return std::nullopt;
    Decimal decimal;
    if (isZero(*parts))
        return decimal;
    const qint64 power = powerOf(*parts);
    if (power > greatest.size())
        return std::nullopt;
    if (power < smallest)
        return decimal;

    QByteArray digits = parts->whole.toLatin1() + parts->fraction.toLatin1();
    const auto counts = std::find_if(digits.cbegin(), digits.cend(), [](char c) { return c != '0'; });
    digits.remove(0, counts - digits.cbegin());
    decimal.negative = parts->negative;
    if (power > 0) {
        decimal.whole = digits.leftJustified(power, '0').left(power);
        decimal.fraction = digits.mid(power);
    } else {
        decimal.fraction = QByteArray(-power, '0') + digits;
    }
    decimal.round(std::max<qint64>(0, significant - power));
    decimal.normalise();
    const bool tooGreat = decimal.whole.size() > greatest.size() ||
                          (decimal.whole.size() == greatest.size() && decimal.whole > greatest);
    return tooGreat ? std::nullopt : std::optional(decimal);
}

std::size_t write(double value, char* buffer)
{
    constexpr double exactWhole = 9007199254740992.0; // 2^53
    constexpr double leastPlain = 0.00001;
    char* const end = buffer + longest;
    if (!std::isfinite(value))
        return 0;
    const double magnitude = std::fabs(value);
    std::to_chars_result result{};
    if (magnitude <= exactWhole && magnitude == std::trunc(magnitude) && (value != 0 || !std::signbit(value)))
        result = std::to_chars(buffer, end, static_cast<qint64>(value));
    else if (magnitude == 0 || (magnitude >= leastPlain && magnitude <= exactWhole))
        result = std::to_chars(buffer, end, value, std::chars_format::fixed);
    else
        result = std::to_chars(buffer, end, value, std::chars_format::scientific);
    return static_cast<std::size_t>(result.ptr - buffer);
}

} // namespace JsonNumber
