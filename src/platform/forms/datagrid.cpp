#include "platform/forms/datagrid.h"

#include "platform/data/adodc.h"
#include "platform/forms/theme.h"

#include <QHeaderView>
#include <QHelpEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QToolTip>
#include <algorithm>
#include <cmath>

namespace {

class Cells : public QStyledItemDelegate
{
public:
    explicit Cells(DataGrid* grid) : QStyledItemDelegate(grid), grid_(*grid) {}

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        if (!option.state.testFlag(QStyle::State_Selected) || grid_.showsChoice())
            return QStyledItemDelegate::paint(painter, option, index);
        // The view has drawn the row's ground already.
        painter->fillRect(option.rect, Theme::colour(Theme::Role::Card));
        QStyleOptionViewItem plain = option;
        plain.state &= ~QStyle::State_Selected;
        QStyledItemDelegate::paint(painter, plain, index);
    }

    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override
    {
        if (event->type() != QEvent::ToolTip || sizeHint(option, index).width() <= option.rect.width())
            return QStyledItemDelegate::helpEvent(event, view, option, index);
        QToolTip::showText(event->globalPos(), index.data().toString(), view->viewport(), option.rect);
        return true;
    }

private:
    const DataGrid& grid_;
};

} // namespace

DataGrid::DataGrid(QWidget* parent) : QTableView(parent), model_(new RecordsetModel(this))
{
    setModel(model_);
    setItemDelegate(new Cells(this));
    setSelectionBehavior(SelectRows);
    setSelectionMode(SingleSelection);
    setEditTriggers(NoEditTriggers);
    setShowGrid(false); // a hairline below each row
    setTabKeyNavigation(false);
    setWordWrap(false);
    setVerticalScrollMode(ScrollPerItem);
    horizontalHeader()->setSectionsClickable(false);
    horizontalHeader()->setHighlightSections(false);
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->hide();
    fitLetters();
    connect(model_, &RecordsetModel::currentChanged, this, &DataGrid::showCurrentRow);
    connect(model_, &RecordsetModel::rowsInserted, this,
            [this](const QModelIndex&, int first, int last) { shiftRows(first, last - first + 1); });
    connect(model_, &RecordsetModel::rowsRemoved, this,
            [this](const QModelIndex&, int first, int last) { shiftRows(last, first - last - 1); });
    connect(verticalScrollBar(), &QScrollBar::valueChanged, this, &DataGrid::readNear);
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

void DataGrid::showCurrentRow(bool isChosen)
{
    chosen_ = isChosen;
    const ADODB::Recordset* recordset = model_->recordset();
    const bool isOpen = recordset && recordset->State() == 1;
    const QModelIndex current = isOpen ? model_->index(int(recordset->heldPosition()), 0) : QModelIndex();
    {
        // Rows read in front would move the row while it is gone to.
        const QScopedValueRollback guard(reading_, true);
        setCurrentIndex(current);
        if (current.isValid())
            scrollTo(current);
        else
            clearSelection();
    }
    tellCurrentRow();
    readNear();
}

/// Has a view's height of rows in memory above what is seen and below, as far as there are any.
void DataGrid::readNear()
{
    ADODB::Recordset* recordset = model_->recordset();
    if (reading_ || !recordset || recordset->State() == 0)
        return;
    using Side = ADODB::Recordset::Side;
    const QScopedValueRollback guard(reading_, true);
    const int seen = viewport()->height() / verticalHeader()->defaultSectionSize() + 1;
    while (verticalScrollBar()->value() + 2 * seen > model_->rowCount() && recordset->readOn(Side::End)) {
    }
    while (verticalScrollBar()->value() < seen && recordset->readOn(Side::Front)) {
    }
}

/// Keeps in place what is seen, when rows came in front of row `from` or (a negative count) went up to it.
void DataGrid::shiftRows(int from, int count)
{
    if (told_.position - 1 > from || (count > 0 && told_.position - 1 == from))
        told_.position += count;
    const int top = verticalScrollBar()->value();
    if (from > top)
        return;
    const QScopedValueRollback guard(reading_, true);
    updateGeometries();
    verticalScrollBar()->setValue(top + count);
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
        now.position = recordset->heldPosition() + 1;
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
    {
        const QScopedValueRollback guard(reading_, true);
        QTableView::currentChanged(current, previous);
    }
    ADODB::Recordset* recordset = model_->recordset();
    if (!removing_ && current.isValid() && recordset && recordset->State() == 1 &&
        recordset->heldPosition() != current.row())
        recordset->moveToHeld(current.row());
}

QModelIndex DataGrid::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers)
{
    ADODB::Recordset* recordset = model_->recordset();
    const bool isHome = action == MoveHome;
    if ((!isHome && action != MoveEnd) || !modifiers.testFlag(Qt::ControlModifier) || !recordset ||
        recordset->State() == 0)
        return QTableView::moveCursor(action, modifiers);
    recordset->moveToEnd(isHome ? ADODB::Recordset::Side::Front : ADODB::Recordset::Side::End);
    return currentIndex();
}

