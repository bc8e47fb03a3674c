#include "registers/frmcadcli.h"

#include "platform/forms/dialogs.h"
#include "registers/buscas.h"
#include "ui_frmcadcli.h"

frmcadcli::frmcadcli()
    : CadastroPessoa({.tabela = QStringLiteral("pacientes"),
                      .codigo = QStringLiteral("idpac"),
                      .nome = QStringLiteral("nmpac"),
                      .fonefixo = QStringLiteral("fonepac"),
                      .tituloPesquisa = QStringLiteral("Pesquisa paciente já cadastrado"),
                      .colunas = {{QStringLiteral("idpac"), QStringLiteral("CÓDIGO"), 7},
                                  {QStringLiteral("nmpac"), QStringLiteral("NOME"), 29},
                                  {QStringLiteral("cpf"), QStringLiteral("CNPJ/CPF"), 14},
                                  {QStringLiteral("dtnasc"), QStringLiteral("NASCIMENTO"), 10},
                                  {QStringLiteral("fonepac"), QStringLiteral("FONE FIXO"), 12},
                                  {QStringLiteral("fonecel"), QStringLiteral("CELULAR"), 12},
                                  {QStringLiteral("cidade"), QStringLiteral("CIDADE"), 16}},
                      .ligacao = {.tabela = QStringLiteral("convenios"),
                                  .codigo = QStringLiteral("idconv"),
                                  .nome = QStringLiteral("nmconv"),
                                  .pesquisa = [] { Form::of<frmBuscaConvenios>().ShowModal(); }}}),
      ui(std::make_unique<Ui::frmcadcli>())
{
    ui->setupUi(this);
    perguntas_ = {{ui->cboAler, ui->txtAler, QStringLiteral("taler"), QStringLiteral("dsaler"),
                   QStringLiteral("Preencha as informações da alergia!")},
                  {ui->cboMed, ui->txtMed, QStringLiteral("tmed"), QStringLiteral("dsmed"),
                   QStringLiteral("Preencha as informações da medicação!")},
                  {ui->cboCir, ui->txtCir, QStringLiteral("tcir"), QStringLiteral("dscir"),
                   QStringLiteral("Preencha as informações da cirurgia!")}};
    monta(ControlesPessoa::de(*ui, ui->txtIdConv, ui->txtNmConv));
}

frmcadcli::~frmcadcli() = default;

bool frmcadcli::recusa()
{
    if (ui->txtnome->text().trimmed().isEmpty() || ui->txtNmConv->text().trimmed().isEmpty()) {
        MsgBox(QStringLiteral("--- ERRO --- NOME NÃO INFORMADO!"), QStringLiteral("ATENÇÃO"));
        return true;
    }
    for (const Pergunta& pergunta : perguntas_)
        if (pergunta.resposta->currentText().startsWith(QLatin1Char('1')) &&
            pergunta.descricao->text().trimmed().isEmpty()) {
            MsgBox(pergunta.falta, QStringLiteral("Atenção"));
            return true;
        }
    if (semTelefone())
        return true;
    // Until LIMPA, which ends a save as well: a wrong date of registration leaves the boxes locked.
    ui->Frame1->setEnabled(false);
    return false;
}

void frmcadcli::mostraCampos(ADODB::Recordset& linha)
{
    ui->txtNmResp->setText(linha.Fields("nmresp").text());
    ui->txtFoneResp->setText(linha.Fields("foneresp").text());
    for (const Pergunta& pergunta : perguntas_) {
        pergunta.resposta->setCurrentIndex(int(linha.Fields(pergunta.colunaResposta).integer()));
        pergunta.descricao->setText(linha.Fields(pergunta.colunaDescricao).text());
    }
}

void frmcadcli::gravaCampos(ADODB::Recordset& linha)
{
    linha.Fields("nmresp") = ui->txtNmResp->text();
    linha.Fields("foneresp") = ui->txtFoneResp->text();
    for (const Pergunta& pergunta : perguntas_) {
        linha.Fields(pergunta.colunaResposta) = pergunta.resposta->currentText().left(1);
        linha.Fields(pergunta.colunaDescricao) = pergunta.descricao->text();
    }
}

void frmcadcli::limpaCampos()
{
    ui->txtNmResp->clear();
    ui->txtFoneResp->clear();
    for (const Pergunta& pergunta : perguntas_) {
        pergunta.resposta->setCurrentIndex(0);
        pergunta.descricao->clear();
    }
}
