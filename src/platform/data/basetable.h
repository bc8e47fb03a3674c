#pragma once

#include "platform/data/column.h"

#include <map>

namespace ADODB {

/// A statement with values for its question marks.
struct ParameterisedStatement
{
    QString sql;
    std::vector<WireValue> parameters;
};

/// Values by the number of their column in the result.
using Changes = std::map<qsizetype, WireValue>;

/// The one table behind a result, and the statements that change it row by row. A row is found by the primary
/// key.
class BaseTable
{
public:
    /// `key` holds the names of the table's key columns. Throws ADODB::Error 3251 where the result comes from
    /// several tables or from none, and where it lacks a column of the key or the table has no key.
    BaseTable(const std::vector<Column>& columns, const std::vector<QByteArray>& key);

    /// The first column that comes from a table; null if none does.
    static const Column* firstColumn(const std::vector<Column>& columns);
    /// The places in the result of a table's key columns; none where one of them is not there.
    static std::vector<qsizetype> keyColumns(const std::vector<Column>& columns, const QByteArray& tableAlias,
                                             const std::vector<QByteArray>& key);

    /// Error 3251 for a column that is an expression.
    void checkWritable(qsizetype column) const;

    ParameterisedStatement insertion(const Changes& changes) const;
    ParameterisedStatement update(const Row& row, const Changes& changes) const;
    ParameterisedStatement deletion(const Row& row) const;
    /// Reads the row with this key: those of the result's columns that come from the table, in their order.
    ParameterisedStatement selection(const std::vector<WireValue>& key) const;

    /// The key of a row, after the changes if there are any.
    std::vector<WireValue> key(const Row& row, const Changes& changes = {}) const;
    /// The key of a new row; `number` is the value that the server gave to the numbered column.
    std::vector<WireValue> key(const Changes& changes, const WireValue& number) const;
    /// The server numbers the new row: the key has an auto-increment column, and the changes leave it out or
    /// set it to NULL or zero.
    bool isNumbered(const Changes& changes) const;

private:
    bool isNumbered(qsizetype column, const Changes& changes) const;
    QByteArray condition() const;

    std::vector<Column> columns_;
    std::vector<qsizetype> key_;
    std::vector<qsizetype> own_; ///< the columns of the result that come from the table
    QByteArray name_;
};

} // namespace ADODB
