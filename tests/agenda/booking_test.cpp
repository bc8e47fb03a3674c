#include "agenda/agenda_fixture.h"
#include "registers/buscas.h"

namespace {

const QString incomplete = u"--- ERRO --- DADOS INCOMPLETOS!"_qs;
const QString booked = u"Agendado com sucesso!"_qs;

const QStringList boxes = {u"txtIdAgenda"_qs, u"txtDt"_qs,     u"txtHR"_qs,   u"txtIdPac"_qs, u"txtNmPac"_qs,
                           u"txtIdConv"_qs,   u"txtNmConv"_qs, u"txtFone"_qs, u"txtVR"_qs,    u"txtObs"_qs};

QStringList texts(const ScreenDriver& agenda)
{
    QStringList all;
    for (const QString& box : boxes)
        all << agenda.text(box);
    return all;
}

QString enabledOf(const ScreenDriver& agenda, const QStringList& controls)
{
    QString states;
    for (const QString& control : controls)
        states += agenda.enabled(control) ? u'1' : u'0';
    return states;
}

/// Closing, notification, cancellation.
QString actions(const ScreenDriver& agenda)
{
    return enabledOf(agenda, {u"Command4"_qs, u"Command5"_qs, u"Command9"_qs});
}

/// Search, printing, choice of the professional.
QString ofTheDay(const ScreenDriver& agenda)
{
    return enabledOf(agenda, {u"Command1"_qs, u"Command6"_qs, u"cboPro"_qs});
}

void leave(ScreenDriver& agenda)
{
    agenda.click(u"Command8"_qs);
    agenda.press(Qt::Key_Escape);
}

} // namespace

TEST_F(AgendaTest, AFreeLineIsBooked)
{
    dialogs.expect(booked, u"Atenção"_qs, Icon::Information);
    open<frmCli_Agenda>([&](ScreenDriver& agenda) {
        EXPECT_FALSE(agenda.visible(u"frmAgendamento"_qs));
        agenda.doubleClickRow(u"List1"_qs, 1);
        EXPECT_TRUE(agenda.visible(u"frmAgendamento"_qs));
        EXPECT_EQ(ofTheDay(agenda), u"000");
        EXPECT_EQ(actions(agenda), u"000");
        EXPECT_EQ(agenda.focused(), u"cboTP");
        EXPECT_TRUE(agenda.text(u"cboTP"_qs).startsWith(u"CONSULTA")) << "the first of the clinic's";
        EXPECT_EQ(agenda.text(u"cboMobEsp"_qs), u"0 - Não");
        EXPECT_EQ(agenda.text(u"txtHR"_qs), u"08:30");
        EXPECT_EQ(agenda.text(u"txtDt"_qs), u"16/03/2026");
        agenda.press(Qt::Key_Escape);
        EXPECT_TRUE(agenda.isOpen()) << "Esc does nothing while the panel stands";

        modal.expect(u"frmBuscaPacientes"_qs, [](ScreenDriver& search) { search.press(Qt::Key_F10); });
        agenda.press(Qt::Key_F2);
        EXPECT_EQ(agenda.focused(), u"txtIdPac");
        EXPECT_EQ(agenda.text(u"txtIdPac"_qs), u"21");
        EXPECT_EQ(agenda.text(u"txtFone"_qs), u"")
            << "the search brings code and name, leaving the box the rest";
        agenda.press(Qt::Key_Return);
        EXPECT_EQ(texts(agenda), (QStringList{{},
                                              u"16/03/2026"_qs,
                                              u"08:30"_qs,
                                              u"21"_qs,
                                              u"JOÃO DA SILVA"_qs,
                                              u"5"_qs,
                                              u"SAÚDE TOTAL"_qs,
                                              u"99999-1111 3333-1111"_qs,
                                              u"R$ 175,00"_qs,
                                              {}}));
        modal.expect(u"frmBuscaConvenios"_qs, [](ScreenDriver& search) { search.press(Qt::Key_F10); });
        agenda.press(Qt::Key_F3);
        EXPECT_EQ(agenda.text(u"txtIdConv"_qs), u"6");
        agenda.press(Qt::Key_Return);
        EXPECT_EQ(agenda.text(u"txtVR"_qs), u"R$ 200,00") << "a plan without discount";
        modal.expect(u"frmBuscaConvenios"_qs, [](ScreenDriver& search) { search.press(Qt::Key_Escape); });
        agenda.press(Qt::Key_F3);
        EXPECT_EQ(agenda.text(u"txtIdConv"_qs), u"6") << "who gives up changes nothing";
        agenda.type(u"txtIdConv"_qs, u"99"_qs);
        agenda.press(Qt::Key_Return);
        EXPECT_EQ(agenda.text(u"txtNmConv"_qs), u"");
        EXPECT_EQ(agenda.text(u"txtVR"_qs), u"R$ 200,00");
        agenda.type(u"txtIdConv"_qs, u"5"_qs);
        agenda.press(Qt::Key_Return);
        agenda.type(u"txtVR"_qs, u"1.234,5"_qs);
        agenda.type(u"txtObs"_qs, u"primeira vez"_qs);
        agenda.choose(u"cboTP"_qs, u"RETORNO"_qs);
        agenda.choose(u"cboMobEsp"_qs, u"1"_qs);
        agenda.click(u"Command7"_qs);
        EXPECT_FALSE(agenda.visible(u"frmAgendamento"_qs));
        EXPECT_EQ(ofTheDay(agenda), u"111");
        EXPECT_EQ(agenda.focused(), u"List1");
        EXPECT_EQ(texts(agenda).join(QString()), u"");
        EXPECT_TRUE(agenda.list(u"List1"_qs)[1].startsWith(u"08:30|JOÃO DA SILVA"));
        EXPECT_EQ(agenda.text(u"lQT"_qs), u"Clínica: 1 Home: 0");
        agenda.press(Qt::Key_Escape);
        EXPECT_FALSE(agenda.isOpen());
    });
    EXPECT_EQ(
        flat(u"select idlic,idagenda,fone,idpro,idesp,idconv,idpac,nmpac,dia,hr,obs,idproc,valor,status,"
             "evcad,evup,mobesp,ondeatd from agenda_clinica"_qs),
        QStringList{u"C1|260316083015MARIA11|99999-1111 3333-1111|11|3|5|21|JOÃO DA SILVA|2026-03-16|08:30|"
                    "PRIMEIRA VEZ|32|1234.50|0|"_qs +
                    stamp + u'|' + stamp + u"|1 - Sim|0"_qs});
}

