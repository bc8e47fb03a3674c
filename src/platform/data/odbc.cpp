#include "platform/data/odbc.h"

#include "platform/data/error.h"

#include <algorithm>
#include <sql.h>
#include <sqlext.h>

namespace Odbc {

using ADODB::ColumnKind;
using ADODB::Error;

namespace {

/// A slot's size for values whose length is short, unknown or long. Longer values are fetched one by one.
constexpr qsizetype shortestSlot = 16;
constexpr qsizetype longestSlot = 256;
/// A block stays within the processor's second-level cache.
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

[[noreturn]] void fail(SQLSMALLINT type, SQLHANDLE handle, const QByteArray& sql)
{
    SQLCHAR state[6] = {};
    SQLCHAR message[1024] = {};
    SQLINTEGER native = 0;
    SQLSMALLINT size = 0;
    SQLGetDiagRec(type, handle, 1, state, &native, message, sizeof message, &size);
    throw Error(native, withoutPrefixes(QString::fromUtf8(reinterpret_cast<const char*>(message))),
                QString::fromLatin1(reinterpret_cast<const char*>(state)), QString::fromUtf8(sql));
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
    // The driver manager refuses to disconnect inside a transaction, and a statement freed after its
    // connection would be another one's handle by then.
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
                                    value.size() > longestSlot ? SQL_LONGVARCHAR : SQL_VARCHAR,
                                    SQLULEN(std::max<qsizetype>(value.size(), 1)), 0, bytes(value),
                                    value.size(), &lengths[i]);
        });
    }
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
    column.bytes = int(std::clamp<SQLLEN>(numeric(SQL_DESC_OCTET_LENGTH), 0, longestSlot));
    column.autoIncrement = numeric(SQL_DESC_AUTO_UNIQUE_VALUE) == SQL_TRUE;
    column.catalog = text(SQL_DESC_CATALOG_NAME);
    column.table = text(SQL_DESC_BASE_TABLE_NAME);
    column.tableAlias = text(SQL_DESC_TABLE_NAME);
    column.baseName = text(SQL_DESC_BASE_COLUMN_NAME);
    return column;
}

/// Gives every column a slot in a row-wise block: the length, then the bytes, up to the next multiple of
/// eight.
void Statement::bindBlock()
{
    const auto aligned = [](qsizetype size) { return (size + 7) / 8 * 8; };
    for (const Column& column : columns_) {
        // A number or a date takes more room as text than as the server stores it.
        const qsizetype wanted = column.kind == ColumnKind::Text ? column.bytes + 1 : column.bytes + 32;
        const qsizetype capacity = aligned(std::clamp(wanted, shortestSlot, longestSlot));
        slots_.push_back({rowBytes_ + qsizetype(sizeof(SQLLEN)), rowBytes_, capacity});
        rowBytes_ += qsizetype(sizeof(SQLLEN)) + capacity;
    }
    blockRows_ = std::clamp<qsizetype>(blockBytes / rowBytes_, 1, mostBlockRows);
    block_.resize(std::size_t(rowBytes_ * blockRows_));

    const auto set = [&](SQLINTEGER what, SQLPOINTER value) {
        checked(SQL_HANDLE_STMT, handle_, sql_, [&] { return SQLSetStmtAttr(handle_, what, value, 0); });
    };
    set(SQL_ATTR_ROW_BIND_TYPE, attribute(std::uintptr_t(rowBytes_)));
    set(SQL_ATTR_ROW_ARRAY_SIZE, attribute(std::uintptr_t(blockRows_)));
    set(SQL_ATTR_ROWS_FETCHED_PTR, &rowsFetched_);
    for (std::size_t i = 0; i < slots_.size(); ++i) {
        const Slot& slot = slots_[i];
        checked(SQL_HANDLE_STMT, handle_, sql_, [&] {
            return SQLBindCol(handle_, SQLUSMALLINT(i + 1), SQL_C_CHAR, block_.data() + slot.offset,
                              slot.capacity, reinterpret_cast<SQLLEN*>(block_.data() + slot.lengthOffset));
        });
    }
}

qsizetype Statement::fetchBlock()
{
    if (!handle_)
        throw Error(Error::ObjectClosed, QStringLiteral("A conexão deste resultado foi fechada."));
    if (slots_.empty())
        bindBlock();
    if (atEnd_)
        return 0;
    rowsFetched_ = 0;
    const SQLRETURN result = checked(SQL_HANDLE_STMT, handle_, sql_, [&] { return SQLFetch(handle_); });
    if (result == SQL_NO_DATA) {
        rowsFetched_ = 0;
        atEnd_ = true;
    }
    longCells_.clear();
    if (result == SQL_SUCCESS_WITH_INFO)
        fetchLongCells();
    return qsizetype(rowsFetched_);
}

qint64 Statement::length(qsizetype row, qsizetype column) const
{
    return *reinterpret_cast<const SQLLEN*>(block_.data() + row * rowBytes_ +
                                            slots_[std::size_t(column)].lengthOffset);
}

void Statement::fetchLongCells()
{
    const auto columns = qsizetype(columns_.size());
    for (qsizetype row = 0; row < qsizetype(rowsFetched_); ++row) {
        for (qsizetype column = 0; column < columns; ++column) {
            const qint64 whole = length(row, column);
            if (whole < slots_[std::size_t(column)].capacity && whole != SQL_NO_TOTAL)
                continue;
            if (blockRows_ > 1)
                checked(SQL_HANDLE_STMT, handle_, sql_, [&] {
                    return SQLSetPos(handle_, SQLSETPOSIROW(row + 1), SQL_POSITION, SQL_LOCK_NO_CHANGE);
                });
            QByteArray value(qsizetype(whole) + 1, Qt::Uninitialized);
            SQLLEN got = 0;
            checked(SQL_HANDLE_STMT, handle_, sql_, [&] {
                return SQLGetData(handle_, SQLUSMALLINT(column + 1), SQL_C_CHAR, value.data(), value.size(),
                                  &got);
            });
            value.truncate(qsizetype(whole));
            longCells_.emplace_back(row * columns + column, value);
        }
    }
}

QByteArrayView Statement::cell(qsizetype row, qsizetype column) const
{
    const qint64 size = length(row, column);
    if (size == SQL_NULL_DATA)
        return {};
    const Slot& slot = slots_[std::size_t(column)];
    if (size < slot.capacity)
        return {block_.data() + row * rowBytes_ + slot.offset, qsizetype(size)};
    const qsizetype key = row * qsizetype(columns_.size()) + column;
    const auto found =
        std::lower_bound(longCells_.begin(), longCells_.end(), key,
                         [](const auto& entry, qsizetype wanted) { return entry.first < wanted; });
    return found->second;
}

std::vector<QByteArray> Statement::primaryKey(std::shared_ptr<Session> session, const QByteArray& catalog,
                                              const QByteArray& table)
{
    Statement keys(std::move(session));
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
