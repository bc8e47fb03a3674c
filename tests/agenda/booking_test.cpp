#include "agenda/agenda_fixture.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const QString booked = u"Agendado com sucesso!"_s;

const QString allEmpty = u"|||||||||"_s;

/// Which of search, printing and choice of the professional are enabled, and which of closing, notification
/// and cancellation.
QString states(const ScreenDriver& agenda)
{
    QString all;
    for (const char* control : {"Command1", "Command6", "cboPro", "Command4", "Command5", "Command9"})
        all += agenda.enabled(QString::fromLatin1(control)) ? u'1' : u'0';
    return all;
}

class Booking : public AgendaTest
{
protected:
    /// Key, day, time, patient, plan, telephone, price, remark.
    static QString texts(const ScreenDriver& agenda)
    {
        return shown(agenda,
                     u"txtIdAgenda txtDt txtHR txtIdPac txtNmPac txtIdConv txtNmConv txtFone txtVR txtObs"_s);
    }
};

} // namespace

TEST_F(Booking, AFreeLineIsBooked)
{
    bookElsewhere(u"K1"_s, 99);
    book(u"K2"_s, 13, 21, u"JOÃO DA SILVA"_s, u"2026-03-16"_s, u"09:00"_s);
    book(u"K3"_s, 13, 21, u"JOÃO DA SILVA"_s, u"2026-03-17"_s, u"08:30"_s);
    dialogs.expect(booked, u"Atenção"_s, Icon::Information);
    on<frmCli_Agenda>([&](ScreenDriver& agenda) {
        EXPECT_FALSE(agenda.visible(u"frmAgendamento"_s));
        agenda.doubleClickRow(u"List1"_s, 1);
        EXPECT_EQ(states(agenda), u"000000");
        EXPECT_EQ(agenda.focused(), u"cboTP");
        EXPECT_TRUE(agenda.text(u"cboTP"_s).startsWith(u"CONSULTA")) << "the first of the clinic's";
        EXPECT_EQ(agenda.text(u"cboMobEsp"_s), u"0 - Não");
        agenda.press(Qt::Key_Escape);
        EXPECT_TRUE(agenda.isOpen()) << "Esc does nothing while the panel stands";

        search(agenda, Qt::Key_F2, u"frmBuscaPacientes"_s);
        EXPECT_EQ(agenda.focused(), u"txtIdPac");
        EXPECT_EQ(texts(agenda), u"|16/03/2026|08:30|21|JOÃO DA SILVA|||||")
            << "the search brings code and name, leaving the box the rest";
        agenda.press(Qt::Key_Return);
        const QString found =
            u"|16/03/2026|08:30|21|JOÃO DA SILVA|5|SAÚDE TOTAL|99999-1111 3333-1111|R$ 175,00|"_s;
        EXPECT_EQ(texts(agenda), found);
        enter(agenda, u"txtIdPac"_s, u"23"_s);
        EXPECT_EQ(texts(agenda), QString(found).replace(u"|21|"_s, u"|23|"_s)) << "of another tenant";
        agenda.type(u"txtIdPac"_s, u"21"_s);
        search(agenda, Qt::Key_F3, u"frmBuscaConvenios"_s);
        EXPECT_EQ(agenda.text(u"txtIdConv"_s), u"6");
        agenda.press(Qt::Key_Return);
        EXPECT_EQ(agenda.text(u"txtVR"_s), u"R$ 200,00") << "a plan without discount";
        answer(u"frmBuscaConvenios"_s, {Qt::Key_Escape});
        agenda.press(Qt::Key_F3);
        EXPECT_EQ(agenda.text(u"txtIdConv"_s), u"6") << "who gives up changes nothing";
        enter(agenda, u"txtIdConv"_s, u"7"_s);
        EXPECT_EQ(agenda.text(u"txtNmConv"_s) + agenda.text(u"txtVR"_s), u"R$ 200,00") << "of another tenant";
        enter(agenda, u"txtIdConv"_s, u"5"_s);
        agenda.type(u"txtVR"_s, u"1.234,5"_s);
        agenda.type(u"txtObs"_s, u"primeira vez"_s);
        agenda.choose(u"cboTP"_s, u"RETORNO"_s);
        agenda.choose(u"cboMobEsp"_s, u"1"_s);
        agenda.click(u"Command7"_s);
        EXPECT_FALSE(agenda.visible(u"frmAgendamento"_s));
        EXPECT_EQ(states(agenda), u"111000");
        EXPECT_EQ(agenda.focused(), u"List1");
        EXPECT_TRUE(agenda.list(u"List1"_s)[1].startsWith(u"08:30|JOÃO DA SILVA"));
        EXPECT_EQ(agenda.text(u"lQT"_s), u"Clínica: 1 Home: 0");
    });
    EXPECT_EQ(
        flat(u"select idlic,idagenda,fone,idpro,idesp,idconv,idpac,nmpac,dia,hr,obs,idproc,valor,status,"
             "evcad,evup,mobesp,ondeatd from agenda_clinica where idagenda not like 'K%'"_s),
        QStringList{u"C1|260316083015MARIA11|99999-1111 3333-1111|11|3|5|21|JOÃO DA SILVA|2026-03-16|08:30|"
                    "PRIMEIRA VEZ|32|1234.50|0|"_s +
                    stamp + u'|' + stamp + u"|1 - Sim|0"_s});
}

