#include "lookups/json/jsonwriter.h"

#include "lookups/json/jsonbag.h"
#include "lookups/json/jsonerror.h"
#include "lookups/json/jsonnumber.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

/// Characters that are written as an escape because they are invisible, steer the text around them, or are no
/// characters of their own.
bool isEscapedBeyondLatin(char16_t c)
{
    struct Range
    {
        char16_t first, last;
    };
    static constexpr std::array ranges{Range{0x34F, 0x34F},   Range{0x200B, 0x200F}, Range{0x2028, 0x202E},
                                       Range{0x2060, 0x2060}, Range{0xD800, 0xDFFF}, Range{0xFE00, 0xFE0F},
                                       Range{0xFEFF, 0xFEFF}, Range{0xFFFD, 0xFFFD}};
    return std::any_of(ranges.begin(), ranges.end(),
                       [c](Range range) { return c >= range.first && c <= range.last; });
}

inline bool isPlain(char16_t c)
{
    if (c < 0x7F)
        return c >= 0x20 && c != u'"' && c != u'\\';
    return c > 0x9F && (c < 0x34F || !isEscapedBeyondLatin(c));
}

/// The letter of a short escape, 0 for none.
char shortEscape(char16_t c)
{
    switch (c) {
    case u'"':
        return '"';
    case u'\\':
        return '\\';
    case u'\b':
        return 'b';
    case u'\f':
        return 'f';
    case u'\n':
        return 'n';
    case u'\r':
        return 'r';
    case u'\t':
        return 't';
    default:
        return 0;
    }
}

} // namespace

QString JsonWriter::write(const JsonBag& bag)
{
    items(bag, 0);
    text_.truncate(at_ - begin());
    return std::move(text_);
}

void JsonWriter::items(const JsonBag& bag, int level)
{
    if (level == JsonBag::deepest)
        JsonError::fail(28, "Nested too deep");
    const std::vector<JsonValue>& values = bag.items_.values();
    const JsonNames* const names = bag.items_.names();
    put(bag.isArray_ ? u'[' : u'{');
    for (std::size_t position = 0; position < values.size(); ++position) {
        if (position > 0)
            put(u',');
        if (whitespace_)
            lineAndIndent(level + 1);
        QStringView name;
        if (names) {
            name = names->at(position);
            quoted(name);
            put(u':');
        }
        value(name, values[position], level + 1);
    }
    if (whitespace_ && !values.empty())
        lineAndIndent(level);
    put(bag.isArray_ ? u']' : u'}');
}

void JsonWriter::value(QStringView name, const JsonValue& value, int level)
{
    switch (value.kind()) {
    case JsonValue::Kind::Null:
        return put("null");
    case JsonValue::Kind::Boolean:
        return put(value.boolean() ? QByteArrayView("true") : QByteArrayView("false"));
    case JsonValue::Kind::Number:
        return number(name, value.number());
    case JsonValue::Kind::Decimal:
        return put(value.decimal().text());
    case JsonValue::Kind::Text:
        return quoted(value.textView());
    case JsonValue::Kind::Bag:
        return items(value.bag(), level);
    case JsonValue::Kind::Other:
        JsonError::fail(51, u"%1, unknown/unsupported type = %2"_s.arg(name).arg(value.other().typeId()));
    }
}

void JsonWriter::number(QStringView name, double value)
{
    std::array<char, JsonNumber::longest> digits;
    const std::size_t count = JsonNumber::write(value, digits.data());
    if (count == 0)
        JsonError::fail(51, u"%1, value %2 failed to serialize"_s.arg(name).arg(value));
    put(QByteArrayView(digits.data(), qsizetype(count)));
}

void JsonWriter::quoted(QStringView text)
{
    constexpr qsizetype quotes = 2;
    const char16_t* from = text.utf16();
    const char16_t* const end = from + text.size();
    reserve(text.size() + quotes);
    *at_++ = u'"';
    for (; from != end; ++from) {
        if (isPlain(*from)) {
            *at_++ = *from;
        } else {
            escape(*from);
            reserve(end - from + quotes);
        }
    }
    *at_++ = u'"';
}

void JsonWriter::escape(char16_t c)
{
    static constexpr char digits[] = "0123456789ABCDEF";
    if (const char letter = shortEscape(c)) {
        const char pair[] = {'\\', letter};
        return put(QByteArrayView(pair, 2));
    }
    const char code[] = {'\\',          'u', digits[c >> 12], digits[c >> 8 & 15], digits[c >> 4 & 15],
                         digits[c & 15]};
    put(QByteArrayView(code, sizeof code));
}

void JsonWriter::lineAndIndent(int level)
{
    constexpr qsizetype blanks = 4;
    put("\r\n");
    reserve(blanks * level);
    at_ = std::fill_n(at_, blanks * level, u' ');
}

void JsonWriter::grow(qsizetype count)
{
    constexpr qsizetype block = 512;
    const qsizetype size = text_.isEmpty() ? 0 : at_ - begin();
    text_.resize(std::max(2 * text_.size(), size + count + block));
    at_ = begin() + size;
    end_ = begin() + text_.size();
}

void JsonWriter::put(QByteArrayView ascii)
{
    reserve(ascii.size());
    for (const char c : ascii)
        *at_++ = char16_t(c);
}
