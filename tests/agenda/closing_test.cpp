#include "agenda/frmcli_agendacf.h"
#include "app/shell_fixture.h"
#include "support/caughterrors.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>

using namespace Variaveis;

namespace {

const QString invalid = u"--- ERRO --- DADOS INVÁLIDOS!"_qs;
const QString badValue = u"--- ERRO --- VALOR INVÁLIDO!"_qs;
const QString notCovered = u"--- ERRO --- VALOR TOTAL RECEBIDO INFERIOR AO TOTAL A PAGAR!"_qs;
const QString attention = u"ATENÇÃO"_qs;

/// A key for the list that hangs open from a combo box.
void pressInPopup(Qt::Key key)
{
    QWidget* popup = QApplication::activePopupWidget();
    ASSERT_TRUE(popup);
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
    QApplication::sendEvent(popup->focusWidget(), &press);
    settle();
}

/// MARIA closes the appointment of patient 105 with professional 12 on 16/03/2026 at 08:30.
class Closing : public LoggedIn
{
protected:
    Closing()
    {
        execute(u"insert into procedimentos (idproc,idlic,nmproc,ondeatd) values (3,'C1','CONSULTA','0'),"
                "(4,'C1','CURATIVO','0'),(5,'C1','VISITA','1'),(6,'C2','ALHEIO','0');"
                "insert into convenios (idconv,idlic,nmconv) values (2,'C1','OURO'),(8,'C1','PRATA'),"
                "(9,'C2','ALHEIO');"
                "insert into agenda_clinica (idlic,idagenda,idpro,dia,hr,status,evup) values "
                "('C1','260316080000ANA12',12,'2026/03/16','08:30','1','ANA'),"
                "('C1','260316080001ANA12',12,'2026/03/16','09:00','0','ANA'),"
                "('C2','260316080000ANA12',12,'2026/03/16','08:30','0','ANA')"_qs);
    }

    /// The appointment with this price stands in the boxes; the steps must leave the screen.
    void close(const QString& price, std::function<void(ScreenDriver&)> steps)
    {
        RetornoFechamento = u"N"_qs;
        Form::of<frmCli_AgendaCF>().recebe(
            {.idPac = u"105"_qs,
             .nmPac = u"RITA"_qs,
             .idAgenda = u"260316080000ANA12"_qs,
             .profissional = u"DR. RUI"_qs.leftJustified(45) + u"|12|250|3|2"_qs,
             .data = u"16/03/2026"_qs,
             .hora = u"08:30"_qs,
             .procedimento = u"CONSULTA"_qs.leftJustified(45) + u"|3"_qs,
             .valor = price,
             .idConv = u"2"_qs,
             .nmConv = u"OURO"_qs});
        open<frmCli_AgendaCF>(std::move(steps));
    }

    static void add(ScreenDriver& screen, const QString& procedure, const QString& quantity,
                    const QString& price)
    {
        screen.type(u"txtIdProc"_qs, procedure);
        screen.type(u"txtQt"_qs, quantity);
        screen.type(u"txtVR"_qs, price);
        screen.click(u"Command2"_qs);
    }

    static void pay(ScreenDriver& screen, const QString& kind, const QString& value,
                    const QString& remark = {})
    {
        screen.choose(u"cboMP"_qs, kind);
        screen.type(u"txtVrMp"_qs, value);
        screen.type(u"txtobs"_qs, remark);
        screen.click(u"Command16"_qs);
    }

    void confirm(ScreenDriver& screen, bool yes = true)
    {
        dialogs.expectQuestion(u"Confirma?"_qs, yes);
        screen.click(u"Command1"_qs);
    }

    static QString missing(const ScreenDriver& screen)
    {
        return screen.list(u"List3"_qs).value(2).section(u": "_qs, 1);
    }

    static QString status()
    {
        return value(u"select group_concat(status order by idlic,idagenda) from agenda_clinica"_qs);
    }
    static QString written()
    {
        return value(u"select concat((select count(*) from atendimentos),' ',"
                     "(select count(*) from atendimento_finan))"_qs);
    }
};

} // namespace