TEST_F(Booking, AnAppointmentIsOpenedMovedAndChanged)
{
    book(u"K1"_s, 11, 21, u"JOÃO DA SILVA"_s, u"2026-03-16"_s, u"08:00"_s, u"1"_s);
    book(u"K2"_s, 11, 22, u"RITA"_s, u"2026-03-16"_s, u"08:30"_s);
    bookElsewhere(u"K1"_s);
    dialogs.expect(booked);
    dialogs.expect(u"--- ERRO --- HORÁRIO NÃO DISPONIVEL!"_s);
    dialogs.expect(booked);
    on<frmCli_Agenda>([&](ScreenDriver& agenda) {
        agenda.doubleClickRow(u"List1"_s, 0);
        agenda.click(u"Command7"_s); // an appointment does not stand in its own way
        agenda.doubleClickRow(u"List1"_s, 0);
        const QString rest = u"|21|JOÃO DA SILVA|5|SAÚDE TOTAL|FONE|R$ 180,50|OBSERVAÇÃO"_s;
        EXPECT_EQ(texts(agenda), u"K1|16/03/2026|08:00"_s + rest)
            << "the price agreed upon, not the one that the plan makes";
        EXPECT_TRUE(agenda.text(u"cboTP"_s).startsWith(u"RETORNO"));
        EXPECT_EQ(agenda.text(u"cboMobEsp"_s), u"1 - Sim");
        EXPECT_EQ(states(agenda), u"000111");
        agenda.choose(u"cboTP"_s, u"CONSULTA"_s);
        agenda.clickRow(u"List1"_s, 3);
        EXPECT_EQ(agenda.text(u"txtHR"_s), u"13:00") << "one click takes the time alone";
        agenda.type(u"txtHR"_s, u"13:15"_s);
        QTest::mouseClick(static_cast<QAbstractScrollArea*>(agenda.find(u"List1"_s))->viewport(),
                          Qt::LeftButton, {}, {5, 250});
        settle();
        EXPECT_EQ(agenda.text(u"txtHR"_s), u"13:15") << "below the last line is no line";
        agenda.doubleClickRow(u"List1"_s, 1);
        EXPECT_EQ(states(agenda), u"000000");
        agenda.focus(u"Calendar1"_s);
        agenda.press(Qt::Key_Right);
        agenda.doubleClickRow(u"List1"_s, 0);
        EXPECT_EQ(texts(agenda), u"K1|17/03/2026|10:00"_s + rest);
        EXPECT_EQ(states(agenda), u"000111");
        EXPECT_TRUE(agenda.text(u"cboTP"_s).startsWith(u"CONSULTA")) << "as the clerk chose";
        EXPECT_EQ(value(u"select hr from agenda_clinica where idlic = 'C1' and idagenda = 'K1'"_s), u"08:00")
            << "not before it is saved";
        agenda.type(u"txtObs"_s, u"outra"_s);
        agenda.click(u"Command7"_s);
        EXPECT_EQ(texts(agenda), allEmpty);
    });
    EXPECT_EQ(flat(u"select idlic,idagenda,idpro,idesp,idproc,dia,hr,valor,obs,status,evcad,evup,ondeatd "
                   "from agenda_clinica order by idlic,idagenda"_s),
              (QStringList{u"B2|K1|11|||2026-03-16|08:30|||0||Z|"_s,
                           u"C1|K1|11|3|31|2026-03-17|10:00|180.50|OUTRA|1|X|"_s + stamp + u"|0"_s,
                           u"C1|K2|11|3|32|2026-03-16|08:30|180.50|OBSERVAÇÃO|0|X|Y|0"_s}));
}

