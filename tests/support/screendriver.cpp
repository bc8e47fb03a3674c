#include "support/screendriver.h"

#include "support/report.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTableView>
#include <QTest>
#include <QToolTip>

using namespace Qt::StringLiterals;

void settle()
{
    for (int i = 0; i < 4; ++i) {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents();
    }
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

QString hintAt(QWidget* control, QPoint place)
{
    QToolTip::hideText();
    QHelpEvent asked(QEvent::ToolTip, place, control->mapToGlobal(place));
    QApplication::sendEvent(control, &asked);
    return QToolTip::text();
}

bool ScreenDriver::isOpen() const
{
    return window_ && window_->isVisible();
}

QWidget* ScreenDriver::find(const QString& control) const
{
    QWidget* found = window_ ? window_->findChild<QWidget*>(control) : nullptr;
    if (!found)
        Report::fail(u"no control %1"_s.arg(control));
    return found;
}

QWidget* ScreenDriver::usable(const QString& control) const
{
    QWidget* found = find(control);
    if (found && (!found->isEnabled() || !found->isVisible())) {
        Report::fail(u"the control %1 cannot be used: it is %2"_s.arg(
            control, found->isEnabled() ? u"hidden"_s : u"disabled"_s));
        return nullptr;
    }
    return found;
}

void ScreenDriver::focus(const QString& control)
{
    if (QWidget* target = usable(control)) {
        target->setFocus(Qt::TabFocusReason);
        settle();
    }
}

void ScreenDriver::type(const QString& control, const QString& text)
{
    QWidget* target = usable(control);
    if (!target)
        return;
    focus(control);
    if (auto* box = qobject_cast<QLineEdit*>(target))
        box->selectAll();
    else if (auto* combo = qobject_cast<QComboBox*>(target); combo && combo->isEditable())
        combo->lineEdit()->selectAll();
    else if (auto* memo = qobject_cast<QPlainTextEdit*>(target))
        memo->selectAll();
    if (text.isEmpty())
        press(Qt::Key_Delete);
    else
        typeOn(text);
}

void ScreenDriver::typeOn(const QString& text)
{
    for (const QChar c : text) {
        QWidget* target = window_ ? window_->focusWidget() : nullptr;
        if (!target)
            return;
        // Any non-zero key code will do for a letter; the text is what a box takes.
        const int key = c.unicode() < 128 ? int(c.toUpper().unicode()) : int(Qt::Key_unknown);
        QKeyEvent down(QEvent::KeyPress, key, Qt::NoModifier, QString(c));
        QApplication::sendEvent(target, &down);
        QKeyEvent up(QEvent::KeyRelease, key, Qt::NoModifier, QString(c));
        if (window_ && window_->focusWidget() == target)
            QApplication::sendEvent(target, &up);
        settle();
    }
}

void ScreenDriver::press(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    if (!window_)
        return;
    QWidget* target = window_->focusWidget() ? window_->focusWidget() : window_.data();
    QTest::keyPress(target, key, modifiers);
    settle();
}

void ScreenDriver::click(const QString& control)
{
    mouse(control, -1, false);
}

void ScreenDriver::clickRow(const QString& control, int row)
{
    mouse(control, row, false);
}

void ScreenDriver::doubleClickRow(const QString& control, int row)
{
    mouse(control, row, true);
}

void ScreenDriver::mouse(const QString& control, int row, bool twice)
{
    QWidget* target = usable(control);
    if (!target)
        return;
    QPoint place = target->rect().center();
    if (auto* view = qobject_cast<QAbstractItemView*>(target); view && row >= 0) {
        const QModelIndex index = view->model() ? view->model()->index(row, 0) : QModelIndex();
        if (!index.isValid()) {
            Report::fail(u"%1 has no row %2"_s.arg(control).arg(row));
            return;
        }
        view->scrollTo(index);
        place = QPoint(qMin(20, view->visualRect(index).width() / 2), view->visualRect(index).center().y());
        target = view->viewport();
    }
    QTest::mouseClick(target, Qt::LeftButton, {}, place);
    if (twice)
        QTest::mouseDClick(target, Qt::LeftButton, {}, place);
    settle();
}

void ScreenDriver::choose(const QString& control, const QString& start)
{
    auto* combo = qobject_cast<QComboBox*>(usable(control));
    if (!combo)
        return;
    const int index = combo->findText(start, Qt::MatchStartsWith | Qt::MatchCaseSensitive);
    if (index < 0) {
        Report::fail(u"%1 has no item that starts with \"%2\""_s.arg(control, start));
        return;
    }
    focus(control);
    combo->setCurrentIndex(index);
    settle();
}

QString ScreenDriver::text(const QString& control) const
{
    QWidget* found = find(control);
    if (auto* box = qobject_cast<QLineEdit*>(found))
        return box->text();
    if (auto* memo = qobject_cast<QPlainTextEdit*>(found))
        return memo->toPlainText();
    if (auto* combo = qobject_cast<QComboBox*>(found))
        return combo->currentText();
    if (auto* label = qobject_cast<QLabel*>(found))
        return label->text();
    if (auto* button = qobject_cast<QAbstractButton*>(found))
        return button->text();
    return {};
}

bool ScreenDriver::enabled(const QString& control) const
{
    const QWidget* found = find(control);
    return found && found->isEnabled();
}

bool ScreenDriver::visible(const QString& control) const
{
    const QWidget* found = find(control);
    return found && found->isVisible();
}

QString ScreenDriver::focused() const
{
    const QWidget* holder = window_ ? window_->focusWidget() : nullptr;
    return holder ? holder->objectName() : QString();
}

QStringList ScreenDriver::list(const QString& control) const
{
    QStringList lines;
    if (auto* view = qobject_cast<QAbstractItemView*>(find(control)); view && view->model())
        for (int row = 0; row < view->model()->rowCount(); ++row)
            lines << view->model()->index(row, 0).data().toString();
    return lines;
}

QStringList ScreenDriver::selected(const QString& control) const
{
    QStringList lines;
    if (auto* view = qobject_cast<QAbstractItemView*>(find(control)); view && view->model())
        for (int row = 0; row < view->model()->rowCount(); ++row)
            if (view->selectionModel()->isSelected(view->model()->index(row, 0)))
                lines << view->model()->index(row, 0).data().toString();
    return lines;
}

QList<QStringList> ScreenDriver::grid(const QString& control) const
{
    QList<QStringList> rows;
    auto* view = qobject_cast<QAbstractItemView*>(find(control));
    if (!view || !view->model())
        return rows;
    for (int row = 0; row < view->model()->rowCount(); ++row) {
        QStringList cells;
        for (int column = 0; column < view->model()->columnCount(); ++column)
            cells << view->model()->index(row, column).data().toString();
        rows << cells;
    }
    return rows;
}

QImage ScreenDriver::picture() const
{
    return window_ ? window_->grab().toImage() : QImage();
}
