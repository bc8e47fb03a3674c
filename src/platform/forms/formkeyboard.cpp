#include "platform/forms/formkeyboard.h"

#include "platform/forms/form.h"
#include "platform/forms/mnemonics.h"
#include "platform/forms/textlimit.h"
#include "platform/forms/wrongboxes.h"
#include "platform/values/error.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QClipboard>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QScopedValueRollback>
#include <memory>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// A combo box that the wheel has met without its having the focus.
bool isOnlyUnderTheWheel(const QWidget* control)
{
    return qobject_cast<const QComboBox*>(control) && !control->hasFocus();
}

/// The line of a box of one line and of an editable combo box; null for all others.
QLineEdit* lineOf(QWidget* control)
{
    const auto* combo = qobject_cast<QComboBox*>(control);
    return combo ? combo->lineEdit() : qobject_cast<QLineEdit*>(control);
}

bool takesText(QWidget* control)
{
    return lineOf(control) || qobject_cast<QPlainTextEdit*>(control);
}

/// As much of the text as the box has room for in the place of what is selected.
QString fitting(QWidget* control, const QString& text)
{
    const TextLimit limit = TextLimit::of(control);
    if (limit.isNone())
        return text;
    if (const QLineEdit* line = lineOf(control)) {
        const int start = line->hasSelectedText() ? line->selectionStart() : line->cursorPosition();
        const qsizetype end = start + line->selectedText().size();
        return limit.admitted(line->text().left(start), text, line->text().mid(end));
    }
    const auto* memo = static_cast<const QPlainTextEdit*>(control);
    const QString all = memo->toPlainText();
    const QTextCursor caret = memo->textCursor();
    return limit.admitted(all.left(caret.selectionStart()), text, all.mid(caret.selectionEnd()));
}

void insertText(QWidget* control, const QString& text)
{
    if (QLineEdit* line = lineOf(control)) {
        if (!line->isReadOnly())
            line->insert(fitting(control, text));
    } else if (auto* memo = qobject_cast<QPlainTextEdit*>(control)) {
        if (!memo->isReadOnly())
            memo->insertPlainText(fitting(control, text));
    }
}

/// The entry of a box's own menu. That of a line has no name, and the texts are in the user's language.
bool isPaste(const QAction& action)
{
    return action.objectName() == QLatin1String("edit-paste") ||
           action.text().endsWith(u'\t' +
                                  QKeySequence(QKeySequence::Paste).toString(QKeySequence::NativeText));
}

/// A box that only shows can be clicked, for its text to be copied, and is no stop of the keyboard.
void stopOnlyWhereTyped(QWidget* control)
{
    auto* line = qobject_cast<QLineEdit*>(control);
    if (line && line->isReadOnly() && !qobject_cast<QComboBox*>(line->parentWidget()))
        line->setFocusPolicy(Qt::ClickFocus);
}

/// The list that a combo box drops down lets its first item be the current one as soon as it has the focus,
/// and the first Down would go to the second.
bool firstOfList(QWidget* control, const QKeyEvent* event)
{
    auto* list = qobject_cast<QAbstractItemView*>(control);
    const QWidget* container = list && event->key() == Qt::Key_Down ? list->parentWidget() : nullptr;
    if (!container || !qobject_cast<QComboBox*>(container->parentWidget()) ||
        list->selectionModel()->hasSelection())
        return false;
    list->setCurrentIndex(list->model()->index(0, 0));
    return true;
}

Form* formOf(const QWidget* control)
{
    return control ? qobject_cast<Form*>(control->window()) : nullptr;
}

} // namespace

void FormKeyboard::install()
{
    static QPointer<FormKeyboard> filter;
    if (filter)
        return;
    filter = new FormKeyboard(qApp);
    qApp->installEventFilter(filter);
    Mnemonics::install();
}

bool FormKeyboard::eventFilter(QObject* receiver, QEvent* event)
{
    if (event == own_)
        return false;
    auto* control = qobject_cast<QWidget*>(receiver);
    Form* form = formOf(control);
    if (form && event->type() == QEvent::Polish) {
        // The wheel alone gives no focus.
        if (qobject_cast<QComboBox*>(control) && control->focusPolicy() == Qt::WheelFocus)
            control->setFocusPolicy(Qt::StrongFocus);
        TextLimit::watchDeletions(control);
        stopOnlyWhereTyped(control);
    }
    if (control && event->type() == QEvent::Hide && !event->spontaneous())
        stopPointingAt(*control);
    if (control && event->type() == QEvent::KeyPress && firstOfList(control, static_cast<QKeyEvent*>(event)))
        return true;
    if (!form || !form->isLoaded())
        return false;

    switch (event->type()) {
    case QEvent::FocusIn:
        form->focusReason_ = static_cast<QFocusEvent*>(event)->reason();
        return false;
    case QEvent::Wheel:
        if (!isOnlyUnderTheWheel(control))
            return false;
        event->ignore(); // so that it goes on to what lies around
        return true;
    case QEvent::MouseButtonPress:
        return std::exchange(form->swallowPress_, false);
    case QEvent::KeyPress:
        form->swallowPress_ = false;
        // A key that a control leaves alone travels on to its parents: it has been seen already.
        if (control != form->focusWidget() && !(control == form && !form->focusWidget()))
            return false;
        return keyPress(*form, control, static_cast<QKeyEvent*>(event));
    default:
        return textComesIn(*form, control, event);
    }
}

