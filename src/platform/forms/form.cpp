#include "platform/forms/form.h"

#include "platform/forms/dialogs.h"
#include "platform/forms/formkeyboard.h"
#include "platform/forms/mnemonics.h"
#include "platform/forms/placement.h"
#include "platform/forms/theme.h"
#include "platform/values/error.h"

#include <QApplication>
#include <QCloseEvent>
#include <QScopeGuard>
#include <QWindow>
#include <exception>
#include <utility>

using namespace Qt::StringLiterals;

namespace {
/// The form that was active last. Coming back to it from another program is no activation.
Form* lastActive = nullptr;
} // namespace

Form::Form(QWidget* parent) : QWidget(parent, Qt::Window)
{
    FormKeyboard::install();
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) {
        if (now && now != this && now->window() == this)
            focusMoved(now);
    });
}

Form::~Form()
{
    if (lastActive == this)
        lastActive = nullptr;
    if (modalLoop_)
        modalLoop_->quit();
    if (forget_)
        forget_();
}

void Form::Load()
{
    if (loaded_)
        return;
    loaded_ = true;
    Theme::dress(*this);
    Form_Load();
}

void Form::Show()
{
    Load();
    if (!loaded_)
        return;
    const QWidget* owner = QApplication::activeWindow();
    if (!isVisible() && !testAttribute(Qt::WA_Moved)) {
        ensurePolished();
        resize(openingSize());
    }
    if (owner && owner != this && owner->windowHandle()) {
        winId(); // makes the window handle
        windowHandle()->setTransientParent(owner->windowHandle());
    }
    show();
    raise();
    activateWindow();
}

void Form::ShowModal()
{
    if (modalLoop_)
        throw RuntimeError(400, u"A tela já está aberta: %1"_s.arg(windowTitle()));
    const QPointer<QWidget> owner = QApplication::activeWindow();
    setWindowModality(Qt::ApplicationModal);
    setWindowFlag(Qt::Dialog);
    Show();
    if (!loaded_)
        return;
    countModal();
    const PlainPointer pointer;
    QEventLoop loop;
    modalLoop_ = &loop;
    loop.exec();
    // Not every window system gives the focus back by itself.
    if (owner)
        owner->activateWindow();
}

void Form::Unload()
{
    if (!loaded_)
        return;
    loaded_ = false;
    laidOut_ = false;
    current_ = nullptr;
    if (lastActive == this)
        lastActive = nullptr;
    Form_Unload();
    hide();
    hourglass_.reset();
    if (std::exchange(off_, 0) > 0)
        setEnabled(true);
    if (modalLoop_)
        modalLoop_->quit();
    if (forget_) {
        forget_();
        forget_ = nullptr;
        deleteLater();
    }
}

void Form::Repaint()
{
    repaint(); // the controls on it as well
}

void Form::turnOff()
{
    if (off_++ > 0)
        return;
    awaited_ = focusWidget();
    hourglass_.emplace();
    setEnabled(false);
}

void Form::turnOn()
{
    if (off_ == 0 || --off_ > 0)
        return;
    hourglass_.reset();
    setEnabled(true);
    // A control that has been disabled or hidden hands the focus to the next one.
    QWidget* next = awaited_;
    while (next && !(next->isEnabled() && next->isVisibleTo(this) &&
                     (next == awaited_ || next->focusPolicy() & Qt::TabFocus))) {
        next = next->nextInFocusChain();
        if (next == awaited_)
            return;
    }
    if (next)
        next->setFocus();
}

void Form::focusOn(QWidget* control)
{
    if (off_ > 0)
        awaited_ = control;
    else
        control->setFocus();
}

void Form::hideFrame(QWidget* part, QWidget* next)
{
    focusOn(next);
    part->hide();
}

WindowOff::WindowOff(Form& form) : form_(&form)
{
    form.turnOff();
}

WindowOff::~WindowOff()
{
    if (!form_)
        return;
    try {
        form_->turnOn();
    } catch (...) {
        QMetaObject::invokeMethod(
            qApp, [error = std::current_exception()] { std::rethrow_exception(error); },
            Qt::QueuedConnection);
    }
}

void Form::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    if (!laidOut_) {
        laidOut_ = true;
        Mnemonics::assign(*this);
        Q_EMIT loaded();
        if (!testAttribute(Qt::WA_Moved))
            placeWindow(*this, QApplication::activeWindow() != this ? QApplication::activeWindow() : nullptr);
        if (!focusWidget())
            focusNextPrevChild(true);
    }
}

void Form::closeEvent(QCloseEvent* event)
{
    event->accept();
    Unload();
}

bool Form::event(QEvent* event)
{
    // While a modal window stands in front of this one, a window system's activation means nothing.
    const QWidget* modal = QApplication::activeModalWidget();
    if (event->type() == QEvent::WindowActivate && loaded_ && lastActive != this &&
        (!modal || modal == this)) {
        lastActive = this;
        // Behind the event: an activation may show a modal window, which must not happen inside the window
        // system's call.
        QMetaObject::invokeMethod(this, &Form::activate, Qt::QueuedConnection);
    }
    return QWidget::event(event);
}

void Form::activate()
{
    if (!loaded_ || activating_)
        return;
    activating_ = true;
    const auto over = qScopeGuard([self = QPointer<Form>(this)] {
        if (self)
            self->activating_ = false;
    });
    Form_Activate();
}

void Form::focusMoved(QWidget* to)
{
    QWidget* from = current_;
    if (to == from || !loaded_)
        return;
    current_ = to;
    if (auto* box = qobject_cast<QLineEdit*>(to); box && selecting_.contains(box)) {
        box->selectAll();
        // Again behind the mouse's press, which sets the caret.
        if (focusReason_ == Qt::MouseFocusReason)
            QMetaObject::invokeMethod(box, &QLineEdit::selectAll, Qt::QueuedConnection);
    }
    const QPointer<Form> self(this);
    const int before = modalCount();
    lostAndGot(from, to);
    if (self && modalCount() != before && focusReason_ == Qt::MouseFocusReason)
        swallowPress_ = true;
}

void Form::lostAndGot(QWidget* from, QWidget* to)
{
    // A copy each: a handler may unload and so delete this form.
    const auto lost = from ? lostFocus_.value(from) : nullptr;
    const auto got = gotFocus_.value(to);
    const QPointer<Form> self(this);
    if (lost)
        lost();
    if (got && self && loaded_ && current_ == to)
        got();
}

QString Form::inCase(QString text) const
{
    // Letter by letter, so that the text keeps its length.
    if (upperCase_)
        for (QChar& letter : text)
            letter = letter.toUpper();
    return text;
}

void chooseFirst(QComboBox& list)
{
    if (list.count() == 0)
        Errors::invalidProperty(list.objectName());
    list.setCurrentIndex(0);
}
