#include "agenda/agenda_fixture.h"

using namespace Qt::StringLiterals;

namespace {

class Day : public AgendaTest
{
protected:
    Day()
    {
        execute(u"insert into profissionais (idpro,idlic,nmpro,idesp,ondeatd,valor) values "
                "(16,'C1','ELZA',4,'2',0);"
                "insert into diahr (idlic,idpro,dia,hr) values ('C1',14,'2 - SEGUNDA-FEIRA','08:30/09:00'),"
                "('C1',16,'2 - SEGUNDA-FEIRA','08:30/10:00'),('C1',14,'3 - TERÇA-FEIRA','09:00');"
                "insert into pacientes (idpac,idlic,nmPac,fonecel,idconv) values (24,'C1','SEBASTIÃO','9',6);"
                "insert into feriados (idlic,dia,Mes,obs) values ('C1',17,3,'DIA DA CIDADE')"_s);
    }

    /// The patient found in the dialog by name, the plan as well if one is named; then saved.
    void bookByName(ScreenDriver& agenda, int line, const QString& patient, const QString& plan = {},
                    const QString& answer = u"Agendado com sucesso!"_s)
    {
        agenda.doubleClickRow(u"List1"_s, line);
        dialogs.expectInput(u"NOME:"_s, patient);
        modal.expect(u"frmBuscaPacientes"_s, [](ScreenDriver& search) {
            search.press(Qt::Key_F2);
            search.press(Qt::Key_F10);
        });
        agenda.press(Qt::Key_F2);
        agenda.press(Qt::Key_Return);
        if (!plan.isEmpty()) {
            dialogs.expectInput(u"NOME:"_s, plan);
            modal.expect(u"frmBuscaConvenios"_s, [](ScreenDriver& search) {
                search.press(Qt::Key_F2);
                search.press(Qt::Key_F10);
            });
            agenda.focus(u"txtIdConv"_s);
            agenda.press(Qt::Key_F3);
            agenda.press(Qt::Key_Return);
        }
        dialogs.expect(answer);
        agenda.click(u"Command7"_s);
        clock.advance(60);
    }

    void close(ScreenDriver& agenda, int line, std::function<void(ScreenDriver&)> steps)
    {
        agenda.doubleClickRow(u"List1"_s, line);
        modal.expect(u"frmCli_AgendaCF"_s, std::move(steps));
        agenda.click(u"Command4"_s);
        clock.advance(60);
    }
};

} // namespace

