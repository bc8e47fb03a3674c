#include "platform/data/odbc/call.h"
#include "platform/data/odbc/odbc.h"

#include <algorithm>

namespace Odbc {

using ADODB::ColumnKind;

namespace {

constexpr qsizetype longestVarchar = 255;

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

Statement::Statement(const QByteArray& sql, std::shared_ptr<Session> session)
    : session_(std::move(session)), sql_(sql)
{
    checked(SQL_HANDLE_DBC, session_->connection_, sql_,
            [&] { return SQLAllocHandle(SQL_HANDLE_STMT, session_->connection_, &handle_); });
    session_->statements_.insert(this);
}

// Delegating, so that the destructor frees the handle where the statement fails.
Statement::Statement(std::shared_ptr<Session> session, const QByteArray& sql,
                     const std::vector<WireValue>& parameters)
    : Statement(sql, std::move(session))
{
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
    column.nullable = numeric(SQL_DESC_NULLABLE) != SQL_NO_NULLS;
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

std::vector<QByteArray> Statement::primaryKey(std::shared_ptr<Session> session, const QByteArray& catalog,
                                              const QByteArray& table)
{
    Statement keys({}, std::move(session));
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
