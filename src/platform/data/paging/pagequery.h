#pragma once

#include "platform/data/basetable.h"
#include "platform/data/paging/plainselect.h"

#include <QStringList>

using namespace Qt::StringLiterals;

namespace ADODB {

/// The statements that read a plain result page by page, from a row on, in its order. Rows that are equal by
/// the columns of the order follow each other by the primary key, so every row has one place. Null is less
/// than any value, as the server sorts it.
///
/// The order is meant to be by columns that the server sorts as it compares them: not by an enumeration, nor
/// by texts that differ behind their first 1024 bytes only.
class PageQuery
{
public:
    enum class Direction
    {
        Forward,
        Backward
    };

    /// A row's values of the columns of the order, the primary key among them.
    using Place = std::vector<WireValue>;

    /// None where the result lacks a column of the order or of the key `primaryKey`, or is ordered by a
    /// floating-point number, whose text form is not exact.
    static std::optional<PageQuery> make(const PlainSelect& select, const std::vector<Column>& columns,
                                         const std::vector<QByteArray>& primaryKey);
    /// The statement that has the result's columns and none of its rows.
    static QString columnsOnly(const QString& sql) { return sql + u" limit 0"_s; }

    /// Asks for the table's indexes.
    QString indexes() const { return u"show index from "_s + table_; }
    /// Takes the answer, and has pages read by an index that holds the rows in the result's order behind
    /// columns that the conditions fix, if there is one. Left alone, the server looks for the page among all
    /// the rows that meet the conditions.
    void chooseIndex(const std::vector<Row>& indexes);

    Place place(const Row& row) const;
    /// The primary key.
    std::vector<WireValue> key(const Row& row) const;
    const std::vector<qsizetype>& keyColumns() const { return key_; }

    /// The next `limit` rows behind `from` in the direction, the nearest first; from that end of the result
    /// where there is none. `filter` is a further condition, an empty one is none.
    ParameterisedStatement page(Direction direction, const std::optional<Place>& from, qsizetype limit,
                                const ParameterisedStatement& filter = {}) const;
    ParameterisedStatement rowWithKey(const std::vector<WireValue>& key) const;
    /// A condition that the rows with these keys meet as well.
    ParameterisedStatement orWithKeys(const ParameterisedStatement& condition,
                                      const std::vector<std::vector<WireValue>>& keys) const;

private:
    struct Order
    {
        qsizetype column;
        QString name; ///< quoted
        bool descending;
        bool nullable;
    };

    PageQuery() = default;
    bool isInOrder(const QStringList& indexColumns) const;
    ParameterisedStatement restricted(const QString& table, const ParameterisedStatement& seek,
                                      const ParameterisedStatement& filter) const;
    ParameterisedStatement behind(Direction direction, const Place& place) const;
    ParameterisedStatement isKey(const std::vector<WireValue>& key) const;

    QString table_;
    QString conditions_;
    QSet<QString> comparedBy_;
    QString index_; ///< quoted; empty for none
    std::vector<Order> order_;
    std::vector<qsizetype> key_;
};

} // namespace ADODB
