#include "platform/forms/calendar.h"

#include "platform/forms/theme/roles.h"
#include "platform/system/clock.h"

#include <QEvent>
#include <QSignalBlocker>
#include <QTextCharFormat>

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

/// Days off are paler, not red: red is for what is wrong.
void MonthCalendar::dress()
{
    QTextCharFormat head;
    head.setForeground(Theme::colour(Theme::Role::MutedInk));
    head.setBackground(Theme::colour(Theme::Role::Band));
    setHeaderTextFormat(head);
    QTextCharFormat off;
    off.setForeground(Theme::colour(Theme::Role::OffInk));
    for (const Qt::DayOfWeek day : {Qt::Saturday, Qt::Sunday})
        setWeekdayTextFormat(day, off);
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
    }
}
