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

using namespace Qt::StringLiterals;

namespace {

/// "Paciente - F2 Pesquisar" is the caption of F2; empty for a text that does not name the key.
QString withoutKey(const QString& text, const QString& key)
{
    const QRegularExpression name(u"\\b%1\\b\\s*"_s.arg(key));
    return text.contains(name) ? QString(text).remove(name).simplified() : QString();
}

bool hasOne(const QList<QAbstractItemView*>& lists, bool (*is)(const QAbstractItemView*))
{
    return std::any_of(lists.begin(), lists.end(), is);
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

QList<HelpLine> Form::helpOfRules() const
{
    QList<HelpLine> lines;
    const auto add = [&lines](bool holds, const QString& keys, const QString& what) {
        if (holds)
            lines << HelpLine{keys, what};
    };
    const auto lists = findChildren<QAbstractItemView*>();
    const auto combos = findChildren<QComboBox*>();
    const bool hasButton = !findChildren<QPushButton*>().isEmpty();
    add(enterMovesOn_ && !findChildren<QLineEdit*>().isEmpty(), u"Enter"_s,
        u"vai ao campo seguinte, como Tab"_s);
    add(hasButton, u"Enter"_s, u"num botão: aperta o botão"_s);
    add(!findChildren<QPlainTextEdit*>().isEmpty(), u"Enter"_s,
        u"num campo de várias linhas: começa outra linha; Tab vai adiante"_s);
    lines += explained_;
    add(!escapeHelp().isEmpty(), u"Esc"_s, escapeHelp());
    for (const QEvent::Type mouse : {QEvent::MouseButtonDblClick, QEvent::MouseButtonRelease})
        add(std::any_of(lines_.begin(), lines_.end(),
                        [mouse](const LineHandler& handler) { return handler.type == mouse; }),
            u"Espaço"_s, u"numa lista: "_s + Help::blankKey(mouse).section(u": "_s, 1) + u" na linha"_s);
    add(hasOne(lists,
               [](const QAbstractItemView* list) {
                   return list->selectionMode() == QAbstractItemView::MultiSelection;
               }),
        u"Espaço"_s, u"numa lista de várias escolhas: marca ou desmarca a linha"_s);
    add(std::any_of(combos.begin(), combos.end(),
                    [](const QComboBox* combo) { return !combo->isEditable(); }),
        u"Setas"_s, u"numa caixa de escolha: escolhem; Espaço abre a caixa"_s);
    add(findChild<QCalendarWidget*>(), u"Setas"_s, u"no calendário: mudam o dia"_s);
    add(hasButton, u"Alt"_s, u"sublinha as letras; Alt com a letra leva ao botão e o aperta"_s);
    add(upperCase_ && !findChildren<QLineEdit*>().isEmpty(), u"Letras"_s,
        u"tornam-se maiúsculas ao digitar"_s);
    return lines;
}
