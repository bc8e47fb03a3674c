#include "agenda/agenda_fixture.h"
#include "agenda/frmcli_agendacf.h"
#include "support/caughterrors.h"

#include <QLineEdit>

using namespace Qt::StringLiterals;

using namespace Variaveis;

namespace {

const QString attention = u"ATENÇÃO"_s;

/// MARIA closes K1, JOÃO's at 08:30 with ANA.
class Closing : public AgendaTest
{
protected:
    Closing()
    {
        book(u"K1"_s, 11, 21, u"JOÃO"_s, u"2026-03-16"_s, u"08:30"_s, u"1"_s);
        book(u"K2"_s, 11, 21, u"JOÃO"_s, u"2026-03-16"_s, u"09:00"_s);
        bookElsewhere(u"K1"_s);
    }

    /// The appointment with this price stands in the boxes; the steps must leave the screen.
    void close(const QString& price, const std::function<void(ScreenDriver&)>& steps)
    {
        RetornoFechamento = u"N"_s;
        const QString procedure = u"CONSULTA"_s.leftJustified(45) + u"|31"_s;
        Form::of<frmCli_AgendaCF>().recebe({u"21"_s, u"JOÃO"_s, u"K1"_s, u"DRA. ANA|NIA |11|250|3|2"_s,
                                            u"16/03/2026"_s, u"08:30"_s, procedure, price, u"5"_s,
                                            u"SAÚDE TOTAL"_s});
        open<frmCli_AgendaCF>(steps);
    }

    static void add(ScreenDriver& screen, const QString& procedure, const QString& quantity,
                    const QString& price)
    {
        screen.type(u"txtIdProc"_s, procedure);
        screen.type(u"txtQt"_s, quantity);
        screen.type(u"txtVR"_s, price);
        screen.click(u"Command2"_s);
    }

    void confirm(ScreenDriver& screen, bool yes = true)
    {
        dialogs.expectQuestion(u"Confirma?"_s, yes);
        screen.click(u"Command1"_s);
    }

    static QString missing(const ScreenDriver& screen)
    {
        return screen.list(u"List3"_s).value(2).section(u": "_s, 1);
    }

    /// The lines of what is charged, what is paid, and the totals.
    static QStringList lines(const ScreenDriver& screen)
    {
        return screen.list(u"List1"_s) + screen.list(u"List2"_s) + screen.list(u"List3"_s);
    }
};

} // namespace

TEST_F(Closing, ProceduresAndPaymentsAreWrittenAndTheAppointmentIsClosed)
{
    close(u"R$ 1.250,00"_s, [this](ScreenDriver& screen) {
        EXPECT_EQ(lines(screen), QStringList()) << "ready in the boxes, not yet charged";
        EXPECT_FALSE(screen.enabled(u"Command1"_s));
        screen.click(u"Command2"_s);
        EXPECT_EQ(shown(screen, u"txtIdProc txtNmProc txtQt txtVR txtNmConv"_s), u"||||SAÚDE TOTAL")
            << "the plan stays for the next one";

        // The second one by the keyboard alone.
        screen.typeOn(u"32"_s);
        for (const QString& next : {u"1,5"_s, u"80,1"_s, u"6,9"_s, u""_s}) {
            screen.press(Qt::Key_Return);
            if (screen.focused() == u"txtIdConv")
                screen.press(Qt::Key_A, Qt::ControlModifier);
            screen.typeOn(next);
        }
        EXPECT_EQ(screen.focused(), u"Command2");
        screen.press(Qt::Key_Return);
        pay(screen, u"DINHEIRO"_s, u"1.000"_s, u"  troco dado "_s);
        pay(screen, u"CREDITO CARTAO"_s, u"370,15"_s);
        EXPECT_EQ(lines(screen),
                  (QStringList{u"CONSULTA                                     |     1|    R$ 1.250,00|"
                               "SAÚDE TOTAL              |5         |31        "_s,
                               u"RETORNO                                      |   1,5|       R$ 80,10|"
                               "PARTICULAR               |6         |32        "_s,
                               u"DINHEIRO            |    R$ 1.000,00|  TROCO DADO "_s,
                               u"CREDITO CARTAO      |      R$ 370,15|"_s, u"Total a Pagar.: R$ 1.370,15"_s,
                               u"Total Pago....: R$ 1.370,15"_s, u"Falta.........: R$ 0,00"_s}));
        confirm(screen);
        EXPECT_FALSE(screen.isOpen());
    });
    EXPECT_EQ(RetornoFechamento, u"S");
    EXPECT_EQ(flat(u"select idlan,idlic,ondeatd,idprof,idproc,dt,hr,qtde,valor,cf,idatendimento,idconv,evcad,"
                   "idpac from atendimentos order by idreg"_s),
              (QStringList{u"C101603260830213111|C1|0|11|31|2026-03-16|0830|1.0000|1250.0000|N|"
                           "02116032026083015|5|MARIA 16/03/2026 08:30:15|21"_s,
                           u"C101603260830213211|C1|0|11|32|2026-03-16|0830|1.5000|80.1000|N|"
                           "02116032026083015|6|MARIA 16/03/2026 08:30:15|21"_s}));
    EXPECT_EQ(flat(u"select idlic,idatend,mp,obs,valor,cf,evcad from atendimento_finan order by idreg"_s),
              (QStringList{u"C1|02116032026083015|DINHEIRO|TROCO DADO|1000.0000|N|"_s + stamp,
                           u"C1|02116032026083015|CREDITO CARTAO||370.1500|N|"_s + stamp}));
    EXPECT_EQ(flat(u"select idlic,idagenda,status,evup from agenda_clinica order by idlic,idagenda"_s),
              (QStringList{u"B2|K1|0|Z"_s, u"C1|K1|2|Y"_s, u"C1|K2|0|Y"_s}))
        << "this appointment and no other";
}