TEST_F(Closing, ProceduresAndPaymentsAreWrittenAndTheAppointmentIsClosed)
{
    close(u"R$ 1.250,00"_qs, [this](ScreenDriver& screen) {
        EXPECT_EQ(screen.window().windowTitle(), u"Agenda - Confirmação de Atendimento");
        EXPECT_EQ(screen.text(u"lPac"_qs), u"105 | RITA");
        EXPECT_EQ(screen.text(u"lProf"_qs), (u"DR. RUI"_qs.leftJustified(45) + u"|12|250|3|2"_qs));
        EXPECT_EQ(screen.text(u"txtQt"_qs), u"1");
        EXPECT_EQ(screen.list(u"List1"_qs), QStringList()) << "ready in the boxes, not yet charged";
        EXPECT_FALSE(screen.enabled(u"Command1"_qs));
        screen.click(u"Command2"_qs);
        for (const char* emptied : {"txtIdProc", "txtNmProc", "txtQt", "txtVR"})
            EXPECT_EQ(screen.text(QString::fromLatin1(emptied)), u"") << emptied;
        EXPECT_EQ(screen.focused(), u"txtIdProc");
        EXPECT_EQ(screen.text(u"txtNmConv"_qs), u"OURO") << "the plan stays for the next one";

        // The second one by the keyboard alone.
        screen.typeOn(u"4"_qs);
        for (const QString& next : {u"1,5"_qs, u"80,1"_qs, u"8"_qs, u""_qs}) {
            screen.press(Qt::Key_Return);
            if (screen.focused() == u"txtIdConv")
                screen.press(Qt::Key_A, Qt::ControlModifier);
            screen.typeOn(next);
        }
        EXPECT_EQ(screen.focused(), u"Command2");
        screen.press(Qt::Key_Return);
        EXPECT_EQ(screen.list(u"List1"_qs),
                  (QStringList{
                      u"CONSULTA                                     |     1|    R$ 1.250,00|"
                      "OURO                     |2         |3         "_qs,
                      u"CURATIVO                                     |   1,5|       R$ 80,10|"
                      "PRATA                    |8         |4         "_qs,
                  }));
        pay(screen, u"DINHEIRO"_qs, u"1.000"_qs, u"  troco dado "_qs);
        pay(screen, u"CREDITO CARTAO"_qs, u"370,15"_qs);
        EXPECT_EQ(screen.list(u"List2"_qs), (QStringList{
                                                u"DINHEIRO            |    R$ 1.000,00|  TROCO DADO "_qs,
                                                u"CREDITO CARTAO      |      R$ 370,15|"_qs,
                                            }));
        EXPECT_EQ(screen.list(u"List3"_qs), (QStringList{
                                                u"Total a Pagar.: R$ 1.370,15"_qs,
                                                u"Total Pago....: R$ 1.370,15"_qs,
                                                u"Falta.........: R$ 0,00"_qs,
                                            }));
        confirm(screen);
        EXPECT_FALSE(screen.isOpen());
    });
    EXPECT_EQ(RetornoFechamento, u"S");
    const QString key = u"010516032026083015"_qs;
    EXPECT_EQ(
        rows(u"select idlan,idlic,ondeatd,idprof,idproc,dt,hr,qtde,valor,cf,idatendimento,idconv,evcad,idpac "
             "from atendimentos order by idreg"_qs),
        (QList<QStringList>{
            QStringList{u"C101603260830105312"_qs, u"C1"_qs, u"0"_qs, u"12"_qs, u"3"_qs, u"2026-03-16"_qs,
                        u"0830"_qs, u"1.0000"_qs, u"1250.0000"_qs, u"N"_qs, key, u"2"_qs, stamp, u"105"_qs},
            QStringList{u"C101603260830105412"_qs, u"C1"_qs, u"0"_qs, u"12"_qs, u"4"_qs, u"2026-03-16"_qs,
                        u"0830"_qs, u"1.5000"_qs, u"80.1000"_qs, u"N"_qs, key, u"8"_qs, stamp, u"105"_qs},
        }));
    EXPECT_EQ(rows(u"select idlic,idatend,mp,obs,valor,cf,evcad from atendimento_finan order by idreg"_qs),
              (QList<QStringList>{
                  {u"C1"_qs, key, u"DINHEIRO"_qs, u"TROCO DADO"_qs, u"1000.0000"_qs, u"N"_qs, stamp},
                  {u"C1"_qs, key, u"CREDITO CARTAO"_qs, u""_qs, u"370.1500"_qs, u"N"_qs, stamp},
              }));
    EXPECT_EQ(status(), u"2,0,0") << "this appointment and no other";
    EXPECT_EQ(value(u"select group_concat(distinct evup) from agenda_clinica"_qs), u"ANA");
}

