#include "agenda.h"

#include "app/core/menu.h"
#include "app/core/variaveis.h"
#include "tour.h"

using namespace Qt::StringLiterals;

namespace {

/// The first line of the day that has the text in it; -1 where none has.
int lineWith(const ScreenDriver& agenda, const QString& text)
{
    const QStringList lines = agenda.list(u"List1"_s);
    for (int i = 0; i < lines.size(); ++i)
        if (lines[i].contains(text))
            return i;
    return -1;
}

void open(ScreenDriver& agenda, const QString& text)
{
    agenda.doubleClickRow(u"List1"_s, lineWith(agenda, text));
}

void go(ScreenDriver& agenda, Qt::Key arrow, int times)
{
    agenda.focus(u"Calendar1"_s);
    for (int i = 0; i < times; ++i)
        agenda.press(arrow);
}

/// A free line is booked, with a patient from the search.
void booking(Tour& tour, ScreenDriver& agenda)
{
    agenda.doubleClickRow(u"List1"_s, 1); // a free line
    tour.picture(u"frmCli_Agenda_painel_novo"_s, agenda);
    tour.openList(u"frmCli_Agenda_painel_tipo"_s, agenda, u"cboTP"_s);
    tour.contextMenu(u"frmCli_Agenda_painel_menu"_s, agenda, u"txtObs"_s);
    tour.refused(u"frmCli_Agenda_painel_incompleto"_s, agenda, u"Command7"_s);
    tour.screen(u"frmBuscaPacientes"_s, [&tour](ScreenDriver& search) {
        tour.box(u"frmBuscaPacientes_nome"_s, u"MARQUES"_s);
        search.press(Qt::Key_F2);
        tour.picture(u"frmBuscaPacientes_resultado"_s, search);
        search.press(Qt::Key_F10);
    });
    agenda.press(Qt::Key_F2);
    agenda.press(Qt::Key_Tab);
    tour.altHeld(u"frmCli_Agenda_painel_preenchido"_s, agenda);
    tour.box(u"frmCli_Agenda_agendado"_s, u"OK"_s);
    agenda.click(u"Command7"_s);
    tour.picture(u"frmCli_Agenda_marcado"_s, agenda);
}

/// An open appointment goes to another line, and what else can be done with it is asked for and left.
void moving(Tour& tour, ScreenDriver& agenda)
{
    open(agenda, u"|0  |"_s);
    tour.picture(u"frmCli_Agenda_painel"_s, agenda);
    tour.box(u"frmCli_Agenda_ocupado"_s, u"OK"_s);
    agenda.doubleClickRow(u"List1"_s, 0);
    agenda.doubleClickRow(u"List1"_s, 3); // a free line
    tour.picture(u"frmCli_Agenda_painel_mudado"_s, agenda);
    tour.box(u"frmCli_Agenda_notifica"_s, u"Não"_s);
    agenda.click(u"Command5"_s);
    tour.box(u"frmCli_Agenda_cancela"_s, u"Não"_s);
    agenda.click(u"Command9"_s);
}

/// The open appointment is charged and half paid; nothing is written.
void closing(Tour& tour, ScreenDriver& agenda)
{
    tour.screen(u"frmCli_AgendaCF"_s, [&tour](ScreenDriver& screen) {
        tour.picture(u"frmCli_AgendaCF"_s, screen);
        screen.click(u"Command2"_s);
        tour.refused(u"frmCli_AgendaCF_invalido"_s, screen, u"Command2"_s);
        tour.openList(u"frmCli_AgendaCF_tipos"_s, screen, u"cboMP"_s);
        screen.choose(u"cboMP"_s, u"DINHEIRO"_s);
        screen.type(u"txtVrMp"_s, u"100"_s);
        screen.type(u"txtobs"_s, u"entrada"_s);
        tour.picture(u"frmCli_AgendaCF_pagamento"_s, screen);
        screen.click(u"Command16"_s);
        tour.picture(u"frmCli_AgendaCF_totais"_s, screen);
        tour.box(u"frmCli_AgendaCF_estorna"_s, u"Não"_s);
        screen.doubleClickRow(u"List2"_s, 0);
        tour.box(u"frmCli_AgendaCF_confirma"_s, u"Sim"_s);
        tour.refused(u"frmCli_AgendaCF_falta"_s, screen, u"Command1"_s);
        screen.press(Qt::Key_Escape);
    });
    agenda.click(u"Command4"_s);
    agenda.click(u"Command8"_s);
}

/// Closed attendances lie in the past, a holiday at Easter, and on Sundays nobody works.
void pastAndHoliday(Tour& tour, ScreenDriver& agenda)
{
    go(agenda, Qt::Key_Left, 1);
    tour.picture(u"frmCli_Agenda_bloqueada"_s, agenda);
    go(agenda, Qt::Key_Up, 1);
    go(agenda, Qt::Key_Right, 1);
    tour.picture(u"frmCli_Agenda_encerrados"_s, agenda);
    tour.box(u"frmCli_Agenda_ja_encerrado"_s, u"OK"_s);
    open(agenda, u"|2  |"_s);
    go(agenda, Qt::Key_Down, 6);
    go(agenda, Qt::Key_Right, 1);
    tour.picture(u"frmCli_Agenda_feriado"_s, agenda);
}

} // namespace

void walkAgenda(Tour& tour)
{
    tour.screen(u"frmCli_Agenda"_s, [&tour](ScreenDriver& agenda) {
        tour.picture(u"frmCli_Agenda"_s, agenda);
        tour.resized(u"frmCli_Agenda"_s, agenda);
        tour.hint(u"frmCli_Agenda_dica"_s, agenda, u"List1"_s, 0);
        booking(tour, agenda);
        moving(tour, agenda);
        closing(tour, agenda);
        tour.screen(u"frmCli_Agenda_Pesquisa"_s, [&tour](ScreenDriver& search) {
            search.type(u"txtnmpac"_s, u"mar"_s);
            tour.picture(u"frmCli_Agenda_Pesquisa"_s, search);
            search.press(Qt::Key_Escape);
        });
        agenda.press(Qt::Key_F2);
        tour.box(u"frmCli_Agenda_impressao"_s, u"0"_s);
        agenda.press(Qt::Key_F3);
        tour.document(u"cli_agenda"_s, Variaveis::ArquivoPDF);
        pastAndHoliday(tour, agenda);
        agenda.press(Qt::Key_Escape);
    });
    Menu::principal().run(u"cliAG"_s);
}
