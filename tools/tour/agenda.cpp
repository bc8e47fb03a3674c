#include "agenda.h"

#include "app/core/menu.h"
#include "tour.h"

namespace {

/// The first line of the day that has the text in it; -1 where none has.
int lineWith(const ScreenDriver& agenda, const QString& text)
{
    const QStringList lines = agenda.list(QStringLiteral("List1"));
    for (int i = 0; i < lines.size(); ++i)
        if (lines[i].contains(text))
            return i;
    return -1;
}

void open(ScreenDriver& agenda, const QString& text)
{
    agenda.doubleClickRow(QStringLiteral("List1"), lineWith(agenda, text));
}

void go(ScreenDriver& agenda, Qt::Key arrow, int times)
{
    agenda.focus(QStringLiteral("Calendar1"));
    for (int i = 0; i < times; ++i)
        agenda.press(arrow);
}

/// Closed attendances lie in the past, a holiday at Easter, and on Sundays nobody works.
void pastAndHoliday(Tour& tour, ScreenDriver& agenda)
{
    go(agenda, Qt::Key_Left, 1);
    tour.picture(QStringLiteral("frmCli_Agenda_bloqueada"), agenda);
    go(agenda, Qt::Key_Up, 1);
    go(agenda, Qt::Key_Right, 1);
    tour.picture(QStringLiteral("frmCli_Agenda_encerrados"), agenda);
    tour.box(QStringLiteral("frmCli_Agenda_ja_encerrado"), QStringLiteral("OK"));
    open(agenda, QStringLiteral("|2  |"));
    go(agenda, Qt::Key_Down, 6);
    go(agenda, Qt::Key_Right, 1);
    tour.picture(QStringLiteral("frmCli_Agenda_feriado"), agenda);
}

} // namespace

void walkAgenda(Tour& tour)
{
    tour.screen(QStringLiteral("frmCli_Agenda"), [&tour](ScreenDriver& agenda) {
        tour.picture(QStringLiteral("frmCli_Agenda"), agenda);
        tour.enlarged(QStringLiteral("frmCli_Agenda"), agenda);
        open(agenda, QStringLiteral("|0  |"));
        tour.picture(QStringLiteral("frmCli_Agenda_painel"), agenda);
        agenda.click(QStringLiteral("Command8"));
        pastAndHoliday(tour, agenda);
        agenda.press(Qt::Key_Escape);
    });
    Menu::principal().run(QStringLiteral("cliAG"));
}
