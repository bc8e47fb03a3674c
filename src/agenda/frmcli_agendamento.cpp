// The floating panel of the agenda: how it opens, what its keys and code boxes do, and how it is left.

#include "agenda/codigos.h"
#include "agenda/frmcli_agenda.h"
#include "agenda/frmcli_agendacf.h"
#include "agenda/linhaagenda.h"
#include "app/core/sql.h"
#include "app/core/variaveis.h"
#include "platform/forms/dialogs.h"
#include "platform/values/format.h"
#include "platform/values/number.h"
#include "registers/telasdebusca.h"
#include "ui_frmcli_agenda.h"

#include <QLayout>

using namespace Qt::StringLiterals;

using namespace Variaveis;

void frmCli_Agenda::wirePainel()
{
    onClick(ui->List1, &frmCli_Agenda::List1_Click);
    onDblClick(ui->List1, &frmCli_Agenda::List1_DblClick);
    onKeyPress(ui->List1, [this](int& tecla) {
        if (tecla != ' ')
            return;
        tecla = 0;
        List1_DblClick();
    });
    onLostFocus(ui->txtIdPac, &frmCli_Agenda::txtIdPac_LostFocus);
    onLostFocus(ui->txtIdConv, &frmCli_Agenda::txtIdConv_LostFocus);
    onClick(ui->Command4, &frmCli_Agenda::Command4_Click);
    onClick(ui->Command5, &frmCli_Agenda::Command5_Click);
    onClick(ui->Command7, &frmCli_Agenda::Command7_Click);
    onClick(ui->Command8, &frmCli_Agenda::Command8_Click);
    onClick(ui->Command9, &frmCli_Agenda::Command9_Click);
}

/// Leaves the times and the first letters of the names in sight, so that another line can be picked.
void frmCli_Agenda::colocaPainel()
{
    if (!isVisible()) {
        // Before the first showing: the layouts have not placed anything yet.
        ensurePolished();
        resize(openingSize());
        layout()->activate();
        ui->frmAgendamento->resize(ui->frmAgendamento->sizeHint());
    }
    const QFontMetrics letra(ui->List1->font());
    ui->frmAgendamento->move(ui->List1->geometry().topLeft() +
                             QPoint(letra.averageCharWidth() * 30, letra.height() * 2));
    ui->frmAgendamento->raise();
}

void frmCli_Agenda::List1_Click()
{
    const int linha = ui->List1->ListIndex();
    if (linha >= 0 && ui->frmAgendamento->isVisible() && LinhaAgenda::isHorario(ui->List1->List(linha)))
        ui->txtHR->setText(ui->List1->List(linha).left(5));
}

void frmCli_Agenda::List1_DblClick()
{
    if (ui->List1->ListIndex() < 0)
        return;
    const QString linha = ui->List1->List(ui->List1->ListIndex());
    chooseFirst(*ui->cboOnde);
    for (QPushButton* botao : {ui->Command9, ui->Command5, ui->Command4})
        botao->setEnabled(false);
    if (!LinhaAgenda::isHorario(linha))
        return ui->frmAgendamento->show();
    if (LinhaAgenda::estado(linha) == LinhaAgenda::Estado::Encerrado) {
        MsgBox(u"ATENDIMENTO JÁ CONFIRMADO!"_s, u"ATENÇÃO"_s);
        return;
    }
    const QString procedimento = ui->cboTP->currentText();
    carregaProcedimentos();
    const bool visivel = ui->frmAgendamento->isVisible();
    if (visivel && !ui->txtIdAgenda->text().isEmpty()) {
        escolheProcedimento(codigoDoItem(procedimento));
        return moveAberto(linha);
    }
    if (!visivel) {
        for (QWidget* doDia : std::initializer_list<QWidget*>{ui->Command1, ui->Command6, ui->cboPro})
            doDia->setEnabled(false);
        colocaPainel();
        ui->frmAgendamento->show();
    }
    if (LinhaAgenda::isLivre(linha))
        abreNovo(linha);
    else
        abreExistente(linha);
}

/// Procedures of the clinic, of all tenants.
void frmCli_Agenda::carregaProcedimentos()
{
    ui->cboTP->clear();
    AbreConexao();
    ADODB::Recordset rs;
    rs.Open("select * from  procedimentos where ondeatd = '0'", Conexao, 0, 1);
    for (; !rs.Eof(); rs.MoveNext())
        ui->cboTP->addItem(itemComCodigos(rs.Fields("nmproc").text(), {rs.Fields("idproc").text()}));
    ui->cboTP->setCurrentIndex(-1);
}

