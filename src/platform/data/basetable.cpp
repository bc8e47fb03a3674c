#include "platform/data/basetable.h"

#include "platform/data/error.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ADODB {

namespace {

QByteArray quoted(QByteArray name)
{
    return "`" + name.replace("`", "``") + "`";
}

[[noreturn]] void notUpdatable(const QString& reason)
{
    throw Error(Error::NotUpdatable, u"O resultado não pode ser alterado: %1."_s.arg(reason));
}

bool sameName(const QByteArray& a, const QByteArray& b)
{
    return a.compare(b, Qt::CaseInsensitive) == 0;
}

} // namespace

QString quotedName(const QByteArray& name)
{
    return QString::fromUtf8(quoted(name));
}

BaseTable::BaseTable(const std::vector<Column>& columns, const std::vector<QByteArray>& key)
    : columns_(columns)
{
    const Column* first = firstColumn(columns);
    if (!first)
        notUpdatable(u"não vem de uma tabela"_s);
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const Column& column = columns[i];
        if (column.baseName.isEmpty())
            continue;
        if (column.tableAlias != first->tableAlias || column.catalog != first->catalog)
            notUpdatable(u"vem de mais de uma tabela"_s);
        own_.push_back(qsizetype(i));
    }
    key_ = keyColumns(columns, first->tableAlias, key);
    if (key_.empty())
        notUpdatable(u"a chave primária de %1 não faz parte dele"_s.arg(QString::fromUtf8(first->table)));
    name_ = quoted(first->catalog) + "." + quoted(first->table);
}

const Column* BaseTable::firstColumn(const std::vector<Column>& columns)
{
    const auto found = std::find_if(columns.begin(), columns.end(),
                                    [](const Column& column) { return !column.baseName.isEmpty(); });
    return found == columns.end() ? nullptr : &*found;
}

std::vector<qsizetype> BaseTable::keyColumns(const std::vector<Column>& columns, const QByteArray& tableAlias,
                                             const std::vector<QByteArray>& key)
{
    std::vector<qsizetype> result;
    for (const QByteArray& name : key) {
        const auto found = std::find_if(columns.begin(), columns.end(), [&](const Column& column) {
            return column.tableAlias == tableAlias && sameName(column.baseName, name);
        });
        if (found == columns.end())
            return {};
        result.push_back(found - columns.begin());
    }
    return result;
}

void BaseTable::checkWritable(qsizetype column) const
{
    const Column& wanted = columns_[std::size_t(column)];
    if (wanted.baseName.isEmpty())
        notUpdatable(u"\"%1\" é uma expressão"_s.arg(QString::fromUtf8(wanted.name)));
}

ParameterisedStatement BaseTable::insertion(const Changes& changes) const
{
    QByteArrayList names;
    ParameterisedStatement statement;
    for (const auto& [column, value] : changes) {
        names << quoted(columns_[std::size_t(column)].baseName);
        statement.parameters.push_back(value);
    }
    const QByteArray marks = QByteArrayList(names.size(), "?").join(",");
    statement.sql =
        QString::fromUtf8("insert into " + name_ + " (" + names.join(",") + ") values (" + marks + ")");
    return statement;
}

ParameterisedStatement BaseTable::update(const Row& row, const Changes& changes) const
{
    QByteArrayList assignments;
    ParameterisedStatement statement;
    for (const auto& [column, value] : changes) {
        assignments << quoted(columns_[std::size_t(column)].baseName) + " = ?";
        statement.parameters.push_back(value);
    }
    for (const WireValue& value : key(row))
        statement.parameters.push_back(value);
    statement.sql = QString::fromUtf8("update " + name_ + " set " + assignments.join(", ") + condition());
    return statement;
}

ParameterisedStatement BaseTable::deletion(const Row& row) const
{
    return {QString::fromUtf8("delete from " + name_ + condition()), key(row)};
}

ParameterisedStatement BaseTable::selection(const std::vector<WireValue>& key) const
{
    QByteArrayList names;
    for (const qsizetype column : own_)
        names << quoted(columns_[std::size_t(column)].baseName);
    return {QString::fromUtf8("select " + names.join(",") + " from " + name_ + condition()), key};
}

std::vector<WireValue> BaseTable::key(const Row& row, const Changes& changes) const
{
    std::vector<WireValue> values;
    for (const qsizetype column : key_) {
        const auto change = changes.find(column);
        values.push_back(change == changes.end() ? row.value(column) : change->second);
    }
    return values;
}

std::vector<WireValue> BaseTable::key(const Changes& changes, const WireValue& number) const
{
    std::vector<WireValue> values;
    for (const qsizetype column : key_) {
        const auto change = changes.find(column);
        values.push_back(isNumbered(column, changes) ? number
                         : change == changes.end()   ? std::nullopt
                                                     : change->second);
    }
    return values;
}

bool BaseTable::isNumbered(const Changes& changes) const
{
    return std::any_of(key_.begin(), key_.end(),
                       [&](qsizetype column) { return isNumbered(column, changes); });
}

bool BaseTable::isNumbered(qsizetype column, const Changes& changes) const
{
    const auto change = changes.find(column);
    return columns_[std::size_t(column)].autoIncrement &&
           (change == changes.end() || !change->second || change->second->toDouble() == 0);
}

QByteArray BaseTable::condition() const
{
    QByteArrayList terms;
    for (const qsizetype column : key_)
        terms << quoted(columns_[std::size_t(column)].baseName) + " = ?";
    return " where " + terms.join(" and ");
}

} // namespace ADODB
