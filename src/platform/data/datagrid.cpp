#include "platform/data/datagrid.h"

#include "platform/data/adodc.h"

#include <QHeaderView>
#include <QScopedValueRollback>
#include <cmath>

DataGrid::DataGrid(QWidget* parent) : QTableView(parent), model_(new RecordsetModel(this))
{
    setModel(model_);
    setSelectionBehavior(SelectRows);
    setSelectionMode(SingleSelection);
    setEditTriggers(NoEditTriggers);
    setAlternatingRowColors(true);
    setTabKeyNavigation(false);
    setWordWrap(false);
    horizontalHeader()->setSectionsClickable(false);
    horizontalHeader()->setHighlightSections(false);
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->hide();
    fitRows();
    connect(model_, &RecordsetModel::currentChanged, this, &DataGrid::showCurrentRow);
}

void DataGrid::setDataSource(Adodc* source)
{
    setDataSource(source ? &source->Recordset() : nullptr);
}

void DataGrid::setDataSource(ADODB::Recordset* source)
{
    model_->setRecordset(source);
}

void DataGrid::setColumns(const std::vector<GridColumn>& columns)
{
    columns_ = columns;
    model_->setColumns(columns);
    fitColumns();
}

void DataGrid::showCurrentRow()
{
    const ADODB::Recordset* recordset = model_->recordset();
    const bool isOpen = recordset && recordset->State() == 1;
    const QModelIndex current =
        isOpen ? model_->index(int(recordset->AbsolutePosition()) - 1, 0) : QModelIndex();
    setCurrentIndex(current);
    if (current.isValid())
        scrollTo(current);
    else
        clearSelection();
    tellCurrentRow();
}

void DataGrid::tellCurrentRow()
{
    const ADODB::Recordset* recordset = model_->recordset();
    if (!recordset) {
        // It is being destroyed, and maybe the screen around it too: whom to tell?
        told_ = {};
        return;
    }
    ToldRow now;
    if (recordset->State() == 1)
        now.position = recordset->AbsolutePosition();
    if (now.position > 0) {
        std::vector<QByteArrayView> cells;
        for (std::size_t column = 0; column < recordset->columns().size(); ++column)
            cells.push_back(recordset->cellAt(now.position - 1, qsizetype(column)));
        now.cells = ADODB::Row(cells);
    }
    if (wasReset_ && now.position > 0 && told_.position > 0)
        told_.position = now.position;
    wasReset_ = false;
    if (now == told_)
        return;
    told_ = std::move(now);
    Q_EMIT rowChanged();
}

void DataGrid::reset()
{
    wasReset_ = true;
    QTableView::reset();
}

void DataGrid::dataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight,
                           const QList<int>& roles)
{
    QTableView::dataChanged(topLeft, bottomRight, roles);
    tellCurrentRow();
}

void DataGrid::rowsAboutToBeRemoved(const QModelIndex& parent, int first, int last)
{
    // The view leaves a row that goes for one of its choice; the recordset tells in a moment which one it is.
    const QScopedValueRollback guard(removing_, true);
    QTableView::rowsAboutToBeRemoved(parent, first, last);
}

void DataGrid::currentChanged(const QModelIndex& current, const QModelIndex& previous)
{
    QTableView::currentChanged(current, previous);
    ADODB::Recordset* recordset = model_->recordset();
    if (!removing_ && current.isValid() && recordset && recordset->State() == 1 &&
        recordset->AbsolutePosition() != current.row() + 1)
        recordset->setAbsolutePosition(current.row() + 1);
}

void DataGrid::resizeEvent(QResizeEvent* event)
{
    QTableView::resizeEvent(event);
    fitColumns();
}

void DataGrid::changeEvent(QEvent* event)
{
    QTableView::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        fitRows();
}

/// Rounds the columns' right edges, not their widths, so that 100 percent fill the grid to the pixel.
void DataGrid::fitColumns()
{
    double edge = 0;
    int left = 0;
    for (std::size_t i = 0; i < columns_.size(); ++i) {
        edge += columns_[i].percent;
        const auto right = int(std::lround(viewport()->width() * edge / 100));
        setColumnWidth(int(i), right - left);
        left = right;
    }
}

void DataGrid::fitRows()
{
    const int margin = 6;
    verticalHeader()->setMinimumSectionSize(1);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + margin);
}
