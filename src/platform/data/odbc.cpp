#include "platform/data/odbc.h"

#include "platform/data/error.h"

#include <algorithm>
#include <sql.h>
#include <sqlext.h>

namespace Odbc {

using ADODB::ColumnKind;
using ADODB::Error;

namespace {

constexpr qsizetype longestVarchar = 255;
constexpr qsizetype shortestSlot = 16;
/// What a text may take before its real length is known, and what a slot may grow to when longer texts have
/// come.
constexpr qsizetype firstTextSlot = 256;
constexpr qsizetype longestSlot = 64 * 1024;
/// A block stays within the processor's second-level cache, unless a single row is longer.
constexpr qsizetype blockBytes = 128 * 1024;
constexpr qsizetype mostBlockRows = 256;

SQLCHAR* bytes(const QByteArray& text)
{
    return reinterpret_cast<SQLCHAR*>(const_cast<char*>(text.constData()));
}

QString withoutPrefixes(QString text)
{
    while (text.startsWith(u'[') && text.contains(u']'))
        text.remove(0, text.indexOf(u']') + 1);
    return text.trimmed();
}

/// The number of an error that driver or driver manager found without asking the server.
int ownNumber(QByteArrayView state)
{
    if (state == "08S01" || state == "08003" || state == "08007")
        return Error::ServerLost;
    return state.startsWith("08") ? Error::ServerNotReached : 0;
}

[[noreturn]] void fail(SQLSMALLINT type, SQLHANDLE handle, const QByteArray& sql)
{
    SQLCHAR state[6] = {};
    SQLCHAR message[1024] = {};
    SQLINTEGER native = 0;
    SQLSMALLINT size = 0;
    SQLGetDiagRec(type, handle, 1, state, &native, message, sizeof message, &size);
    const QByteArrayView stateText(reinterpret_cast<const char*>(state));
    throw Error(native != 0 ? native : ownNumber(stateText),
                withoutPrefixes(QString::fromUtf8(reinterpret_cast<const char*>(message))),
                QString::fromLatin1(stateText), QString::fromUtf8(sql));
}

/// The one way to call the interface: runs `call`, which works on `handle`, and throws if it fails.
template <class Call>
SQLRETURN checked(SQLSMALLINT type, SQLHANDLE handle, const QByteArray& sql, Call call)
{
    const SQLRETURN result = call();
    if (!SQL_SUCCEEDED(result) && result != SQL_NO_DATA)
        fail(type, handle, sql);
    return result;
}

SQLPOINTER attribute(std::uintptr_t value)
{
    return reinterpret_cast<SQLPOINTER>(value);
}

ColumnKind kindOf(SQLLEN type)
{
    switch (type) {
    case SQL_BIT:
    case SQL_TINYINT:
    case SQL_SMALLINT:
    case SQL_INTEGER:
    case SQL_BIGINT:
        return ColumnKind::Integer;
    case SQL_DECIMAL:
    case SQL_NUMERIC:
        return ColumnKind::Decimal;
    case SQL_REAL:
    case SQL_FLOAT:
    case SQL_DOUBLE:
        return ColumnKind::Real;
    case SQL_TYPE_DATE:
        return ColumnKind::Date;
    case SQL_TYPE_TIME:
        return ColumnKind::Time;
    case SQL_TYPE_TIMESTAMP:
        return ColumnKind::DateTime;
    default:
        return ColumnKind::Text;
    }
}

} // namespace

Session::Session(const QString& connectionString)
{
    try {
        checked(SQL_HANDLE_ENV, SQL_NULL_HANDLE, {},
                [&] { return SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &environment_); });
        checked(SQL_HANDLE_ENV, environment_, {}, [&] {
            return SQLSetEnvAttr(environment_, SQL_ATTR_ODBC_VERSION, attribute(SQL_OV_ODBC3), 0);
        });
        checked(SQL_HANDLE_ENV, environment_, {},
                [&] { return SQLAllocHandle(SQL_HANDLE_DBC, environment_, &connection_); });
        const QByteArray text = connectionString.toUtf8();
        checked(SQL_HANDLE_DBC, connection_, {}, [&] {
            return SQLDriverConnect(connection_, nullptr, bytes(text), SQLSMALLINT(text.size()), nullptr, 0,
                                    nullptr, SQL_DRIVER_NOPROMPT);
        });
        connected_ = true;
    } catch (...) {
        disconnect();
        throw;
    }
}

Session::~Session()
{
    disconnect();
}

void Session::disconnect()
{
    // A statement freed after its connection would be another one's handle by then. A disconnection inside a
    // transaction may be refused by the standard (25000); and undone here, the transaction's locks are gone
    // when this returns, while a server that finds its client gone undoes it some time later.
    while (!statements_.empty())
        (*statements_.begin())->free();
    if (connected_) {
        if (inTransaction_)
            SQLEndTran(SQL_HANDLE_DBC, connection_, SQL_ROLLBACK);
        SQLDisconnect(connection_);
    }
    if (connection_)
        SQLFreeHandle(SQL_HANDLE_DBC, connection_);
    if (environment_)
        SQLFreeHandle(SQL_HANDLE_ENV, environment_);
    connection_ = environment_ = nullptr;
    connected_ = inTransaction_ = false;
}

void Session::begin()
{
    checked(SQL_HANDLE_DBC, connection_, {}, [&] {
        return SQLSetConnectAttr(connection_, SQL_ATTR_AUTOCOMMIT, attribute(SQL_AUTOCOMMIT_OFF), 0);
    });
    inTransaction_ = true;
}

