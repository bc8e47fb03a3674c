#include "agenda/agenda_fixture.h"

namespace {

const QString booked = u"Agendado com sucesso!"_qs;

class Day : public AgendaTest
{
protected:
    Day()
    {
        execute(
            u"insert into profissionais (idpro,idlic,nmpro,idesp,ondeatd,valor) values "
            "(16,'C1','ELZA',4,'2',0);"
            "insert into diahr (idlic,idpro,dia,hr) values ('C1',16,'2 - SEGUNDA-FEIRA','08:30/10:00');"
            "insert into pacientes (idpac,idlic,nmPac,fonecel,idconv) values (24,'C1','SEBASTIÃO','9',6)"_qs);
    }

    /// Looks a name up in the dialog under the key, and takes it.
    void find(ScreenDriver& agenda, Qt::Key key, const QString& dialog, const QString& name)
    {
        dialogs.expectInput(u"NOME:"_qs, name);
        answer(dialog, {Qt::Key_F2, Qt::Key_F10});
        agenda.press(key);
        agenda.press(Qt::Key_Return);
    }

    /// The patient found in the dialog by name, the plan as well if one is named; then saved.
    void bookByName(ScreenDriver& agenda, int line, const QString& patient, const QString& plan = {})
    {
        agenda.doubleClickRow(u"List1"_qs, line);
        find(agenda, Qt::Key_F2, u"frmBuscaPacientes"_qs, patient);
        if (!plan.isEmpty()) {
            agenda.focus(u"txtIdConv"_qs);
            find(agenda, Qt::Key_F3, u"frmBuscaConvenios"_qs, plan);
        }
        dialogs.expect(booked);
        agenda.click(u"Command7"_qs);
        clock.advance(60);
    }

    void confirm(ScreenDriver& closing)
    {
        dialogs.expectQuestion(u"Confirma?"_qs, true);
        closing.click(u"Command1"_qs);
    }

    void close(ScreenDriver& agenda, int line, std::function<void(ScreenDriver&)> steps)
    {
        agenda.doubleClickRow(u"List1"_qs, line);
        modal.expect(u"frmCli_AgendaCF"_qs, std::move(steps));
        agenda.click(u"Command4"_qs);
        clock.advance(60);
    }
};

} // namespace

/// From 08:30:15 a minute passes at each booking and closing.
TEST_F(Day, FromFreeSlotsToClosedAttendances)
{
    on<frmCli_Agenda>([&](ScreenDriver& agenda) {
        bookByName(agenda, 1, u"JO"_qs, u"PART"_qs); // ANA 08:30, at the full price
        bookByName(agenda, 2, u"SEB"_qs);            // ANA 09:00
        agenda.choose(u"cboPro"_qs, u"ELZA"_qs);
        bookByName(agenda, 1, u"RITA"_qs); // 10:00, who takes no money

        // SEBASTIÃO is told, and moves to the afternoon.
        agenda.choose(u"cboPro"_qs, u"ANA"_qs);
        dialogs.expectQuestion(u"Notificaçao confimada?"_qs, true);
        agenda.doubleClickRow(u"List1"_qs, 2);
        agenda.click(u"Command5"_qs);
        agenda.doubleClickRow(u"List1"_qs, 2);
        agenda.doubleClickRow(u"List1"_qs, 3);
        dialogs.expect(booked);
        agenda.click(u"Command7"_qs);

        // JOÃO had two things done, and pays by cash and card.
        close(agenda, 1, [&](ScreenDriver& closing) {
            closing.click(u"Command2"_qs);
            closing.type(u"txtIdProc"_qs, u"32"_qs);
            closing.type(u"txtQt"_qs, u"1,5"_qs);
            closing.type(u"txtVR"_qs, u"10,33"_qs);
            closing.click(u"Command2"_qs);
            pay(closing, u"DINHEIRO"_qs, u"200"_qs);
            pay(closing, u"CREDITO"_qs, u"15,50"_qs);
            confirm(closing);
        });
        // SEBASTIÃO pays more than is due, ELZA's RITA nothing.
        close(agenda, 3, [&](ScreenDriver& closing) {
            closing.click(u"Command2"_qs);
            pay(closing, u"PIX"_qs, u"250"_qs);
            confirm(closing);
        });
        agenda.choose(u"cboPro"_qs, u"ELZA"_qs);
        close(agenda, 1, [&](ScreenDriver& closing) {
            closing.click(u"Command2"_qs);
            confirm(closing);
        });
        EXPECT_TRUE(agenda.list(u"List1"_qs)[1].contains(u"|2  |"));
    });

    EXPECT_EQ(
        flat(
            u"select idagenda,idpro,idpac,dia,hr,valor,status,right(evup,8) from agenda_clinica order by 1"_qs),
        (QStringList{u"260316083015MARIA11|11|21|2026-03-16|08:30|200.00|2|08:30:15"_qs,
                     u"260316083115MARIA11|11|24|2026-03-16|13:00|200.00|2|08:33:15"_qs,
                     u"260316083215MARIA16|16|22|2026-03-16|10:00|0.00|2|08:32:15"_qs}));
    EXPECT_EQ(flat(u"select idlan,qtde,valor,idatendimento,idconv from atendimentos order by idreg"_qs),
              (QStringList{u"C101603260830213111|1.0000|200.0000|02116032026083315|6"_qs,
                           u"C101603260830213211|1.5000|10.3300|02116032026083315|6"_qs,
                           u"C101603261300243111|1.0000|200.0000|02416032026083415|6"_qs,
                           u"C101603261000223116|1.0000|0.0000|02216032026083515|6"_qs}));
    EXPECT_EQ(
        flat(u"select idatend,mp,valor from atendimento_finan order by idreg"_qs),
        (QStringList{u"02116032026083315|DINHEIRO|200.0000"_qs,
                     u"02116032026083315|CREDITO CARTAO|15.5000"_qs, u"02416032026083415|PIX|250.0000"_qs}));
}
