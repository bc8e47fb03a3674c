#include "agenda/frmcli_agendacf.h"

#include "app/core/caixas.h"
#include "app/core/itens.h"
#include "app/core/sql.h"
#include "app/core/variaveis.h"
#include "platform/forms/dialogs.h"
#include "platform/forms/hourglass.h"
#include "platform/forms/theme.h"
#include "platform/forms/wrongboxes.h"
#include "platform/values/format.h"
#include "platform/values/number.h"
#include "registers/escolha.h"
#include "registers/telasdebusca.h"
#include "ui_frmcli_agendacf.h"

using namespace Qt::StringLiterals;

using namespace Variaveis;

namespace {

/// The box stays as it is where the code is nobody's.
void mostraNome(QLineEdit* caixa, const std::optional<QString>& nome)
{
    if (nome)
        caixa->setText(*nome);
}

void toma(const std::optional<Escolha>& escolha, QLineEdit* codigo, QLineEdit* nome)
{
    if (!escolha)
        return;
    codigo->setText(escolha->codigo);
    nome->setText(escolha->nome);
}

/// Takes the current line out of the list, and out of `linhas` behind it, if the user says so.
template <class Linha>
void estorna(ListBox* lista, std::vector<Linha>& linhas)
{
    if (!MsgYesNo(u"Estorna?"_s, u"Atenção"_s))
        return;
    const int qual = lista->ListIndex();
    lista->RemoveItem(qual);
    linhas.erase(linhas.begin() + qual);
}

void avisa(const QString& texto)
{
    MsgBox(texto, u"ATENÇÃO"_s);
}

} // namespace

frmCli_AgendaCF::frmCli_AgendaCF() : ui(std::make_unique<Ui::frmCli_AgendaCF>())
{
    ui->setupUi(this);
    ui->lTit1->setList(ui->List1);
    ui->lTit1->setText(ProcedimentoCobrado::titulo());
    ui->lTit2->setList(ui->List2);
    ui->lTit2->setText(PagamentoRecebido::titulo());
    ui->List1->setMinimumLines(6);
    ui->List2->setMinimumLines(4);
    ui->List3->setFont(Theme::fixedFont(Theme::Type::Headline));
    ui->List3->setMinimumLines(3);
    ui->List3->setFixedHeight(ui->List3->minimumHeight() + 8); // its frame does not shrink with its lines
    ui->List3->setLook([this](const QString& linha) {
        const bool devido = Falta > 0 && linha.startsWith(QLatin1String("Falta"));
        const Theme::Role tinta = devido ? Theme::Role::DangerInk : Theme::Role::Ink;
        const qsizetype valor = linha.indexOf(QLatin1Char(':')) + 1;
        LineLook look;
        look.runs.append({0, valor, tinta, true});
        look.runs.append({valor, linha.size() - valor, tinta, true});
        look.toTheRight = valor;
        return look;
    });
    // The layout keeps the hidden card's place over the lists, and so the card follows the window's size.
    QSizePolicy noLugar = ui->frmMPP->sizePolicy();
    noLugar.setRetainSizeWhenHidden(true);
    ui->frmMPP->setSizePolicy(noLugar);
    ui->frmMPP->hide();
    ui->cboMP->setCurrentIndex(-1);
    wire();
}

frmCli_AgendaCF::~frmCli_AgendaCF() = default;

void frmCli_AgendaCF::wire()
{
    onChange(ui->txtIdProc, &frmCli_AgendaCF::txtIdProc_Change);
    onLostFocus(ui->txtIdProc, &frmCli_AgendaCF::txtIdProc_LostFocus);
    onChange(ui->txtIdConv, &frmCli_AgendaCF::txtIdConv_Change);
    onLostFocus(ui->txtIdConv, &frmCli_AgendaCF::txtIdConv_LostFocus);
    selectOnFocus(ui->txtQt);
    onClick(ui->txtQt, &frmCli_AgendaCF::txtQt_Click);
    selectOnFocus(ui->txtVR);
    onClick(ui->txtVR, &frmCli_AgendaCF::txtVR_Click);
    onClick(ui->Command2, &frmCli_AgendaCF::Command2_Click);
    onDblClick(ui->List1, &frmCli_AgendaCF::List1_DblClick, u"estorna a linha, depois de perguntar"_s);
    onDblClick(ui->List2, &frmCli_AgendaCF::List2_DblClick, u"estorna a linha, depois de perguntar"_s);
    onClick(ui->cboMP, &frmCli_AgendaCF::cboMP_Click);
    onClick(ui->Command16, &frmCli_AgendaCF::Command16_Click);
    onClick(ui->Command17, &frmCli_AgendaCF::Command17_Click);
    onClick(ui->Command1, &frmCli_AgendaCF::Command1_Click);
    onKey(Qt::Key_F2, &frmCli_AgendaCF::procuraProcedimento);
    onKey(Qt::Key_F3, &frmCli_AgendaCF::procuraConvenio);
}

