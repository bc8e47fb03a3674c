#include "platform/forms/calendar.h"

#include "platform/system/clock.h"

#include <QSignalBlocker>
#include <QTextCharFormat>

MonthCalendar::MonthCalendar(QWidget* parent) : QCalendarWidget(parent)
{
    setLocale(QLocale(QLocale::Portuguese, QLocale::Brazil));
    setFirstDayOfWeek(Qt::Sunday);
    setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    setGridVisible(false);
    setValue(Clock::today());
    connect(this, &QCalendarWidget::clicked, this, &MonthCalendar::dayChosen);
    connect(this, &QCalendarWidget::activated, this, &MonthCalendar::dayChosen);
}

void MonthCalendar::setValue(QDate day)
{
    const QSignalBlocker quiet(this);
    setSelectedDate(day);
    setCurrentPage(day.year(), day.month());
}