/// Text on its way into a box by other means than single keys.
bool FormKeyboard::textComesIn(const Form& form, QWidget* control, QEvent* event)
{
    // The text of a multi-line box and of a combo is taken by an inner part.
    QWidget* box = takesText(control) ? control : control->parentWidget();
    if (!box || !takesText(box))
        return false;
    switch (event->type()) {
    case QEvent::InputMethod:
        return composed(form, box, control, static_cast<QInputMethodEvent*>(event));
    case QEvent::MouseButtonRelease:
        // The middle button pastes the selection of the X window system.
        if (static_cast<QMouseEvent*>(event)->button() != Qt::MiddleButton ||
            !QApplication::clipboard()->supportsSelection())
            return false;
        insertText(box, form.inCase(QApplication::clipboard()->text(QClipboard::Selection)));
        return true;
    case QEvent::DragEnter:
        return true; // what is dragged here would come in as it is
    case QEvent::ContextMenu:
        return contextMenu(form, box, static_cast<QContextMenuEvent*>(event));
    default:
        return false;
    }
}

/// The box's own menu, whose "paste" is this filter's.
bool FormKeyboard::contextMenu(const Form& form, QWidget* box, QContextMenuEvent* event)
{
    std::unique_ptr<QMenu> menu;
    if (QLineEdit* line = lineOf(box))
        menu.reset(line->createStandardContextMenu());
    else
        menu.reset(static_cast<QPlainTextEdit*>(box)->createStandardContextMenu());
    for (QAction* action : menu->actions())
        if (isPaste(*action)) {
            action->disconnect();
            connect(action, &QAction::triggered, box,
                    [box, &form] { insertText(box, form.inCase(QApplication::clipboard()->text())); });
        }
    menu->exec(event->globalPos());
    return true;
}

bool FormKeyboard::keyPress(Form& form, QWidget* control, QKeyEvent* event)
{
    if (form.keyPressed(control, event))
        return true;
    if (!control->isEnabled())
        return false;
    if (!takesText(control))
        return character(form, control, event);
    if (event->matches(QKeySequence::Paste)) {
        insertText(control, form.inCase(QApplication::clipboard()->text()));
        return true;
    }
    const bool breaksLine = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (breaksLine && qobject_cast<QPlainTextEdit*>(control))
        return fitting(control, u"\n"_s).isEmpty();
    return character(form, control, event);
}

/// Hands a typed character to its handler and on to the control as they want it.
bool FormKeyboard::character(Form& form, QWidget* control, QKeyEvent* event)
{
    const bool isBackspace = event->key() == Qt::Key_Backspace;
    QString text = event->text();
    const bool isCharacter = !text.isEmpty() && (text[0].isPrint() || text[0].isSurrogate() || isBackspace);
    // Control and Alt together are a key's third level, such as "@" on some keyboards.
    const Qt::KeyboardModifiers modifiers = event->modifiers();
    if (!isCharacter || (modifiers.testFlag(Qt::ControlModifier) && !modifiers.testFlag(Qt::AltModifier)))
        return false;
    text = form.inCase(text);
    if (const auto handler = form.keyPress_.value(control)) {
        int code = text[0].unicode();
        handler(code);
        if (code == 0)
            return true;
        text[0] = QChar(code);
    }
    if (!isBackspace && takesText(control) && fitting(control, text) != text)
        return true;
    if (text == event->text())
        return false;
    QKeyEvent changed(event->type(), event->key(), event->modifiers(), text, event->isAutoRepeat(),
                      static_cast<quint16>(event->count()));
    send(control, changed);
    return true;
}

void FormKeyboard::send(QWidget* control, QEvent& changed)
{
    const QScopedValueRollback<const QEvent*> own(own_, &changed);
    QApplication::sendEvent(control, &changed);
}

/// Letters that come composed, such as an accent and a vowel.
bool FormKeyboard::composed(const Form& form, QWidget* box, QWidget* control, QInputMethodEvent* event)
{
    const QString text = fitting(box, form.inCase(event->commitString()));
    if (text == event->commitString())
        return false;
    QInputMethodEvent changed(event->preeditString(), event->attributes());
    changed.setCommitString(text, event->replacementStart(), event->replacementLength());
    send(control, changed);
    return true;
}

void SendKeys(const QString& keys)
{
    static const QHash<QString, int> names = {
        {u"TAB"_s, Qt::Key_Tab},      {u"ENTER"_s, Qt::Key_Return}, {u"ESC"_s, Qt::Key_Escape},
        {u"HOME"_s, Qt::Key_Home},    {u"END"_s, Qt::Key_End},      {u"UP"_s, Qt::Key_Up},
        {u"DOWN"_s, Qt::Key_Down},    {u"LEFT"_s, Qt::Key_Left},    {u"RIGHT"_s, Qt::Key_Right},
        {u"BS"_s, Qt::Key_Backspace}, {u"DEL"_s, Qt::Key_Delete}};

    for (qsizetype i = 0; i < keys.size(); ++i) {
        int key = 0;
        QString text(keys[i]);
        if (const qsizetype close = keys.indexOf(QLatin1Char('}'), i + 2);
            keys[i] == QLatin1Char('{') && close > 0) {
            const QString name = keys.sliced(i + 1, close - i - 1).toUpper();
            bool isFunction = false;
            const int function =
                name.startsWith(QLatin1Char('F')) ? QStringView(name).sliced(1).toInt(&isFunction) : 0;
            if (isFunction && function >= 1 && function <= 12)
                key = Qt::Key_F1 + function - 1;
            else if (names.contains(name))
                key = names.value(name);
            else
                throw RuntimeError(5, u"Tecla desconhecida: {%1}"_s.arg(name));
            text = key == Qt::Key_Tab ? u"\t"_s : QString();
            i = close;
        }
        QWidget* target = QApplication::focusWidget();
        if (!target)
            return;
        QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, text);
        QApplication::sendEvent(target, &press);
        QKeyEvent release(QEvent::KeyRelease, key, Qt::NoModifier, text);
        QApplication::sendEvent(target, &release);
    }
}