/// A home booking belongs to nobody, and the next one to the professional again.
TEST_F(Booking, WhatCannotBeBookedIsRefusedInOrder)
{
    book(u"K1"_s, 13, 21, u"JOÃO DA SILVA"_s, u"2026-03-16"_s, u"08:30"_s);
    on<frmCli_Agenda>([&](ScreenDriver& agenda) {
        const QString incomplete = u"--- ERRO --- DADOS INCOMPLETOS!"_s;
        const QString elsewhere =
            u"--- PACIENTE JÁ POSSUI AGENDA NESSA MESMA DATA E HORÁRIO COM OUTRO PROFISSIONAL!"_s;
        const auto refused = [&](const QString& text, std::optional<Icon> icon = {}) {
            dialogs.expect(text, u"ATENÇÃO"_s, icon);
            agenda.click(u"Command7"_s);
        };
        agenda.choose(u"cboPro"_s, u"DAVI"_s);
        agenda.doubleClickRow(u"List1"_s, 0); // a blocked day
        EXPECT_EQ(states(agenda) + texts(agenda), u"111000"_s + allEmpty);
        refused(incomplete, Icon::Information);
        agenda.click(u"Command8"_s);

        agenda.choose(u"cboPro"_s, u"ANA"_s);
        fill(agenda, 1, u"21"_s);
        // No procedure and a past day as well: the boxes come first.
        static_cast<QComboBox*>(agenda.find(u"cboTP"_s))->setCurrentIndex(-1);
        for (const QStringList& box :
             textTable(u"txtDt=31/02/2026=15/03/2026|txtNmPac= =J|txtIdPac=A=21|txtIdConv==5|txtIdConv=99=5|"
                       "txtVR=CARO=0|txtFone=  =9")) {
            agenda.type(box[0], box[1]);
            refused(incomplete, Icon::Information);
            EXPECT_TRUE(agenda.find(box[0])->property("wrong").toBool()) << box[0].toStdString();
            agenda.type(box[0], box[2]);
        }
        refused(u"--- ERRO --- SELECIONA UM PROCEDIMENTO!"_s);
        agenda.choose(u"cboTP"_s, u"CONSULTA"_s);
        refused(u"--- ERRO --- DATA DO AGENDAMENTO ANTERIOR A DATA ATUAL!"_s, Icon::Critical);
        agenda.type(u"txtDt"_s, u"16/03/2026"_s);
        agenda.choose(u"cboOnde"_s, u"1"_s);
        refused(elsewhere, Icon::Exclamation);
        EXPECT_EQ(texts(agenda), u"|16/03/2026|08:30|21|JOÃO DA SILVA|5|SAÚDE TOTAL|9|0|")
            << "what was typed is still there";

        dialogs.expect(booked);
        agenda.type(u"txtIdPac"_s, u"22"_s);
        agenda.click(u"Command7"_s);
        EXPECT_EQ(agenda.list(u"List1"_s)[1], u"08:30") << "nobody's list has it";
        agenda.press(Qt::Key_Space);
        EXPECT_EQ(agenda.text(u"txtHR"_s), u"08:30") << "the keyboard opens a line as well";
        EXPECT_EQ(agenda.text(u"cboOnde"_s), u"0 - Clinica");
        enter(agenda, u"txtIdPac"_s, u"21"_s);
        refused(elsewhere, Icon::Exclamation);
        dialogs.expect(booked);
        agenda.type(u"txtIdPac"_s, u"0"_s); // who is nobody
        agenda.click(u"Command7"_s);

        // Codes are whole numbers, and a thousand is a thousand to the server too.
        clock.advance(1);
        fill(agenda, 0, u"22,5"_s);
        EXPECT_EQ(agenda.text(u"txtNmPac"_s), u"RITA");
        enter(agenda, u"txtIdConv"_s, u"5,9"_s);
        agenda.type(u"txtIdPac"_s, u"1.000"_s);
        // The row goes to the calendar's day, while the checks look at the box.
        agenda.focus(u"Calendar1"_s);
        agenda.press(Qt::Key_Right);
        dialogs.expect(booked);
        agenda.click(u"Command7"_s);
    });
    EXPECT_EQ(flat(u"select idagenda,idpro,idesp,idconv,idpac,dia,hr,ondeatd from agenda_clinica where "
                   u"idagenda <> 'K1' "
                   "order by idpac"_s),
              (QStringList{u"260316083015MARIA11|11|3|5|0|2026-03-16|08:30|0"_s,
                           u"260316083015MARIA0|0|3|6|22|2026-03-16|08:30|1"_s,
                           u"260316083016MARIA11|11|3|5|1000|2026-03-17|08:00|0"_s}));
}

