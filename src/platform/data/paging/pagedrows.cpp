#include "platform/data/paging/pagedrows.h"

#include "platform/data/criteria.h"

#include <algorithm>

namespace ADODB {

PagedRows::PagedRows(PageQuery query, Run run, qsizetype pageSize)
    : query_(std::move(query)), run_(std::move(run)), pageSize_(pageSize)
{
}

void PagedRows::append(Row row)
{
    std::vector<WireValue> key = query_.key(row);
    if (!atEnd_) {
        PagedRows fresh = empty();
        fresh.own_.insert(key);
        fresh.atEnd_ = true;
        fresh.readOn(Direction::Backward);
        *this = std::move(fresh);
    }
    own_.insert(std::move(key));
    rows_.push_back(std::move(row));
}

void PagedRows::replace(qsizetype place, Row row)
{
    own_.insert(query_.key(row));
    rows_[std::size_t(place - first_)] = std::move(row);
}

std::vector<Row> PagedRows::rowsOf(const ParameterisedStatement& statement) const
{
    return allRows(*run_(statement));
}

void PagedRows::readFirst()
{
    PagedRows fresh = empty();
    fresh.atFront_ = true;
    fresh.readOn(Direction::Forward);
    *this = std::move(fresh);
}

void PagedRows::readLast()
{
    PagedRows fresh = empty();
    fresh.atEnd_ = true;
    fresh.readOn(Direction::Backward);
    *this = std::move(fresh);
}

qsizetype PagedRows::readAround(const Row& row)
{
    if (auto found = rowWithKey(query_.key(row)))
        return readAroundFound(std::move(*found));
    PagedRows fresh = empty();
    fresh.frontEdge_ = fresh.endEdge_ = query_.place(row);
    if (fresh.readOn(Direction::Forward) == 0) {
        readFirst();
        return first_;
    }
    const qsizetype place = fresh.first_;
    fresh.readOn(Direction::Backward);
    *this = std::move(fresh);
    return place;
}

qsizetype PagedRows::readAroundFound(Row row)
{
    PagedRows fresh = empty();
    fresh.frontEdge_ = fresh.endEdge_ = query_.place(row);
    fresh.rows_.push_back(std::move(row));
    const qsizetype place = fresh.first_;
    fresh.readOn(Direction::Forward);
    fresh.readOn(Direction::Backward);
    *this = std::move(fresh);
    return place;
}

qsizetype PagedRows::readOn(Direction direction)
{
    const bool isForward = direction == Direction::Forward;
    bool& isDone = isForward ? atEnd_ : atFront_;
    std::optional<PageQuery::Place>& edge = isForward ? endEdge_ : frontEdge_;
    qsizetype added = 0;
    while (!isDone && added == 0) {
        std::vector<Row> page = rowsOf(query_.page(direction, edge, pageSize_));
        isDone = qsizetype(page.size()) < pageSize_;
        if (page.empty())
            break;
        edge = query_.place(page.back());
        std::optional<PageQuery::Place>& other = isForward ? frontEdge_ : endEdge_;
        if (!other)
            other = query_.place(page.front());
        for (Row& row : page) {
            if (own_.contains(query_.key(row)))
                continue;
            ++added;
            if (isForward) {
                rows_.push_back(std::move(row));
            } else {
                rows_.push_front(std::move(row));
                --first_;
            }
        }
    }
    return added;
}

void PagedRows::readWhole()
{
    for (const Direction direction : {Direction::Backward, Direction::Forward})
        while (readOn(direction) > 0) {
        }
}

void PagedRows::dropBefore(qsizetype place)
{
    // Nor may the row that tells where the run begins be one that was changed.
    for (qsizetype other = first_; other <= place; ++other)
        if (isOwn(other))
            place = other - 1;
    if (place <= first_)
        return;
    frontEdge_ = query_.place(row(place));
    atFront_ = false;
    rows_.erase(rows_.begin(), rows_.begin() + (place - first_));
    first_ = place;
}

void PagedRows::dropFrom(qsizetype place)
{
    const qsizetype end = first_ + count();
    for (qsizetype other = end - 1; other >= place - 1; --other)
        if (isOwn(other))
            place = other + 2;
    if (place >= end)
        return;
    endEdge_ = query_.place(row(place - 1));
    atEnd_ = false;
    rows_.erase(rows_.begin() + (place - first_), rows_.end());
}

std::optional<Row> PagedRows::find(const Criteria& criteria, bool behindTheRun) const
{
    const ParameterisedStatement told = criteria.serverCondition();
    std::optional<PageQuery::Place> from = behindTheRun ? endEdge_ : std::nullopt;
    for (;;) {
        const std::vector<Row> page = rowsOf(query_.page(Direction::Forward, from, pageSize_, told));
        for (const Row& row : page)
            if (criteria.matches(row))
                return row;
        if (qsizetype(page.size()) < pageSize_)
            return std::nullopt;
        from = query_.place(page.back());
    }
}

std::optional<Row> PagedRows::rowWithKey(const std::vector<WireValue>& key) const
{
    std::vector<Row> rows = rowsOf(query_.rowWithKey(key));
    return rows.empty() ? std::nullopt : std::optional(std::move(rows.front()));
}

std::optional<qsizetype> PagedRows::placeOf(const Row& wanted) const
{
    const std::vector<WireValue> key = query_.key(wanted);
    // From the end: in front of it may stand a deleted row whose key was given to a new one.
    for (qsizetype place = first_ + count() - 1; place >= first_; --place)
        if (keyOf(place) == key)
            return place;
    return std::nullopt;
}

bool PagedRows::namesOneRow(const Criteria& criteria) const
{
    return query_.keyColumns().size() == 1 && criteria.namesNumber(query_.keyColumns().front());
}

qsizetype PagedRows::countBeforeTheRun() const
{
    return atFront_ || !frontEdge_ ? 0 : number(query_.countBefore(*frontEdge_, own_));
}

qsizetype PagedRows::number(const ParameterisedStatement& statement) const
{
    return rowsOf(statement).front().cell(0).toLongLong();
}

} // namespace ADODB
