#pragma once

#include "platform/data/basetable.h"
#include "platform/data/connection.h"
#include "platform/data/field.h"
#include "platform/data/rowstore.h"

#include <QAnyStringView>
#include <algorithm>
#include <exception>

namespace ADODB {

class Criteria;
struct PlainSelect;

/// Who shows a recordset's rows is told what happens to them, right after it happened. Positions count the
/// rows in memory that the filter leaves, from 0.
class RecordsetListener
{
public:
    virtual ~RecordsetListener() = default;

    /// Other rows, or other columns, or none: opened, closed, filtered, requeried.
    virtual void rowsReset() = 0;
    virtual void currentRowMoved() = 0;
    /// Both: the row that was gone to was not in memory.
    virtual void rowsResetAndMoved() = 0;
    virtual void rowInserted(qsizetype position) = 0;
    virtual void rowRemoved(qsizetype position) = 0;
    virtual void rowChanged(qsizetype position) = 0;
    /// Rows of a paged result came into memory, or were let go from it, at one of its ends: the position of
    /// the first and their number. The current row is none of them.
    virtual void rowsRead(qsizetype, qsizetype) {}
    virtual void rowsDropped(qsizetype, qsizetype) {}
    /// The recordset is being destroyed.
    virtual void recordsetGone() = 0;
};

/// The result of a statement.
///
/// A forward-only, read-only, server-side result (the default) is read block by block and once, from the
/// first row to the last. Every other one is held in memory: it has positions, can be searched and filtered,
/// and, with a lock other than read-only and if it comes from one table with its primary key, its rows can be
/// changed. A paged one (setPaged) holds a run of its rows around the place that is looked at and reads on
/// where its edges are come near; it behaves as if all had been read when it was opened. Closing the
/// connection closes its recordsets.
///
/// Failures are ADODB::Error: 3704 on a closed recordset, 3021 where there is no current row, 3219 where the
/// kind of result or a change not yet saved stands in the way, 3251 where rows cannot be changed.
class Recordset
{
public:
    static constexpr int ForwardOnly = 0, Keyset = 1, Dynamic = 2, Static = 3;
    static constexpr int ReadOnly = 1, Pessimistic = 2, Optimistic = 3;
    static constexpr int ServerSide = 2, ClientSide = 3;

    Recordset();
    ~Recordset();
    Recordset(const Recordset&) = delete;
    Recordset& operator=(const Recordset&) = delete;

    /// Where the rows of the next Open are kept.
    void setCursorLocation(int location) { cursorLocation_ = location; }

    /// Pages for the next Open that keeps its rows in memory, if the statement has the form "select * from
    /// table [where conditions] [order by columns]" and the table has a primary key; another statement is
    /// read whole as ever. Rows that the order leaves equal follow each other by the key; no row is counted
    /// and none skipped to open the result. What costs a reading of the whole table: Filter, and a Find that
    /// the server cannot answer by an index.
    ///
    /// Until the result is whole, requeried or closed, its connection reads the database as it stood at the
    /// opening (InnoDB's consistent read). No row is locked by that, but the tables' structure is, so the
    /// connection should be for this recordset alone, as an Adodc's is, and cannot change rows: what the
    /// recordset changes goes through a second connection, which the first change opens.
    void setPaged(bool on) { wantsPages_ = on; }
    /// Rows of a page, from 1, for the next Open.
    void setPageSize(qsizetype rows) { pageSize_ = rows; }

    /// Runs the statement and stands on the first row. A statement without a result leaves the recordset
    /// closed, and so does a failure. Error 3705 where it is open.
    void Open(const QString& sql, Connection& connection, int cursor = ForwardOnly, int lock = ReadOnly);
    void Open(const Command& command, int cursor = ForwardOnly, int lock = ReadOnly);
    /// Drops a change not yet saved. Nothing happens where it is closed.
    void Close();
    /// 1 open, 0 closed.
    int State() const;
    /// The statement of the last Open.
    const QString& source() const { return sql_; }

    /// Runs the statement again. The filter stays. The current row is the one with the same primary key (of
    /// the first column's table), else the one at the same position (paged: the one that followed it), else
    /// the first. A failure leaves the rows in memory as they were and closes a forward-only result.
    void Requery();

    bool Eof() const;
    bool Bof() const;
    void MoveNext();
    void MovePrevious();
    void MoveFirst();
    void MoveLast();

    /// A mark of the current row, good until Requery or Close. Error 3001 for one whose row was deleted
    /// through this recordset, or does not meet the filter.
    RowMark Bookmark() const;
    void setBookmark(const RowMark& mark);

    const std::vector<Column>& columns() const { return columns_; }
    /// The field of the current row, by its name in any letter case. Of two columns of one name the first is
    /// meant. Error 3265 for an unknown name.
    Field Fields(QAnyStringView name);
    /// By its place, from 0.
    Field Fields(qsizetype column);

