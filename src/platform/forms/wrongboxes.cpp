#include "platform/forms/wrongboxes.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPointer>
#include <QStyle>

namespace {

constexpr const char* property = "wrong"; // which the style sheet asks for

bool isPointedAt(const QWidget& box)
{
    return box.property(property).toBool();
}

void outline(QWidget& box, bool wrong)
{
    if (isPointedAt(box) == wrong)
        return;
    box.setProperty(property, wrong);
    // The rules of a style sheet are looked up anew only so.
    box.style()->unpolish(&box);
    box.style()->polish(&box);
    box.update();
}

/// Runs the action once, at the box's next change.
void atChange(QWidget* box, const std::function<void()>& action)
{
    if (auto* line = qobject_cast<QLineEdit*>(box)) {
        QObject::connect(line, &QLineEdit::textChanged, line, action, Qt::SingleShotConnection);
    } else if (auto* memo = qobject_cast<QPlainTextEdit*>(box)) {
        QObject::connect(memo, &QPlainTextEdit::textChanged, memo, action, Qt::SingleShotConnection);
    } else if (auto* combo = qobject_cast<QComboBox*>(box)) {
        QObject::connect(combo, &QComboBox::currentIndexChanged, combo, action, Qt::SingleShotConnection);
        QObject::connect(combo, &QComboBox::editTextChanged, combo, action, Qt::SingleShotConnection);
    }
}

} // namespace

void pointAt(const QWidgetList& boxes)
{
    for (QWidget* box : boxes)
        pointAtAnyOf({box});
}

void pointAtAnyOf(const QWidgetList& boxes)
{
    const QList<QPointer<QWidget>> together(boxes.begin(), boxes.end());
    for (QWidget* box : boxes) {
        outline(*box, true);
        atChange(box, [together] {
            for (const QPointer<QWidget>& one : together)
                if (one)
                    stopPointingAt(*one);
        });
    }
}

void stopPointingAt(QWidget& box)
{
    outline(box, false);
}

void pointAtNothing(const QWidget& screen)
{
    for (QWidget* box : screen.findChildren<QWidget*>())
        stopPointingAt(*box);
}
