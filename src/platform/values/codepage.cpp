#include "platform/values/codepage.h"

#include <algorithm>
#include <array>
#include <optional>

namespace {

/// The characters of the bytes 0x80 to 0x9F; all the others are their own code.
constexpr std::array<char16_t, 32> Special{0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                           0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                           0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                           0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

/// True for a character whose byte is its own code.
constexpr bool isOwnCode(char16_t code)
{
    return code < 0x80 || (code >= 0xA0 && code <= 0xFF);
}

std::optional<char> byteOf(QChar character)
{
    const char16_t code = character.unicode();
    if (isOwnCode(code))
        return static_cast<char>(code);
    const auto place = std::find(Special.begin(), Special.end(), code);
    if (place == Special.end())
        return std::nullopt;
    return static_cast<char>(0x80 + (place - Special.begin()));
}

} // namespace

namespace CodePage {

QByteArray encode(QStringView text)
{
    QByteArray bytes(text.size(), Qt::Uninitialized);
    char* place = bytes.data();
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (const char16_t code = text[i].unicode(); isOwnCode(code)) {
            *place++ = static_cast<char>(code);
            continue;
        }
        *place++ = byteOf(text[i]).value_or('?');
        if (text[i].isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate())
            ++i;
    }
    bytes.truncate(place - bytes.constData());
    return bytes;
}

QString decode(QByteArrayView bytes)
{
    QString text;
    text.reserve(bytes.size());
    for (const char byte : bytes) {
        const auto code = static_cast<unsigned char>(byte);
        text += QChar(code >= 0x80 && code <= 0x9F ? Special[code - 0x80u] : code);
    }
    return text;
}

bool covers(QStringView text)
{
    return std::all_of(text.begin(), text.end(),
                       [](QChar character) { return byteOf(character).has_value(); });
}

} // namespace CodePage
