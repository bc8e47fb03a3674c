#pragma once

#include "platform/data/odbc/odbc.h"
#include "platform/data/paging/pagequery.h"
#include "platform/data/rowstore.h"

#include <deque>
#include <functional>

namespace ADODB {

/// One unbroken run of a result's rows, in the result's order, that is read on page by page at either end.
///
/// All pages are to be read from one state of the database, in which nothing that is changed through the
/// store shows: a row stays where it was read, as it was changed, and new ones stand behind all others.
class PagedRows : public RowStore
{
public:
    using Run = std::function<std::unique_ptr<Odbc::Statement>(const ParameterisedStatement&)>;

    /// Nothing is read yet.
    PagedRows(PageQuery query, Run run, qsizetype pageSize);

    qsizetype first() const override { return held_.first; }
    qsizetype count() const override;
    const Row* row(qsizetype place) const override;
    void append(Row row) override;
    void replace(qsizetype place, Row row) override;
    void remove(qsizetype place) override;

    int run() const override { return runs_; }
    bool reaches(Side side) const override { return side == Side::Front ? held_.atFront : held_.atEnd; }
    std::optional<qsizetype> start(const Row* around) override;
    void readOn(Side side) override;
    void readEnd(Side side) override;
    void readWhole() override;
    void trim(Side side, qsizetype around) override;
    std::optional<qsizetype> find(const Criteria& criteria) override;
    RowMark mark(qsizetype place) const override;
    std::optional<qsizetype> placeOf(const RowMark& mark) override;

private:
    using Direction = PageQuery::Direction;

    /// A run as it was read. The added rows are not among these: they follow where it reaches the end.
    struct Held
    {
        std::deque<Row> rows;
        qsizetype first = 0;
        bool atFront = false;
        bool atEnd = false;
    };

    std::vector<Row> rowsOf(const ParameterisedStatement& statement) const;
    void extend(Held& held, Side side, std::optional<PageQuery::Place> gap = {}) const;
    void take(Held held);
    qsizetype readAround(Row row);
    qsizetype reach(Row row);
    std::optional<qsizetype> heldPlace(const std::vector<WireValue>& key) const;
    const Row* shown(const Row& read) const;
    bool namesOneRow(const Criteria& criteria) const;
    ParameterisedStatement serverCondition(const Criteria& criteria) const;
    std::optional<Row>& changed(qsizetype place);

    PageQuery query_;
    Run run_;
    qsizetype pageSize_;

    Held held_;
    int runs_ = 0;
    /// Rows as they were changed through the store, by the keys under which they were read; none where the
    /// row was removed.
    std::map<std::vector<WireValue>, std::optional<Row>> changed_;
    std::vector<std::optional<Row>> added_; ///< none where the row was removed again
};

} // namespace ADODB