/// From 08:30:15 a minute passes at each booking and closing.
TEST_F(Day, FromFreeSlotsToClosedAttendances)
{
    open<frmCli_Agenda>([&](ScreenDriver& agenda) {
        bookByName(agenda, 1, u"JO"_s, u"PART"_s); // ANA 08:30, at the full price
        bookByName(agenda, 2, u"SEB"_s);           // ANA 09:00
        agenda.choose(u"cboPro"_s, u"ELZA"_s);
        bookByName(agenda, 1, u"RITA"_s); // 10:00, who takes no money
        agenda.choose(u"cboPro"_s, u"CARLA"_s);
        bookByName(agenda, 1, u"RITA"_s);  // 09:00
        bookByName(agenda, 0, u"JO"_s, {}, // at 08:30 he is with ANA
                   u"--- PACIENTE JÁ POSSUI AGENDA NESSA MESMA DATA E HORÁRIO COM OUTRO PROFISSIONAL!"_s);
        agenda.click(u"Command8"_s);

        // SEBASTIÃO is told, and moves to the afternoon; RITA calls CARLA off.
        agenda.choose(u"cboPro"_s, u"ANA"_s);
        dialogs.expectQuestion(u"Notificaçao confimada?"_s, true);
        agenda.doubleClickRow(u"List1"_s, 2);
        agenda.click(u"Command5"_s);
        agenda.doubleClickRow(u"List1"_s, 2);
        agenda.doubleClickRow(u"List1"_s, 3);
        dialogs.expect(u"Agendado com sucesso!"_s);
        agenda.click(u"Command7"_s);
        agenda.choose(u"cboPro"_s, u"CARLA"_s);
        dialogs.expectQuestion(u"Confirma o cancelamento do agendamento?"_s, true);
        agenda.doubleClickRow(u"List1"_s, 1);
        agenda.click(u"Command9"_s);

        // DAVI works on the holiday, and nothing keeps the clerk from booking.
        agenda.choose(u"cboPro"_s, u"DAVI"_s);
        agenda.focus(u"Calendar1"_s);
        agenda.press(Qt::Key_Right);
        EXPECT_EQ(agenda.text(u"lFeriado"_s), u"FERIADO: DIA DA CIDADE");
        bookByName(agenda, 0, u"RITA"_s);

        // JOÃO had two things done, and pays by cash and card, at first too little.
        agenda.choose(u"cboPro"_s, u"ANA"_s);
        close(agenda, 1, [&](ScreenDriver& closing) {
            closing.click(u"Command2"_s);
            closing.type(u"txtIdProc"_s, u"32"_s);
            closing.type(u"txtQt"_s, u"1,5"_s);
            closing.type(u"txtVR"_s, u"10,33"_s);
            closing.click(u"Command2"_s);
            pay(closing, u"DINHEIRO"_s, u"200"_s);
            dialogs.expectQuestion(u"Confirma?"_s, true);
            dialogs.expect(u"--- ERRO --- VALOR TOTAL RECEBIDO INFERIOR AO TOTAL A PAGAR!"_s);
            closing.click(u"Command1"_s);
            pay(closing, u"CREDITO"_s, u"15,50"_s);
            dialogs.expectQuestion(u"Confirma?"_s, true);
            closing.click(u"Command1"_s);
        });
        // SEBASTIÃO pays more than is due, ELZA's RITA nothing.
        close(agenda, 3, [&](ScreenDriver& closing) {
            closing.click(u"Command2"_s);
            pay(closing, u"PIX"_s, u"250"_s);
            dialogs.expectQuestion(u"Confirma?"_s, true);
            closing.click(u"Command1"_s);
        });
        agenda.choose(u"cboPro"_s, u"ELZA"_s);
        close(agenda, 1, [&](ScreenDriver& closing) {
            closing.click(u"Command2"_s);
            dialogs.expectQuestion(u"Confirma?"_s, true);
            closing.click(u"Command1"_s);
        });
        EXPECT_TRUE(agenda.list(u"List1"_s)[1].contains(u"|2  |"));
        agenda.press(Qt::Key_Escape);
    });

    EXPECT_EQ(
        flat(
            u"select idagenda,idpro,idpac,dia,hr,valor,status,right(evup,8) from agenda_clinica order by 1"_s),
        (QStringList{u"260316083015MARIA11|11|21|2026-03-16|08:30|200.00|2|08:30:15"_s,
                     u"260316083115MARIA11|11|24|2026-03-16|13:00|200.00|2|08:35:15"_s,
                     u"260316083215MARIA16|16|22|2026-03-16|10:00|0.00|2|08:32:15"_s,
                     u"260316083515MARIA14|14|22|2026-03-17|09:00|100.00|0|08:35:15"_s}));
    EXPECT_EQ(flat(u"select idlan,qtde,valor,idatendimento,idconv from atendimentos order by idreg"_s),
              (QStringList{u"C101603260830213111|1.0000|200.0000|02116032026083615|6"_s,
                           u"C101603260830213211|1.5000|10.3300|02116032026083615|6"_s,
                           u"C101603261300243111|1.0000|200.0000|02416032026083715|6"_s,
                           u"C101603261000223116|1.0000|0.0000|02216032026083815|6"_s}));
    EXPECT_EQ(
        flat(u"select idatend,mp,valor from atendimento_finan order by idreg"_s),
        (QStringList{u"02116032026083615|DINHEIRO|200.0000"_s, u"02116032026083615|CREDITO CARTAO|15.5000"_s,
                     u"02416032026083715|PIX|250.0000"_s}));
}
