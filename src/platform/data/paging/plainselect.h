#pragma once

#include <QSet>
#include <QString>
#include <optional>
#include <vector>

namespace ADODB {

/// The parts of a statement of the form "select * from table [where conditions] [order by columns]".
struct PlainSelect
{
    struct Order
    {
        QString column;
        bool descending = false;
    };

    QString table;
    QString conditions;       ///< empty for all rows
    QSet<QString> comparedBy; ///< columns, in small letters, behind which the conditions have "="
    std::vector<Order> order;
};

/// None for a statement of any other form: with a join, a subselect, a grouping, a limit, a parameter, a
/// comment, an order by expressions; and where quotes or brackets do not match.
std::optional<PlainSelect> plainSelect(const QString& sql);

} // namespace ADODB
