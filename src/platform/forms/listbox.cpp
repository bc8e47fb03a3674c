#include "platform/forms/listbox.h"

#include "platform/forms/theme.h"
#include "platform/values/error.h"

#include <QPainter>
#include <QStyledItemDelegate>

namespace {

/// A little air between the lines; and in a list of several choices a check box in front of each line, so
/// that what is chosen is not told by colour alone, and a frame around the line that the blank key chooses.
class LineDelegate : public QStyledItemDelegate
{
public:
    LineDelegate(QObject* parent, bool checks) : QStyledItemDelegate(parent), checks_(checks) {}

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        return QStyledItemDelegate::sizeHint(option, index) + QSize(0, option.fontMetrics.height() / 4);
    }

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        QStyledItemDelegate::paint(painter, option, index);
        const auto* view = qobject_cast<const QAbstractItemView*>(option.widget);
        if (!checks_ || !view)
            return;
        QStyleOptionViewItem line = option;
        initStyleOption(&line, index);
        const QRect place = view->style()->subElementRect(QStyle::SE_ItemViewItemDecoration, &line, view);
        const bool isChosen = view->selectionModel()->isSelected(index);
        QStyleOptionViewItem check = line;
        check.rect = QStyle::alignedRect(line.direction, Qt::AlignCenter, line.decorationSize, place);
        check.state.setFlag(QStyle::State_On, isChosen);
        check.state.setFlag(QStyle::State_Off, !isChosen);
        view->style()->drawPrimitive(QStyle::PE_IndicatorItemViewItemCheck, &check, painter, view);
        if (line.state & QStyle::State_HasFocus) {
            painter->setPen(line.palette.color(QPalette::Link));
            painter->setBrush(Qt::NoBrush);
            painter->drawRect(line.rect.adjusted(0, 0, -1, -1));
        }
    }

protected:
    /// The check box stands where an icon would, as large as the letters: the style knows one size only.
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        if (!checks_)
            return;
        option->features |= QStyleOptionViewItem::HasDecoration;
        const int side = option->fontMetrics.ascent();
        option->decorationSize = {side, side};
    }

private:
    bool checks_;
};

} // namespace

ListBox::ListBox(QWidget* parent) : QListWidget(parent)
{
    setFont(Theme::fixedFont());
    setUniformItemSizes(true);
    setAlternatingRowColors(true);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    setTextElideMode(Qt::ElideNone);
    setItemDelegate(new LineDelegate(this, false));
}

void ListBox::setMultiSelect(bool multiple)
{
    setSelectionMode(multiple ? QAbstractItemView::MultiSelection : QAbstractItemView::SingleSelection);
    setItemDelegate(new LineDelegate(this, multiple));
}

void ListBox::AddItem(const QString& line)
{
    if (sorted_)
        insertItem(placeOf(line), line);
    else
        addItem(line);
}

void ListBox::RemoveItem(int index)
{
    delete at(index);
}

QString ListBox::List(int index) const
{
    return at(index)->text();
}

bool ListBox::Selected(int index) const
{
    return at(index)->isSelected();
}

void ListBox::setSelected(int index, bool selected)
{
    at(index)->setSelected(selected);
}

QListWidgetItem* ListBox::at(int index) const
{
    QListWidgetItem* line = item(index);
    if (!line)
        Errors::subscriptOutOfRange();
    return line;
}

/// Behind the last line that is not greater, so that equal lines keep the order in which they came.
int ListBox::placeOf(const QString& line) const
{
    int low = 0;
    int high = count();
    while (low < high) {
        const int middle = (low + high) / 2;
        if (item(middle)->text().compare(line, Qt::CaseInsensitive) <= 0)
            low = middle + 1;
        else
            high = middle;
    }
    return low;
}
