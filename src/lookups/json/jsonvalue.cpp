#include "lookups/json/jsonvalue.h"

#include "platform/values/error.h"

#include <array>
#include <charconv>

namespace {

constexpr std::array kindNames{"null", "boolean", "number", "decimal", "text", "bag", "other"};

} // namespace

JsonValue::JsonValue(std::shared_ptr<JsonBag> bag)
{
    if (bag)
        value_ = std::move(bag);
}

JsonValue::JsonValue(const QVariant& value)
{
    switch (value.typeId()) {
    case QMetaType::UnknownType:
    case QMetaType::Nullptr:
        break;
    case QMetaType::Bool:
        value_ = value.toBool();
        break;
    case QMetaType::Double:
    case QMetaType::Float:
        value_ = value.value<double>();
        break;
    case QMetaType::ULongLong:
        *this = JsonValue(value.toULongLong());
        break;
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::Short:
    case QMetaType::UShort:
    case QMetaType::Long:
    case QMetaType::LongLong:
        setWhole(value.toLongLong());
        break;
    case QMetaType::QString:
        value_ = value.toString();
        break;
    default:
        value_ = std::make_shared<const QVariant>(value);
    }
}

void JsonValue::setWhole(qint64 value)
{
    constexpr qint64 exact = qint64(1) << 53;
    if (value >= -exact && value <= exact)
        value_ = static_cast<double>(value);
    else
        setDecimal(QByteArray::number(value));
}

void JsonValue::setDecimal(const QByteArray& digits)
{
    Decimal decimal;
    decimal.negative = digits.startsWith('-');
    decimal.whole = digits.mid(decimal.negative ? 1 : 0);
    value_ = std::make_shared<const Decimal>(std::move(decimal));
}

template <class Type>
const Type& JsonValue::as() const
{
    if (const auto* value = std::get_if<Type>(&value_))
        return *value;
    Errors::typeMismatch(QLatin1String(kindNames[static_cast<std::size_t>(kind())]));
}

bool JsonValue::boolean() const
{
    return as<bool>();
}

double JsonValue::number() const
{
    if (kind() != Kind::Decimal)
        return as<double>();
    const QByteArray digits = decimal().text();
    double value = 0;
    std::from_chars(digits.begin(), digits.end(), value);
    return value;
}

const Decimal& JsonValue::decimal() const
{
    return *as<std::shared_ptr<const Decimal>>();
}

QStringView JsonValue::textView() const
{
    return isKept() ? as<QStringView>() : QStringView(as<QString>());
}

JsonValue JsonValue::keptText(QStringView text)
{
    JsonValue value;
    value.value_ = text;
    return value;
}

const std::shared_ptr<JsonBag>& JsonValue::sharedBag() const
{
    return as<std::shared_ptr<JsonBag>>();
}

const QVariant& JsonValue::other() const
{
    return *as<std::shared_ptr<const QVariant>>();
}
