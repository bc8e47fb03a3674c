#include "platform/forms/listbox.h"

#include "platform/forms/theme.h"
#include "platform/system/error.h"

#include <QStyledItemDelegate>

namespace {

/// A little air between the lines; and in a list of several choices a check box in front of each line, so
/// that what is chosen is not told by colour alone.
class LineDelegate : public QStyledItemDelegate
{
public:
    LineDelegate(QObject* parent, bool checks) : QStyledItemDelegate(parent), checks_(checks) {}

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        return QStyledItemDelegate::sizeHint(option, index) + QSize(0, option.fontMetrics.height() / 4);
    }

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        const auto* view = qobject_cast<const QAbstractItemView*>(option->widget);
        if (!checks_ || !view)
            return;
        option->features |= QStyleOptionViewItem::HasCheckIndicator;
        option->checkState = view->selectionModel()->isSelected(index) ? Qt::Checked : Qt::Unchecked;
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
