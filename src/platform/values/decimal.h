#pragma once

#include <QByteArray>

/// A number as its decimal digits, so that rounding follows the figures a person sees and not the binary
/// fraction.
struct Decimal
{
    bool negative = false;
    /// ASCII digits in front of the decimal mark, without leading zeros: empty below one.
    QByteArray whole;
    /// ASCII digits behind the decimal mark, without trailing zeros.
    QByteArray fraction;

    /// The value on so many significant digits; a double always holds 15. Throws RuntimeError 6 if it is not
    /// finite.
    static Decimal of(double value, int significant = 15);

    /// Half away from zero to so many digits behind the mark. What becomes zero loses its sign.
    void round(qsizetype places);

    /// The digits with a point as decimal mark, such as "-0.5".
    QByteArray text() const;

    /// Brings the digits to the form above.
    void normalise();
};
