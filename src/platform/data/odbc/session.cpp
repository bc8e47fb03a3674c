#include "platform/data/error.h"
#include "platform/data/odbc/call.h"
#include "platform/data/odbc/odbc.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace Odbc {

using ADODB::Error;

namespace {

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
    return state.startsWith("08") ? Error::ServerNotReached : Error::DriverFailed;
}

constexpr int connectSeconds = 15;

} // namespace

QString withTimeout(const QString& connectionString)
{
    static const QRegularExpression given(u"(?:^|;)\\s*CONN_TIMEOUT\\s*="_s,
                                          QRegularExpression::CaseInsensitiveOption);
    if (connectionString.contains(given))
        return connectionString;
    const bool isOpen = !connectionString.isEmpty() && !connectionString.endsWith(u';');
    return connectionString + (isOpen ? u";"_s : QString()) + u"CONN_TIMEOUT=%1;"_s.arg(connectSeconds);
}

void fail(SQLSMALLINT type, SQLHANDLE handle, const QByteArray& sql)
{
    SQLCHAR state[6] = {};
    SQLCHAR message[1024] = {};
    SQLINTEGER native = 0;
    SQLSMALLINT size = 0;
    SQLGetDiagRec(type, handle, 1, state, &native, message, sizeof message, &size);
    const QByteArrayView stateText(reinterpret_cast<const char*>(state));
    constexpr SQLINTEGER writeError = 5014; // a broken pipe
    const bool isLost = native == writeError || native == Error::ServerLost;
    throw Error(isLost        ? Error::ServerLost
                : native != 0 ? native
                              : ownNumber(stateText),
                isLost ? u"Server has gone away"_s
                       : withoutPrefixes(QString::fromUtf8(reinterpret_cast<const char*>(message))),
                QString::fromLatin1(stateText), QString::fromUtf8(sql));
}

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
        checked(SQL_HANDLE_DBC, connection_, {}, [&] {
            return SQLSetConnectAttr(connection_, SQL_ATTR_LOGIN_TIMEOUT, attribute(connectSeconds), 0);
        });
        const QByteArray text = withTimeout(connectionString).toUtf8();
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

} // namespace Odbc
