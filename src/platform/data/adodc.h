#pragma once

#include "platform/data/recordset.h"

#include <QObject>

/// The data behind a grid: a query text, the recordset of its rows, and a connection of its own, which is
/// opened at the first Refresh. Failures are ADODB::Error.
class Adodc : public QObject
{
    Q_OBJECT

public:
    explicit Adodc(QObject* parent = nullptr);

    void setConnectionString(const QString& text) { connection_.setConnectionString(text); }
    void setCursorLocation(int location) { recordset_.setCursorLocation(location); }
    void setCommandType(int type) { command_.setCommandType(type); }
    void setRecordSource(const QString& sql) { command_.setCommandText(sql); }
    const QString& recordSource() const { return command_.commandText(); }

    /// Runs the record source anew, without a filter. The row that was the current one stays so, as with
    /// Recordset::Requery; with another source the first one is. The rows are held in memory, page by
    /// page where they are of one table (Recordset::setPaged), and can be changed, whatever the cursor
    /// location. What others change meanwhile shows at the next Refresh. A change not yet saved is dropped.
    void Refresh();
    /// One and the same object all the time; closed before the first Refresh and after Close.
    ADODB::Recordset& Recordset() { return recordset_; }
    /// Closes the recordset and the connection.
    void Close();

Q_SIGNALS:
    void refreshed();

private:
    ADODB::Connection connection_;
    ADODB::Command command_;
    ADODB::Recordset recordset_;
};