TEST_F(AgendaTest, AnAppointmentIsOpenedAndChanged)
{
    book(u"K1"_qs, 11, 21, u"JOÃO DA SILVA"_qs, u"2026-03-16"_qs, u"08:30"_qs, u"1"_qs);
    dialogs.expect(booked);
    open<frmCli_Agenda>([&](ScreenDriver& agenda) {
        agenda.doubleClickRow(u"List1"_qs, 1);
        EXPECT_EQ(texts(agenda),
                  (QStringList{u"K1"_qs, u"16/03/2026"_qs, u"08:30"_qs, u"21"_qs, u"JOÃO DA SILVA"_qs,
                               u"5"_qs, u"SAÚDE TOTAL"_qs, u"FONE"_qs, u"R$ 180,50"_qs, u"OBSERVAÇÃO"_qs}))
            << "the price agreed upon, not the one that the plan makes";
        EXPECT_TRUE(agenda.text(u"cboTP"_qs).startsWith(u"RETORNO"));
        EXPECT_EQ(agenda.text(u"cboMobEsp"_qs), u"1 - Sim");
        EXPECT_EQ(actions(agenda), u"111");
        EXPECT_EQ(agenda.focused(), u"cboTP");
        agenda.type(u"txtObs"_qs, u"outra"_qs);
        agenda.click(u"Command7"_qs);
        agenda.press(Qt::Key_Escape);
    });
    EXPECT_EQ(
        flat(
            u"select idagenda,idpro,idesp,idproc,valor,obs,status,evcad,evup,ondeatd from agenda_clinica"_qs),
        QStringList{u"K1|11|3|32|180.50|OUTRA|1|X|"_qs + stamp + u"|0"_qs});
}

TEST_F(AgendaTest, AnOpenAppointmentMovesToAFreeLine)
{
    book(u"K1"_qs, 11, 21, u"JOÃO DA SILVA"_qs, u"2026-03-16"_qs, u"08:00"_qs);
    book(u"K2"_qs, 11, 22, u"RITA"_qs, u"2026-03-16"_qs, u"08:30"_qs);
    dialogs.expect(u"--- ERRO --- HORÁRIO NÃO DISPONIVEL!"_qs);
    dialogs.expect(booked);
    open<frmCli_Agenda>([&](ScreenDriver& agenda) {
        agenda.doubleClickRow(u"List1"_qs, 0);
        const QStringList before = texts(agenda);
        agenda.clickRow(u"List1"_qs, 3);
        EXPECT_EQ(agenda.text(u"txtHR"_qs), u"13:00") << "one click takes the time alone";
        agenda.doubleClickRow(u"List1"_qs, 1);
        EXPECT_EQ(actions(agenda), u"000");
        agenda.focus(u"Calendar1"_qs);
        agenda.press(Qt::Key_Right);
        agenda.doubleClickRow(u"List1"_qs, 0);
        QStringList after = before;
        after[1] = u"17/03/2026"_qs;
        after[2] = u"10:00"_qs;
        EXPECT_EQ(texts(agenda), after);
        EXPECT_EQ(actions(agenda), u"111");
        EXPECT_TRUE(agenda.text(u"cboTP"_qs).startsWith(u"RETORNO"));
        EXPECT_EQ(value(u"select hr from agenda_clinica where idagenda = 'K1'"_qs), u"08:00")
            << "not before it is saved";
        agenda.click(u"Command7"_qs);
        agenda.press(Qt::Key_Escape);
    });
    EXPECT_EQ(flat(u"select idagenda,dia,hr,idproc from agenda_clinica order by idagenda"_qs),
              (QStringList{u"K1|2026-03-17|10:00|32"_qs, u"K2|2026-03-16|08:30|32"_qs}));
}