/// The sums are those that are shown: neither binary fractions nor parts of a cent stand in the way. What a
/// double click has taken back is neither counted nor written.
TEST_F(Closing, ToTheCent)
{
    close(u"0,1"_s, [this](ScreenDriver& screen) {
        const auto take = [&](const QString& list, int line, bool yes) {
            dialogs.expectQuestion(u"Estorna?"_s, yes);
            screen.doubleClickRow(list, line);
            return missing(screen);
        };
        screen.click(u"Command2"_s);
        add(screen, u"32"_s, u"1"_s, u"0,2"_s);
        pay(screen, u"PIX"_s, u"0,3"_s);
        EXPECT_EQ(missing(screen), u"R$ 0,00");
        add(screen, u"32"_s, u"0,3334"_s, u"10"_s);
        pay(screen, u"PIX"_s, u"3,33"_s); // the same kind again
        EXPECT_EQ(missing(screen), u"R$ 0,00");
        add(screen, u"32"_s, u"1.000"_s, u"10,005"_s);
        EXPECT_EQ(missing(screen), u"R$ 10.010,00") << "a thousand of 10,01";
        pay(screen, u"CHEQUE"_s, u"R$ 10.009,99"_s);
        EXPECT_EQ(missing(screen), u"R$ 0,01");
        confirm(screen, false);
        EXPECT_TRUE(screen.isOpen()) << "the question comes first, and No ends it";
        dialogs.expectQuestion(u"Confirma?"_s, true);
        dialogs.expect(u"--- ERRO --- VALOR TOTAL RECEBIDO INFERIOR AO TOTAL A PAGAR!"_s, attention);
        screen.click(u"Command1"_s);
        pay(screen, u"CONVENIO"_s, u"50"_s);
        EXPECT_EQ(missing(screen), u"-R$ 49,99");
        EXPECT_EQ(take(u"List1"_s, 0, false), u"-R$ 49,99");
        EXPECT_EQ(take(u"List1"_s, 0, true), u"-R$ 50,09");
        EXPECT_EQ(take(u"List2"_s, 1, true), u"-R$ 46,76");
        for (const char* rest : {"-R$ 46,96", "-R$ 50,29", "-R$ 10.060,29"})
            EXPECT_EQ(take(u"List1"_s, 0, true), QString::fromLatin1(rest));
        EXPECT_FALSE(screen.enabled(u"Command1"_s)) << "nothing is charged any more";
        add(screen, u"32"_s, u"0,3334"_s, u"10"_s);
        add(screen, u"32"_s, u"1.000"_s, u"10,005"_s);
        confirm(screen);
    });
    EXPECT_EQ(flat(u"select qtde,valor from atendimentos order by idreg"_s),
              (QStringList{u"0.3334|10.0000"_s, u"1000.0000|10.0100"_s}));
    EXPECT_EQ(flat(u"select mp,valor from atendimento_finan order by idreg"_s),
              (QStringList{u"PIX|0.3000"_s, u"CHEQUE|10009.9900"_s, u"CONVENIO|50.0000"_s}));
    EXPECT_EQ(value(u"select count(distinct idlan) from atendimentos"_s), u"1")
        << "one procedure, one key, however often it is charged";
}

