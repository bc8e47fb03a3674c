#include "platform/data/criteria.h"
#include "platform/data/error.h"
#include "platform/data/recordset.h"

using namespace Qt::StringLiterals;

namespace ADODB {

RowMark Recordset::Bookmark() const
{
    requireRows();
    requireNoEdit();
    requireRow();
    return rows_->mark(visible_[std::size_t(position_)]);
}

void Recordset::setBookmark(const RowMark& mark)
{
    requireRows();
    requireNoEdit();
    const auto place = rows_->placeOf(mark);
    const bool isOtherRun = showReadRun();
    const qsizetype position = place ? positionOf(*place) : rowsHeld();
    if (position == rowsHeld() || visible_[std::size_t(position)] != *place)
        throw Error(Error::InvalidArgument, u"A marca é de um registro excluído ou fora do filtro."_s);
    stand(isOtherRun, position);
}

void Recordset::Find(const QString& criteria)
{
    requireRows();
    requireNoEdit();
    const Criteria wanted(criteria, columns_);
    if (filter_)
        return moveTo(std::find_if(visible_.begin(), visible_.end(),
                                   [&](qsizetype place) { return wanted.matches(*rows_->row(place)); }) -
                      visible_.begin());
    const auto place = rows_->find(wanted);
    const bool isOtherRun = showReadRun();
    stand(isOtherRun, place ? positionOf(*place) : rowsHeld());
}

void Recordset::Filter(const QString& criteria)
{
    requireRows();
    requireNoEdit();
    const bool all = criteria.trimmed().isEmpty();
    if (all && !filter_)
        return;
    auto filter = all ? nullptr : std::make_unique<Criteria>(criteria, columns_);
    rows_->readWhole();
    const qsizetype place = all && onRow() ? visible_[std::size_t(position_)] : rows_->first();
    filter_ = std::move(filter);
    showMatchingRows();
    position_ = positionOf(place);
    tell([](RecordsetListener& listener) { listener.rowsReset(); });
}

} // namespace ADODB