/// An open appointment goes to another slot: only its day and time change, and only here in the panel.
void frmCli_Agenda::moveAberto(const QString& linha)
{
    if (!LinhaAgenda::isLivre(linha)) {
        MsgBox(u"--- ERRO --- HORÁRIO NÃO DISPONIVEL!"_s, u"ATENÇÃO"_s);
        return;
    }
    for (QPushButton* botao : {ui->Command9, ui->Command5, ui->Command4})
        botao->setEnabled(true);
    ui->txtDt->setText(Format(ui->Calendar1->Value(), u"dd/mm/yyyy"));
    ui->txtHR->setText(linha.left(5));
}

void frmCli_Agenda::abreNovo(const QString& linha)
{
    ui->txtIdAgenda->clear();
    ui->txtDt->setText(Format(ui->Calendar1->Value(), u"dd/mm/yyyy"));
    ui->txtHR->setText(linha.left(5));
    if (!isNumeric(ui->cboTP->currentText().left(1)))
        ui->cboTP->setCurrentIndex(0); // nothing where there is no procedure: the saving tells
    chooseFirst(*ui->cboMobEsp);
    ui->cboTP->setFocus();
}

void frmCli_Agenda::abreExistente(const QString& linha)
{
    ADODB::Recordset rs;
    rs.Open("select * from agenda_clinica where idlic = " + aspas(idlic) +
                " and idagenda = " + aspas(LinhaAgenda::chave(linha)),
            Conexao, 0, 1);
    if (rs.Eof())
        return;
    for (QPushButton* botao : {ui->Command9, ui->Command5, ui->Command4})
        botao->setEnabled(true);
    ui->txtIdAgenda->setText(rs.Fields("idagenda").text());
    ui->txtDt->setText(rs.Fields("dia").text());
    ui->txtHR->setText(rs.Fields("hr").text());
    ui->txtIdPac->setText(rs.Fields("idpac").text());
    ui->txtNmPac->setText(rs.Fields("nmpac").text());
    ui->txtIdConv->setText(rs.Fields("idconv").text());
    ui->txtFone->setText(rs.Fields("fone").text());
    escolheProcedimento(rs.Fields("idproc").text());
    ui->txtObs->setText(rs.Fields("obs").text());
    ui->cboMobEsp->setCurrentIndex(int(leadingNumber(rs.Fields("mobesp").text().left(1))));
    txtIdConv_LostFocus();
    // Behind the plan's step, which works a price out: the one agreed upon holds.
    ui->txtVR->setText(Currency(rs.Fields("valor").number()));
    ui->cboTP->setFocus();
}

void frmCli_Agenda::escolheProcedimento(const QString& codigo)
{
    for (int i = 0; i < ui->cboTP->count(); ++i)
        if (codigoDoItem(ui->cboTP->itemText(i)).toLongLong() == codigo.trimmed().toLongLong())
            return ui->cboTP->setCurrentIndex(i);
}

namespace {

/// Opens a search dialog; a code that comes back goes to the box, and the name beside it.
template <class Busca>
void busca(QLineEdit& caixa, QLineEdit& nome)
{
    RetornoCodigo.clear();
    RetornoNome.clear();
    Form::of<Busca>().ShowModal();
    if (!isNumeric(RetornoCodigo))
        return;
    caixa.setText(RetornoCodigo);
    nome.setText(RetornoNome);
    caixa.setFocus();
}

} // namespace

void frmCli_Agenda::buscaPaciente()
{
    busca<frmBuscaPacientes>(*ui->txtIdPac, *ui->txtNmPac);
}

void frmCli_Agenda::buscaConvenio()
{
    // The patient's box brings a plan when it is left: before the choice, so that the chosen one holds.
    const bool noPaciente = ui->txtIdPac->hasFocus();
    if (noPaciente)
        ui->txtIdConv->setFocus();
    busca<frmBuscaConvenios>(*ui->txtIdConv, *ui->txtNmConv);
    if (noPaciente && !isNumeric(RetornoCodigo))
        ui->txtIdPac->setFocus();
}

