#include "platform/data/field.h"

#include "platform/data/recordset.h"
#include "platform/values/format.h"
#include "platform/values/number.h"

namespace ADODB {

const Column& Field::column() const
{
    recordset_->requireOpen();
    return recordset_->columns()[std::size_t(place_)];
}

bool Field::isNull() const
{
    return recordset_->cell(place_).isNull();
}

Field::Type Field::type() const
{
    if (isNull())
        return Type::Null;
    const ColumnKind kind = column().kind;
    return isNumber(kind) ? Type::Number : isDate(kind) ? Type::Date : Type::Text;
}

QString Field::text() const
{
    const QByteArrayView cell = recordset_->cell(place_);
    return cell.isNull() ? QString() : Cell::text(column(), cell);
}

double Field::number() const
{
    const QByteArrayView cell = recordset_->cell(place_);
    return cell.isNull() ? 0 : Cell::number(column(), cell);
}

qint64 Field::integer() const
{
    const QByteArrayView cell = recordset_->cell(place_);
    return cell.isNull() ? 0 : Cell::integer(column(), cell);
}

QDateTime Field::date() const
{
    const QByteArrayView cell = recordset_->cell(place_);
    return cell.isNull() ? QDateTime() : Cell::date(column(), cell);
}

QVariant Field::value() const
{
    const QByteArrayView cell = recordset_->cell(place_);
    return cell.isNull() ? QVariant() : Cell::value(column(), cell);
}

Field& Field::operator=(const QString& text)
{
    recordset_->set(place_, Cell::fromText(column(), text));
    return *this;
}

Field& Field::operator=(double number)
{
    return *this = plainNumber(number);
}

Field& Field::operator=(QDate date)
{
    return date.isValid() ? *this = Format(date, u"yyyy/mm/dd") : *this = nullptr;
}

Field& Field::operator=(std::nullptr_t)
{
    recordset_->set(place_, std::nullopt);
    return *this;
}

} // namespace ADODB
