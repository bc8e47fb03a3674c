#include "platform/forms/mnemonics.h"

#include <QAction>
#include <QApplication>
#include <QKeyEvent>
#include <QMenuBar>
#include <QPointer>
#include <QPushButton>
#include <QRegularExpression>
#include <QStyleOption>
#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr const char* property = "mnemonic";

bool isLetter(QChar c)
{
    return c.unicode() < 128 && c.isLetterOrNumber(); // what every keyboard has with one key
}

/// Where the words of a caption begin; a function key's name is none.
QList<qsizetype> words(const QString& caption)
{
    static const QRegularExpression word(u"\\b(?!F\\d+\\b)\\w+"_s,
                                         QRegularExpression::UseUnicodePropertiesOption);
    QList<qsizetype> places;
    for (auto found = word.globalMatch(caption); found.hasNext();)
        places << found.next().capturedStart();
    return places;
}

/// Where the letter of a caption is underlined: at the beginning of a word, if one begins with it.
qsizetype placeOf(const QString& caption, QChar letter)
{
    const QList<qsizetype> starts = words(caption);
    for (const qsizetype start : starts)
        if (caption[start].toUpper() == letter)
            return start;
    return starts.isEmpty() ? -1 : caption.indexOf(letter, starts.first(), Qt::CaseInsensitive);
}

QString marked(QString caption, QChar letter)
{
    const qsizetype place = letter.isNull() ? -1 : placeOf(caption, letter);
    return place < 0 ? caption : caption.insert(place, u'&');
}

/// Who comes first has the choice: the same letter saves in every screen.
enum class Rank
{
    Main,
    Plain,
    Leaving ///< or destroying: never by an initial that means something else on the next screen
};

/// The letters of a caption, the best ones first: initials of great words, of others, any.
QString candidates(const QString& caption, Rank rank, bool initialsOnly)
{
    const QList<qsizetype> starts = words(caption);
    QString great;
    QString initials;
    for (const qsizetype start : starts) {
        initials += caption[start].toUpper();
        if (!caption[start].isLower())
            great += caption[start];
    }
    QString all = starts.isEmpty() ? QString() : caption.mid(starts.first()).toUpper();
    QString letters;
    if (rank != Rank::Leaving)
        letters = initialsOnly ? great : great + initials + all;
    else if (!initialsOnly)
        letters = all.removeIf([&initials](QChar c) { return initials.contains(c); }) + initials;
    letters.removeIf([](QChar c) { return !isLetter(c); });
    return letters;
}

struct Captioned
{
    QObject* object;
    QString caption;
    Rank rank = Rank::Plain;
};

Rank rankOf(const QObject& buttonOrAction)
{
    const QString role = buttonOrAction.property("role").toString();
    if (role == QLatin1String("primary"))
        return Rank::Main;
    const bool leaves = buttonOrAction.property("glyph").toString() == QLatin1String("leave");
    return leaves || role == QLatin1String("danger") ? Rank::Leaving : Rank::Plain;
}

/// The part that floats above a screen, and disables what is below, with this button on it; null for none.
const QWidget* panelOf(const QWidget& button)
{
    for (const QWidget* part = button.parentWidget(); part && !part->isWindow(); part = part->parentWidget())
        if (part->property("role").toString() == QLatin1String("panel"))
            return part;
    return nullptr;
}

/// Initials first for all of them, so that none takes another's initial from its middle.
void share(QList<Captioned> all)
{
    std::stable_sort(all.begin(), all.end(),
                     [](const Captioned& one, const Captioned& other) { return one.rank < other.rank; });
    for (const Captioned& one : all)
        one.object->setProperty(property, {});
    QString taken;
    for (const bool initialsOnly : {true, false})
        for (const Captioned& one : all) {
            if (!Mnemonics::letterOf(one.object).isNull())
                continue;
            for (const QChar letter : candidates(one.caption, one.rank, initialsOnly))
                if (!taken.contains(letter)) {
                    taken += letter;
                    one.object->setProperty(property, letter);
                    break;
                }
        }
}

QList<Captioned> entriesOf(const QWidget& menu)
{
    QList<Captioned> entries;
    for (QAction* action : menu.actions())
        entries << Captioned{action, action->text(), rankOf(*action)};
    return entries;
}

/// Knows whether Alt is held, and which widget is being painted.
class AltWatch : public QObject
{
public:
    using QObject::QObject;

    bool eventFilter(QObject* receiver, QEvent* event) override
    {
        switch (event->type()) {
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
            if (static_cast<QKeyEvent*>(event)->key() == Qt::Key_Alt)
                show(event->type() == QEvent::KeyPress);
            break;
        case QEvent::WindowDeactivate: // another window gets to know of the key's release
            show(false);
            break;
        case QEvent::Paint:
            if (shown)
                painted = receiver;
            break;
        default:
            break;
        }
        return false;
    }

