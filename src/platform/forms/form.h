#pragma once

#include "platform/forms/help.h"
#include "platform/forms/hourglass.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QEventLoop>
#include <QHash>
#include <QLabel>
#include <QLineEdit>
#include <QMap>
#include <QPlainTextEdit>
#include <QPointer>
#include <QSet>
#include <QWidget>
#include <functional>
#include <optional>

/// The base of every screen.
///
/// Life: Load or the first showing runs Form_Load; Form_Activate runs each time the window gets the focus
/// from another window of the program; Unload (or the window's closing) runs Form_Unload, hides the window
/// and lets ShowModal return. A screen taken from Form::of is deleted at its unloading, so that the next use
/// starts from fresh controls.
///
/// Keyboard: the form sees keys before its controls. Typed and pasted letters become upper case, Enter moves
/// on as Tab does (it presses a button that has the focus, and breaks the line in a multi-line box), Esc runs
/// Form_Escape, and the keys given to onKey run their handler. A disabled form takes Esc alone. What is typed
/// and pasted keeps to a box's TextLimit. The wheel leaves a combo box without the focus as it is. Shift+F1
/// opens the sheet that tells the keys of the screen.
///
/// In a list or grid whose lines are taken by a double click (or, without one, by a click), the blank key
/// does the same with the current line, unless the control has a key handler of its own. A line edit that is
/// read-only is no stop of Tab and Enter. Alt and the letter of a push button (see Mnemonics) give it the
/// focus, as the mouse does, and press it; a function key leaves the focus where it is.
///
/// Focus: "got" and "lost" speak of the controls of this form. Another window in front changes nothing:
/// a control loses the focus when another control of the form has got it. Where the loss opens a box, the
/// click that caused it does nothing more.
class Form : public QWidget
{
    Q_OBJECT

public:
    explicit Form(QWidget* parent = nullptr);
    ~Form() override;

    /// The one object of a screen, made at first use.
    template <class F>
    static F& of()
    {
        static QPointer<F> instance;
        if (!instance) {
            instance = new F;
            instance->forget_ = [] { instance = nullptr; };
        }
        return *instance;
    }

    /// For a caller that writes into a screen before it shows it: the showing does not load again.
    void Load();
    void Show();
    /// Throws RuntimeError 400 for a screen that stands open modally.
    void ShowModal();
    void Unload();
    bool isLoaded() const { return loaded_; }

    /// Paints the window now, before a slow step.
    void Repaint();

    /// Disables the window under a wait pointer of its own, until as many turnOn or the unloading. For a slow
    /// step see WindowOff.
    void turnOff();
    /// The focus goes back to where it was or was going, or to the control that focusOn asked for meanwhile.
    void turnOn();

    /// The area that the controls stand in, without menu and status bar: the form itself unless a screen says
    /// otherwise.
    virtual QWidget* clientArea() { return this; }

    /// The size at the loading: what the layouts ask for, so that every text fits. A window that is larger
    /// than the screen is made smaller before it is seen.
    virtual QSize openingSize() const { return sizeHint(); }

    void setUpperCase(bool on) { upperCase_ = on; }
    void setEnterMovesOn(bool on) { enterMovesOn_ = on; }

Q_SIGNALS:
    /// The screen's own loading is done and its controls have their first geometry; emitted once a loading,
    /// before anything is seen.
    void loaded();

protected:
    virtual void Form_Load() {}
    virtual void Form_Activate() {}
    virtual void Form_Unload() {}
    virtual void Form_Escape() { Unload(); }

    /// A typed character on its way to a control, as a Unicode code (8 for the backspace key, 13 for Enter).
    /// Setting it to 0 swallows it.
    using KeyPress = std::function<void(int& keyCode)>;

    /// `what` is for the help sheet, where no caption of the screen names the key.
    template <class F>
    void onKey(Qt::Key key, void (F::*handler)(), const QString& what = {})
    {
        onKey(key, bound(handler), what);
    }
    void onKey(Qt::Key key, std::function<void()> handler, const QString& what = {})
    {
        keys_[key] = {std::move(handler), what};
    }
    template <class F>
    void onClick(QAbstractButton* button, void (F::*handler)())
    {
        connect(button, &QAbstractButton::clicked, this, bound(handler));
    }
    /// The choice of an item, by the user or by the program.
    template <class F>
    void onClick(QComboBox* combo, void (F::*handler)())
    {
        connect(combo, &QComboBox::currentIndexChanged, this, [run = bound(handler)](int index) {
            if (index >= 0)
                run();
        });
    }
    /// The left button, released over the control; in a list or grid over one of its lines.
    template <class F>
    void onClick(QWidget* widget, void (F::*handler)())
    {
        watchMouse(widget, QEvent::MouseButtonRelease, bound(handler));
    }
    /// A double click of the left button. In a list or grid it must be on one of its lines, which is the
    /// current one when the handler runs. `what` tells the help sheet what happens to the line.
    template <class F>
    void onDblClick(QWidget* widget, void (F::*handler)(), const QString& what = {})
    {
        watchMouse(widget, QEvent::MouseButtonDblClick, bound(handler), what);
    }
    template <class F>
    void onChange(QLineEdit* box, void (F::*handler)())
    {
        connect(box, &QLineEdit::textChanged, this, bound(handler));
    }
    template <class F>
    void onChange(QComboBox* combo, void (F::*handler)())
    {
        connect(combo, &QComboBox::currentTextChanged, this, bound(handler));
    }
    template <class F>
    void onGotFocus(QWidget* control, void (F::*handler)())
    {
        gotFocus_[control] = bound(handler);
    }
    template <class F>
    void onLostFocus(QWidget* control, void (F::*handler)())
    {
        lostFocus_[control] = bound(handler);
    }
    void onKeyPress(QWidget* control, KeyPress handler) { keyPress_[control] = std::move(handler); }
    /// Enter in this control runs the handler in the place of moving on.
    template <class F>
    void onEnter(QWidget* control, void (F::*handler)())
    {
        enter_[control] = bound(handler);
    }

