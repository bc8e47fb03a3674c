#pragma once

#include "platform/values/decimal.h"

#include <QString>
#include <QVariant>
#include <concepts>
#include <memory>
#include <variant>

class JsonBag;

/// One value of a JSON document. A nested object or array is shared, not copied: who reads it from its bag
/// and changes it changes the document.
class JsonValue
{
public:
    /// In the order of the alternatives below, whose last one is a text too.
    enum class Kind
    {
        Null,
        Boolean,
        Number,
        Decimal,
        Text,
        Bag,
        Other ///< what JSON has no form for, such as a date; no document that holds one can be written
    };

    JsonValue() = default;
    JsonValue(std::nullptr_t) {}
    template <std::same_as<bool> Boolean> // a pointer would turn into one as well
    JsonValue(Boolean value) : value_(value)
    {
    }
    /// A whole number beyond 2^53 is kept as Decimal, since a double would lose its last digits.
    template <std::integral Whole>
    requires(!std::same_as<Whole, bool>) JsonValue(Whole value)
    {
        if (std::in_range<qint64>(value))
            setWhole(static_cast<qint64>(value));
        else
            setDecimal(QByteArray::number(static_cast<quint64>(value)));
    }
    JsonValue(double value) : value_(value) {}
    JsonValue(const Decimal& value) : value_(std::make_shared<const Decimal>(value)) {}
    JsonValue(const QString& text) : value_(text) {}
    JsonValue(QString&& text) : value_(std::move(text)) {}
    JsonValue(const char16_t* text) : value_(QString(reinterpret_cast<const QChar*>(text))) {}
    /// A null pointer is the value null.
    JsonValue(std::shared_ptr<JsonBag> bag);
    /// The field of a record, say: null, text, number, Boolean, or Other for all else.
    explicit JsonValue(const QVariant& value);

    Kind kind() const { return isKept() ? Kind::Text : static_cast<Kind>(value_.index()); }
    bool isNull() const { return kind() == Kind::Null; }

    // What the value is. RuntimeError 13 where it is of another kind.
    bool boolean() const;
    double number() const; ///< of a Decimal the nearest double
    const Decimal& decimal() const;
    QString text() const { return textView().toString(); }
    QStringView textView() const; ///< good as long as this object and the bag that it stands in
    JsonBag& bag() const { return *sharedBag(); }
    const std::shared_ptr<JsonBag>& sharedBag() const;
    const QVariant& other() const;

    /// A text that is kept elsewhere and not copied; see JsonTexts.
    static JsonValue keptText(QStringView text);
    /// The same with a text of its own.
    JsonValue detached() const { return isKept() ? JsonValue(text()) : *this; }

private:
    bool isKept() const { return std::holds_alternative<QStringView>(value_); }
    void setWhole(qint64 value);
    void setDecimal(const QByteArray& digits);
    template <class Type>
    const Type& as() const;

    std::variant<std::monostate, bool, double, std::shared_ptr<const Decimal>, QString,
                 std::shared_ptr<JsonBag>, std::shared_ptr<const QVariant>, QStringView>
        value_;
};
