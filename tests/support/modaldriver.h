#pragma once

#include "support/screendriver.h"

#include <QList>
#include <QObject>
#include <QTimer>
#include <functional>

class Form;

/// Steps for screens that open modally: the showing blocks the caller, so the steps are left here before.
/// Each expectation waits for the screen of that class to stand in front and then runs its steps on it; a
/// screen that its steps leave open is reported and closed. Steps may expect further screens.
class ModalDriver : public QObject
{
public:
    ModalDriver();
    ~ModalDriver() override;

    void expect(const QString& screen, std::function<void(ScreenDriver&)> steps);

private:
    struct Expected
    {
        QString screen;
        std::function<void(ScreenDriver&)> steps;
    };

    void look();
    void drive(Form* form, const Expected& expected);

    QList<Expected> expected_;
    QTimer timer_;
    QPointer<QWidget> stranger_; ///< a modal window that nobody expects, seen at the last look
    int looks_ = 0;
};
