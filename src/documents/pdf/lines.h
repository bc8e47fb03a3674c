#pragma once

#include <QByteArray>
#include <concepts>

/// A number of a content stream: "12.00", "0.50", with a point whatever the locale. Rounded half away from
/// zero on its decimal digits (15 significant), one digit at least in front of the point.
struct PDFNumber
{
    /// `decimals` is 1 to 5.
    explicit PDFNumber(double number, int places = 2) : value(number), decimals(places) {}

    QByteArray text() const;

    double value;
    int decimals;
};

/// A text between the parentheses of a string: "\" becomes four of them, "(" and ")" get one in front.
struct PDFEscaped
{
    QByteArrayView text;
};

void PDFAppend(QByteArray& buffer, PDFNumber number);
void PDFAppend(QByteArray& buffer, PDFEscaped escaped);
void PDFAppend(QByteArray& buffer, std::integral auto number)
{
    buffer += QByteArray::number(qint64(number));
}
void PDFAppend(QByteArray& buffer, char) = delete; // would be written as its code
inline void PDFAppend(QByteArray& buffer, QByteArrayView text)
{
    buffer.append(text);
}

/// The parts one behind the other (texts, PDFNumber, PDFEscaped, whole numbers) and CR LF. A text is bytes of
/// code page 1252 already.
template <typename... Part>
void PDFWriteLine(QByteArray& buffer, const Part&... parts)
{
    (PDFAppend(buffer, parts), ...);
    buffer.append("\r\n", 2);
}