void frmCli_AgendaCF::recebe(const AtendimentoAFechar& atendimento)
{
    fechamento_ = {.idpac = codigoInteiro(atendimento.idPac),
                   .idprof = codigoDoItem(atendimento.profissional, 4),
                   .idagenda = atendimento.idAgenda,
                   .data = atendimento.data,
                   .hora = atendimento.hora,
                   .procedimentos = {},
                   .pagamentos = {}};
    ui->lPac->setText(atendimento.idPac + u" | "_s + atendimento.nmPac);
    ui->lIdAgenda->setText(atendimento.idAgenda);
    ui->lProf->setText(atendimento.profissional);
    ui->lDT->setText(atendimento.data);
    ui->lHR->setText(atendimento.hora);
    // A code first: its change empties the name.
    ui->txtIdProc->setText(codigoDoItem(atendimento.procedimento));
    ui->txtNmProc->setText(nomeDoItem(atendimento.procedimento));
    ui->txtVR->setText(atendimento.valor);
    ui->txtQt->setText(u"1"_s);
    ui->txtIdConv->setText(atendimento.idConv);
    ui->txtNmConv->setText(atendimento.nmConv);
}

void frmCli_AgendaCF::procuraProcedimento()
{
    const QString daClinica = u"0"_s;
    if (ui->txtIdProc->isEnabled())
        toma(escolheNumero<frmBuscaProcedimentos>({daClinica, {}}), ui->txtIdProc, ui->txtNmProc);
}

void frmCli_AgendaCF::procuraConvenio()
{
    if (ui->txtIdConv->isEnabled())
        toma(escolheNumero<frmBuscaConvenios>(), ui->txtIdConv, ui->txtNmConv);
}

void frmCli_AgendaCF::txtIdProc_Change()
{
    ui->txtNmProc->clear();
}

void frmCli_AgendaCF::txtIdProc_LostFocus()
{
    if (isNumeric(ui->txtIdProc->text()))
        mostraNome(ui->txtNmProc,
                   nomeDoCodigo("select * from procedimentos where idlic = " + aspas(idlic) +
                                    " and idproc like " + codigoInteiro(ui->txtIdProc->text()) +
                                    " and ondeatd = '0'",
                                u"nmproc"_s));
}

void frmCli_AgendaCF::txtIdConv_Change()
{
    ui->txtNmConv->clear();
}

void frmCli_AgendaCF::txtIdConv_LostFocus()
{
    if (isNumeric(ui->txtIdConv->text()))
        mostraNome(ui->txtNmConv, nomeDoCodigo("select * from convenios where idlic = " + aspas(idlic) +
                                                   " and idconv like " + codigoInteiro(ui->txtIdConv->text()),
                                               u"nmconv"_s));
}

void frmCli_AgendaCF::txtQt_Click()
{
    ui->txtQt->selectAll();
}

void frmCli_AgendaCF::txtVR_Click()
{
    ui->txtVR->selectAll();
}

bool frmCli_AgendaCF::recusa()
{
    const QString valor = ui->txtVR->text();
    const QString qtde = ui->txtQt->text();
    const QWidgetList invalidas = erradas({{ui->txtIdProc, isVazia(ui->txtNmProc)},
                                           {ui->txtIdConv, isVazia(ui->txtNmConv)},
                                           {ui->txtVR, !isNumeric(valor)},
                                           {ui->txtQt, !isNumeric(qtde)}});
    if (!invalidas.isEmpty()) {
        pointAt(invalidas);
        avisa(u"--- ERRO --- DADOS INVÁLIDOS!"_s);
        return true;
    }
    if (toNumber(valor) < 0) {
        pointAt({ui->txtVR});
        avisa(u"--- ERRO --- VALOR NÃO PODE SER MENOR QUE ZERO!"_s);
        return true;
    }
    if (toNumber(qtde) <= 0) {
        pointAt({ui->txtQt});
        avisa(u"--- ERRO --- QTDE NÃO PODE SER MENOR E/OU IGUAL A ZERO!"_s);
        return true;
    }
    return false;
}

