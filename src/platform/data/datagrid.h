#pragma once

#include "platform/data/recordsetmodel.h"

#include <QTableView>

class Adodc;

/// A read-only grid over a recordset that is held in memory. The grid's current row is the recordset's:
/// whoever moves one moves the other.
class DataGrid : public QTableView
{
    Q_OBJECT

public:
    explicit DataGrid(QWidget* parent = nullptr);

    void setDataSource(Adodc* source);
    void setDataSource(ADODB::Recordset* source);
    /// See RecordsetModel. The widths follow the grid's.
    void setColumns(const std::vector<GridColumn>& columns);

    /// Letters typed on the grid are not a search.
    void keyboardSearch(const QString&) override {}

Q_SIGNALS:
    /// A double click of the left button on a row, which is the current one by then.
    void rowActivated();

protected:
    void rowsAboutToBeRemoved(const QModelIndex& parent, int first, int last) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void showCurrentRow();
    void fitColumns();
    void fitRows();

    RecordsetModel* model_;
    std::vector<GridColumn> columns_;
    bool showing_ = false; ///< what the recordset did, which is no reason to move it
};
