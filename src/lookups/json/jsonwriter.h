#pragma once

#include <QString>
#include <QStringView>
#include <memory>

class JsonBag;
class JsonValue;

/// Writes a bag as the text of a JSON document; JsonBag tells its form and the errors.
class JsonWriter
{
public:
    explicit JsonWriter(bool whitespace) : whitespace_(whitespace) {}

    QString write(const JsonBag& bag);

private:
    void items(const JsonBag& bag, int level);
    void value(QStringView name, const JsonValue& value, int level);
    void number(QStringView name, double value);
    void quoted(QStringView text);
    void escape(char16_t c);
    void lineAndIndent(int level);

    /// Makes room for so many further characters at `at_`.
    void reserve(qsizetype count)
    {
        if (end_ - at_ < count)
            grow(count);
    }
    void grow(qsizetype count);
    char16_t* begin() { return reinterpret_cast<char16_t*>(text_.data()); }
    void put(char16_t c)
    {
        reserve(1);
        *at_++ = c;
    }
    void put(QByteArrayView ascii);

    const bool whitespace_;
    QString text_; ///< as long as there is room for
    char16_t* at_ = nullptr;
    char16_t* end_ = nullptr;
};
