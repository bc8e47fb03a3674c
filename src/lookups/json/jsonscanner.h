#pragma once

#include "lookups/json/jsonvalue.h"

#include <QString>
#include <QStringView>

/// A cursor over the text of a JSON document, and what stands at it: blanks, texts, numbers and words. The
/// errors are JsonBag's, with the position of the cursor from 1.
class JsonScanner
{
public:
    /// The text must outlive the scanner.
    explicit JsonScanner(QStringView text) : begin_(text.utf16()), end_(begin_ + text.size()), at_(begin_) {}

    /// The character at the cursor, a zero at the end of the text.
    char16_t current() const { return at_ == end_ ? u'\0' : *at_; }
    void pass() { ++at_; }
    void skipBlanks()
    {
        while (at_ != end_ && (*at_ == u' ' || *at_ == u'\n' || *at_ == u'\r' || *at_ == u'\t'))
            ++at_;
    }

    /// Passes a text that has no escape, from behind its opening quotation mark to behind the closing one;
    /// false where another one stands.
    bool passText(QStringView text)
    {
        if (end_ - at_ <= text.size() || at_[text.size()] != u'"' || QStringView(at_, text.size()) != text)
            return false;
        at_ += text.size() + 1;
        return true;
    }
    /// Whether a text is written without escapes.
    static bool isPlain(QStringView text);

    /// From behind the opening quotation mark to behind the closing one. The view is good until the next
    /// text.
    QStringView text();
    /// A minus or digit is at the cursor.
    JsonValue number(bool decimals);
    /// null, true or false in any letter case.
    JsonValue word();

    /// Throws the error, with the position of the cursor behind its text.
    [[noreturn]] void failHere(int number, const char* what) const { failAt(number, what, at_); }

private:
    bool atEnd() const { return at_ == end_; }
    char16_t escape();
    [[noreturn]] void failAt(int number, const char* what, const char16_t* where) const;

    const char16_t* const begin_;
    const char16_t* const end_;
    const char16_t* at_;
    QString unescaped_; ///< the text read last, if it had an escape
};
