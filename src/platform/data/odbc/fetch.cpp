#include "platform/data/error.h"
#include "platform/data/odbc/call.h"
#include "platform/data/odbc/odbc.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace Odbc {

using ADODB::ColumnKind;
using ADODB::Error;

namespace {

constexpr qsizetype shortestSlot = 16;
/// What a slot may grow to when longer texts have come.
constexpr qsizetype longestSlot = 64 * 1024;
/// A block stays within the processor's second-level cache, unless a single row is longer.
constexpr qsizetype blockBytes = 128 * 1024;
constexpr qsizetype mostBlockRows = 256;

} // namespace

void Statement::guessSlots()
{
    for (const Column& column : columns_) {
        // A number or a date takes more room as text than as the server stores it.
        const qsizetype room = column.kind == ColumnKind::Text ? column.bytes + 1 : column.bytes + 32;
        slots_.push_back({.required = std::clamp(room, shortestSlot, firstTextSlot)});
    }
}

/// Makes a block of the wanted columns, each with the capacity it requires, and binds them.
void Statement::layOutBlock()
{
    // All of them: a column that stayed bound would be written where it was in the old block.
    checked(SQL_HANDLE_STMT, handle_, sql_, [&] { return SQLFreeStmt(handle_, SQL_UNBIND); });
    constexpr qsizetype alignment = sizeof(SQLLEN);
    rowBytes_ = alignment; // never 0, which would mean an array per column
    for (Slot& slot : slots_) {
        slot.bound = slot.wanted;
        if (!slot.wanted)
            continue;
        slot.capacity = (slot.required + alignment - 1) / alignment * alignment;
        slot.lengthOffset = rowBytes_;
        slot.offset = rowBytes_ + alignment;
        rowBytes_ = slot.offset + slot.capacity;
    }
    blockRows_ = std::clamp<qsizetype>(blockBytes / rowBytes_, 1, mostBlockRows);
    block_.resize(std::size_t(rowBytes_ * (blockRows_ + 1)));
    setAttribute(SQL_ATTR_ROW_BIND_TYPE, attribute(std::uintptr_t(rowBytes_)));
    setAttribute(SQL_ATTR_ROW_BIND_OFFSET_PTR, &bindOffset_);
    setAttribute(SQL_ATTR_ROWS_FETCHED_PTR, &rowsFetched_);
    setAttribute(SQL_ATTR_ROW_ARRAY_SIZE, attribute(std::uintptr_t(blockRows_)));
    for (std::size_t i = 0; i < slots_.size(); ++i) {
        const Slot& slot = slots_[i];
        if (slot.bound)
            checked(SQL_HANDLE_STMT, handle_, sql_, [&] {
                return SQLBindCol(handle_, SQLUSMALLINT(i + 1), SQL_C_CHAR, block_.data() + slot.offset,
                                  slot.capacity,
                                  reinterpret_cast<SQLLEN*>(block_.data() + slot.lengthOffset));
            });
    }
}

qsizetype Statement::fetchBlock()
{
    if (!handle_)
        throw Error(Error::ObjectClosed, u"A conexão deste resultado foi fechada."_s);
    if (atEnd_)
        return 0;
    const bool isFirst = slots_.empty();
    if (isFirst)
        guessSlots();
    const bool isWayward = singleRow_ >= 0;
    if (isWayward)
        setAttribute(SQL_ATTR_ROW_ARRAY_SIZE, attribute(std::uintptr_t(blockRows_)));
    if (std::any_of(slots_.begin(), slots_.end(), [](const Slot& slot) {
            return slot.bound != slot.wanted || slot.required > slot.capacity;
        }))
        layOutBlock();
    if (isFirst)
        for (Slot& slot : slots_)
            slot.wanted = false;
    singleCells_.clear();
    singleRow_ = -1;
    bindOffset_ = 0;
    const SQLRETURN result = checked(SQL_HANDLE_STMT, handle_, sql_, [&] {
        return isWayward ? SQLFetchScroll(handle_, SQL_FETCH_ABSOLUTE, SQLLEN(nextRow_ + 1))
                         : SQLFetch(handle_);
    });
    atEnd_ = result == SQL_NO_DATA;
    const qsizetype count = atEnd_ ? 0 : qsizetype(rowsFetched_);
    firstRow_ = nextRow_;
    nextRow_ += count;
    return count;
}

QByteArrayView Statement::cell(qsizetype row, qsizetype column)
{
    Slot& slot = slots_[std::size_t(column)];
    slot.wanted = true;
    if (slot.bound) {
        const char* start = block_.data() + row * rowBytes_;
        const SQLLEN size = *reinterpret_cast<const SQLLEN*>(start + slot.lengthOffset);
        if (size == SQL_NULL_DATA)
            return {};
        if (size >= 0 && size < slot.capacity)
            return {start + slot.offset, qsizetype(size)};
        slot.required = std::clamp(qsizetype(size) + 1, slot.required, longestSlot);
    }
    const auto [entry, isNew] = singleCells_.try_emplace(row * qsizetype(columns_.size()) + column);
    if (isNew)
        entry->second = singleCell(row, column);
    return entry->second ? QByteArrayView(*entry->second) : QByteArrayView();
}

/// A cell that is not in the block: its column is not bound, or it is longer than its slot.
WireValue Statement::singleCell(qsizetype row, qsizetype column)
{
    if (singleRow_ != row) {
        if (singleRow_ < 0)
            setAttribute(SQL_ATTR_ROW_ARRAY_SIZE, attribute(1));
        bindOffset_ = std::size_t(blockRows_ * rowBytes_);
        checked(SQL_HANDLE_STMT, handle_, sql_,
                [&] { return SQLFetchScroll(handle_, SQL_FETCH_ABSOLUTE, SQLLEN(firstRow_ + row + 1)); });
        singleRow_ = row;
    }
    QByteArray value(firstTextSlot, Qt::Uninitialized);
    qsizetype filled = 0;
    for (;;) {
        const qsizetype room = value.size() - filled;
        SQLLEN rest = 0; // bytes that were still to come before this call
        checked(SQL_HANDLE_STMT, handle_, sql_, [&] {
            return SQLGetData(handle_, SQLUSMALLINT(column + 1), SQL_C_CHAR, value.data() + filled, room,
                              &rest);
        });
        if (rest == SQL_NULL_DATA)
            return std::nullopt;
        if (rest >= 0 && rest < room) {
            value.truncate(filled + qsizetype(rest));
            return value;
        }
        value.resize(rest == SQL_NO_TOTAL ? value.size() * 2 : filled + qsizetype(rest) + 1);
        filled += room - 1; // the terminating zero is overwritten
    }
}

} // namespace Odbc
