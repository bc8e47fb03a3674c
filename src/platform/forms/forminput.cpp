// What keys and the mouse do in a form, before its controls or beside them.

#include "platform/forms/dialogs.h"
#include "platform/forms/form.h"
#include "platform/forms/mnemonics.h"

#include <QAbstractItemView>
#include <QKeyEvent>
#include <QMenuBar>
#include <QMouseEvent>
#include <utility>

bool Form::keyPressed(QWidget* control, QKeyEvent* event)
{
    if (!isEnabled()) {
        if (event->key() == Qt::Key_Escape)
            Form_Escape();
        return true;
    }
    if (const auto handler = keys_.value(event->key()).run; handler && event->modifiers() == Qt::NoModifier) {
        handler();
        return true;
    }
    if (event->key() == Qt::Key_F1 && event->modifiers() == Qt::ShiftModifier) {
        Form_Help();
        return true;
    }
    if (letterPressed(control, *event))
        return true;
    if (qobject_cast<QMenuBar*>(control))
        return false;
    switch (event->key()) {
    case Qt::Key_Space:
        return event->modifiers() == Qt::NoModifier && takeLine(control, event->isAutoRepeat());
    case Qt::Key_Escape:
        Form_Escape();
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (const auto enter = enter_.value(control))
            enter();
        else if (auto* button = qobject_cast<QAbstractButton*>(control))
            button->click();
        else if (!enterMovesOn_ || qobject_cast<QPlainTextEdit*>(control))
            return false;
        else
            focusNextPrevChild(true);
        return true;
    default:
        return false;
    }
}

/// What the mouse does on the current line; false where the blank key has another use.
bool Form::takeLine(QWidget* control, bool isRepeated)
{
    auto* list = qobject_cast<QAbstractItemView*>(control);
    const LineHandler handler = lines_.value(control);
    if (!list || !handler.run || list->selectionMode() == QAbstractItemView::MultiSelection ||
        keyPress_.contains(control))
        return false;
    if (isRepeated || !list->currentIndex().isValid())
        return true;
    list->setCurrentIndex(list->currentIndex()); // chosen as well, as by the mouse's press
    handler.run();
    return true;
}

/// Alt and a character: it is typed into no box, whether something has this letter or not. The menu bar does
/// without Alt while it has the focus.
bool Form::letterPressed(QWidget* control, const QKeyEvent& event)
{
    constexpr Qt::KeyboardModifiers others = Qt::ShiftModifier | Qt::KeypadModifier;
    const Qt::KeyboardModifiers modifiers = event.modifiers() & ~others;
    const QChar letter = Mnemonics::letterOf(event.key());
    auto* bar = qobject_cast<QMenuBar*>(control);
    if (modifiers != Qt::AltModifier && (!bar || modifiers != Qt::NoModifier || letter.isNull()))
        return false;
    if (letter.isNull())
        return !event.text().isEmpty() && event.text()[0].isPrint();
    for (QMenuBar* one : findChildren<QMenuBar*>())
        if (QAction* action = Mnemonics::actionOf(*one, letter)) {
            if (action->menu())
                one->setActiveAction(action);
            else
                action->trigger();
            return true;
        }
    if (QAbstractButton* button = bar ? nullptr : Mnemonics::buttonOf(*this, letter))
        pressAsMouse(button);
    return true;
}

/// The box that is left comes first. Where its answer is a box of the program, or the button cannot be
/// pressed any more, the press has had its answer.
void Form::pressAsMouse(QAbstractButton* button)
{
    const QPointer<Form> self(this);
    const QPointer<QAbstractButton> pressed(button);
    const int before = modalCount();
    button->setFocus(Qt::ShortcutFocusReason);
    if (self && pressed && loaded_ && modalCount() == before && button->isEnabled() && button->isVisible())
        button->click();
}

namespace {

/// Runs a handler at a mouse event of one widget.
class MouseWatch : public QObject
{
public:
    MouseWatch(QWidget* widget, QEvent::Type type, std::function<void()> handler)
        : QObject(widget), type_(type), handler_(std::move(handler))
    {
        widget->installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == type_ &&
            counts(static_cast<QWidget*>(watched), static_cast<QMouseEvent*>(event))) {
            // Behind the event, so that the control has done its own part, such as choosing the line.
            QMetaObject::invokeMethod(
                this, [this] { handler_(); }, Qt::QueuedConnection);
        }
        return false;
    }

private:
    bool counts(const QWidget* widget, const QMouseEvent* event) const
    {
        const QPoint place = event->position().toPoint();
        if (event->button() != Qt::LeftButton || !widget->isEnabled() || !widget->rect().contains(place))
            return false;
        const auto* view = qobject_cast<const QAbstractItemView*>(widget->parentWidget());
        return !view || view->indexAt(place).isValid();
    }

    QEvent::Type type_;
    std::function<void()> handler_;
};

} // namespace

void Form::watchMouse(QWidget* widget, QEvent::Type type, std::function<void()> handler, const QString& what)
{
    QWidget* target = widget;
    if (auto* view = qobject_cast<QAbstractScrollArea*>(widget))
        target = view->viewport();
    if (qobject_cast<QAbstractItemView*>(widget) &&
        lines_.value(widget).type != QEvent::MouseButtonDblClick) {
        const QString told = lines_.contains(widget) ? Help::blankKey(lines_[widget].type) : QString();
        if (widget->toolTip() == told)
            widget->setToolTip(Help::blankKey(type));
        lines_[widget] = {type, handler, what};
    }
    new MouseWatch(target, type, std::move(handler));
}
