#pragma once

#include "platform/data/column.h"

#include <QStringView>

namespace ADODB {

/// A condition on rows that are in memory: "column operator value", several of them joined by "and". The
/// operator is one of = <> < <= > >= like.
///
/// A bare value is a number with a point as decimal mark, and the comparison is one of numbers: "cdpro like
/// 12" is true for the text "0012". A value between single quotes is compared as a date on a date column if
/// it reads as one, as a number on a numeric column if it reads as one (not behind like), as text otherwise,
/// in any letter case; "%" behind like stands for any characters, none included. A null cell meets no
/// condition.
class Criteria
{
public:
    /// Throws ADODB::Error 3001 for a text that is no condition and 3265 for an unknown column.
    Criteria(const QString& text, const std::vector<Column>& columns);

    bool matches(const Row& row) const;

private:
    enum class Operator
    {
        Equal,
        NotEqual,
        Less,
        LessOrEqual,
        Greater,
        GreaterOrEqual,
        Like
    };

    struct Condition
    {
        Column column;
        qsizetype place;
        Operator op;
        QString text; ///< in folded case
        std::optional<double> number;
        std::optional<QDateTime> date;

        bool matches(QByteArrayView cell) const;
        bool holds(std::partial_ordering order) const;
    };

    static Condition condition(const QString& name, const QString& op, const QString& value,
                               const std::vector<Column>& columns);

    std::vector<Condition> conditions_;
};

/// The place of a column by its name, in any letter case; the first of several; -1 if there is none.
qsizetype columnPlace(const std::vector<Column>& columns, QStringView name);

} // namespace ADODB