    bool shown = false;
    QPointer<QObject> painted; ///< while the letters are shown

private:
    void show(bool letters)
    {
        if (std::exchange(shown, letters) == letters)
            return;
        for (QWidget* widget : QApplication::allWidgets())
            if (widget->isVisible())
                widget->update();
    }
};

AltWatch* watch()
{
    static QPointer<AltWatch> one;
    if (!one && qApp) {
        one = new AltWatch(qApp);
        qApp->installEventFilter(one);
    }
    return one;
}

/// The letter of the button or of the menu bar's entry that is being painted with this text.
QChar letterPainted(const QString& text)
{
    const auto* painted = qobject_cast<const QWidget*>(watch()->painted);
    if (!painted || !painted->isActiveWindow())
        return {}; // in a window behind they press nothing
    if (const auto* bar = qobject_cast<const QMenuBar*>(painted)) {
        for (const QAction* action : bar->actions())
            if (action->text() == text)
                return Mnemonics::letterOf(action);
        return {};
    }
    return Mnemonics::letterOf(painted);
}

} // namespace

namespace Mnemonics {

void assign(const QWidget& screen)
{
    QList<Captioned> all;
    for (const QMenuBar* bar : screen.findChildren<QMenuBar*>())
        all += entriesOf(*bar);
    QHash<const QWidget*, QList<Captioned>> onPanels;
    for (QPushButton* button : screen.findChildren<QPushButton*>())
        if (button->focusPolicy() != Qt::NoFocus && !button->text().isEmpty()) {
            const QWidget* panel = panelOf(*button);
            (panel ? onPanels[panel] : all) << Captioned{button, button->text(), rankOf(*button)};
        }
    share(all);
    for (const QList<Captioned>& buttons : onPanels)
        share(buttons);
    for (const LetterMenu* menu : screen.findChildren<LetterMenu*>())
        share(entriesOf(*menu));
}

QChar letterOf(const QObject* buttonOrAction)
{
    return buttonOrAction->property(property).toChar();
}

QChar letterOf(int key)
{
    const QChar letter(key > 0 && key < 128 ? key : 0);
    return isLetter(letter) ? letter.toUpper() : QChar();
}

QAbstractButton* buttonOf(const QWidget& screen, QChar letter)
{
    QPushButton* found = nullptr;
    for (QPushButton* button : screen.findChildren<QPushButton*>())
        if (letterOf(button) == letter && button->isEnabled() && button->isVisible() &&
            (!found || panelOf(*button)))
            found = button;
    return found;
}

QAction* actionOf(const QWidget& menu, QChar letter)
{
    for (QAction* action : menu.actions())
        if (letterOf(action) == letter && action->isEnabled() && action->isVisible())
            return action;
    return nullptr;
}

void install()
{
    watch();
}

bool areShown()
{
    return watch() && watch()->shown;
}

} // namespace Mnemonics

void MnemonicStyle::drawItemText(QPainter* painter, const QRect& rect, int flags, const QPalette& palette,
                                 bool enabled, const QString& text, QPalette::ColorRole role) const
{
    const QString drawn = Mnemonics::areShown() ? marked(text, letterPainted(text)) : text;
    if (drawn != text)
        flags = (flags & ~Qt::TextHideMnemonic) | Qt::TextShowMnemonic;
    QProxyStyle::drawItemText(painter, rect, flags, palette, enabled, drawn, role);
}

int MnemonicStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                             QStyleHintReturn* data) const
{
    if (hint == SH_UnderlineShortcut)
        return Mnemonics::areShown();
    return QProxyStyle::styleHint(hint, option, widget, data);
}

void LetterMenu::keyPressEvent(QKeyEvent* event)
{
    const bool isPlain = !(event->modifiers() & (Qt::ControlModifier | Qt::MetaModifier));
    const QChar letter = isPlain ? Mnemonics::letterOf(event->key()) : QChar();
    QAction* action = letter.isNull() ? nullptr : Mnemonics::actionOf(*this, letter);
    if (!action)
        return QMenu::keyPressEvent(event);
    setActiveAction(action);
    QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
    QMenu::keyPressEvent(&enter);
}

void LetterMenu::initStyleOption(QStyleOptionMenuItem* option, const QAction* action) const
{
    QMenu::initStyleOption(option, action);
    if (Mnemonics::areShown())
        option->text = marked(option->text, Mnemonics::letterOf(action));
}
