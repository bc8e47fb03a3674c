#include "agenda/painelagendamento.h"

#include "agenda/frmcli_agendacf.h"
#include "agenda/linhaagenda.h"
#include "app/core/caixas.h"
#include "app/core/itens.h"
#include "app/core/sql.h"
#include "app/core/variaveis.h"
#include "platform/data/recordset.h"
#include "platform/forms/dialogs.h"
#include "platform/forms/wrongboxes.h"
#include "platform/system/clock.h"
#include "platform/values/date.h"
#include "platform/values/format.h"
#include "registers/escolha.h"
#include "registers/telasdebusca.h"
#include "ui_painelagendamento.h"

#include <utility>

using namespace Qt::StringLiterals;

using namespace Variaveis;

namespace {

/// A code that was chosen in a search goes to its box, the name beside it; false where none was.
bool toma(const std::optional<Escolha>& escolha, QLineEdit* caixa, QLineEdit* nome)
{
    if (!escolha)
        return false;
    caixa->setText(escolha->codigo);
    nome->setText(escolha->nome);
    caixa->setFocus();
    return true;
}

} // namespace

PainelAgendamento::PainelAgendamento(QWidget* parent)
    : QFrame(parent), ui(std::make_unique<Ui::PainelAgendamento>())
{
    ui->setupUi(this);
    wire();
}

PainelAgendamento::~PainelAgendamento() = default;

void PainelAgendamento::wire()
{
    const auto onClick = [this](QPushButton* botao, void (PainelAgendamento::*handler)()) {
        connect(botao, &QPushButton::clicked, this, handler);
    };
    onClick(ui->Command4, &PainelAgendamento::Command4_Click);
    onClick(ui->Command5, &PainelAgendamento::Command5_Click);
    onClick(ui->Command7, &PainelAgendamento::Command7_Click);
    onClick(ui->Command8, &PainelAgendamento::Command8_Click);
    onClick(ui->Command9, &PainelAgendamento::Command9_Click);
}

QLineEdit* PainelAgendamento::txtIdPac() const
{
    return ui->txtIdPac;
}

QLineEdit* PainelAgendamento::txtIdConv() const
{
    return ui->txtIdConv;
}

void PainelAgendamento::recebe(const QString& profissional, QDate dia)
{
    profissional_ = profissional;
    dia_ = dia;
}

void PainelAgendamento::tomaHorario(const QString& linha)
{
    if (isVisible() && LinhaAgenda::isHorario(linha))
        ui->txtHR->setText(linha.left(5));
}

/// What can be done with an appointment that exists.
void PainelAgendamento::permite(bool existente)
{
    for (QPushButton* botao : {ui->Command9, ui->Command5, ui->Command4})
        botao->setEnabled(existente);
}

void PainelAgendamento::abre(const QString& linha)
{
    chooseFirst(*ui->cboOnde);
    permite(false);
    if (!LinhaAgenda::isHorario(linha))
        return show();
    if (LinhaAgenda::estado(linha) == LinhaAgenda::Estado::Encerrado) {
        MsgBox(u"ATENDIMENTO JÁ CONFIRMADO!"_s, u"ATENÇÃO"_s);
        return;
    }
    const QString procedimento = ui->cboTP->currentText();
    carregaProcedimentos();
    if (isVisible() && !ui->txtIdAgenda->text().isEmpty()) {
        escolheProcedimento(codigoDoItem(procedimento));
        return moveAberto(linha);
    }
    if (!isVisible()) {
        Q_EMIT abrindo();
        show();
    }
    if (LinhaAgenda::isLivre(linha))
        abreNovo(linha);
    else
        abreExistente(linha);
}

/// Procedures of the clinic, of all tenants.
void PainelAgendamento::carregaProcedimentos()
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
void PainelAgendamento::moveAberto(const QString& linha)
{
    if (!LinhaAgenda::isLivre(linha)) {
        MsgBox(u"--- ERRO --- HORÁRIO NÃO DISPONIVEL!"_s, u"ATENÇÃO"_s);
        return;
    }
    permite(true);
    ui->txtDt->setText(Format(dia_, u"dd/mm/yyyy"));
    ui->txtHR->setText(linha.left(5));
}

void PainelAgendamento::abreNovo(const QString& linha)
{
    ui->txtIdAgenda->clear();
    ui->txtDt->setText(Format(dia_, u"dd/mm/yyyy"));
    ui->txtHR->setText(linha.left(5));
    if (!isNumeric(ui->cboTP->currentText().left(1)))
        ui->cboTP->setCurrentIndex(0); // nothing where there is no procedure: the saving tells
    chooseFirst(*ui->cboMobEsp);
    ui->cboTP->setFocus();
}

