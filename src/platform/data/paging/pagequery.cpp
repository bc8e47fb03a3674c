#include "platform/data/paging/pagequery.h"

#include "platform/data/criteria.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ADODB {

namespace {

void append(ParameterisedStatement& statement, const ParameterisedStatement& more)
{
    statement.sql += more.sql;
    statement.parameters.insert(statement.parameters.end(), more.parameters.begin(), more.parameters.end());
}

ParameterisedStatement joined(const std::vector<ParameterisedStatement>& terms, const QString& word)
{
    ParameterisedStatement result{u"("_s, {}};
    for (std::size_t i = 0; i < terms.size(); ++i) {
        if (i > 0)
            result.sql += word;
        append(result, terms[i]);
    }
    result.sql += u')';
    return result;
}

} // namespace

std::optional<PageQuery> PageQuery::make(const PlainSelect& select, const std::vector<Column>& columns,
                                         const std::vector<QByteArray>& primaryKey)
{
    const Column* first = BaseTable::firstColumn(columns);
    if (!first)
        return std::nullopt;
    PageQuery result;
    result.table_ = select.table;
    result.conditions_ = select.conditions;
    result.comparedBy_ = select.comparedBy;
    result.key_ = BaseTable::keyColumns(columns, first->tableAlias, primaryKey);
    if (result.key_.empty())
        return std::nullopt;
    const auto add = [&](qsizetype column, bool descending) {
        const Column& ordered = columns[std::size_t(column)];
        // Asked whether it is null, a date that may not be answers yes for 0000-00-00.
        result.order_.push_back({column, quotedName(ordered.baseName), descending, ordered.nullable});
    };
    for (const PlainSelect::Order& order : select.order) {
        const qsizetype column = columnPlace(columns, order.column);
        if (column < 0)
            return std::nullopt;
        add(column, order.descending);
    }
    for (const qsizetype column : result.key_)
        if (std::none_of(result.order_.begin(), result.order_.end(),
                         [&](const Order& order) { return order.column == column; }))
            add(column, false);
    if (std::any_of(result.order_.begin(), result.order_.end(), [&](const Order& order) {
            return columns[std::size_t(order.column)].kind == ColumnKind::Real;
        }))
        return std::nullopt;
    return result;
}

void PageQuery::chooseIndex(const std::vector<Row>& indexes)
{
    // As SHOW INDEX gives them, a row for each column of each index.
    constexpr qsizetype keyName = 2, columnName = 4, prefixLength = 7, type = 10;
    for (auto row = indexes.begin(); row != indexes.end() && index_.isEmpty();) {
        const QString quoted = quotedName(row->cell(keyName).toByteArray());
        QStringList columns;
        bool isUsable = true;
        for (; row != indexes.end() && quotedName(row->cell(keyName).toByteArray()) == quoted; ++row) {
            columns << QString::fromUtf8(row->cell(columnName));
            isUsable = isUsable && row->cell(prefixLength).isNull() && row->cell(type) == "BTREE";
        }
        if (isUsable && isInOrder(columns))
            index_ = quoted;
    }
}

/// Behind the columns that are fixed come those of the order and nothing else. The primary key follows in
/// every index by itself.
bool PageQuery::isInOrder(const QStringList& indexColumns) const
{
    const auto isSame = [&](std::size_t i, const QString& column) {
        return i < order_.size() && order_[i].descending == order_[0].descending &&
               order_[i].name.compare(quotedName(column.toUtf8()), Qt::CaseInsensitive) == 0;
    };
    qsizetype fixed = 0;
    while (fixed < indexColumns.size() && !isSame(0, indexColumns[fixed]) &&
           comparedBy_.contains(indexColumns[fixed].toLower()))
        ++fixed;
    // Not by the order alone where there are conditions: most of what it passes may be others' rows.
    if (fixed == indexColumns.size() || (fixed == 0 && !conditions_.isEmpty()))
        return false;
    std::size_t ordered = 0;
    for (const QString& column : indexColumns.mid(fixed))
        if (!isSame(ordered++, column))
            return false;
    for (std::size_t i = 0; ordered < order_.size(); ++i, ++ordered)
        if (i >= key_.size() || order_[ordered].column != key_[i] ||
            order_[ordered].descending != order_[0].descending)
            return false;
    return true;
}

