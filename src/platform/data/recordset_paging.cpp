#include "platform/data/criteria.h"
#include "platform/data/error.h"
#include "platform/data/paging/pagedrows.h"
#include "platform/data/recordset.h"

namespace ADODB {

namespace {

/// A run that has grown beyond so many pages is trimmed.
constexpr qsizetype mostPages = 25;

} // namespace

/// A store for the result, nothing being read yet; null where it cannot be read by pages.
std::unique_ptr<PagedRows> Recordset::pagedRows(const PlainSelect& select,
                                                const std::vector<Column>& columns) const
{
    const Column* first = BaseTable::firstColumn(columns);
    auto query = first ? PageQuery::make(select, columns, primaryKey(*first)) : std::nullopt;
    if (!query)
        return nullptr;
    const auto run = [connection = connection_](const ParameterisedStatement& statement) {
        return connection->run(statement.sql, statement.parameters);
    };
    query->chooseIndex(allRows(*connection_->run(query->indexes())));
    return std::make_unique<PagedRows>(std::move(*query), run, pageSize_);
}

/// Reads the first rows to show and returns the place to stand at.
qsizetype Recordset::readAround(PagedRows& rows, const Row* around) const
{
    qsizetype place = 0;
    if (around)
        place = rows.readAround(*around);
    else
        rows.readFirst();
    if (filter_)
        rows.readWhole();
    return place;
}

bool Recordset::atFront() const
{
    return !paged_ || paged_->atFront();
}

bool Recordset::atEnd() const
{
    return !paged_ || paged_->atEnd();
}

void Recordset::moveToHeld(qsizetype position)
{
    requireRows();
    requireNoEdit();
    moveTo(position);
}

/// Shows another run and stands on the row at this place.
void Recordset::showRun(qsizetype place)
{
    deleted_.clear();
    showMatchingRows();
    position_ = positionOf(place);
    tell([](RecordsetListener& listener) { listener.rowsReset(); });
}

bool Recordset::readOn(Side side)
{
    if (side == Side::Front ? atFront() : atEnd())
        return false;
    const bool wasEof = position_ == rowsHeld();
    const qsizetype held = rowsHeld();
    const qsizetype added =
        paged_->readOn(side == Side::Front ? PageQuery::Direction::Backward : PageQuery::Direction::Forward);
    if (added == 0)
        return false;
    std::vector<qsizetype> places;
    const qsizetype end = paged_->first() + paged_->count();
    for (qsizetype i = 0; i < added; ++i)
        places.push_back(side == Side::Front ? paged_->first() + i : end - added + i);
    visible_.insert(side == Side::Front ? visible_.begin() : visible_.end(), places.begin(), places.end());
    if (wasEof || side == Side::Front)
        position_ += added;
    tell([&](RecordsetListener& listener) { listener.rowsRead(side == Side::Front ? 0 : held, added); });
    trim(side == Side::Front ? Side::End : Side::Front);
    return true;
}

/// Lets rows go at one end of the run, though none near the current row.
void Recordset::trim(Side side)
{
    const qsizetype most = mostPages * paged_->pageSize();
    const qsizetype held = rowsHeld();
    qsizetype from = 0;
    qsizetype to = held;
    if (side == Side::Front) {
        to = std::min(held - most, position_ - paged_->pageSize());
        if (to <= 0)
            return;
        paged_->dropBefore(visible_[std::size_t(to)]);
        to = positionOf(paged_->first());
        position_ -= to;
    } else {
        from = std::max(most, position_ + 1 + paged_->pageSize());
        if (from >= held)
            return;
        paged_->dropFrom(visible_[std::size_t(from)]);
        from = positionOf(paged_->first() + paged_->count());
    }
    if (from == to)
        return;
    visible_.erase(visible_.begin() + from, visible_.begin() + to);
    std::erase_if(deleted_, [&](qsizetype place) {
        return place < paged_->first() || place >= paged_->first() + paged_->count();
    });
    tell([&](RecordsetListener& listener) { listener.rowsDropped(from, to - from); });
}

/// Find where the run does not hold the answer.
void Recordset::findBeyond(const Criteria& wanted)
{
    std::optional<Row> row = paged_->find(wanted, atFront());
    if (!row)
        return moveTo(rowsHeld());
    const auto place = paged_->placeOf(*row);
    if (place && !deleted_.contains(*place))
        return moveTo(positionOf(*place));
    showRun(paged_->readAroundFound(std::move(*row)));
}

/// The row marked with its key in a paged store; false where the store is none or the row is not shown.
bool Recordset::goToMarkedRow(qsizetype mark)
{
    if (mark < 0 || mark >= qsizetype(marks_.size()))
        return false;
    std::optional<Row> row = paged_->rowWithKey(marks_[std::size_t(mark)]);
    if (!row)
        return false;
    const auto place = paged_->placeOf(*row);
    if (!filter_ && (!place || deleted_.contains(*place))) {
        showRun(paged_->readAroundFound(std::move(*row)));
        return true;
    }
    const qsizetype position = place ? positionOf(*place) : rowsHeld();
    if (position == rowsHeld() || visible_[std::size_t(position)] != *place)
        return false;
    moveTo(position);
    return true;
}

} // namespace ADODB