    /// Gives the control the focus; while the window is off, as soon as it is on again, for a disabled
    /// control takes none.
    void focusOn(QWidget* control);
    /// Hides a part of the screen and goes on at a control outside it. Hidden with the focus in it, the part
    /// would hand it to some neighbour, whose handlers run.
    void hideFrame(QWidget* part, QWidget* next);

    /// On getting the focus the box selects its whole text.
    void selectOnFocus(QLineEdit* box) { selecting_ << box; }

    /// A rule of the keyboard for the help sheet that the form cannot know by itself.
    void explain(const QString& keys, const QString& what) { explained_ << HelpLine{keys, what}; }
    /// What Esc does now, for the help sheet; empty for nothing.
    virtual QString escapeHelp() const;
    virtual void Form_Help();

    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    bool event(QEvent* event) override;

private:
    friend class FormKeyboard;

    template <class F>
    std::function<void()> bound(void (F::*handler)())
    {
        return [form = static_cast<F*>(this), handler] { (form->*handler)(); };
    }
    void activate();
    void watchMouse(QWidget* widget, QEvent::Type type, std::function<void()> handler,
                    const QString& what = {});
    bool takeLine(QWidget* control, bool isRepeated);
    bool letterPressed(QWidget* control, const QKeyEvent& event);
    void pressAsMouse(QAbstractButton* button);
    QList<HelpSection> help() const;
    QList<HelpLine> helpOfKeys() const;
    QList<HelpLine> helpOfLetters() const;
    QList<HelpLine> helpOfLists() const;
    QList<HelpLine> helpOfRules() const;
    QString captionOf(const QString& key) const;
    void focusMoved(QWidget* to);
    void lostAndGot(QWidget* from, QWidget* to);
    bool keyPressed(QWidget* control, QKeyEvent* event);
    /// A text as the boxes of this form take it.
    QString inCase(QString text) const;

    std::function<void()> forget_;
    struct KeyHandler
    {
        std::function<void()> run;
        QString what;
    };
    /// What the mouse does with a line of a list.
    struct LineHandler
    {
        QEvent::Type type = QEvent::None;
        std::function<void()> run;
        QString what;
    };
    QMap<int, KeyHandler> keys_;
    QHash<QWidget*, std::function<void()>> gotFocus_;
    QHash<QWidget*, std::function<void()>> lostFocus_;
    QHash<QWidget*, KeyPress> keyPress_;
    QHash<QWidget*, std::function<void()>> enter_;
    QHash<QWidget*, LineHandler> lines_;
    QList<HelpLine> explained_;
    QSet<QWidget*> selecting_;
    Qt::FocusReason focusReason_ = Qt::OtherFocusReason; ///< of the last move
    bool swallowPress_ = false; ///< the press that moved the focus has had its answer in a box
    QPointer<QWidget> current_; ///< The control of this form that got the focus last.
    QPointer<QEventLoop> modalLoop_;
    int off_ = 0;                        ///< how often the window was turned off
    std::optional<Hourglass> hourglass_; ///< while it is off
    QPointer<QWidget> awaited_;          ///< what gets the focus when the window is on again
    bool loaded_ = false;
    bool laidOut_ = false;
    bool activating_ = false;
    bool upperCase_ = true;
    bool enterMovesOn_ = true;
};

/// The window off for as long as the object lives, or until the unloading.
class WindowOff
{
public:
    explicit WindowOff(Form& form);
    /// A failure in a handler of the focus that comes back goes to the application.
    ~WindowOff();
    Q_DISABLE_COPY_MOVE(WindowOff)

private:
    QPointer<Form> form_;
};

/// Chooses the first item of a list. Throws RuntimeError 380 for an empty one.
void chooseFirst(QComboBox& list);

/// Sends a key string to the control that has the focus: plain characters, and the names {TAB}, {ENTER},
/// {ESC}, {F1} to {F12}, {HOME}, {END}, {UP}, {DOWN}, {LEFT}, {RIGHT}, {BS}, {DEL}. Throws RuntimeError 5 for
/// a name that is none of these.
void SendKeys(const QString& keys);
