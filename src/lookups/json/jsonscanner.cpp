#include "lookups/json/jsonscanner.h"

#include "lookups/json/jsonerror.h"
#include "lookups/json/jsonnumber.h"

#include <algorithm>

namespace {

bool isDigit(char16_t c)
{
    return c >= u'0' && c <= u'9';
}

/// Stands in a text for itself.
bool isPlain(char16_t c)
{
    return c != u'"' && c != u'\\' && c >= 0x20;
}

char16_t lower(char16_t c)
{
    return c >= u'A' && c <= u'Z' ? char16_t(c + (u'a' - u'A')) : c;
}

int hexDigit(char16_t c)
{
    if (isDigit(c))
        return c - u'0';
    c = lower(c);
    return c >= u'a' && c <= u'f' ? c - u'a' + 10 : -1;
}

/// What a letter behind a backslash stands for; 0 for a letter that stands for nothing.
char16_t escaped(char16_t letter)
{
    switch (letter) {
    case u'"':
    case u'\\':
    case u'/':
        return letter;
    case u'b':
        return u'\b';
    case u'f':
        return u'\f';
    case u'n':
        return u'\n';
    case u'r':
        return u'\r';
    case u't':
        return u'\t';
    default:
        return 0;
    }
}

QStringView viewOf(const char16_t* from, const char16_t* to)
{
    return QStringView(from, to - from);
}

} // namespace

bool JsonScanner::isPlain(QStringView text)
{
    return std::all_of(text.utf16(), text.utf16() + text.size(), ::isPlain);
}

JsonValue JsonScanner::word()
{
    const auto standsHere = [this](QStringView word) {
        return end_ - at_ >= word.size() &&
               std::equal(word.utf16(), word.utf16() + word.size(), at_,
                          [](char16_t expected, char16_t c) { return lower(c) == expected; });
    };
    if (standsHere(u"null")) {
        at_ += 4;
        return {};
    }
    if (standsHere(u"true")) {
        at_ += 4;
        return true;
    }
    if (standsHere(u"false")) {
        at_ += 5;
        return false;
    }
    failHere(13, "Bad value at character ");
}

JsonValue JsonScanner::number(bool decimals)
{
    const char16_t* const start = at_++;
    bool hasPoint = false;
    bool hasExponent = false;
    for (; !atEnd() && !hasExponent; ++at_) {
        if (*at_ == u'.') {
            if (hasPoint)
                failHere(13, "Second decimal point at character ");
            if (at_[-1] == u'-')
                failHere(13, "Digit expected at character ");
            hasPoint = true;
        } else if (lower(*at_) == u'e') {
            hasExponent = true;
        } else if (!isDigit(*at_)) {
            break;
        }
    }
    for (bool hasSign = false; hasExponent && !atEnd(); ++at_) {
        if (*at_ == u'+' || *at_ == u'-') {
            if (hasSign)
                failHere(13, "Second exponent sign at character ");
            hasSign = true;
        } else if (!isDigit(*at_)) {
            break;
        }
    }
    if (atEnd())
        JsonError::fail(13, "Ran off end of string while parsing a number");

    const QStringView digits = viewOf(start, at_);
    if (decimals) {
        if (const auto decimal = JsonNumber::readDecimal(digits))
            return *decimal;
    } else if (const auto number = JsonNumber::readDouble(digits)) {
        return *number;
    }
    failAt(6, "Number overflow or parse error at character ", start);
}

QStringView JsonScanner::text()
{
    bool hasEscape = false;
    while (true) {
        const char16_t* const from = at_;
        while (!atEnd() && ::isPlain(*at_))
            ++at_;
        const QStringView run = viewOf(from, at_);
        if (atEnd())
            failHere(13, "Expected \" at character ");
        const char16_t c = *at_;
        if (c < 0x20)
            failHere(13, "Invalid string character at ");
        ++at_;
        if (c == u'"' && !hasEscape)
            return run;
        if (!hasEscape)
            unescaped_.clear();
        hasEscape = true;
        unescaped_ += run;
        if (c == u'"')
            return unescaped_;
        unescaped_ += QChar(escape());
    }
}

/// What stands behind a backslash.
char16_t JsonScanner::escape()
{
    constexpr const char* bad = "Bad string character escape at character ";
    constexpr int digits = 4;
    if (const char16_t simple = escaped(current())) {
        ++at_;
        return simple;
    }
    if (current() != u'u')
        failHere(13, bad);
    ++at_;
    if (end_ - at_ < digits)
        failHere(13, bad);
    int code = 0;
    for (int i = 0; i < digits; ++i) {
        const int digit = hexDigit(at_[i]);
        if (digit < 0)
            failHere(13, bad);
        code = code * 16 + digit;
    }
    at_ += digits;
    return char16_t(code);
}

void JsonScanner::failAt(int number, const char* what, const char16_t* where) const
{
    JsonError::fail(number, QLatin1String(what) + QString::number(where - begin_ + 1));
}
