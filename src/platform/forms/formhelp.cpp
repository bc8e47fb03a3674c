// What a form knows about its keyboard, for its help sheet: only what holds in this screen.

#include "platform/forms/form.h"
#include "platform/forms/helpsheet.h"
#include "platform/forms/mnemonics.h"

#include <QAbstractItemView>
#include <QCalendarWidget>
#include <QKeySequence>
#include <QMenuBar>
#include <QPushButton>
#include <QRegularExpression>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// "Paciente - F2 Pesquisar" is the caption of F2; empty for a text that does not name the key.
QString withoutKey(const QString& text, const QString& key)
{
    const QRegularExpression name(u"\\b%1\\b\\s*"_s.arg(key));
    return text.contains(name) ? QString(text).remove(name).simplified() : QString();
}

} // namespace

QString Help::blankKey(QEvent::Type mouse)
{
    return mouse == QEvent::MouseButtonDblClick ? u"Espaço: o mesmo que o duplo clique"_s
                                                : u"Espaço: o mesmo que o clique"_s;
}

QString Form::escapeHelp() const
{
    return u"sai da tela"_s;
}

void Form::Form_Help()
{
    HelpSheet(windowTitle(), help()).ShowModal();
}

QList<HelpSection> Form::help() const
{
    QList<HelpSection> sections = {{u"Teclas de função"_s, helpOfKeys()},
                                   {u"Alt e uma letra"_s, helpOfLetters()},
                                   {u"Regras do teclado"_s, helpOfRules()}};
    sections.removeIf([](const HelpSection& section) { return section.lines.isEmpty(); });
    return sections;
}

QList<HelpLine> Form::helpOfKeys() const
{
    QList<HelpLine> lines;
    for (auto key = keys_.begin(); key != keys_.end(); ++key) {
        const QString name = QKeySequence(key.key()).toString(QKeySequence::PortableText);
        lines << HelpLine{name, key->what.isEmpty() ? captionOf(name) : key->what};
    }
    return lines;
}

/// What a part of the screen says of the key goes before what its buttons say, which the part may cover.
QString Form::captionOf(const QString& key) const
{
    QStringList captions;
    for (const QLabel* label : findChildren<QLabel*>())
        if (label->isVisible())
            captions << withoutKey(label->text(), key);
    for (const QPushButton* button : findChildren<QPushButton*>())
        if (button->isVisible())
            captions << withoutKey(button->text(), key);
    for (const QMenuBar* bar : findChildren<QMenuBar*>())
        for (const QAction* action : bar->actions())
            captions << withoutKey(action->text(), key);
    captions.removeAll(QString());
    return captions.value(0);
}

QList<HelpLine> Form::helpOfLetters() const
{
    QList<HelpLine> lines;
    const auto add = [&lines](const QObject* pressed, const QString& caption, const QString& tip) {
        if (const QChar letter = Mnemonics::letterOf(pressed); !letter.isNull())
            lines << HelpLine{u"Alt+"_s + letter, tip.isEmpty() ? caption : caption + u" - "_s + tip};
    };
    for (const QMenuBar* bar : findChildren<QMenuBar*>())
        for (const QAction* action : bar->actions())
            if (action->isEnabled())
                add(action, action->text(), {});
    for (const QPushButton* button : findChildren<QPushButton*>())
        if (button->isVisible() && button->isEnabled())
            add(button, button->text(), button->toolTip());
    return lines;
}

QList<HelpLine> Form::helpOfLists() const
{
    QList<HelpLine> lines;
    const auto add = [&lines](const QAbstractItemView& list, const QString& what) {
        const QString name = list.accessibleName();
        const QString where = u"numa linha da lista"_s + (name.isEmpty() ? name : u" \"%1\""_s.arg(name));
        lines << HelpLine{u"Espaço"_s, where + u": "_s + what};
    };
    for (QAbstractItemView* list : findChildren<QAbstractItemView*>()) {
        const LineHandler line = lines_.value(list);
        if (list->selectionMode() == QAbstractItemView::MultiSelection)
            add(*list, u"marca ou desmarca"_s);
        else if (line.run && !keyPress_.contains(list))
            add(*list, line.what.isEmpty() ? Help::blankKey(line.type).section(u": "_s, 1) : line.what);
    }
    return lines;
}

QList<HelpLine> Form::helpOfRules() const
{
    QList<HelpLine> lines;
    const auto add = [&lines](bool holds, const QString& keys, const QString& what) {
        if (!holds)
            return;
        const auto same = std::find_if(lines.begin(), lines.end(),
                                       [&keys](const HelpLine& line) { return line.keys == keys; });
        if (same == lines.end())
            lines << HelpLine{keys, what};
        else
            same->what += u'\n' + what;
    };
    const auto buttons = findChildren<QPushButton*>();
    const auto combos = findChildren<QComboBox*>();
    const bool hasBoxes = !findChildren<QLineEdit*>().isEmpty();
    const bool hasMenu = findChild<QMenuBar*>();
    const bool hasButtons = std::any_of(buttons.begin(), buttons.end(), [](const QPushButton* button) {
        return !Mnemonics::letterOf(button).isNull();
    });
    add(hasButtons, u"Tab"_s, u"vai adiante; Shift+Tab volta"_s);
    add(enterMovesOn_ && hasBoxes, u"Enter"_s, u"num campo: vai ao seguinte, como Tab"_s);
    add(hasButtons, u"Enter"_s, u"num botão: aperta o botão"_s);
    add(!findChildren<QPlainTextEdit*>().isEmpty(), u"Enter"_s,
        u"num campo de várias linhas: começa outra linha"_s);
    for (const HelpLine& line : explained_ + helpOfLists())
        add(true, line.keys, line.what);
    add(std::any_of(combos.begin(), combos.end(),
                    [](const QComboBox* combo) { return !combo->isEditable(); }),
        u"Setas"_s, u"numa caixa de escolha: escolhem; Espaço abre a caixa"_s);
    add(findChild<QCalendarWidget*>(), u"Setas"_s, u"no calendário: mudam o dia"_s);
    add(hasMenu, u"Setas"_s, u"no menu: escolhem; Enter abre"_s);
    add(hasMenu, u"Alt"_s, u"sublinha as letras; com a letra, abre o menu"_s);
    add(hasButtons, u"Alt"_s, u"sublinha as letras; com a letra, leva ao botão e o aperta"_s);
    add(upperCase_ && hasBoxes, u"Letras"_s, u"tornam-se maiúsculas ao digitar"_s);
    add(!escapeHelp().isEmpty(), u"Esc"_s, escapeHelp());
    return lines;
}
