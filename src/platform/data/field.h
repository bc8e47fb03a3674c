#pragma once

#include "platform/data/column.h"

#include <concepts>

namespace ADODB {

class Recordset;

/// A field of a recordset's current row: a light handle, good as long as the recordset is open. Reading
/// without a current row is ADODB::Error 3021; assigning is refused as Recordset says.
class Field
{
public:
    enum class Type
    {
        Null,
        Text,
        Number,
        Date
    };

    Field(const Field&) = default;
    /// A handle is not a value: write `a = b.text()`.
    Field& operator=(const Field&) = delete;

    Type type() const;
    bool isNull() const;
    /// As Cell::text; empty for null.
    QString text() const;
    /// 0 for null. RuntimeError 13 for what is no number.
    double number() const;
    /// 0 for null; a fraction goes to the nearest whole number. RuntimeError 13 or 6.
    qint64 integer() const;
    /// A time alone belongs to 30/12/1899. To be asked with date().date().isValid(), which is false for null
    /// and for what is no date: QDateTime::isValid() is so too for a moment that summer time left out.
    QDateTime date() const;
    /// Invalid for null.
    QVariant value() const;
    const Column& column() const;

    /// What is sent is told by Cell::fromText. A number goes to a text column with a decimal point.
    Field& operator=(const QString& text);
    Field& operator=(double number);
    /// To a text column as yyyy/mm/dd; an invalid date is NULL.
    Field& operator=(QDate date);
    Field& operator=(std::nullptr_t);
    template <std::integral Whole>
    Field& operator=(Whole number)
    {
        return *this = QString::number(number);
    }

private:
    friend class Recordset;

    Field(Recordset& recordset, qsizetype place) : recordset_(&recordset), place_(place) {}

    Recordset* recordset_;
    qsizetype place_;
};

} // namespace ADODB
