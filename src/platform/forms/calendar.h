#pragma once

#include <QCalendarWidget>

/// A month calendar with a chosen day, which arrow keys and clicks choose; dates are not typed. Turning to
/// another month leaves the chosen day as it is.
class MonthCalendar : public QCalendarWidget
{
    Q_OBJECT

public:
    explicit MonthCalendar(QWidget* parent = nullptr);

    QDate Value() const { return selectedDate(); }
    /// Chooses the day and shows its month, without the signal of a choice by the user.
    void setValue(QDate day);

Q_SIGNALS:
    /// The user chose a day: went to it with the arrow keys, or clicked it, also the one chosen already.
    void dayChosen(QDate day);

protected:
    void paintCell(QPainter* painter, const QRect& rect, QDate date) const override;
    /// The inner parts have a style of their own and would keep their size.
    void changeEvent(QEvent* event) override;

private:
    void dress();

    bool told_ = false; ///< by the change of the chosen day, which a click causes before it is told itself
};
