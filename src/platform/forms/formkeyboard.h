#pragma once

#include <QObject>

class QContextMenuEvent;
class QInputMethodEvent;
class QKeyEvent;
class QWidget;
class Form;

/// The one event filter over the application's keyboard and pasting: it hands keys to the form before the
/// form's control gets them, and raises letters.
class FormKeyboard : public QObject
{
    Q_OBJECT

public:
    /// Installs the filter on the application at the first call.
    static void install();

    bool eventFilter(QObject* receiver, QEvent* event) override;

private:
    explicit FormKeyboard(QObject* parent) : QObject(parent) {}

    bool keyPress(Form& form, QWidget* control, QKeyEvent* event);
    bool textComesIn(QWidget* control, QEvent* event);
    bool contextMenu(QWidget* box, QContextMenuEvent* event);
    bool composed(QWidget* control, QInputMethodEvent* event);
    void send(QWidget* control, QEvent& changed);

    const QEvent* own_ = nullptr; ///< The event that the filter sends itself.
};
