#include "platform/data/criteria.h"
#include "platform/data/error.h"
#include "platform/data/paging/pagedrows.h"
#include "platform/data/recordset.h"

using namespace Qt::StringLiterals;

namespace ADODB {

qsizetype Recordset::Bookmark() const
{
    requireRows();
    requireNoEdit();
    requireRow();
    const qsizetype place = visible_[std::size_t(position_)];
    if (!paged_)
        return place;
    // A place is another row's when another run is read.
    std::vector<WireValue> key = paged_->keyOf(place);
    const auto known = std::find(marks_.begin(), marks_.end(), key);
    const qsizetype mark = known - marks_.begin();
    if (known == marks_.end())
        marks_.push_back(std::move(key));
    return mark;
}

void Recordset::setBookmark(qsizetype mark)
{
    requireRows();
    requireNoEdit();
    if (goToMarkedRow(mark))
        return;
    const qsizetype position = paged_ ? rowsHeld() : positionOf(mark);
    if (position == rowsHeld() || visible_[std::size_t(position)] != mark)
        throw Error(Error::InvalidArgument, u"Marca inválida: %1"_s.arg(mark));
    moveTo(position);
}

void Recordset::Find(const QString& criteria)
{
    requireRows();
    requireNoEdit();
    const Criteria wanted(criteria, columns_);
    const auto found = std::find_if(visible_.begin(), visible_.end(),
                                    [&](qsizetype place) { return wanted.matches(rows_->row(place)); });
    const qsizetype position = found - visible_.begin();
    const bool isFirst = position < rowsHeld() && (atFront() || paged_->namesOneRow(wanted));
    if (isFirst || (atFront() && atEnd()))
        return moveTo(position);
    findBeyond(wanted);
}

void Recordset::Filter(const QString& criteria)
{
    requireRows();
    requireNoEdit();
    const bool all = criteria.trimmed().isEmpty();
    if (all && !filter_)
        return;
    auto filter = all ? nullptr : std::make_unique<Criteria>(criteria, columns_);
    if (paged_)
        paged_->readWhole();
    const qsizetype place = all && onRow() ? visible_[std::size_t(position_)] : rows_->first();
    filter_ = std::move(filter);
    showMatchingRows();
    position_ = positionOf(place);
    tell([](RecordsetListener& listener) { listener.rowsReset(); });
}

} // namespace ADODB