TEST_F(AgendaTest, WhatCannotBeBookedIsRefusedInOrder)
{
    book(u"K1"_qs, 13, 21, u"JOÃO DA SILVA"_qs, u"2026-03-16"_qs, u"08:30"_qs);
    const auto refused = [&](ScreenDriver& agenda, const QString& box, const QString& text,
                             const QString& good) {
        dialogs.expect(incomplete, u"ATENÇÃO"_qs, Icon::Information);
        agenda.type(box, text);
        agenda.click(u"Command7"_qs);
        agenda.type(box, good);
    };
    open<frmCli_Agenda>([&](ScreenDriver& agenda) {
        fill(agenda, 1, u"21"_qs);
        refused(agenda, u"txtDt"_qs, u"31/02/2026"_qs, u"16/03/2026"_qs);
        refused(agenda, u"txtNmPac"_qs, u" "_qs, u"JOÃO"_qs);
        refused(agenda, u"txtIdPac"_qs, u"A"_qs, u"21"_qs);
        refused(agenda, u"txtIdConv"_qs, u""_qs, u"5"_qs);
        refused(agenda, u"txtNmConv"_qs, u""_qs, u"PLANO"_qs);
        refused(agenda, u"txtVR"_qs, u"CARO"_qs, u"0"_qs);
        refused(agenda, u"txtFone"_qs, u"  "_qs, u"9"_qs);

        static_cast<QComboBox*>(agenda.find(u"cboTP"_qs))->setCurrentIndex(-1);
        agenda.type(u"txtDt"_qs, u"15/03/2026"_qs);
        dialogs.expect(u"--- ERRO --- SELECIONA UM PROCEDIMENTO!"_qs);
        agenda.click(u"Command7"_qs);
        agenda.choose(u"cboTP"_qs, u"CONSULTA"_qs);
        dialogs.expect(u"--- ERRO --- DATA DO AGENDAMENTO ANTERIOR A DATA ATUAL!"_qs, u"ATENÇÃO"_qs,
                       Icon::Critical);
        agenda.click(u"Command7"_qs);
        agenda.type(u"txtDt"_qs, u"16/03/2026"_qs);
        const QString elsewhere =
            u"--- PACIENTE JÁ POSSUI AGENDA NESSA MESMA DATA E HORÁRIO COM OUTRO PROFISSIONAL!"_qs;
        dialogs.expect(elsewhere, u"ATENÇÃO"_qs, Icon::Exclamation);
        agenda.click(u"Command7"_qs);
        agenda.choose(u"cboOnde"_qs, u"1"_qs);
        dialogs.expect(elsewhere);
        agenda.click(u"Command7"_qs);
        EXPECT_TRUE(agenda.visible(u"frmAgendamento"_qs)) << "what was typed is still there";
        EXPECT_EQ(agenda.text(u"txtHR"_qs), u"08:30");

        // Of another time, or of nobody, or in his own line, he can be booked.
        dialogs.expect(booked);
        agenda.choose(u"cboOnde"_qs, u"0"_qs);
        agenda.type(u"txtIdPac"_qs, u"0"_qs);
        agenda.click(u"Command7"_qs);
        agenda.press(Qt::Key_Escape);
    });
    EXPECT_EQ(flat(u"select idpro,idpac,hr,ondeatd from agenda_clinica where idagenda <> 'K1'"_qs),
              QStringList{u"11|0|08:30|0"_qs})
        << "the refused home booking has left the professional as it was";
}

