#include "platform/forms/dropdown.h"

#include <QAbstractItemView>
#include <QEvent>
#include <QScreen>
#include <QScrollBar>

DropDownRows::DropDownRows(QComboBox* combo) : QStyledItemDelegate(combo), combo_(combo)
{
    combo->installEventFilter(this);
    combo->view()->window()->installEventFilter(this);
}

QSize DropDownRows::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    const QSize letters = QStyledItemDelegate::sizeHint(option, index);
    return {letters.width(), qMax(letters.height(), combo_->height())};
}

/// The view keeps the places that its rows had at its last layout.
bool DropDownRows::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == combo_) {
        if (event->type() == QEvent::Resize)
            combo_->view()->doItemsLayout();
    } else if (event->type() == QEvent::Show) {
        widen();
    }
    return false;
}

void DropDownRows::widen() const
{
    const QAbstractItemView* rows = combo_->view();
    QWidget* list = rows->window();
    const QScrollBar* bar = rows->verticalScrollBar();
    const int around = list->width() - rows->viewport()->width() + (bar->isVisible() ? 0 : bar->width());
    QRect place = list->geometry();
    place.setWidth(qMax(place.width(), rows->sizeHintForColumn(0) + around));
    const QRect screen = list->screen()->availableGeometry();
    place.moveRight(qMin(place.right(), screen.right()));
    place.moveLeft(qMax(place.left(), screen.left()));
    list->setGeometry(place);
}
