#pragma once

#include "platform/data/column.h"

#include <QString>
#include <map>
#include <memory>
#include <set>
#include <vector>

/// The C programming interface of ODBC (ISO/IEC 9075-3, "CLI") under RAII. A call that fails throws
/// ADODB::Error with the first diagnostic record, its text without the brackets that driver and manager put
/// in front.
///
/// How the MariaDB connector behaves (3.1): every statement is prepared on the server and fetched in the
/// binary form; the whole result is stored in the connector before the first row comes, so several results
/// can be open on one connection and memory for a result is the connector's own, whatever the cursor asked
/// for.
namespace Odbc {

using ADODB::Column;
using ADODB::WireValue;

class Statement;

/// The string with "CONN_TIMEOUT=15;" behind it, unless it says itself within how many seconds to connect.
/// The MariaDB connector takes the time from the string alone, and the last of two.
QString withTimeout(const QString& connectionString);

/// One connection to the server.
class Session
{
public:
    /// Connects. The string is handed to the driver manager as UTF-8, with its time-out.
    explicit Session(const QString& connectionString);
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    /// Ends all statements, then an open transaction (the server undoes it), then the connection. Never
    /// throws: a lost connection ends as well as any other.
    void disconnect();
    bool connected() const { return connected_; }

    /// From begin() to commit() nothing that the statements change is seen by others.
    void begin();
    void commit();
    bool inTransaction() const { return inTransaction_; }

private:
    friend class Statement;

    void* environment_ = nullptr;
    void* connection_ = nullptr;
    bool connected_ = false;
    bool inTransaction_ = false;
    std::set<Statement*> statements_;
};

/// One statement run on the server, with its result.
class Statement
{
public:
    /// Runs the statement; `parameters` stand for its question marks.
    Statement(std::shared_ptr<Session> session, const QByteArray& sql,
              const std::vector<WireValue>& parameters = {});
    ~Statement();
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;

    /// Rows changed, or found by the condition of an update; -1 for a result.
    qint64 affectedRows() const { return affectedRows_; }
    /// Empty for a statement without a result.
    const std::vector<Column>& columns() const { return columns_; }

    /// Fetches the next block and returns its number of rows, 0 at the end and from then on.
    qsizetype fetchBlock();
    /// A cell of the fetched block; isNull() where it is NULL. Valid until the next block. Behind the first
    /// block only the columns that were looked at so far are transferred; the cells of another one are
    /// fetched singly in the block that it is asked for first.
    QByteArrayView cell(qsizetype row, qsizetype column);

    /// The names of the columns of a table's primary key; none where there is no key. The connector gives
    /// them in the table's order, whatever the key's is.
    static std::vector<QByteArray> primaryKey(std::shared_ptr<Session> session, const QByteArray& catalog,
                                              const QByteArray& table);

private:
    friend class Session;

    /// Of which nothing is run yet; its failures tell of `sql`.
    Statement(const QByteArray& sql, std::shared_ptr<Session> session);

    /// A column's place in the block. Every row of the block has one slot per column: the cell's length, then
    /// its bytes.
    struct Slot
    {
        qsizetype lengthOffset = 0;
        qsizetype offset = 0;
        qsizetype capacity = 0;
        qsizetype required = 0; ///< capacity that the next block is to have
        bool bound = false;
        bool wanted = true; ///< every column for the first block, then those that were looked at
    };

    void free();
    void describe();
    Column describe(int number);
    void setAttribute(int what, void* value);
    void guessSlots();
    void layOutBlock();
    WireValue singleCell(qsizetype row, qsizetype column);

    std::shared_ptr<Session> session_;
    void* handle_ = nullptr;
    QByteArray sql_;
    qint64 affectedRows_ = -1;
    std::vector<Column> columns_;

    std::vector<Slot> slots_;
    qsizetype rowBytes_ = 0;
    qsizetype blockRows_ = 0;
    std::vector<char> block_;     ///< with one row more, for rows fetched singly
    std::size_t bindOffset_ = 0;  ///< where in the block the driver writes
    std::size_t rowsFetched_ = 0; ///< the driver writes it
    qsizetype firstRow_ = 0;      ///< of the block, counted in the result
    qsizetype nextRow_ = 0;       ///< behind the block
    qsizetype singleRow_ = -1;    ///< of the block, the one that was fetched singly last
    bool atEnd_ = false;
    /// Cells fetched singly, by row * columns + column.
    std::map<qsizetype, WireValue> singleCells_;
};

} // namespace Odbc
