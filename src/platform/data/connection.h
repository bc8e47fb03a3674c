#pragma once

#include "platform/data/codecomparison.h"
#include "platform/data/error.h"
#include "platform/data/odbc/odbc.h"

#include <QScopedValueRollback>
#include <functional>
#include <map>

namespace ADODB {

/// One statement that has been run.
struct StatementEvent
{
    QString statement;
    QString sent;   ///< as the server got it: codes compared by equality
    double seconds; ///< until the server's answer was there
    bool ok;
};

/// The connection to the database.
///
/// Failures are ADODB::Error. A connection that the server has dropped shows as the error of the next
/// statement, and is closed from then on; Open starts again.
class Connection
{
public:
    Connection() = default;
    ~Connection();
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    /// "Driver={...};Server=...;Database=...;User=...;Password=...;Option=3;", used by the next Open.
    void setConnectionString(const QString& text) { connectionString_ = text; }
    const QString& connectionString() const { return connectionString_; }

    /// Error 3705 where it is open.
    void Open();
    /// Closes the recordsets opened on it too. An open transaction ends undone. Nothing happens where it is
    /// closed.
    void Close();
    /// 1 open, 0 closed.
    int State() const { return session_ ? 1 : 0; }

    /// Runs a statement and returns the number of rows it changed (an update: rows that met its condition);
    /// -1 where it gave a result, which is dropped.
    qint64 Execute(const QString& sql);

    /// From here on changes stay unseen by others until CommitTrans. Error 3219 inside a transaction.
    void BeginTrans();
    /// Error 3219 outside a transaction.
    void CommitTrans();

    /// Whether codes are compared by equality on their way to the server (comparedByEquality); that is so
    /// unless the environment has a variable TREMOSILVA_COMPARE_AS_WRITTEN that is not empty. For all
    /// connections.
    static void setCodesByEquality(bool on);

    /// Called after every statement of every connection; an empty function ends it. For tracing and timing.
    static void setObserver(std::function<void(const StatementEvent&)> observer);

private:
    friend class Recordset;

    /// Makes a call that speaks to the server, and closes the connection if the server proves to have dropped
    /// it.
    template <class Call>
    auto guarded(Call call)
    {
        try {
            return call();
        } catch (const Error& error) {
            if (closesOnLoss_ && error.endsConnection())
                Close();
            throw;
        }
    }
    /// What the call runs leaves a connection that proves to be lost as it is: the next statement tells of
    /// it.
    template <class Call>
    void leavingItOpen(Call call)
    {
        const QScopedValueRollback guard(closesOnLoss_, false);
        call();
    }
    /// Every statement of the program passes here. Error 3704 where the connection is closed.
    ///
    /// Codes are compared by equality. What the codes are is asked of the database at the first statement
    /// that has `like`, and again when the answer is a minute old: it is shared by the connections of one
    /// connection string. A connection that has run a statement which may change it compares as written from
    /// then on.
    std::unique_ptr<Odbc::Statement> run(const QString& sql, const std::vector<WireValue>& parameters = {});
    std::unique_ptr<Odbc::Statement> send(const QString& sql, const QString& asWritten,
                                          const std::vector<WireValue>& parameters);
    QString withCodesCompared(const QString& sql);
    const std::shared_ptr<Odbc::Session>& session() const;
    /// The names of a table's key columns, asked for once per connection.
    const std::vector<QByteArray>& primaryKey(const QByteArray& catalog, const QByteArray& table);

    QString connectionString_;
    std::shared_ptr<Odbc::Session> session_;
    bool namesChanged_ = false;
    bool closesOnLoss_ = true;
    std::map<std::pair<QByteArray, QByteArray>, std::vector<QByteArray>> primaryKeys_;
};

/// A statement with the connection it is for, to be run by itself or through a recordset.
class Command
{
public:
    void setActiveConnection(Connection* connection) { connection_ = connection; }
    Connection* activeConnection() const { return connection_; }
    /// 1, a statement's text, is the only type there is; error 3001 for another.
    void setCommandType(int type);
    void setCommandText(const QString& text) { text_ = text; }
    const QString& commandText() const { return text_; }

    /// As Connection::Execute. Error 3704 without a connection.
    qint64 Execute() const;

private:
    Connection* connection_ = nullptr;
    QString text_;
};

} // namespace ADODB