TEST_F(AgendaTest, AHomeBookingBelongsToNobodyAndTheNextOneToTheProfessional)
{
    dialogs.expect(booked);
    dialogs.expect(booked);
    open<frmCli_Agenda>([&](ScreenDriver& agenda) {
        fill(agenda, 0, u"21"_qs);
        agenda.choose(u"cboOnde"_qs, u"1"_qs);
        agenda.click(u"Command7"_qs);
        EXPECT_EQ(agenda.list(u"List1"_qs)[0], u"08:00") << "nobody's list has it";
        fill(agenda, 0, u"22"_qs);
        EXPECT_EQ(agenda.text(u"cboOnde"_qs), u"0 - Clinica");
        // The row goes to the calendar's day, while the checks look at the box.
        agenda.focus(u"Calendar1"_qs);
        agenda.press(Qt::Key_Right);
        agenda.click(u"Command7"_qs);
        agenda.press(Qt::Key_Escape);
    });
    EXPECT_EQ(flat(u"select idagenda,idpro,idesp,idpac,dia,hr,ondeatd from agenda_clinica order by idpac"_qs),
              (QStringList{u"260316083015MARIA0|0|3|21|2026-03-16|08:00|1"_qs,
                           u"260316083015MARIA11|11|3|22|2026-03-17|08:00|0"_qs}));
}

TEST_F(AgendaTest, NotifiedCancelledAndClosed)
{
    book(u"K1"_qs, 11, 21, u"JOÃO DA SILVA"_qs, u"2026-03-16"_qs, u"08:00"_qs);
    book(u"K2"_qs, 11, 22, u"RITA"_qs, u"2026-03-16"_qs, u"08:30"_qs);
    book(u"K3"_qs, 11, 22, u"RITA"_qs, u"2026-03-16"_qs, u"09:00"_qs, u"2"_qs);
    const QString notify = u"Notificaçao confimada?"_qs;
    const QString cancel = u"Confirma o cancelamento do agendamento?"_qs;
    dialogs.expectQuestion(notify, false);
    dialogs.expectQuestion(notify, true);
    dialogs.expectQuestion(cancel, false);
    dialogs.expectQuestion(cancel, true);
    dialogs.expect(u"ATENDIMENTO JÁ CONFIRMADO!"_qs);
    open<frmCli_Agenda>([&](ScreenDriver& agenda) {
        agenda.doubleClickRow(u"List1"_qs, 0);
        agenda.click(u"Command5"_qs);
        EXPECT_TRUE(agenda.visible(u"frmAgendamento"_qs));
        agenda.click(u"Command5"_qs);
        EXPECT_FALSE(agenda.visible(u"frmAgendamento"_qs));
        EXPECT_EQ(ofTheDay(agenda), u"111");
        EXPECT_TRUE(agenda.list(u"List1"_qs)[0].contains(u"|1 - Sim|1  |"));
        agenda.doubleClickRow(u"List1"_qs, 1);
        agenda.click(u"Command9"_qs);
        agenda.click(u"Command9"_qs);
        EXPECT_EQ(agenda.list(u"List1"_qs)[1], u"08:30") << "free again";
        EXPECT_FALSE(agenda.visible(u"frmAgendamento"_qs));
        agenda.doubleClickRow(u"List1"_qs, 2);
        EXPECT_FALSE(agenda.visible(u"frmAgendamento"_qs)) << "a closed one cannot be opened";
        agenda.press(Qt::Key_Escape);
    });
    EXPECT_EQ(flat(u"select idagenda,status,evcad,evup from agenda_clinica order by idagenda"_qs),
              (QStringList{u"K1|1|X|"_qs + stamp, u"K3|2|X|Y"_qs}));
}

TEST_F(AgendaTest, ABlockedDayShowsAnEmptyPanel)
{
    dialogs.expect(incomplete);
    open<frmCli_Agenda>([&](ScreenDriver& agenda) {
        agenda.choose(u"cboPro"_qs, u"DAVI"_qs);
        agenda.doubleClickRow(u"List1"_qs, 0);
        EXPECT_TRUE(agenda.visible(u"frmAgendamento"_qs));
        EXPECT_EQ(ofTheDay(agenda), u"111");
        EXPECT_EQ(texts(agenda).join(QString()), u"");
        agenda.click(u"Command7"_qs);
        leave(agenda);
    });
    EXPECT_EQ(agendaKeys(), QStringList{});
}

TEST_F(AgendaTest, TheBlankKeyOpensALine)
{
    open<frmCli_Agenda>([&](ScreenDriver& agenda) {
        agenda.focus(u"List1"_qs);
        agenda.press(Qt::Key_Down);
        agenda.press(Qt::Key_Down);
        agenda.press(Qt::Key_Space);
        EXPECT_EQ(agenda.text(u"txtHR"_qs), agenda.list(u"List1"_qs)[2]);
        EXPECT_EQ(agenda.focused(), u"cboTP");
        leave(agenda);
    });
}
