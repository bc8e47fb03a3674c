#pragma once

#include <QObject>

class QContextMenuEvent;
class QInputMethodEvent;
class QKeyEvent;
class QWidget;
class Form;

/// The one event filter over the application's input: it hands keys to the form before the form's control
/// gets them, raises letters, keeps to the limits of boxes, and keeps the wheel from boxes that are only
/// under the pointer.
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
    bool character(Form& form, QWidget* control, QKeyEvent* event);
    bool textComesIn(const Form& form, QWidget* control, QEvent* event);
    bool contextMenu(const Form& form, QWidget* box, QContextMenuEvent* event);
    bool composed(const Form& form, QWidget* box, QWidget* control, QInputMethodEvent* event);
    void send(QWidget* control, QEvent& changed);

    const QEvent* own_ = nullptr; ///< The event that the filter sends itself.
};
