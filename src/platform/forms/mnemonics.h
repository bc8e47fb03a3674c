#pragma once

#include <QMenu>
#include <QProxyStyle>

class QAbstractButton;

/// The letters that press buttons and open menus together with Alt.
///
/// Each push button of a screen that can have the focus and each entry of its menu bar gets a letter of its
/// own out of its caption, which stays as it is; the entries of a menu get theirs apart. The letters are
/// underlined while Alt is held, and so are those that a message box marks with "&".
namespace Mnemonics {

/// Gives the letters. Buttons of parts that are hidden get theirs too, so that a letter stays the same; those
/// on a panel, a frame with the property "role" set so, may have letters of the screen below it. The main
/// button (role "primary") chooses first; what leaves (glyph "leave") or destroys (role "danger") has no
/// initial.
void assign(const QWidget& screen);

/// A capital letter or a digit; null where there is none.
QChar letterOf(const QObject* buttonOrAction);

/// What can be pressed now with the letter; null for nothing.
QAbstractButton* buttonOf(const QWidget& screen, QChar letter);
QAction* actionOf(const QWidget& menu, QChar letter);

/// The letter or digit of a key; null for another key.
QChar letterOf(int key);

/// Watches Alt from the first call on.
void install();

/// Whether the letters are underlined now.
bool areShown();

} // namespace Mnemonics

/// Draws the letters in what a base style draws.
class MnemonicStyle : public QProxyStyle
{
    Q_OBJECT

public:
    using QProxyStyle::QProxyStyle;

    void drawItemText(QPainter* painter, const QRect& rect, int flags, const QPalette& palette, bool enabled,
                      const QString& text, QPalette::ColorRole role) const override;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* data) const override;
};

/// A menu of a menu bar whose entries have letters; they work with and without Alt.
class LetterMenu : public QMenu
{
    Q_OBJECT

public:
    using QMenu::QMenu;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void initStyleOption(QStyleOptionMenuItem* option, const QAction* action) const override;
};
