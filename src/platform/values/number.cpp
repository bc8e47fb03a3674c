#include "platform/values/number.h"

#include "platform/values/decimal.h"
#include "platform/values/error.h"

#include <QList>
#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

namespace {

/// QChar::isDigit would also take the digits of other scripts.
bool isDigit(QChar character)
{
    return character >= u'0' && character <= u'9';
}

/// True for "1.234" and "12.345.678"; the pieces are not yet known to be digits.
bool hasGroups(QStringView whole)
{
    const QList<QStringView> groups = whole.split(u'.');
    const QStringView first = groups.first();
    return !first.isEmpty() && first.size() <= 3 && first.front() != u'0' &&
           std::all_of(groups.begin() + 1, groups.end(), [](QStringView group) { return group.size() == 3; });
}

/// Takes the sign and the "R$" off the front, in either order; true if the sign is a minus.
bool takePrefix(QStringView& text)
{
    bool sign = false;
    bool negative = false;
    bool currency = false;
    while (true) {
        if (!sign && (text.startsWith(u'-') || text.startsWith(u'+'))) {
            sign = true;
            negative = text.front() == u'-';
            text = text.mid(1).trimmed();
        } else if (!currency && text.startsWith(u"R$")) {
            currency = true;
            text = text.mid(2).trimmed();
        } else {
            return negative;
        }
    }
}

std::optional<Decimal> readDecimal(QStringView text)
{
    text = text.trimmed();
    Decimal result;
    result.negative = takePrefix(text);

    qsizetype mark = text.indexOf(u',');
    if (mark < 0 && text.count(u'.') == 1 && !hasGroups(text))
        mark = text.indexOf(u'.');
    QString whole = text.left(mark < 0 ? text.size() : mark).toString();
    if (whole.contains(u'.')) {
        if (!hasGroups(whole))
            return std::nullopt;
        whole.remove(u'.');
    }
    const QStringView fraction = mark < 0 ? QStringView() : text.mid(mark + 1);
    if (whole.isEmpty() && fraction.isEmpty())
        return std::nullopt;
    if (!std::all_of(whole.cbegin(), whole.cend(), isDigit) ||
        !std::all_of(fraction.begin(), fraction.end(), isDigit))
        return std::nullopt;

    result.whole = whole.toLatin1();
    result.fraction = fraction.toLatin1();
    result.normalise();
    return result;
}

template <typename Whole>
Whole nearest(double value)
{
    // A power of two, hence exact as a double; the greatest value of 64 bits is not.
    constexpr double Least = static_cast<double>(std::numeric_limits<Whole>::min());
    const double rounded = std::nearbyint(value);
    if (!(rounded >= Least && rounded < -Least))
        Errors::overflow();
    return static_cast<Whole>(rounded);
}

} // namespace

std::optional<double> readNumber(QStringView text)
{
    const std::optional<Decimal> decimal = readDecimal(text);
    if (!decimal)
        return std::nullopt;
    const QByteArray digits = decimal->text();
    double value = 0;
    if (std::from_chars(digits.begin(), digits.end(), value).ec != std::errc())
        return std::nullopt;
    return value;
}

bool isNumeric(QStringView text)
{
    return readNumber(text).has_value();
}

double toNumber(QStringView text)
{
    const std::optional<double> value = readNumber(text);
    if (!value)
        Errors::typeMismatch(text.toString());
    return *value;
}

double divide(double dividend, double divisor)
{
    if (divisor == 0)
        Errors::divisionByZero();
    const double quotient = dividend / divisor;
    if (!std::isfinite(quotient))
        Errors::overflow();
    return quotient;
}

float toSingle(double value)
{
    if (!(std::fabs(value) <= std::numeric_limits<float>::max()))
        Errors::overflow();
    return static_cast<float>(value);
}

qint16 toInt16(double value)
{
    return nearest<qint16>(value);
}

qint32 toInt32(double value)
{
    return nearest<qint32>(value);
}

qint64 toInt64(double value)
{
    return nearest<qint64>(value);
}

qint64 integerPart(QStringView text)
{
    std::optional<Decimal> decimal = readDecimal(text);
    if (!decimal)
        Errors::typeMismatch(text.toString());
    // Not by way of a double, which is coarser than a whole number above 2^53.
    decimal->fraction.clear();
    const QByteArray digits = decimal->text();
    qint64 value = 0;
    if (std::from_chars(digits.begin(), digits.end(), value).ec != std::errc())
        Errors::overflow();
    return value;
}

double leadingNumber(QStringView text)
{
    // std::from_chars stops at a second point by itself, but would take "inf", "nan" and an exponent.
    QByteArray digits;
    bool sign = false;
    for (const QChar character : text) {
        if (character.isSpace())
            continue;
        if (isDigit(character) || character == u'.')
            digits += character.toLatin1();
        else if (character == u'-' && digits.isEmpty() && !sign) {
            sign = true;
            digits += '-';
        } else if (character == u'+' && digits.isEmpty() && !sign)
            sign = true;
        else
            break;
    }
    double value = 0;
    std::from_chars(digits.begin(), digits.end(), value);
    return value;
}

QString plainNumber(double value)
{
    return QString::fromLatin1(Decimal::of(value).text());
}

QString plainSingle(float value)
{
    constexpr int Significant = 7;
    const Decimal digits = Decimal::of(value, Significant);
    if (digits.whole.size() <= Significant && digits.fraction.size() <= Significant)
        return QString::fromLatin1(digits.text());

    QByteArray text = QByteArray::number(value, 'E', Significant - 1);
    const qsizetype exponent = text.indexOf('E');
    qsizetype last = exponent;
    while (text[last - 1] == '0' || text[last - 1] == '.')
        --last;
    return QString::fromLatin1(text.remove(last, exponent - last));
}
