#include "documents/pdf/lines.h"

#include "platform/values/error.h"
#include "platform/values/format.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

/// Below it the thousandths of the last decimal are exact enough.
constexpr double MostUnits = 1e9;

/// The number in units of its last decimal.
double unitsOf(const PDFNumber& number)
{
    constexpr std::array Units{1.0, 10.0, 100.0, 1000.0, 10'000.0, 100'000.0};
    return std::fabs(number.value) * Units.at(std::size_t(number.decimals));
}

/// By the general mask, which settles halves on the decimal digits and takes any size.
QByteArray byMask(const PDFNumber& number)
{
    const QString mask = u"###0."_s + QString(number.decimals, u'0');
    return Format(number.value, mask).replace(u',', u'.').toLatin1();
}

} // namespace

qsizetype PDFMostBytes(PDFNumber number)
{
    constexpr qsizetype Usual = 16;    // sign, nine digits, point
    constexpr qsizetype Longest = 320; // the largest double has 309 digits
    if (!std::isfinite(number.value))
        Errors::overflow();
    return unitsOf(number) < MostUnits ? Usual : Longest;
}

char* PDFPut(char* place, PDFNumber number)
{
    const double scaled = unitsOf(number);
    const double whole = std::floor(scaled);
    // Far from a half the binary fraction rounds as the decimal digits do.
    if (!(scaled < MostUnits) || std::fabs(scaled - whole - 0.5) < 1e-4)
        return PDFPut(place, QByteArrayView(byMask(number)));

    auto units = static_cast<quint32>(scaled - whole < 0.5 ? whole : whole + 1);
    if (number.value < 0 && units > 0)
        *place++ = '-';
    std::array<char, 16> digits;
    char* const end = digits.data() + digits.size();
    char* first = end;
    const auto putDigit = [&] {
        *--first = static_cast<char>('0' + units % 10);
        units /= 10;
    };
    for (int i = 0; i < number.decimals; ++i)
        putDigit();
    *--first = '.';
    do
        putDigit();
    while (units > 0);
    return PDFPut(place, QByteArrayView(first, end));
}

char* PDFPut(char* place, PDFEscaped escaped)
{
    const auto isSpecial = [](char c) { return c == '\\' || c == '(' || c == ')'; };
    const char* from = escaped.text.begin();
    while (true) {
        const char* const special = std::find_if(from, escaped.text.end(), isSpecial);
        place = PDFPut(place, QByteArrayView(from, special));
        if (special == escaped.text.end())
            return place;
        place = *special == '\\' ? PDFPut(place, R"(\\\\)")
                                 : PDFPut(PDFPut(place, "\\"), QByteArrayView(special, 1));
        from = special + 1;
    }
}

char* PDFPutInteger(char* place, qint64 number)
{
    return std::to_chars(place, place + PDFMostBytes(number), number).ptr;
}
