#pragma once

#include <QCalendarWidget>

/// A month calendar with a chosen day. Turning to another month leaves the chosen day as it is.
class MonthCalendar : public QCalendarWidget
{
    Q_OBJECT

public:
    explicit MonthCalendar(QWidget* parent = nullptr);

    QDate Value() const { return selectedDate(); }
    /// Chooses the day and shows its month, without the signal of a choice by the user.
    void setValue(QDate day);

Q_SIGNALS:
    /// The user chose a day, by mouse or keyboard, also the one that was chosen already.
    void dayChosen(QDate day);
};