TEST_F(Booking, NotifiedCancelledAndClosed)
{
    book(u"K1"_s, 11, 21, u"JOÃO DA SILVA"_s, u"2026-03-16"_s, u"08:00"_s);
    book(u"K2"_s, 11, 22, u"RITA"_s, u"2026-03-16"_s, u"08:30"_s);
    book(u"K3"_s, 11, 22, u"RITA|ELA"_s, u"2026-03-16"_s, u"09:00"_s);
    bookElsewhere(u"K1"_s);
    bookElsewhere(u"K2"_s);
    const auto asked = [this](ScreenDriver& agenda, const QString& button, const QString& question) {
        dialogs.expectQuestion(question, false);
        agenda.click(button);
        FechaConexao(); // as a register does that a search dialog has opened
        dialogs.expectQuestion(question, true);
        agenda.click(button);
        EXPECT_FALSE(agenda.visible(u"frmAgendamento"_s));
        EXPECT_EQ(states(agenda).first(3) + texts(agenda), u"111"_s + allEmpty);
    };
    on<frmCli_Agenda>([&](ScreenDriver& agenda) {
        agenda.doubleClickRow(u"List1"_s, 0);
        asked(agenda, u"Command5"_s, u"Notificaçao confimada?"_s);
        EXPECT_TRUE(agenda.list(u"List1"_s)[0].contains(u"|1 - Sim|1  |"));
        agenda.doubleClickRow(u"List1"_s, 1);
        asked(agenda, u"Command9"_s, u"Confirma o cancelamento do agendamento?"_s);
        EXPECT_EQ(agenda.list(u"List1"_s)[1], u"08:30") << "free again";

        agenda.doubleClickRow(u"List1"_s, 2);
        answer(u"frmCli_AgendaCF"_s, {Qt::Key_Escape});
        agenda.click(u"Command4"_s);
        EXPECT_TRUE(agenda.visible(u"frmAgendamento"_s)) << "not closed";
        modal.expect(u"frmCli_AgendaCF"_s, [this](ScreenDriver& closing) {
            EXPECT_EQ(shown(closing, u"lPac lIdAgenda lProf lDT lHR txtIdProc txtNmProc txtVR txtQt"_s),
                      u"22 | RITA|ELA|K3|ANA"_s + QString(42, u' ') +
                          u"|11|200,00|3|0|16/03/2026|09:00|32|RETORNO|R$ 180,50|1"_s);
            EXPECT_EQ(shown(closing, u"txtIdConv txtNmConv"_s), u"5|SAÚDE TOTAL");
            closing.type(u"txtVR"_s, u"0"_s); // nothing is due, and nothing is paid
            closing.click(u"Command2"_s);
            dialogs.expectQuestion(u"Confirma?"_s, true);
            closing.click(u"Command1"_s);
        });
        agenda.click(u"Command4"_s);
        EXPECT_EQ(Variaveis::RetornoFechamento, u"") << "read";
        EXPECT_EQ(states(agenda).first(3) + texts(agenda), u"111"_s + allEmpty);
        EXPECT_TRUE(agenda.list(u"List1"_s)[2].contains(u"|2  |"));
        dialogs.expect(u"ATENDIMENTO JÁ CONFIRMADO!"_s);
        agenda.doubleClickRow(u"List1"_s, 2);
        EXPECT_FALSE(agenda.visible(u"frmAgendamento"_s)) << "a closed one cannot be opened";
    });
    EXPECT_EQ(flat(u"select idlic,idagenda,status,evcad,evup from agenda_clinica order by 1,2"_s),
              (QStringList{u"B2|K1|0||Z"_s, u"B2|K2|0||Z"_s, u"C1|K1|1|X|"_s + stamp, u"C1|K3|2|X|Y"_s}));
    EXPECT_EQ(flat(u"select idproc,qtde,valor,idpac,idprof from atendimentos"_s),
              QStringList{u"32|1.0000|0.0000|22|11"_s});
}