PageQuery::Place PageQuery::place(const Row& row) const
{
    Place place;
    for (const Order& order : order_)
        place.push_back(row.value(order.column));
    return place;
}

std::vector<WireValue> PageQuery::key(const Row& row) const
{
    std::vector<WireValue> key;
    for (const qsizetype column : key_)
        key.push_back(row.value(column));
    return key;
}

ParameterisedStatement PageQuery::page(Direction direction, const std::optional<Place>& from, qsizetype limit,
                                       const ParameterisedStatement& filter) const
{
    const bool isByIndex = from && filter.sql.isEmpty() && !index_.isEmpty();
    const QString table = isByIndex ? table_ + u" force index (%1)"_s.arg(index_) : table_;
    ParameterisedStatement statement =
        restricted(table, from ? behind(direction, *from) : ParameterisedStatement(), filter);
    QStringList order;
    for (const Order& column : order_)
        order << column.name +
                     (column.descending == (direction == Direction::Forward) ? u" desc"_s : QString());
    statement.sql += u" order by "_s + order.join(u',') + u" limit "_s + QString::number(limit);
    return statement;
}

ParameterisedStatement PageQuery::rowWithKey(const std::vector<WireValue>& key) const
{
    return restricted(table_, {}, isKey(key));
}

ParameterisedStatement PageQuery::orWithKeys(const ParameterisedStatement& condition,
                                             const std::vector<std::vector<WireValue>>& keys) const
{
    std::vector<ParameterisedStatement> terms{joined({condition}, {})};
    for (const std::vector<WireValue>& key : keys)
        terms.push_back(isKey(key));
    return joined(terms, u" or "_s);
}

ParameterisedStatement PageQuery::isKey(const std::vector<WireValue>& key) const
{
    std::vector<ParameterisedStatement> terms;
    for (std::size_t i = 0; i < key_.size(); ++i) {
        const auto column = std::find_if(order_.begin(), order_.end(),
                                         [&](const Order& order) { return order.column == key_[i]; });
        terms.push_back({column->name + u" = ?"_s, {key[i]}});
    }
    return joined(terms, u" and "_s);
}

ParameterisedStatement PageQuery::restricted(const QString& table, const ParameterisedStatement& seek,
                                             const ParameterisedStatement& filter) const
{
    std::vector<ParameterisedStatement> terms;
    if (!conditions_.isEmpty())
        terms.push_back({u'(' + conditions_ + u')', {}});
    for (const ParameterisedStatement& term : {seek, filter})
        if (!term.sql.isEmpty())
            terms.push_back(term);
    ParameterisedStatement result{u"select * from "_s + table, {}};
    if (!terms.empty()) {
        result.sql += u" where "_s;
        append(result, joined(terms, u" and "_s));
    }
    return result;
}

/// One term for each column: equal in those before it and further on in this one. Told so, and not as a
/// comparison of rows, the server finds the place in an index over the columns.
ParameterisedStatement PageQuery::behind(Direction direction, const Place& place) const
{
    std::vector<ParameterisedStatement> terms;
    std::vector<ParameterisedStatement> equal;
    for (std::size_t i = 0; i < order_.size(); ++i) {
        const Order& column = order_[i];
        const WireValue& value = place[i];
        const bool isUpwards = column.descending == (direction == Direction::Backward);
        ParameterisedStatement further;
        if (value && isUpwards)
            further = {column.name + u" > ?"_s, {value}};
        else if (value && column.nullable)
            further = {u"(%1 < ? or %1 is null)"_s.arg(column.name), {value}};
        else if (value)
            further = {column.name + u" < ?"_s, {value}};
        else if (isUpwards)
            further = {column.name + u" is not null"_s, {}};
        if (!further.sql.isEmpty()) {
            std::vector<ParameterisedStatement> term = equal;
            term.push_back(further);
            terms.push_back(joined(term, u" and "_s));
        }
        equal.push_back(value ? ParameterisedStatement{column.name + u" = ?"_s, {value}}
                              : ParameterisedStatement{column.name + u" is null"_s, {}});
    }
    return joined(terms, u" or "_s);
}

} // namespace ADODB