void frmCli_AgendaCF::Command2_Click()
{
    if (recusa())
        return;
    fechamento_.procedimentos.push_back(
        {ui->txtNmProc->text(), ui->txtQt->text().trimmed(), emCentavos(toNumber(ui->txtVR->text())),
         ui->txtNmConv->text(), codigoInteiro(ui->txtIdConv->text()), codigoInteiro(ui->txtIdProc->text())});
    ui->List1->AddItem(fechamento_.procedimentos.back().linha());
    for (QLineEdit* caixa : {ui->txtIdProc, ui->txtNmProc, ui->txtQt, ui->txtVR})
        caixa->clear();
    Totaliza();
    ui->txtIdProc->setFocus();
}

void frmCli_AgendaCF::List1_DblClick()
{
    estorna(ui->List1, fechamento_.procedimentos);
    Totaliza();
}

void frmCli_AgendaCF::List2_DblClick()
{
    estorna(ui->List2, fechamento_.pagamentos);
    Totaliza();
}

/// What could change the totals, while a payment is taken.
void frmCli_AgendaCF::permite(bool sim)
{
    for (QWidget* controle : std::initializer_list<QWidget*>{ui->cboMP, ui->Command1, ui->Command2, ui->List1,
                                                             ui->List2, ui->txtIdProc, ui->txtIdConv})
        controle->setEnabled(sim);
}

void frmCli_AgendaCF::cboMP_Click()
{
    pointAtNothing(*this); // what was missing to a procedure is not missing now
    ui->lMP->setText(ui->cboMP->currentText());
    ui->txtVrMp->clear();
    ui->txtobs->clear();
    ui->frmMPP->show();
    ui->frmMPP->raise();
    ui->txtVrMp->setFocus(); // before its own combo box, disabled, hands the focus to some other control
    permite(false);
}

void frmCli_AgendaCF::Command16_Click()
{
    const QString valor = ui->txtVrMp->text();
    if (!isNumeric(valor) || toNumber(valor) <= 0) {
        pointAt({ui->txtVrMp});
        return avisa(u"--- ERRO --- VALOR INVÁLIDO!"_s);
    }
    fechamento_.pagamentos.push_back({ui->lMP->text(), emCentavos(toNumber(valor)), ui->txtobs->text()});
    ui->List2->AddItem(fechamento_.pagamentos.back().linha());
    Command17_Click();
}

void frmCli_AgendaCF::Command17_Click()
{
    permite(true);
    ui->cboMP->setCurrentIndex(-1); // so that the same kind can be chosen again
    hideFrame(ui->frmMPP, ui->cboMP);
    Totaliza();
}

void frmCli_AgendaCF::Totaliza()
{
    ui->Command1->setEnabled(!fechamento_.procedimentos.empty());
    const double total = fechamento_.total();
    const double pago = fechamento_.pago();
    ui->List3->Clear();
    ui->List3->AddItem(u"Total a Pagar.: "_s + Currency(total));
    ui->List3->AddItem(u"Total Pago....: "_s + Currency(pago));
    ui->List3->AddItem(u"Falta.........: "_s + Currency(total - pago));
    // As it is shown: a remainder that nobody can see must not refuse the closing.
    Falta = emCentavos(total - pago);
}

void frmCli_AgendaCF::Command1_Click()
{
    if (!MsgYesNo(u"Confirma?"_s, u"Atenção"_s))
        return;
    if (Falta > 0) {
        pointAt({ui->cboMP});
        return avisa(u"--- ERRO --- VALOR TOTAL RECEBIDO INFERIOR AO TOTAL A PAGAR!"_s);
    }
    for (QWidget* controle : std::initializer_list<QWidget*>{ui->Command1, ui->List1, ui->List2, ui->Command2,
                                                             ui->txtIdProc, ui->txtIdConv})
        controle->setEnabled(false);
    const Hourglass ampulheta;
    Repaint();
    fechamento_.grava();
    RetornoFechamento = u"S"_s;
    Unload();
}
