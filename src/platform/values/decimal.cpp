#include "platform/values/decimal.h"

#include "platform/values/error.h"

#include <array>
#include <charconv>
#include <cmath>

Decimal Decimal::of(double value, int significant)
{
    if (!std::isfinite(value))
        Errors::overflow();

    std::array<char, 32> text; // "d.dddddddddddddde-ddd"
    const char* end = std::to_chars(text.data(), text.data() + text.size(), std::fabs(value),
                                    std::chars_format::scientific, significant - 1)
                          .ptr;
    QByteArray digits(text.data(), significant + 1);
    digits.remove(1, 1);
    const char* power = text.data() + significant + 2;
    int exponent = 0;
    std::from_chars(*power == '+' ? power + 1 : power, end, exponent);

    Decimal result;
    result.negative = value < 0;
    const int front = exponent + 1;
    if (front <= 0)
        result.fraction = QByteArray(-front, '0') + digits;
    else if (front >= significant)
        result.whole = digits + QByteArray(front - significant, '0');
    else {
        result.whole = digits.left(front);
        result.fraction = digits.mid(front);
    }
    result.normalise();
    return result;
}

void Decimal::round(qsizetype places)
{
    if (fraction.size() <= places)
        return;
    const bool up = fraction[places] >= '5';
    QByteArray digits = '0' + whole + fraction.left(places); // the zero takes the last carry
    if (up) {
        qsizetype last = digits.size() - 1;
        for (; digits[last] == '9'; --last)
            digits[last] = '0';
        ++digits[last];
    }
    whole = digits.left(digits.size() - places);
    fraction = digits.right(places);
    normalise();
}

QByteArray Decimal::text() const
{
    QByteArray text = negative ? "-" : "";
    text += whole.isEmpty() ? "0" : whole;
    if (!fraction.isEmpty())
        text += '.' + fraction;
    return text;
}

void Decimal::normalise()
{
    qsizetype zeros = 0;
    while (zeros < whole.size() && whole[zeros] == '0')
        ++zeros;
    whole.remove(0, zeros);
    while (fraction.endsWith('0'))
        fraction.chop(1);
    negative = negative && !(whole.isEmpty() && fraction.isEmpty());
}
