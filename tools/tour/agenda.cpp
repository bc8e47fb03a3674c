#include "agenda.h"

#include "app/core/menu.h"
#include "app/core/variaveis.h"
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

/// The open appointment is charged and half paid; nothing is written.
void closing(Tour& tour, ScreenDriver& agenda)
{
    tour.screen(QStringLiteral("frmCli_AgendaCF"), [&tour](ScreenDriver& screen) {
        tour.picture(QStringLiteral("frmCli_AgendaCF"), screen);
        screen.click(QStringLiteral("Command2"));
        screen.choose(QStringLiteral("cboMP"), QStringLiteral("DINHEIRO"));
        screen.type(QStringLiteral("txtVrMp"), QStringLiteral("100"));
        screen.type(QStringLiteral("txtobs"), QStringLiteral("entrada"));
        tour.picture(QStringLiteral("frmCli_AgendaCF_pagamento"), screen);
        screen.click(QStringLiteral("Command16"));
        tour.picture(QStringLiteral("frmCli_AgendaCF_totais"), screen);
        screen.press(Qt::Key_Escape);
    });
    agenda.click(QStringLiteral("Command4"));
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
        tour.resized(QStringLiteral("frmCli_Agenda"), agenda);
        agenda.doubleClickRow(QStringLiteral("List1"), 1); // a free line
        tour.picture(QStringLiteral("frmCli_Agenda_painel_novo"), agenda);
        agenda.click(QStringLiteral("Command8"));
        open(agenda, QStringLiteral("|0  |"));
        tour.picture(QStringLiteral("frmCli_Agenda_painel"), agenda);
        closing(tour, agenda);
        agenda.click(QStringLiteral("Command8"));
        tour.screen(QStringLiteral("frmCli_Agenda_Pesquisa"), [&tour](ScreenDriver& search) {
            search.type(QStringLiteral("txtnmpac"), QStringLiteral("mar"));
            tour.picture(QStringLiteral("frmCli_Agenda_Pesquisa"), search);
            search.press(Qt::Key_Escape);
        });
        agenda.press(Qt::Key_F2);
        tour.box(QStringLiteral("frmCli_Agenda_impressao"), QStringLiteral("0"));
        agenda.press(Qt::Key_F3);
        tour.document(QStringLiteral("cli_agenda"), Variaveis::ArquivoPDF);
        pastAndHoliday(tour, agenda);
        agenda.press(Qt::Key_Escape);
    });
    Menu::principal().run(QStringLiteral("cliAG"));
}
