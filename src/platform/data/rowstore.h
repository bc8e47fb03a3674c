#pragma once

#include "platform/data/column.h"

namespace Odbc {
class Statement;
}

namespace ADODB {

/// All rows of a statement's result, read to its end.
std::vector<Row> allRows(Odbc::Statement& statement);

/// The rows of a client-side result, by their place in the order in which the server sent them. A place stays
/// a row's own: no row is taken out, new ones go to the end.
class RowStore
{
public:
    virtual ~RowStore() = default;

    /// The place of the first row; the others follow.
    virtual qsizetype first() const { return 0; }
    virtual qsizetype count() const = 0;
    /// Valid until the row is replaced or another one is appended.
    virtual const Row& row(qsizetype place) const = 0;
    virtual void append(Row row) = 0;
    virtual void replace(qsizetype place, Row row) = 0;
};

/// All rows in memory.
class MemoryRows : public RowStore
{
public:
    explicit MemoryRows(std::vector<Row> rows) : rows_(std::move(rows)) {}

    qsizetype count() const override { return qsizetype(rows_.size()); }
    const Row& row(qsizetype place) const override { return rows_[std::size_t(place)]; }
    void append(Row row) override { rows_.push_back(std::move(row)); }
    void replace(qsizetype place, Row row) override { rows_[std::size_t(place)] = std::move(row); }

private:
    std::vector<Row> rows_;
};

} // namespace ADODB
