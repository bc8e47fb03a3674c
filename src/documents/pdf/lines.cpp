#include "documents/pdf/lines.h"

#include "platform/values/format.h"

#include <array>
#include <cmath>

namespace {

/// By the general mask, which settles halves on the decimal digits and takes any size.
QByteArray byMask(const PDFNumber& number)
{
    const QString mask = QStringLiteral("###0.") + QString(number.decimals, u'0');
    return Format(number.value, mask).replace(u',', u'.').toLatin1();
}

} // namespace

QByteArray PDFNumber::text() const
{
    QByteArray result;
    PDFAppend(result, *this);
    return result;
}

void PDFAppend(QByteArray& buffer, PDFNumber number)
{
    constexpr std::array Units{1.0, 10.0, 100.0, 1000.0, 10'000.0, 100'000.0};
    const double scaled = std::fabs(number.value) * Units.at(std::size_t(number.decimals));
    const double whole = std::floor(scaled);
    // Far from a half the binary fraction rounds as the decimal digits do, as long as it is fine enough.
    if (!(scaled < 1e9) || std::fabs(scaled - whole - 0.5) < 1e-4) {
        buffer += byMask(number);
        return;
    }

    auto units = static_cast<quint64>(scaled - whole < 0.5 ? whole : whole + 1);
    const bool negative = number.value < 0 && units > 0;
    std::array<char, 16> text;
    char* const end = text.data() + text.size();
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
    if (negative)
        *--first = '-';
    buffer.append(first, end - first);
}

void PDFAppend(QByteArray& buffer, PDFEscaped escaped)
{
    qsizetype written = 0;
    for (qsizetype i = 0; i < escaped.text.size(); ++i) {
        const char c = escaped.text[i];
        if (c != '\\' && c != '(' && c != ')')
            continue;
        buffer.append(escaped.text.sliced(written, i - written));
        buffer.append(c == '\\' ? "\\\\\\" : "\\");
        written = i;
    }
    buffer.append(escaped.text.sliced(written));
}
