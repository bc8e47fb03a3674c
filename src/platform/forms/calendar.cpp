#include "platform/forms/calendar.h"

#include "platform/forms/theme/roles.h"
#include "platform/system/clock.h"

#include <QEvent>
#include <QHeaderView>
#include <QPainter>
#include <QSignalBlocker>
#include <QTableView>
#include <QTextCharFormat>
#include <QToolButton>

using Theme::Role;

MonthCalendar::MonthCalendar(QWidget* parent) : QCalendarWidget(parent)
{
    setLocale(QLocale(QLocale::Portuguese, QLocale::Brazil));
    setFirstDayOfWeek(Qt::Sunday);
    setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    setHorizontalHeaderFormat(QCalendarWidget::SingleLetterDayNames); // the short names do not fit
    setGridVisible(false);
    setDateEditEnabled(false); // digits would be read as a date before they are one
    setDateRange(QDate(100, 1, 1), QDate(9999, 12, 31));
    dress();
    setValue(Clock::today());
    connect(this, &QCalendarWidget::selectionChanged, this, [this] {
        told_ = true;
        QMetaObject::invokeMethod(
            this, [this] { told_ = false; }, Qt::QueuedConnection);
        Q_EMIT dayChosen(Value());
    });
    connect(this, &QCalendarWidget::clicked, this, [this](QDate day) {
        if (!told_)
            Q_EMIT dayChosen(day);
    });
}

void MonthCalendar::dress()
{
    QTextCharFormat head;
    head.setForeground(Theme::colour(Role::MutedInk));
    head.setBackground(Theme::colour(Role::Band));
    setHeaderTextFormat(head);
    for (const Qt::DayOfWeek day : {Qt::Saturday, Qt::Sunday})
        setWeekdayTextFormat(day, head);
    // Seven columns share the width, however narrow.
    for (auto* days : findChildren<QTableView*>())
        days->horizontalHeader()->setMinimumSectionSize(1);
}

/// The chosen day is solid, today has a ring. Days off are paler, not red, which is for what is wrong; those
/// of other months are smaller too.
void MonthCalendar::paintCell(QPainter* painter, const QRect& rect, QDate date) const
{
    const bool isChosen = date == selectedDate();
    const bool isToday = date == Clock::today();
    const bool isElsewhere = date.month() != monthShown();
    const bool isOff = date.dayOfWeek() > Qt::Friday;
    QFont letters = font();
    if (isElsewhere)
        letters.setPointSizeF(letters.pointSizeF() * 0.85);
    if (isChosen || isToday)
        letters.setWeight(QFont::DemiBold);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    const QRectF cell = QRectF(rect).adjusted(1.5, 1.5, -1.5, -1.5);
    const double roundness = cell.height() / 6;
    painter->setPen(isToday ? QPen(Theme::colour(Role::Accent), 1.5) : QPen(Qt::NoPen));
    painter->setBrush(isChosen ? QBrush(Theme::colour(Role::Accent)) : QBrush(Qt::NoBrush));
    painter->drawRoundedRect(cell, roundness, roundness);
    painter->setFont(letters);
    painter->setPen(Theme::colour(isChosen      ? Role::Paper
                                  : isToday     ? Role::AccentInk
                                  : isElsewhere ? Role::OffInk
                                  : isOff       ? Role::MutedInk
                                                : Role::Ink));
    painter->drawText(rect, Qt::AlignCenter, QString::number(date.day()));
    painter->restore();
}

void MonthCalendar::setValue(QDate day)
{
    const QSignalBlocker quiet(this);
    setSelectedDate(day);
    setCurrentPage(day.year(), day.month());
}

void MonthCalendar::changeEvent(QEvent* event)
{
    QCalendarWidget::changeEvent(event);
    if (event->type() != QEvent::FontChange)
        return;
    for (QWidget* part : findChildren<QWidget*>()) {
        QFont scaled = part->font();
        scaled.setPointSizeF(font().pointSizeF());
        part->setFont(scaled);
        if (auto* button = qobject_cast<QToolButton*>(part))
            button->setIconSize(QSize(1, 1) * fontMetrics().height());
    }
}