    // For who shows the rows: those in memory that the filter leaves, by their position from 0. Where the
    // server is lost, what reads further rows does nothing, and the next statement tells of it.
    qsizetype rowsHeld() const { return qsizetype(visible_.size()); }
    /// Of the current row; -1 where there is none.
    qsizetype heldPosition() const
    {
        return State() == 1 && !forwardOnly_ && !adding_ && onRow() ? position_ : -1;
    }
    void moveToHeld(qsizetype position);
    using Side = RowStore::Side;
    /// Stands on the first row of all, or on the last.
    void moveToEnd(Side side);
    /// Reads a further page at this end of the rows held and tells of it; false where there is none, as in
    /// any result that is held whole.
    bool readOn(Side side);
    /// A cell; isNull() where it is NULL.
    QByteArrayView cellAt(qsizetype position, qsizetype column) const;

    /// Begins a new row; it becomes a row of the result with Update. Its fields are null until they are set.
    void AddNew();
    /// Sends what was set since AddNew, or on the current row, and reads the row back. A new row stands at
    /// the end and is the current one. Error RowGone if the row is no longer in the database.
    void Update();
    /// Forgets what was set.
    void CancelUpdate();
    /// Deletes the current row; the one behind it becomes the current row. Error RowGone as in Update.
    void Delete();

    /// The first row that meets the criteria becomes the current one; none: Eof. See Criteria.
    void Find(const QString& criteria);
    /// Leaves only the rows that meet the criteria and stands on their first; an empty text brings all back
    /// and stays on the current row.
    void Filter(const QString& criteria);

    void addListener(RecordsetListener* listener) { listeners_.push_back(listener); }
    void removeListener(RecordsetListener* listener);

private:
    friend class Field;

    void requireOpen() const;
    void requireRows() const;
    void requireRow() const;
    void requireNoEdit() const;
    void requireChangeable();
    bool editing() const { return adding_ || !changes_.empty(); }

    std::optional<qsizetype> run(const Row* around = nullptr);
    std::unique_ptr<RowStore> rowsByPages(const PlainSelect& select, const std::vector<Column>& columns);
    void beginView();
    void endView();
    Connection& writer();
    template <class Read>
    bool quietly(Read read);
    void showMatchingRows();
    bool showReadRun();
    void stand(bool isOtherRun, qsizetype position);
    bool readFurther(Side side, bool isQuiet);
    bool showReadOn(Side side, qsizetype first, qsizetype end);
    void trim(Side side);
    qsizetype positionOf(qsizetype place) const;
    qsizetype positionLike(const Row& row, const std::vector<qsizetype>& key, qsizetype position) const;
    void moveTo(qsizetype position);
    bool onRow() const;
    const std::vector<QByteArray>& primaryKey(const Column& column) const;

    const Row& rowAt(qsizetype position) const;
    QByteArrayView cell(qsizetype column) const;
    void set(qsizetype column, WireValue value);
    void insertRow();
    void updateRow();
    Row rowFromServer(const std::vector<WireValue>& key, const Row* old);

    /// Tells all listeners but those removed meanwhile; what the first failing one threw is thrown when all
    /// know.
    template <class Event>
    void tell(Event event)
    {
        std::exception_ptr failure;
        for (RecordsetListener* listener : std::vector(listeners_)) {
            if (std::find(listeners_.begin(), listeners_.end(), listener) == listeners_.end())
                continue;
            try {
                event(*listener);
            } catch (...) {
                if (!failure)
                    failure = std::current_exception();
            }
        }
        if (failure)
            std::rethrow_exception(failure);
    }

    int cursorLocation_ = ServerSide;
    int lock_ = ReadOnly;
    bool forwardOnly_ = false;
    QString sql_;
    Connection* connection_ = nullptr;
    std::shared_ptr<Odbc::Session> session_; ///< that the result came from; null where it is closed
    std::vector<Column> columns_;
    std::vector<QByteArray> names_; ///< of the columns; empty for a second column of one name
    qsizetype lastField_ = -1;

    // A forward-only result.
    std::unique_ptr<Odbc::Statement> statement_;
    qsizetype blockRow_ = 0;
    qsizetype blockRows_ = 0;
    bool hasRows_ = false;

    // A result in memory.
    std::unique_ptr<RowStore> rows_;
    std::vector<qsizetype> visible_; ///< places in the store
    int run_ = 0;                    ///< of the store, that the places are of
    bool wantsPages_ = false;
    qsizetype pageSize_ = 200;
    std::unique_ptr<Criteria> filter_;
    qsizetype position_ = 0; ///< in visible_; -1 in front of the first

    /// On which the connection reads the database as it stood; null where it reads it as it is.
    std::shared_ptr<Odbc::Session> view_;
    bool isLost_ = false; ///< the server, as was noticed and not told
    std::unique_ptr<Connection> writer_;

    std::optional<BaseTable> table_;
    bool adding_ = false;
    Changes changes_;

    std::vector<RecordsetListener*> listeners_;
};

} // namespace ADODB