TEST_F(Closing, WhatIsCoveredClosesAndWhatIsNotIsRefused)
{
    close(u"0"_qs, [this](ScreenDriver& screen) {
        screen.click(u"Command2"_qs);
        confirm(screen);
    });
    EXPECT_EQ(written() + u' ' + RetornoFechamento, u"1 0 S") << "nothing due, nothing paid";

    execute(u"update agenda_clinica set status = '1' where idlic = 'C1' and hr = '08:30'"_qs);
    close(u"100"_qs, [this](ScreenDriver& screen) {
        screen.click(u"Command2"_qs);
        pay(screen, u"CONVENIO"_qs, u"99,99"_qs);
        EXPECT_EQ(missing(screen), u"R$ 0,01");
        confirm(screen, false);
        EXPECT_TRUE(screen.isOpen()) << "the question comes first, and No ends it";
        dialogs.expectQuestion(u"Confirma?"_qs, true);
        dialogs.expect(notCovered, attention);
        screen.click(u"Command1"_qs);
        EXPECT_TRUE(screen.enabled(u"Command1"_qs));
        EXPECT_EQ(written(), u"1 0");
        EXPECT_EQ(status(), u"1,0,0");
        pay(screen, u"CONVENIO"_qs, u"50"_qs); // the same kind again
        EXPECT_EQ(missing(screen), u"-R$ 49,99");
        confirm(screen);
    });
    EXPECT_EQ(written() + u' ' + RetornoFechamento, u"2 2 S") << "an overpayment closes";
    EXPECT_EQ(status(), u"2,0,0");
}

/// The sums are those that are shown: neither binary fractions nor parts of a cent stand in the way.
TEST_F(Closing, ToTheCent)
{
    close(u"0,1"_qs, [this](ScreenDriver& screen) {
        screen.click(u"Command2"_qs);
        add(screen, u"4"_qs, u"1"_qs, u"0,2"_qs);
        pay(screen, u"PIX"_qs, u"0,3"_qs);
        EXPECT_EQ(missing(screen), u"R$ 0,00");
        add(screen, u"4"_qs, u"0,3334"_qs, u"10"_qs);
        pay(screen, u"PIX"_qs, u"3,33"_qs);
        EXPECT_EQ(missing(screen), u"R$ 0,00");
        add(screen, u"4"_qs, u"1.000"_qs, u"10,005"_qs);
        EXPECT_EQ(missing(screen), u"R$ 10.010,00") << "a thousand of 10,01";
        pay(screen, u"CHEQUE"_qs, u"R$ 10.010,00"_qs);
        confirm(screen);
    });
    EXPECT_EQ(value(u"select group_concat(concat(qtde,'x',valor) order by idreg separator ' ') from "
                    "atendimentos"_qs),
              u"1.0000x0.1000 1.0000x0.2000 0.3334x10.0000 1000.0000x10.0100");
    EXPECT_EQ(value(u"select count(distinct idlan) from atendimentos"_qs), u"2")
        << "one procedure, one key, however often it is charged";
}

TEST_F(Closing, AProcedureIsRefused)
{
    const QString negative = u"--- ERRO --- VALOR NÃO PODE SER MENOR QUE ZERO!"_qs;
    const QString none = u"--- ERRO --- QTDE NÃO PODE SER MENOR E/OU IGUAL A ZERO!"_qs;
    const struct
    {
        QString procedure, plan, quantity, price, refusal;
    } rows[] = {
        {u"99"_qs, u"2"_qs, u"1"_qs, u"1"_qs, invalid}, {u"5"_qs, u"2"_qs, u"1"_qs, u"1"_qs, invalid},
        {u"6"_qs, u"2"_qs, u"1"_qs, u"1"_qs, invalid},  {u"3"_qs, u"9"_qs, u"1"_qs, u"1"_qs, invalid},
        {u"3"_qs, u""_qs, u"1"_qs, u"1"_qs, invalid},   {u"3"_qs, u"2"_qs, u"x"_qs, u"1"_qs, invalid},
        {u"3"_qs, u"2"_qs, u"1"_qs, u""_qs, invalid},   {u"3"_qs, u"2"_qs, u"0"_qs, u"-1"_qs, negative},
        {u"3"_qs, u"2"_qs, u"0"_qs, u"0"_qs, none},     {u"3"_qs, u"2"_qs, u"-1"_qs, u"1"_qs, none},
    };
    for (const auto& row : rows)
        dialogs.expect(row.refusal, attention);
    close(u"1"_qs, [&](ScreenDriver& screen) {
        for (const auto& row : rows) {
            screen.type(u"txtIdConv"_qs, row.plan);
            add(screen, row.procedure, row.quantity, row.price);
            EXPECT_EQ(screen.list(u"List1"_qs).size(), 0);
        }
        EXPECT_EQ(screen.text(u"txtQt"_qs), u"-1") << "what was typed stays";
        EXPECT_FALSE(screen.enabled(u"Command1"_qs));
        screen.press(Qt::Key_Escape);
    });
}

