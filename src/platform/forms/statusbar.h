#pragma once

#include <QFrame>
#include <QLabel>
#include <QList>

/// A row of text panels at the lower edge of a window. Panels are numbered from 1.
class StatusBar : public QFrame
{
    Q_OBJECT

public:
    enum class Panel
    {
        Text,
        Date
    };

    explicit StatusBar(QWidget* parent = nullptr);

    /// Adds a panel at the right; `stretch` is its share of the free width. A date panel shows the clock's
    /// day by itself.
    void addPanel(Panel kind, int stretch = 0);

    QString panel(int number) const;
    void setPanel(int number, const QString& text);

private:
    QLabel* at(int number) const;
    void showDate();

    QList<QLabel*> panels_;
    QLabel* datePanel_ = nullptr;
};
