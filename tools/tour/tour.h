#pragma once

#include "support/modaldriver.h"
#include "support/screendriver.h"

#include <QDir>
#include <QTimer>

class QMessageBox;

/// Walks through the program's real windows and keeps a picture of what a user sees at each step, numbered in
/// the order of the walk. A step that does not work ends the walk with status 1.
class Tour : public QObject
{
public:
    explicit Tour(const QString& pictures);

    /// A screen that the next step opens modally.
    void screen(const QString& name, std::function<void(ScreenDriver&)> steps)
    {
        modal_.expect(name, std::move(steps));
    }

    /// A box that the next step brings: its picture is kept under `name`; the answer is the button to press,
    /// or what is typed into an input box.
    void box(const QString& name, const QString& answer);

    /// The window, and over it the menus, lists and hints that hang open; these are closed then.
    void picture(const QString& name, const ScreenDriver& screen);
    /// The window at other sizes that the screen has room for, each with a picture; then as it was.
    void resized(const QString& name, ScreenDriver& screen);
    /// A button whose step is refused with a box; the window behind it has a picture of its own.
    void refused(const QString& name, ScreenDriver& screen, const QString& button);
    /// The window while Alt is held.
    void altHeld(const QString& name, const ScreenDriver& screen);
    /// The menu that a right click on the control opens.
    void contextMenu(const QString& name, const ScreenDriver& screen, const QString& control);
    void openList(const QString& name, const ScreenDriver& screen, const QString& combo);
    /// The hint on a control, or on a cell of it.
    void hint(const QString& name, const ScreenDriver& screen, const QString& control, int row = -1,
              int column = 0);

    /// A PDF document: the file itself, and a picture of each page.
    void document(const QString& name, const QString& path);

    int count() const { return count_; }
    /// How many texts could not be read whole.
    int cut() const { return cut_; }

private:
    struct Box
    {
        QString name;
        QString answer; ///< a button's text, or what is typed
    };

    void look();
    void answer(QMessageBox& box, const QString& button);
    void keep(const QString& name, const QWidget& window, const QImage& image);
    QString numbered(const QString& name);
    void list(const QString& file);

    QDir pictures_;
    int count_ = 0;
    int cut_ = 0;
    ModalDriver modal_;
    QList<Box> boxes_;
    QTimer timer_;
};
