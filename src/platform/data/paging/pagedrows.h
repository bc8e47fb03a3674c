#pragma once

#include "platform/data/odbc/odbc.h"
#include "platform/data/paging/pagequery.h"
#include "platform/data/rowstore.h"

#include <deque>
#include <functional>
#include <set>

namespace ADODB {

class Criteria;

/// One unbroken run of a result's rows, in the result's order, that is read on page by page at either end. A
/// row keeps its place while the run grows; with another run places begin anew.
///
/// Rows that were changed or added through the store stay where they stand until another run is read: they
/// are not read a second time where the database has them now.
class PagedRows : public RowStore
{
public:
    using Run = std::function<std::unique_ptr<Odbc::Statement>(const ParameterisedStatement&)>;

    /// Nothing is read yet.
    PagedRows(PageQuery query, Run run, qsizetype pageSize);

    qsizetype first() const override { return first_; }
    qsizetype count() const override { return qsizetype(rows_.size()); }
    const Row& row(qsizetype place) const override { return rows_[std::size_t(place - first_)]; }
    /// Where the run does not reach the end of the result, another one that does is read first.
    void append(Row row) override;
    void replace(qsizetype place, Row row) override;

    bool atFront() const { return atFront_; }
    bool atEnd() const { return atEnd_; }
    bool isWhole() const { return atFront_ && atEnd_; }
    qsizetype pageSize() const { return pageSize_; }

    /// The functions that read leave the run as it was where they fail.
    ///
    /// Another run: the first page, the last one.
    void readFirst();
    void readLast();
    /// Another run: around this row, found by its key; around the gap that it left where it is no longer in
    /// the result. Returns the place of the row or of the one behind the gap. Where that is the end of the
    /// result the first page is read.
    qsizetype readAround(const Row& row);
    /// The same for a row as it was just read.
    qsizetype readAroundFound(Row row);
    /// All of the result.
    void readWhole();
    /// A further page at an end of the run; returns its number of rows, 0 at the end of the result.
    qsizetype readOn(PageQuery::Direction direction);

    /// Forgets the rows in front of a place, or some fewer: none that was changed or added, for it would not
    /// be met again where it stood.
    void dropBefore(qsizetype place);
    /// The same for the rows from a place on.
    void dropFrom(qsizetype place);

    /// The first row of the result, or the first one behind the run, that meets the criteria.
    std::optional<Row> find(const Criteria& criteria, bool behindTheRun) const;
    std::optional<Row> rowWithKey(const std::vector<WireValue>& key) const;
    /// The place of the row with the same key as this one; none if it is not in the run.
    std::optional<qsizetype> placeOf(const Row& row) const;
    std::vector<WireValue> keyOf(qsizetype place) const { return query_.key(row(place)); }
    /// No two rows meet the criteria, because they name the primary key.
    bool namesOneRow(const Criteria& criteria) const;
    /// The row was changed or added through the store.
    bool isOwn(qsizetype place) const { return own_.contains(keyOf(place)); }
    /// Ask the server for the number of rows that are not own ones: in the result, and in front of the run.
    qsizetype countOthers() const { return number(query_.count(own_)); }
    qsizetype countBeforeTheRun() const;

private:
    using Direction = PageQuery::Direction;

    std::vector<Row> rowsOf(const ParameterisedStatement& statement) const;
    qsizetype number(const ParameterisedStatement& statement) const;
    PagedRows empty() const { return PagedRows(query_, run_, pageSize_); }

    PageQuery query_;
    Run run_;
    qsizetype pageSize_;

    std::deque<Row> rows_;
    qsizetype first_ = 0;
    bool atFront_ = false;
    bool atEnd_ = false;
    /// Where the pages read so far end. A row at the edge may say something else: it may have been changed.
    std::optional<PageQuery::Place> frontEdge_;
    std::optional<PageQuery::Place> endEdge_;
    PageQuery::Keys own_; ///< keys of the rows changed or added here
};

} // namespace ADODB
