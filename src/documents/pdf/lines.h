#pragma once

#include <QByteArray>
#include <concepts>
#include <cstring>

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

// A part is written straight into the buffer, where as many bytes are set aside as it may take.
qsizetype PDFMostBytes(PDFNumber number);
char* PDFPut(char* place, PDFNumber number);

inline qsizetype PDFMostBytes(PDFEscaped escaped)
{
    return escaped.text.size() * 4;
}
char* PDFPut(char* place, PDFEscaped escaped);

inline qsizetype PDFMostBytes(QByteArrayView text)
{
    return text.size();
}
inline char* PDFPut(char* place, QByteArrayView text)
{
    if (!text.isEmpty())
        std::memcpy(place, text.data(), std::size_t(text.size()));
    return place + text.size();
}

/// A literal.
template <std::size_t Size>
constexpr qsizetype PDFMostBytes(const char (&)[Size])
{
    return qsizetype(Size) - 1;
}
template <std::size_t Size>
char* PDFPut(char* place, const char (&text)[Size])
{
    std::memcpy(place, text, Size - 1);
    return place + Size - 1;
}

constexpr qsizetype PDFMostBytes(std::integral auto)
{
    return 20;
}
char* PDFPutInteger(char* place, qint64 number);
char* PDFPut(char* place, std::integral auto number)
{
    return PDFPutInteger(place, qint64(number));
}
qsizetype PDFMostBytes(char) = delete; // would be written as its code

/// The parts one behind the other: texts, PDFNumber, PDFEscaped, whole numbers. A text is bytes of code page
/// 1252 already.
template <typename... Part>
void PDFAppend(QByteArray& buffer, const Part&... parts)
{
    const qsizetype before = buffer.size();
    buffer.resize(before + (PDFMostBytes(parts) + ...));
    char* place = buffer.data() + before;
    ((place = PDFPut(place, parts)), ...);
    buffer.truncate(place - buffer.constData());
}

/// The parts and CR LF.
template <typename... Part>
void PDFWriteLine(QByteArray& buffer, const Part&... parts)
{
    PDFAppend(buffer, parts..., "\r\n");
}
