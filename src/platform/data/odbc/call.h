#pragma once

#include <QByteArray>
#include <cstdint>
#include <sql.h>
#include <sqlext.h>

/// What every use of the C interface needs; for this folder's Odbc sources alone.
namespace Odbc {

/// Room for a text's slot while the length of the texts is not known.
constexpr qsizetype firstTextSlot = 256;

/// The handle's first diagnostic record as ADODB::Error, with the statement.
[[noreturn]] void fail(SQLSMALLINT type, SQLHANDLE handle, const QByteArray& sql);

/// The one way to call the interface: runs `call`, which works on `handle`, and throws if it fails.
template <class Call>
SQLRETURN checked(SQLSMALLINT type, SQLHANDLE handle, const QByteArray& sql, Call call)
{
    const SQLRETURN result = call();
    if (!SQL_SUCCEEDED(result) && result != SQL_NO_DATA)
        fail(type, handle, sql);
    return result;
}

/// A text for a parameter that the interface only reads.
inline SQLCHAR* bytes(const QByteArray& text)
{
    return reinterpret_cast<SQLCHAR*>(const_cast<char*>(text.constData()));
}

/// A number where the interface takes a pointer.
inline SQLPOINTER attribute(std::uintptr_t value)
{
    return reinterpret_cast<SQLPOINTER>(value);
}

} // namespace Odbc