void Session::commit()
{
    checked(SQL_HANDLE_DBC, connection_, {},
            [&] { return SQLEndTran(SQL_HANDLE_DBC, connection_, SQL_COMMIT); });
    checked(SQL_HANDLE_DBC, connection_, {}, [&] {
        return SQLSetConnectAttr(connection_, SQL_ATTR_AUTOCOMMIT, attribute(SQL_AUTOCOMMIT_ON), 0);
    });
    inTransaction_ = false;
}

Statement::Statement(std::shared_ptr<Session> session) : session_(std::move(session))
{
    checked(SQL_HANDLE_DBC, session_->connection_, {},
            [&] { return SQLAllocHandle(SQL_HANDLE_STMT, session_->connection_, &handle_); });
    session_->statements_.insert(this);
}

// Delegating, so that the destructor frees the handle where the statement fails.
Statement::Statement(std::shared_ptr<Session> session, const QByteArray& sql,
                     const std::vector<WireValue>& parameters)
    : Statement(std::move(session))
{
    sql_ = sql;
    std::vector<SQLLEN> lengths(parameters.size());
    for (std::size_t i = 0; i < parameters.size(); ++i) {
        static const QByteArray none;
        const QByteArray& value = parameters[i] ? *parameters[i] : none;
        lengths[i] = parameters[i] ? SQLLEN(value.size()) : SQL_NULL_DATA;
        checked(SQL_HANDLE_STMT, handle_, sql_, [&] {
            return SQLBindParameter(handle_, SQLUSMALLINT(i + 1), SQL_PARAM_INPUT, SQL_C_CHAR,
                                    value.size() > longestVarchar ? SQL_LONGVARCHAR : SQL_VARCHAR,
                                    SQLULEN(std::max<qsizetype>(value.size(), 1)), 0, bytes(value),
                                    value.size(), &lengths[i]);
        });
    }
    setAttribute(SQL_ATTR_CURSOR_TYPE, attribute(SQL_CURSOR_STATIC));
    checked(SQL_HANDLE_STMT, handle_, sql_,
            [&] { return SQLExecDirect(handle_, bytes(sql_), SQLINTEGER(sql_.size())); });
    describe();
    if (columns_.empty()) {
        SQLLEN count = 0;
        checked(SQL_HANDLE_STMT, handle_, sql_, [&] { return SQLRowCount(handle_, &count); });
        affectedRows_ = count;
    }
}

Statement::~Statement()
{
    free();
}

void Statement::free()
{
    if (handle_)
        SQLFreeHandle(SQL_HANDLE_STMT, handle_);
    handle_ = nullptr;
    session_->statements_.erase(this);
}

void Statement::describe()
{
    SQLSMALLINT count = 0;
    checked(SQL_HANDLE_STMT, handle_, sql_, [&] { return SQLNumResultCols(handle_, &count); });
    for (int number = 1; number <= count; ++number)
        columns_.push_back(describe(number));
}

Column Statement::describe(int number)
{
    const auto text = [&](SQLUSMALLINT what) {
        char value[256] = {};
        SQLSMALLINT size = 0;
        checked(SQL_HANDLE_STMT, handle_, sql_, [&] {
            return SQLColAttribute(handle_, SQLUSMALLINT(number), what, value, sizeof value, &size, nullptr);
        });
        return QByteArray(value);
    };
    const auto numeric = [&](SQLUSMALLINT what) {
        SQLLEN value = 0;
        checked(SQL_HANDLE_STMT, handle_, sql_, [&] {
            return SQLColAttribute(handle_, SQLUSMALLINT(number), what, nullptr, 0, nullptr, &value);
        });
        return value;
    };
    Column column;
    column.name = text(SQL_DESC_NAME);
    column.kind = kindOf(numeric(SQL_DESC_CONCISE_TYPE));
    column.bytes = int(std::clamp<SQLLEN>(numeric(SQL_DESC_OCTET_LENGTH), 0, firstTextSlot));
    column.autoIncrement = numeric(SQL_DESC_AUTO_UNIQUE_VALUE) == SQL_TRUE;
    column.catalog = text(SQL_DESC_CATALOG_NAME);
    column.table = text(SQL_DESC_BASE_TABLE_NAME);
    column.tableAlias = text(SQL_DESC_TABLE_NAME);
    column.baseName = text(SQL_DESC_BASE_COLUMN_NAME);
    return column;
}

void Statement::setAttribute(int what, void* value)
{
    checked(SQL_HANDLE_STMT, handle_, sql_, [&] { return SQLSetStmtAttr(handle_, what, value, 0); });
}

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
        throw Error(Error::ObjectClosed, QStringLiteral("A conexão deste resultado foi fechada."));
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

std::vector<QByteArray> Statement::primaryKey(std::shared_ptr<Session> session, const QByteArray& catalog,
                                              const QByteArray& table)
{
    Statement keys(std::move(session));
    keys.setAttribute(SQL_ATTR_CURSOR_TYPE, attribute(SQL_CURSOR_STATIC));
    checked(SQL_HANDLE_STMT, keys.handle_, {}, [&] {
        return SQLPrimaryKeys(keys.handle_, bytes(catalog), SQL_NTS, nullptr, 0, bytes(table), SQL_NTS);
    });
    keys.describe();
    constexpr qsizetype nameColumn = 3;
    std::vector<QByteArray> names;
    while (const qsizetype rows = keys.fetchBlock())
        for (qsizetype row = 0; row < rows; ++row)
            names.push_back(keys.cell(row, nameColumn).toByteArray());
    return names;
}

} // namespace Odbc
