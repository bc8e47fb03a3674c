#include "platform/data/criteria.h"
#include "platform/data/error.h"
#include "platform/data/paging/pagedrows.h"
#include "platform/data/recordset.h"

using namespace Qt::StringLiterals;

namespace ADODB {

/// A store for the result, from which nothing is read yet; null where it cannot be read by pages.
std::unique_ptr<RowStore> Recordset::rowsByPages(const PlainSelect& select,
                                                 const std::vector<Column>& columns)
{
    const Column* first = BaseTable::firstColumn(columns);
    auto query = first ? PageQuery::make(select, columns, primaryKey(*first)) : std::nullopt;
    if (!query) {
        endView();
        return nullptr;
    }
    query->chooseIndex(allRows(*connection_->run(query->indexes())));
    beginView();
    const auto run = [connection = connection_](const ParameterisedStatement& statement) {
        return connection->run(statement.sql, statement.parameters);
    };
    return std::make_unique<PagedRows>(std::move(*query), run, pageSize_);
}

/// From here on the connection reads the database as it stands now. An earlier view ends.
void Recordset::beginView()
{
    connection_->run(u"start transaction with consistent snapshot, read only"_s);
    view_ = connection_->session();
}

void Recordset::endView()
{
    if (const auto session = std::exchange(view_, nullptr); session && session->connected()) {
        try {
            connection_->leavingItOpen([&] { connection_->run(u"commit"_s); });
        } catch (const Error&) {
            // The view has gone with the connection.
        }
    }
}

/// False where the server proves to be lost, now or before.
template <class Read>
bool Recordset::quietly(Read read)
{
    try {
        if (!isLost_)
            connection_->leavingItOpen(read);
    } catch (const Error& error) {
        if (!error.endsConnection())
            throw;
        isLost_ = true;
    }
    return !isLost_;
}

void Recordset::moveToHeld(qsizetype position)
{
    requireRows();
    requireNoEdit();
    moveTo(position);
}

void Recordset::moveToEnd(Side side)
{
    requireRows();
    requireNoEdit();
    if (quietly([&] { rows_->readEnd(side); }))
        side == Side::Front ? MoveFirst() : MoveLast();
}

/// Shows the run of the store; false where it is the one that is shown.
bool Recordset::showReadRun()
{
    if (run_ == rows_->run())
        return false;
    showMatchingRows();
    return true;
}

void Recordset::stand(bool isOtherRun, qsizetype position)
{
    if (!isOtherRun)
        return moveTo(position);
    position_ = position;
    tell([](RecordsetListener& listener) { listener.rowsResetAndMoved(); });
}

bool Recordset::readOn(Side side)
{
    return readFurther(side, true);
}

bool Recordset::readFurther(Side side, bool isQuiet)
{
    if (!rows_ || rows_->reaches(side))
        return false;
    const qsizetype first = rows_->first();
    const qsizetype end = first + rows_->count();
    const auto read = [&] { rows_->readOn(side); };
    if (!isQuiet)
        read();
    else if (!quietly(read))
        return false;
    return showReadOn(side, first, end);
}

/// Shows what was read at this side of the places from `first` to `end`.
bool Recordset::showReadOn(Side side, qsizetype first, qsizetype end)
{
    const bool isFront = side == Side::Front;
    const qsizetype from = isFront ? rows_->first() : end;
    const qsizetype to = isFront ? first : rows_->first() + rows_->count();
    std::vector<qsizetype> places;
    for (qsizetype place = from; place < to; ++place)
        if (rows_->row(place))
            places.push_back(place);
    const qsizetype held = rowsHeld();
    const auto added = qsizetype(places.size());
    if (isFront || position_ == held)
        position_ += added;
    visible_.insert(isFront ? visible_.begin() : visible_.end(), places.begin(), places.end());
    if (added > 0) {
        tell([&](RecordsetListener& listener) { listener.rowsRead(isFront ? 0 : held, added); });
        trim(isFront ? Side::End : Side::Front);
    }
    if (rows_->isWhole())
        endView();
    return added > 0;
}

/// Lets rows go at one end of the run, though none near the current row.
void Recordset::trim(Side side)
{
    const qsizetype held = rowsHeld();
    const qsizetype end = rows_->first() + rows_->count();
    rows_->trim(side, position_ == held ? end : visible_[std::size_t(std::max<qsizetype>(position_, 0))]);
    const bool isFront = side == Side::Front;
    const qsizetype from = isFront ? 0 : positionOf(rows_->first() + rows_->count());
    const qsizetype to = isFront ? positionOf(rows_->first()) : held;
    if (from == to)
        return;
    visible_.erase(visible_.begin() + from, visible_.begin() + to);
    if (isFront)
        position_ -= to;
    tell([&](RecordsetListener& listener) { listener.rowsDropped(from, to - from); });
}

} // namespace ADODB