TEST_F(Closing, AProcedureIsRefusedAndSearched)
{
    const QString invalid = u"--- ERRO --- DADOS INVÁLIDOS!"_s;
    const QString negative = u"--- ERRO --- VALOR NÃO PODE SER MENOR QUE ZERO!"_s;
    const QString none = u"--- ERRO --- QTDE NÃO PODE SER MENOR E/OU IGUAL A ZERO!"_s;
    // Procedure, plan, quantity, price.
    const QList<QPair<QString, QString>> attempts = {
        {u"99|5|1|1"_s, invalid}, {u"33|5|1|1"_s, invalid},   {u"34|5|1|1"_s, invalid},
        {u"31|7|1|1"_s, invalid}, {u"31||1|1"_s, invalid},    {u"31|5|x|-1"_s, invalid},
        {u"31|5|0|"_s, invalid},  {u"31|5|0|-1"_s, negative}, {u"31|5|0|0"_s, none},
        {u"31|5|-1|1"_s, none},
    };
    close(u"1"_s, [&](ScreenDriver& screen) {
        for (const auto& [cells, refusal] : attempts) {
            SCOPED_TRACE(cells.toStdString());
            const QStringList cell = cells.split(u'|');
            dialogs.expect(refusal, attention);
            screen.type(u"txtIdConv"_s, cell[1]);
            add(screen, cell[0], cell[2], cell[3]);
            dialogs.verify();
        }
        EXPECT_EQ(lines(screen), QStringList());
        EXPECT_EQ(screen.text(u"txtQt"_s), u"-1") << "what was typed stays";

        screen.type(u"txtIdProc"_s, u"3"_s);
        EXPECT_EQ(screen.text(u"txtNmProc"_s), u"") << "another code, no name yet";
        search(screen, Qt::Key_F2, u"frmBuscaProcedimentos"_s);
        answer(u"frmBuscaProcedimentos"_s, {Qt::Key_Escape});
        screen.press(Qt::Key_F2); // given up
        search(screen, Qt::Key_F3, u"frmBuscaConvenios"_s);
        EXPECT_EQ(shown(screen, u"txtIdProc txtNmProc txtIdConv txtNmConv"_s), u"31|CONSULTA|6|PARTICULAR");
        screen.press(Qt::Key_Return);
        EXPECT_EQ(static_cast<QLineEdit*>(screen.find(u"txtQt"_s))->selectedText(), u"-1");
        screen.press(Qt::Key_Escape);
    });
}

TEST_F(Closing, WhileAPaymentIsTakenTheTotalsCannotChange)
{
    const QStringList locked = u"cboMP Command1 Command2 List1 List2 txtIdProc txtIdConv"_s.split(u' ');
    const auto able = [&locked](const ScreenDriver& screen) {
        return std::count_if(locked.begin(), locked.end(),
                             [&screen](const QString& control) { return screen.enabled(control); });
    };
    close(u"10"_s, [&](ScreenDriver& screen) {
        screen.click(u"Command2"_s);
        screen.choose(u"cboMP"_s, u"DÉBITO CARTAO"_s);
        EXPECT_EQ(screen.text(u"lMP"_s), u"DÉBITO CARTAO");
        EXPECT_EQ(screen.focused(), u"txtVrMp");
        EXPECT_EQ(able(screen), 0);
        screen.press(Qt::Key_F2); // would open a search
        screen.press(Qt::Key_F3);
        for (const QString& value : {u""_s, u"dez"_s, u"0"_s, u"-1"_s}) {
            screen.type(u"txtVrMp"_s, value);
            dialogs.expect(u"--- ERRO --- VALOR INVÁLIDO!"_s, attention);
            screen.click(u"Command16"_s);
        }
        screen.type(u"txtVrMp"_s, u"4"_s);
        screen.type(u"txtobs"_s, u"x"_s);
        screen.click(u"Command17"_s);
        EXPECT_EQ(able(screen), locked.size());
        EXPECT_EQ(missing(screen), u"R$ 10,00") << "left without saving";

        // By the keyboard: the value, the remark, the button.
        screen.choose(u"cboMP"_s, u"CHEQUE"_s);
        EXPECT_EQ(shown(screen, u"txtVrMp txtobs"_s), u"|") << "fresh boxes";
        screen.typeOn(u"4"_s);
        for (int i = 0; i < 3; ++i)
            screen.press(Qt::Key_Return);
        EXPECT_EQ(missing(screen), u"R$ 6,00");
        screen.choose(u"cboMP"_s, u"PIX"_s);
        screen.press(Qt::Key_Escape); // leaves the screen, not the payment alone
    });
    EXPECT_EQ(value(u"select count(*) from atendimentos"_s) + RetornoFechamento, u"0N");
}

/// Each row is committed by itself: a failure leaves those before it, and the appointment open.
TEST_F(Closing, AFailureInTheMiddleKeepsWhatWasWritten)
{
    const CaughtErrors errors;
    close(u"10"_s, [this](ScreenDriver& screen) {
        screen.click(u"Command2"_s);
        pay(screen, u"PIX"_s, u"5"_s);
        pay(screen, u"DINHEIRO"_s, u"5"_s, u"d'agua"_s);
        confirm(screen);
        screen.press(Qt::Key_Escape);
    });
    EXPECT_EQ(errors.numbers().size(), 1);
    EXPECT_EQ(flat(u"select mp,status from atendimentos,atendimento_finan,agenda_clinica where evup = 'Y' "
                   "and idagenda = 'K1'"_s),
              QStringList{u"PIX|1"_s});
    EXPECT_EQ(RetornoFechamento, u"N");
}
