#include "platform/forms/chip.h"

#include "platform/forms/theme/roles.h"

#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

using Theme::Role;

Chip::Chip(QWidget* parent) : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
}

QSize Chip::sizeHint() const
{
    return {fontMetrics().horizontalAdvance(text()) + 2 * padding(),
            fontMetrics().height() + fontMetrics().height() / 2};
}

QString Chip::shown() const
{
    return fontMetrics().elidedText(text(), Qt::ElideRight, width() - 2 * padding());
}

bool Chip::event(QEvent* event)
{
    if (event->type() != QEvent::ToolTip || shown() == text())
        return QLabel::event(event);
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), text(), this);
    return true;
}

void Chip::paintEvent(QPaintEvent*)
{
    if (text().isEmpty())
        return;
    const bool isNotice = property("role").toString() == QLatin1String("notice");
    const QString word = shown();
    QRectF ground(0, 0, fontMetrics().horizontalAdvance(word) + 2 * padding(),
                  qMin(height(), sizeHint().height()));
    ground.moveTop((height() - ground.height()) / 2);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Theme::colour(isNotice ? Role::Notice : Role::Hover));
    painter.drawRoundedRect(ground, ground.height() / 2, ground.height() / 2);
    painter.setPen(Theme::colour(isNotice ? Role::NoticeInk : Role::AccentInk));
    painter.drawText(ground, Qt::AlignCenter, word);
}