void PainelAgendamento::abreExistente(const QString& linha)
{
    ADODB::Recordset rs;
    rs.Open("select * from agenda_clinica where idlic = " + aspas(idlic) +
                " and idagenda = " + aspas(LinhaAgenda::chave(linha)),
            Conexao, 0, 1);
    if (rs.Eof())
        return;
    permite(true);
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

void PainelAgendamento::escolheProcedimento(const QString& codigo)
{
    for (int i = 0; i < ui->cboTP->count(); ++i)
        if (codigoDoItem(ui->cboTP->itemText(i)).toLongLong() == codigo.trimmed().toLongLong())
            return ui->cboTP->setCurrentIndex(i);
}

void PainelAgendamento::buscaPaciente()
{
    toma(escolheNumero<frmBuscaPacientes>(), ui->txtIdPac, ui->txtNmPac);
}

void PainelAgendamento::buscaConvenio()
{
    // The patient's box brings a plan when it is left: before the choice, so that the chosen one holds.
    const bool noPaciente = ui->txtIdPac->hasFocus();
    if (noPaciente)
        ui->txtIdConv->setFocus();
    if (!toma(escolheNumero<frmBuscaConvenios>(), ui->txtIdConv, ui->txtNmConv) && noPaciente)
        ui->txtIdPac->setFocus();
}

void PainelAgendamento::txtIdPac_LostFocus()
{
    if (!isNumeric(ui->txtIdPac->text()))
        return;
    AbreConexao();
    ADODB::Recordset rs;
    rs.Open(
        "select p.nmpac,p.fonepac,p.fonecel,p.idconv,c.idconv,c.nmconv,c.pdesc from pacientes p left join "
        "convenios c on p.idconv like c.idconv where p.idlic = " +
            aspas(idlic) + " and p.idpac like " + codigoInteiro(ui->txtIdPac->text()),
        Conexao, 0, 1);
    if (rs.Eof())
        return;
    ui->txtNmPac->setText(rs.Fields("nmpac").text());
    ui->txtIdConv->setText(rs.Fields("idconv").text());
    ui->txtNmConv->setText(rs.Fields("nmconv").text());
    ui->txtFone->setText(rs.Fields("fonecel").text() + QLatin1Char(' ') + rs.Fields("fonepac").text());
    mostraPreco(rs.Fields("pdesc").number());
}

void PainelAgendamento::txtIdConv_LostFocus()
{
    if (!isNumeric(ui->txtIdConv->text()))
        return;
    AbreConexao();
    ADODB::Recordset rs;
    rs.Open("select * from convenios where idlic = " + aspas(idlic) + " and idconv like " +
                codigoInteiro(ui->txtIdConv->text()),
            Conexao, 0, 1);
    ui->txtNmConv->setText(rs.Eof() ? QString() : rs.Fields("nmconv").text());
    mostraPreco(rs.Eof() ? 0 : rs.Fields("pdesc").number());
}

/// The professional's price less the plan's discount in per cent.
void PainelAgendamento::mostraPreco(double desconto)
{
    const double valor = readNumber(codigoDoItem(profissional_, 3)).value_or(0);
    ui->txtVR->setText(Currency(valor - desconto * valor / 100));
}

QWidgetList PainelAgendamento::incompletas() const
{
    return erradas({{ui->txtDt, !isDate(ui->txtDt->text())},
                    {ui->cboMobEsp, !isNumeric(ui->cboMobEsp->currentText().left(1))},
                    {ui->txtNmPac, isVazia(ui->txtNmPac)},
                    {ui->txtIdPac, !isNumeric(ui->txtIdPac->text())},
                    {ui->txtIdConv, !isNumeric(ui->txtIdConv->text()) || isVazia(ui->txtNmConv)},
                    {ui->txtVR, !isNumeric(ui->txtVR->text())},
                    {ui->txtFone, isVazia(ui->txtFone)}});
}

std::optional<Agendamento> PainelAgendamento::conferido() const
{
    if (const QWidgetList caixas = incompletas(); !caixas.isEmpty()) {
        pointAt(caixas);
        MsgBox(u"--- ERRO --- DADOS INCOMPLETOS!"_s, u"ATENÇÃO"_s, Icon::Information);
        return {};
    }
    const qint64 idproc = codigoDoItem(ui->cboTP->currentText()).toLongLong();
    if (idproc == 0) {
        pointAt({ui->cboTP});
        MsgBox(u"--- ERRO --- SELECIONA UM PROCEDIMENTO!"_s, u"ATENÇÃO"_s);
        return {};
    }
    if (toDate(ui->txtDt->text()).date() < Clock::today()) {
        pointAt({ui->txtDt});
        MsgBox(u"--- ERRO --- DATA DO AGENDAMENTO ANTERIOR A DATA ATUAL!"_s, u"ATENÇÃO"_s, Icon::Critical);
        return {};
    }
    const Agendamento agendamento = lido(QString::number(idproc));
    if (agendamento.pacienteOcupado()) {
        pointAtAnyOf({ui->txtIdPac, ui->txtDt, ui->txtHR});
        MsgBox(u"--- PACIENTE JÁ POSSUI AGENDA NESSA MESMA DATA E HORÁRIO COM OUTRO PROFISSIONAL!"_s,
               u"ATENÇÃO"_s, Icon::Exclamation);
        return {};
    }
    return agendamento;
}

Agendamento PainelAgendamento::lido(const QString& idproc) const
{
    const QString ondeatd = ui->cboOnde->currentText().left(1);
    return {.idagenda = ui->txtIdAgenda->text(),
            .idpro = ondeatd == QLatin1String("1") ? u"0"_s : codigoDoItem(profissional_, 4),
            .idesp = QString::number(codigoDoItem(profissional_, 2).toLongLong()),
            .idconv = codigoInteiro(ui->txtIdConv->text()),
            .idpac = codigoInteiro(ui->txtIdPac->text()),
            .nmpac = ui->txtNmPac->text(),
            .fone = ui->txtFone->text(),
            .dia = emColuna(ui->txtDt->text()),
            // The calendar may have moved on since the line was picked.
            .diaNovo = emColuna(dia_),
            .hr = ui->txtHR->text(),
            .obs = ui->txtObs->text(),
            .idproc = idproc,
            .valor = comPonto(Format(ui->txtVR->text(), u"##########0.00")),
            .mobesp = ui->cboMobEsp->currentText(),
            .ondeatd = ondeatd};
}

void PainelAgendamento::Command7_Click()
{
    const auto agendamento = conferido();
    if (!agendamento)
        return;
    agendamento->grava();
    MsgBox(u"Agendado com sucesso!"_s, u"Atenção"_s, Icon::Information);
    Command8_Click();
    Q_EMIT alterado();
}

void PainelAgendamento::Command4_Click()
{
    RetornoFechamento = u"N"_s;
    auto& fechamento = Form::of<frmCli_AgendaCF>();
    fechamento.recebe({.idPac = ui->txtIdPac->text(),
                       .nmPac = ui->txtNmPac->text(),
                       .idAgenda = ui->txtIdAgenda->text(),
                       .profissional = profissional_,
                       .data = ui->txtDt->text(),
                       .hora = ui->txtHR->text(),
                       .procedimento = ui->cboTP->currentText(),
                       .valor = ui->txtVR->text(),
                       .idConv = ui->txtIdConv->text(),
                       .nmConv = ui->txtNmConv->text()});
    fechamento.ShowModal();
    if (std::exchange(RetornoFechamento, {}) != QLatin1String("S"))
        return;
    Q_EMIT alterado();
    Command8_Click();
}

void PainelAgendamento::Command5_Click()
{
    if (!MsgYesNo(u"Notificaçao confimada?"_s, u"ATENÇÃO"_s))
        return;
    Agendamento::notifica(ui->txtIdAgenda->text());
    Q_EMIT alterado();
    Command8_Click();
}

void PainelAgendamento::Command9_Click()
{
    if (!MsgYesNo(u"Confirma o cancelamento do agendamento?"_s, u"ATENÇÃO"_s))
        return;
    Agendamento::cancela(ui->txtIdAgenda->text());
    Q_EMIT alterado();
    Command8_Click();
}

void PainelAgendamento::Command8_Click()
{
    for (QLineEdit* caixa : {ui->txtDt, ui->txtHR, ui->txtIdPac, ui->txtIdAgenda, ui->txtNmPac, ui->txtIdConv,
                             ui->txtNmConv, ui->txtVR, ui->txtObs, ui->txtFone})
        caixa->clear();
    Q_EMIT deixado();
    hide();
}