TEST_F(Closing, WhileAPaymentIsTakenTheTotalsCannotChange)
{
    const QStringList locked = u"cboMP Command1 Command2 List1 List2 txtIdProc txtIdConv"_qs.split(u' ');
    const auto able = [&locked](const ScreenDriver& screen) {
        QStringList names;
        for (const QString& control : locked)
            if (screen.enabled(control))
                names << control;
        return names;
    };
    for (int i = 0; i < 4; ++i)
        dialogs.expect(badValue, attention);
    close(u"10"_qs, [&](ScreenDriver& screen) {
        EXPECT_FALSE(screen.visible(u"frmMPP"_qs));
        screen.click(u"Command2"_qs);
        EXPECT_EQ(able(screen), locked);
        screen.choose(u"cboMP"_qs, u"DÉBITO CARTAO"_qs);
        EXPECT_TRUE(screen.visible(u"frmMPP"_qs));
        EXPECT_EQ(screen.text(u"lMP"_qs), u"DÉBITO CARTAO");
        EXPECT_EQ(screen.focused(), u"txtVrMp");
        EXPECT_EQ(able(screen), QStringList());
        screen.press(Qt::Key_F2); // would open a search
        screen.press(Qt::Key_F3);
        for (const QString& value : {u""_qs, u"dez"_qs, u"0"_qs, u"-1"_qs}) {
            screen.type(u"txtVrMp"_qs, value);
            screen.click(u"Command16"_qs);
        }
        EXPECT_TRUE(screen.visible(u"frmMPP"_qs));
        screen.type(u"txtVrMp"_qs, u"4"_qs);
        screen.type(u"txtobs"_qs, u"x"_qs);
        screen.click(u"Command17"_qs);
        EXPECT_FALSE(screen.visible(u"frmMPP"_qs));
        EXPECT_EQ(able(screen), locked);
        EXPECT_EQ(screen.list(u"List2"_qs).size(), 0) << "left without saving";

        // By the keyboard: the list of kinds, the value, the remark, the button.
        screen.focus(u"cboMP"_qs);
        screen.press(Qt::Key_Space);
        pressInPopup(Qt::Key_Down);
        pressInPopup(Qt::Key_Return);
        EXPECT_EQ(screen.focused(), u"txtVrMp");
        EXPECT_EQ(screen.text(u"txtVrMp"_qs) + screen.text(u"txtobs"_qs), u"") << "fresh boxes";
        screen.typeOn(u"4"_qs);
        for (int i = 0; i < 3; ++i)
            screen.press(Qt::Key_Return);
        EXPECT_EQ(screen.list(u"List2"_qs).value(0).left(8), u"CHEQUE  ");
        EXPECT_EQ(missing(screen), u"R$ 6,00");
        screen.press(Qt::Key_Escape);
    });
}

TEST_F(Closing, ADoubleClickTakesALineBack)
{
    const auto answer = [this](bool yes) { dialogs.expectQuestion(u"Estorna?"_qs, yes); };
    close(u"10"_qs, [&](ScreenDriver& screen) {
        screen.click(u"Command2"_qs);
        add(screen, u"4"_qs, u"2"_qs, u"3"_qs);
        pay(screen, u"PIX"_qs, u"1"_qs);
        pay(screen, u"DINHEIRO"_qs, u"5"_qs);
        answer(false);
        screen.doubleClickRow(u"List1"_qs, 0);
        EXPECT_EQ(missing(screen), u"R$ 10,00");
        answer(true);
        screen.doubleClickRow(u"List1"_qs, 0);
        EXPECT_EQ(missing(screen), u"R$ 0,00");
        answer(true);
        screen.doubleClickRow(u"List2"_qs, 1);
        EXPECT_EQ(missing(screen), u"R$ 5,00");
        EXPECT_EQ(screen.list(u"List2"_qs).value(0).left(4), u"PIX ");
        answer(true);
        screen.doubleClickRow(u"List1"_qs, 0);
        EXPECT_EQ(screen.list(u"List1"_qs).size(), 0);
        EXPECT_FALSE(screen.enabled(u"Command1"_qs)) << "nothing is charged any more";
        add(screen, u"4"_qs, u"1"_qs, u"1"_qs);
        confirm(screen);
    });
    EXPECT_EQ(value(u"select group_concat(idproc,' ',qtde) from atendimentos"_qs), u"4 1.0000")
        << "what was taken back is not written";
    EXPECT_EQ(value(u"select group_concat(mp) from atendimento_finan"_qs), u"PIX");
}