void DataGrid::resizeEvent(QResizeEvent* event)
{
    QTableView::resizeEvent(event);
    fitColumns();
    readNear();
}

void DataGrid::changeEvent(QEvent* event)
{
    QTableView::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        fitLetters();
}

/// Also of the row that is the current one already, and does not move.
void DataGrid::mousePressEvent(QMouseEvent* event)
{
    QTableView::mousePressEvent(event);
    if (indexAt(event->position().toPoint()).isValid())
        chosen_ = true;
}

/// Whole rows only: what is left below them stays empty.
void DataGrid::paintEvent(QPaintEvent* event)
{
    const int row = rowAt(viewport()->height() - 1);
    const int top = rowViewportPosition(row);
    const bool isCut = row > 0 && top + rowHeight(row) > viewport()->height();
    const QRect whole = isCut ? QRect(0, 0, viewport()->width(), top) : viewport()->rect();
    QPaintEvent seen(event->region() & whole);
    QTableView::paintEvent(&seen);
}

void DataGrid::rest()
{
    chosen_ = false;
    viewport()->update();
}

bool DataGrid::showsChoice() const
{
    return choice_ || chosen_ || window()->focusWidget() == this;
}

/// Rounds the columns' right edges, not their widths, so that 100 percent fill the grid to the pixel. What a
/// heading needs beyond its column's share the widest column gives, if it can.
void DataGrid::fitColumns()
{
    double edge = 0;
    int left = 0;
    std::vector<int> widths;
    for (const GridColumn& column : columns_) {
        edge += column.percent;
        const auto right = int(std::lround(viewport()->width() * edge / 100));
        widths.push_back(right - left);
        left = right;
    }
    for (std::size_t i = 0; i < widths.size(); ++i) {
        const auto widest = std::max_element(widths.begin(), widths.end());
        const int lack = horizontalHeader()->sectionSizeHint(int(i)) - widths[i];
        if (lack > 0 && *widest - lack > widths[i] + lack) {
            *widest -= lack;
            widths[i] += lack;
        }
    }
    for (std::size_t i = 0; i < widths.size(); ++i)
        setColumnWidth(int(i), widths[i]);
}

/// The style sheet keeps the header from following the grid's letters. Its own font gives the height; the
/// captions are drawn in the inner part's.
void DataGrid::fitLetters()
{
    QFont captions = font();
    captions.setPointSizeF(font().pointSizeF() * Theme::font(Theme::Type::Caption).pointSizeF() /
                           Theme::font().pointSizeF());
    captions.setWeight(QFont::DemiBold);
    horizontalHeader()->setFont(captions);
    horizontalHeader()->viewport()->setFont(captions);

    const int letters = fontMetrics().height();
    verticalHeader()->setMinimumSectionSize(1);
    verticalHeader()->setDefaultSectionSize(letters + letters * 3 / 8);
}