void frmCli_Agenda::txtIdPac_LostFocus()
{
    if (!isNumeric(ui->txtIdPac->text()))
        return;
    AbreConexao();
    ADODB::Recordset rs;
    rs.Open(
        "select p.nmpac,p.fonepac,p.fonecel,p.idconv,c.idconv,c.nmconv,c.pdesc from pacientes p left join "
        "convenios c on p.idconv like c.idconv where p.idlic = " +
            aspas(idlic) + " and p.idpac like " + codigoDigitado(ui->txtIdPac->text()),
        Conexao, 0, 1);
    if (rs.Eof())
        return;
    ui->txtNmPac->setText(rs.Fields("nmpac").text());
    ui->txtIdConv->setText(rs.Fields("idconv").text());
    ui->txtNmConv->setText(rs.Fields("nmconv").text());
    ui->txtFone->setText(rs.Fields("fonecel").text() + QLatin1Char(' ') + rs.Fields("fonepac").text());
    mostraPreco(rs.Fields("pdesc").number());
}

void frmCli_Agenda::txtIdConv_LostFocus()
{
    if (!isNumeric(ui->txtIdConv->text()))
        return;
    AbreConexao();
    ADODB::Recordset rs;
    rs.Open("select * from convenios where idlic = " + aspas(idlic) + " and idconv like " +
                codigoDigitado(ui->txtIdConv->text()),
            Conexao, 0, 1);
    ui->txtNmConv->setText(rs.Eof() ? QString() : rs.Fields("nmconv").text());
    mostraPreco(rs.Eof() ? 0 : rs.Fields("pdesc").number());
}

/// The professional's price less the plan's discount in per cent.
void frmCli_Agenda::mostraPreco(double desconto)
{
    ui->txtVR->setText(Currency(valor_ - desconto * valor_ / 100));
}

void frmCli_Agenda::Command4_Click()
{
    RetornoFechamento = u"N"_s;
    auto& fechamento = Form::of<frmCli_AgendaCF>();
    fechamento.recebe({.idPac = ui->txtIdPac->text(),
                       .nmPac = ui->txtNmPac->text(),
                       .idAgenda = ui->txtIdAgenda->text(),
                       .profissional = ui->cboPro->currentText(),
                       .data = ui->txtDt->text(),
                       .hora = ui->txtHR->text(),
                       .procedimento = ui->cboTP->currentText(),
                       .valor = ui->txtVR->text(),
                       .idConv = ui->txtIdConv->text(),
                       .nmConv = ui->txtNmConv->text()});
    fechamento.ShowModal();
    if (RetornoFechamento != QLatin1String("S"))
        return;
    MontaAgenda();
    Command8_Click();
}

void frmCli_Agenda::Command5_Click()
{
    if (!MsgYesNo(u"Notificaçao confimada?"_s, u"ATENÇÃO"_s))
        return;
    AbreConexao();
    Conexao.BeginTrans();
    Conexao.Execute("update agenda_clinica set status = '1', evup = " + aspas(carimbo()) +
                    " where idlic = " + aspas(idlic) + " and idagenda = " + aspas(ui->txtIdAgenda->text()));
    Conexao.CommitTrans();
    MontaAgenda();
    Command8_Click();
}

void frmCli_Agenda::Command9_Click()
{
    if (!MsgYesNo(u"Confirma o cancelamento do agendamento?"_s, u"ATENÇÃO"_s))
        return;
    AbreConexao();
    ADODB::Recordset rs;
    rs.Open("delete from agenda_clinica where idlic = " + aspas(idlic) +
                " and idagenda = " + aspas(ui->txtIdAgenda->text()),
            Conexao, ADODB::Recordset::Dynamic, ADODB::Recordset::Optimistic);
    MontaAgenda();
    ui->frmAgendamento->hide();
    Command8_Click();
}

void frmCli_Agenda::Command8_Click()
{
    for (QWidget* doDia : std::initializer_list<QWidget*>{ui->Command1, ui->Command6, ui->cboPro, ui->List1})
        doDia->setEnabled(true);
    for (QLineEdit* caixa : {ui->txtDt, ui->txtHR, ui->txtIdPac, ui->txtIdAgenda, ui->txtNmPac, ui->txtIdConv,
                             ui->txtNmConv, ui->txtVR, ui->txtObs, ui->txtFone})
        caixa->clear();
    ui->List1->setFocus();
    ui->frmAgendamento->hide();
}
