#include "layout/autoresize.h"

#include "platform/forms/form.h"
#include "platform/forms/statusbar.h"
#include "platform/forms/theme.h"

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QAbstractSpinBox>
#include <QCalendarWidget>
#include <QEvent>
#include <QLayout>
#include <QMenuBar>
#include <QProgressBar>
#include <QScopedValueRollback>
#include <QStackedWidget>
#include <QTabWidget>
#include <cmath>

namespace {

bool isLeftOut(const QWidget* control)
{
    return control->isWindow() || qobject_cast<const StatusBar*>(control) ||
           qobject_cast<const QMenuBar*>(control) ||
           control->property("tag").toString() == QLatin1String("NO");
}

/// What holds controls of the screen, as opposed to a control with inner parts of its own.
bool isContainer(const QWidget* control)
{
    return !qobject_cast<const QAbstractScrollArea*>(control) && !qobject_cast<const QLineEdit*>(control) &&
           !qobject_cast<const QComboBox*>(control) && !qobject_cast<const QAbstractSpinBox*>(control) &&
           !qobject_cast<const QCalendarWidget*>(control) && !qobject_cast<const QAbstractButton*>(control) &&
           !qobject_cast<const QLabel*>(control) && !qobject_cast<const QProgressBar*>(control) &&
           !qobject_cast<const QTabWidget*>(control) && !qobject_cast<const QStackedWidget*>(control);
}

bool isRuledLine(const QWidget* control)
{
    const auto* frame = qobject_cast<const QFrame*>(control);
    return frame && (frame->frameShape() == QFrame::HLine || frame->frameShape() == QFrame::VLine);
}

QList<QWidget*> childrenOf(const QWidget* container)
{
    return container->findChildren<QWidget*>(Qt::FindDirectChildrenOnly);
}

} // namespace

AutoResize::AutoResize(Form& form) : QObject(&form), form_(form)
{
    connect(&form, &Form::loaded, this, &AutoResize::capture);
}

void AutoResize::setKeepAspectRatio(bool keep)
{
    keepAspectRatio_ = keep;
    aspectRatioValue_ = keep ? double(form_.height()) / form_.width() : 0;
}

void AutoResize::setHMin(int twips)
{
    hMin_ = twips;
    applyMinimum();
}

void AutoResize::setWMin(int twips)
{
    wMin_ = twips;
    applyMinimum();
}

void AutoResize::applyMinimum()
{
    if (!clientSize_.isEmpty())
        form_.setMinimumSize(wMin_ / twipsPerPixel, hMin_ / twipsPerPixel);
}

void AutoResize::capture()
{
    QWidget* client = form_.clientArea();
    records_.clear();
    clientSize_ = client->size();
    captureContainer(client);

    // The window may become smaller than what its layouts asked for.
    if (QLayout* layout = form_.layout())
        layout->setSizeConstraint(QLayout::SetNoConstraint);
    if (client != &form_)
        client->setMinimumSize(1, 1);
    applyMinimum();
    client->removeEventFilter(this);
    client->installEventFilter(this);
}

void AutoResize::captureContainer(QWidget* container)
{
    if (QLayout* layout = container->layout()) {
        if (!container->isVisible()) {
            // What is hidden gets its layout's geometry only when it is shown: too late for the notes.
            layout->invalidate();
            layout->setGeometry(container->contentsRect());
        }
        layout->setEnabled(false);
    }
    for (QWidget* child : childrenOf(container))
        if (!isLeftOut(child))
            captureControl(child);
}

void AutoResize::captureControl(QWidget* control)
{
    // A window scaled down must not stop at the sizes that its layouts were told.
    control->setMinimumSize(0, 0);
    control->setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    records_.push_back({control, control->geometry(), control->font().pointSizeF(), isRuledLine(control)});

    if (qobject_cast<QTabWidget*>(control) || qobject_cast<QStackedWidget*>(control))
        capturePages(control);
    else if (isContainer(control))
        captureContainer(control);
}

/// The pages themselves are placed by the control that turns them.
void AutoResize::capturePages(QWidget* control)
{
    auto* stack = qobject_cast<QStackedWidget*>(control);
    if (!stack)
        stack = control->findChild<QStackedWidget*>(QString(), Qt::FindDirectChildrenOnly);
    const QRect shown = stack->currentWidget() ? stack->currentWidget()->geometry() : stack->rect();
    for (int i = 0; i < stack->count(); ++i) {
        stack->widget(i)->setGeometry(shown);
        captureContainer(stack->widget(i));
    }
}

bool AutoResize::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Resize)
        resized();
    return QObject::eventFilter(watched, event);
}

void AutoResize::resized()
{
    if (rescaling_ || !enabled_ || form_.isMinimized() || clientSize_.isEmpty())
        return;
    const QScopedValueRollback<bool> guard(rescaling_, true);
    if (keepAspectRatio_ && aspectRatioValue_ > 0 && !form_.isMaximized() && !form_.isFullScreen())
        form_.resize(form_.width(), qRound(form_.width() * aspectRatioValue_));
    rescale();
}

/// In steps, since every control is dressed anew: a window that is drawn larger pays for some of its sizes
/// only. At the opening size a screen has no rules of its own.
void AutoResize::scaleLengths(double ratio)
{
    constexpr double stepsPerUnit = 16;
    const double step = ratio == 1 ? 0 : std::floor(ratio * stepsPerUnit) / stepsPerUnit;
    if (step == lengths_)
        return;
    lengths_ = step;
    form_.setStyleSheet(step == 0 ? QString() : Theme::scaledLengths(step));
}

void AutoResize::rescale()
{
    const QSize size = form_.clientArea()->size();
    const double rx = size.width() / clientSize_.width();
    const double ry = size.height() / clientSize_.height();
    const double rf = qMin(rx, ry);
    if (fontResizable_)
        scaleLengths(rf);

    for (const Record& record : records_) {
        if (!record.control)
            continue;
        if (fontResizable_ && record.fontSize > 0) {
            QFont font = record.control->font();
            font.setPointSizeF(rf * record.fontSize);
            record.control->setFont(font);
            // The box inside an editable combo keeps a font of its own.
            if (auto* combo = qobject_cast<QComboBox*>(record.control.data()); combo && combo->isEditable())
                combo->lineEdit()->setFont(font);
        }
        const QRectF& noted = record.geometry;
        // Edges are rounded, not lengths, so that neighbours neither gape nor overlap.
        QRect place(QPoint(qRound(rx * noted.left()), qRound(ry * noted.top())),
                    QPoint(qRound(rx * noted.right()) - 1, qRound(ry * noted.bottom()) - 1));
        if (record.isLine && noted.height() < noted.width())
            place.setHeight(qRound(noted.height()));
        else if (record.isLine)
            place.setWidth(qRound(noted.width()));
        record.control->setGeometry(place);
    }
}
