#pragma once

#include <QImage>
#include <QPointer>
#include <QStringList>
#include <QWidget>

/// Works one window as a person does: keys and mouse go to the real controls, found by their names. A control
/// that is not there, is disabled or hidden where it should be used is reported, and the step does nothing.
class ScreenDriver
{
public:
    explicit ScreenDriver(QWidget& window) : window_(&window) {}

    QWidget& window() const { return *window_; }
    bool isOpen() const;

    /// Goes into the control, replaces what stands there, key by key.
    void type(const QString& control, const QString& text);
    /// Keys into the control that has the focus.
    void typeOn(const QString& text);
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void focus(const QString& control);
    void click(const QString& control);
    /// On a row of a list or grid, or on a control where `row` is negative.
    void clickRow(const QString& control, int row);
    void doubleClickRow(const QString& control, int row);
    /// Picks the item of a combo box that starts with the text.
    void choose(const QString& control, const QString& start);

    QString text(const QString& control) const;
    bool enabled(const QString& control) const;
    bool visible(const QString& control) const;
    /// The name of the control that has the focus, "" without one.
    QString focused() const;
    QStringList list(const QString& control) const;
    /// The chosen lines of a list.
    QStringList selected(const QString& control) const;
    /// The cells of a grid as it shows them.
    QList<QStringList> grid(const QString& control) const;

    QImage picture() const;

    /// The control itself, null after a report where there is none of this name.
    QWidget* find(const QString& control) const;

private:
    QWidget* usable(const QString& control) const;
    void mouse(const QString& control, int row, bool twice);

    QPointer<QWidget> window_;
};

/// What the hint says that stands at the place of the control when the mouse rests there.
QString hintAt(QWidget* control, QPoint place);

/// Lets queued events run until nothing is left to do for the moment.
void settle();
