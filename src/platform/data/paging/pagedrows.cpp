#include "platform/data/paging/pagedrows.h"

#include "platform/data/criteria.h"

#include <algorithm>

namespace ADODB {

namespace {

/// A run that has grown beyond so many pages is trimmed.
constexpr qsizetype mostPages = 25;

} // namespace

PagedRows::PagedRows(PageQuery query, Run run, qsizetype pageSize)
    : query_(std::move(query)), run_(std::move(run)), pageSize_(pageSize)
{
}

qsizetype PagedRows::count() const
{
    return qsizetype(held_.rows.size()) + (held_.atEnd ? qsizetype(added_.size()) : 0);
}

const Row* PagedRows::row(qsizetype place) const
{
    const auto index = std::size_t(place - held_.first);
    if (index < held_.rows.size())
        return shown(held_.rows[index]);
    const std::optional<Row>& added = added_[index - held_.rows.size()];
    return added ? &*added : nullptr;
}

/// A row that was read, as it is now; null where it was removed.
const Row* PagedRows::shown(const Row& read) const
{
    if (changed_.empty())
        return &read;
    const auto change = changed_.find(query_.key(read));
    if (change == changed_.end())
        return &read;
    return change->second ? &*change->second : nullptr;
}

std::optional<Row>& PagedRows::changed(qsizetype place)
{
    const auto index = std::size_t(place - held_.first);
    return index < held_.rows.size() ? changed_[query_.key(held_.rows[index])]
                                     : added_[index - held_.rows.size()];
}

void PagedRows::append(Row row)
{
    readEnd(Side::End);
    added_.push_back(std::move(row));
}

void PagedRows::replace(qsizetype place, Row row)
{
    changed(place) = std::move(row);
}

void PagedRows::remove(qsizetype place)
{
    changed(place).reset();
}

std::vector<Row> PagedRows::rowsOf(const ParameterisedStatement& statement) const
{
    return allRows(*run_(statement));
}

/// Reads pages until a row comes that was not removed. A run without rows begins at the gap, else at the end
/// that it has.
void PagedRows::extend(Held& held, Side side, std::optional<PageQuery::Place> gap) const
{
    const bool isForward = side == Side::End;
    bool& isDone = isForward ? held.atEnd : held.atFront;
    for (bool isShown = false; !isDone && !isShown;) {
        if (!held.rows.empty())
            gap = query_.place(isForward ? held.rows.back() : held.rows.front());
        std::vector<Row> page =
            rowsOf(query_.page(isForward ? Direction::Forward : Direction::Backward, gap, pageSize_));
        isDone = qsizetype(page.size()) < pageSize_;
        for (Row& row : page) {
            isShown = isShown || shown(row);
            if (isForward) {
                held.rows.push_back(std::move(row));
            } else {
                held.rows.push_front(std::move(row));
                --held.first;
            }
        }
    }
}

void PagedRows::take(Held held)
{
    held_ = std::move(held);
    ++runs_;
}

std::optional<qsizetype> PagedRows::start(const Row* around)
{
    if (around) {
        std::vector<Row> found = rowsOf(query_.rowWithKey(query_.key(*around)));
        if (!found.empty())
            return readAround(std::move(found.front()));
        Held fresh;
        extend(fresh, Side::End, query_.place(*around));
        if (!fresh.rows.empty()) {
            extend(fresh, Side::Front);
            take(std::move(fresh));
            return 0;
        }
    }
    readEnd(Side::Front);
    return first();
}

void PagedRows::readOn(Side side)
{
    extend(held_, side);
}

void PagedRows::readEnd(Side side)
{
    if (reaches(side))
        return;
    Held fresh;
    (side == Side::Front ? fresh.atFront : fresh.atEnd) = true;
    extend(fresh, side == Side::Front ? Side::End : Side::Front);
    take(std::move(fresh));
}

void PagedRows::readWhole()
{
    Held whole = held_;
    for (const Side side : {Side::Front, Side::End})
        while (!(side == Side::Front ? whole.atFront : whole.atEnd))
            extend(whole, side);
    held_ = std::move(whole);
}

/// Reads a run around a row as it was just read, and returns its place.
qsizetype PagedRows::readAround(Row row)
{
    Held fresh;
    fresh.rows.push_back(std::move(row));
    extend(fresh, Side::End);
    extend(fresh, Side::Front);
    take(std::move(fresh));
    return 0;
}

/// The same where the row is not in the run that is held.
qsizetype PagedRows::reach(Row row)
{
    const auto place = heldPlace(query_.key(row));
    return place ? *place : readAround(std::move(row));
}

/// The place in the run of the row that was read with this key.
std::optional<qsizetype> PagedRows::heldPlace(const std::vector<WireValue>& key) const
{
    const auto held = std::find_if(held_.rows.begin(), held_.rows.end(),
                                   [&](const Row& candidate) { return query_.key(candidate) == key; });
    return held == held_.rows.end() ? std::nullopt : std::optional(held_.first + (held - held_.rows.begin()));
}

void PagedRows::trim(Side side, qsizetype around)
{
    const qsizetype most = mostPages * pageSize_;
    const auto read = qsizetype(held_.rows.size());
    if (side == Side::Front) {
        const qsizetype many = std::min(read - most, around - pageSize_ - held_.first);
        if (many <= 0)
            return;
        held_.rows.erase(held_.rows.begin(), held_.rows.begin() + many);
        held_.first += many;
        held_.atFront = false;
    } else {
        const qsizetype kept = std::max(most, around + 1 + pageSize_ - held_.first);
        if (kept >= read)
            return;
        held_.rows.erase(held_.rows.begin() + kept, held_.rows.end());
        held_.atEnd = false;
    }
}

std::optional<qsizetype> PagedRows::find(const Criteria& criteria)
{
    if (held_.atFront || namesOneRow(criteria))
        if (const auto place = RowStore::find(criteria))
            return place;
    if (isWhole())
        return std::nullopt;
    const ParameterisedStatement told = serverCondition(criteria);
    std::optional<PageQuery::Place> from;
    if (held_.atFront && !held_.rows.empty())
        from = query_.place(held_.rows.back());
    for (bool isLast = false; !isLast;) {
        std::vector<Row> page = rowsOf(query_.page(Direction::Forward, from, pageSize_, told));
        for (Row& row : page)
            if (const Row* candidate = shown(row); candidate && criteria.matches(*candidate))
                return reach(std::move(row));
        isLast = qsizetype(page.size()) < pageSize_;
        if (!isLast)
            from = query_.place(page.back());
    }
    for (std::size_t i = 0; i < added_.size(); ++i)
        if (added_[i] && criteria.matches(*added_[i]))
            return placeOf({{}, qsizetype(i)});
    return std::nullopt;
}

/// No two rows meet the criteria, because they name the primary key. Of the rows changed here one may have
/// the key that another one had when it was read.
bool PagedRows::namesOneRow(const Criteria& criteria) const
{
    return changed_.empty() && added_.empty() && query_.keyColumns().size() == 1 &&
           criteria.namesNumber(query_.keyColumns().front());
}

/// What the server can tell of the criteria, with the rows that it does not know as they are.
ParameterisedStatement PagedRows::serverCondition(const Criteria& criteria) const
{
    ParameterisedStatement told = criteria.serverCondition();
    if (told.sql.isEmpty() || changed_.empty())
        return told;
    std::vector<std::vector<WireValue>> keys;
    for (const auto& [key, change] : changed_)
        keys.push_back(key);
    return query_.orWithKeys(told, keys);
}

RowMark PagedRows::mark(qsizetype place) const
{
    const qsizetype index = place - held_.first;
    const auto read = qsizetype(held_.rows.size());
    return index < read ? RowMark{query_.key(held_.rows[std::size_t(index)]), 0} : RowMark{{}, index - read};
}

std::optional<qsizetype> PagedRows::placeOf(const RowMark& mark)
{
    if (mark.key.empty()) {
        if (mark.place >= qsizetype(added_.size()) || !added_[std::size_t(mark.place)])
            return std::nullopt;
        readEnd(Side::End);
        return held_.first + qsizetype(held_.rows.size()) + mark.place;
    }
    auto place = heldPlace(mark.key);
    if (!place && !isWhole())
        if (std::vector<Row> found = rowsOf(query_.rowWithKey(mark.key));
            !found.empty() && shown(found.front()))
            place = readAround(std::move(found.front()));
    return place && row(*place) ? place : std::nullopt;
}

} // namespace ADODB