TEST_F(Closing, CodesAreSearchedAndFetchTheirNames)
{
    close(u"10"_qs, [this](ScreenDriver& screen) {
        screen.typeOn(u"4"_qs);
        EXPECT_EQ(screen.text(u"txtNmProc"_qs), u"") << "another code, no name yet";
        screen.press(Qt::Key_Return);
        EXPECT_EQ(screen.text(u"txtNmProc"_qs), u"") << "34 is no procedure";
        screen.type(u"txtIdProc"_qs, u"4"_qs);
        screen.press(Qt::Key_Return);
        EXPECT_EQ(screen.text(u"txtNmProc"_qs), u"CURATIVO");
        EXPECT_EQ(static_cast<QLineEdit*>(screen.find(u"txtQt"_qs))->selectedText(), u"1");
        screen.click(u"txtVR"_qs);
        screen.click(u"txtVR"_qs);
        EXPECT_EQ(static_cast<QLineEdit*>(screen.find(u"txtVR"_qs))->selectedText(), u"10");
        modal.expect(u"frmBuscaProcedimentos"_qs, [](ScreenDriver& search) {
            EXPECT_EQ(search.grid(u"DataGrid1"_qs).size(), 2) << "the clinic's";
            search.press(Qt::Key_F10);
        });
        screen.press(Qt::Key_F2);
        EXPECT_EQ(screen.text(u"txtIdProc"_qs) + screen.text(u"txtNmProc"_qs), u"3CONSULTA");
        modal.expect(u"frmBuscaProcedimentos"_qs, [](ScreenDriver& search) { search.press(Qt::Key_Escape); });
        screen.press(Qt::Key_F2);
        EXPECT_EQ(screen.text(u"txtNmProc"_qs), u"CONSULTA") << "given up";
        modal.expect(u"frmBuscaConvenios"_qs, [](ScreenDriver& search) {
            search.press(Qt::Key_Down);
            search.press(Qt::Key_F10);
        });
        screen.press(Qt::Key_F3);
        EXPECT_EQ(screen.text(u"txtIdConv"_qs) + screen.text(u"txtNmConv"_qs), u"8PRATA");
        screen.press(Qt::Key_Escape);
    });
}

TEST_F(Closing, EscLeavesEverythingAsItWas)
{
    close(u"10"_qs, [](ScreenDriver& screen) {
        screen.click(u"Command2"_qs);
        pay(screen, u"PIX"_qs, u"10"_qs);
        screen.choose(u"cboMP"_qs, u"PIX"_qs);
        screen.press(Qt::Key_Escape); // the screen, not the payment alone
        EXPECT_FALSE(screen.isOpen());
    });
    EXPECT_EQ(RetornoFechamento, u"N");
    EXPECT_EQ(written(), u"0 0");
    EXPECT_EQ(status(), u"1,0,0");
    close(u"20"_qs, [](ScreenDriver& screen) {
        for (const char* list : {"List1", "List2", "List3"})
            EXPECT_EQ(screen.list(QString::fromLatin1(list)), QStringList()) << list;
        screen.press(Qt::Key_Escape);
    });
}

/// Each row is committed by itself: a failure leaves those before it, and the appointment open.
TEST_F(Closing, AFailureInTheMiddleKeepsWhatWasWritten)
{
    const CaughtErrors errors;
    close(u"10"_qs, [this](ScreenDriver& screen) {
        screen.click(u"Command2"_qs);
        pay(screen, u"PIX"_qs, u"5"_qs);
        pay(screen, u"DINHEIRO"_qs, u"5"_qs, u"d'agua"_qs);
        confirm(screen);
        screen.press(Qt::Key_Escape);
    });
    EXPECT_EQ(errors.numbers().size(), 1);
    EXPECT_EQ(written(), u"1 1");
    EXPECT_EQ(status(), u"1,0,0");
    EXPECT_EQ(RetornoFechamento, u"N");
}
