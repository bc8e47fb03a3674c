#include "registers/frmcadcli.h"

#include "app/core/caixas.h"
#include "platform/forms/dialogs.h"
#include "platform/forms/wrongboxes.h"
#include "registers/telasdebusca.h"
#include "ui_frmcadcli.h"

using namespace Qt::StringLiterals;

frmcadcli::frmcadcli()
    : CadastroPessoa({.tabela = u"pacientes"_s,
                      .codigo = u"idpac"_s,
                      .nome = u"nmpac"_s,
                      .fonefixo = u"fonepac"_s,
                      .tituloPesquisa = u"Pesquisa paciente já cadastrado"_s,
                      .colunas = {{u"idpac"_s, u"CÓDIGO"_s, 7},
                                  {u"nmpac"_s, u"NOME"_s, 29},
                                  {u"cpf"_s, u"CNPJ/CPF"_s, 14},
                                  {u"dtnasc"_s, u"NASCIMENTO"_s, 10},
                                  {u"fonepac"_s, u"FONE FIXO"_s, 12},
                                  {u"fonecel"_s, u"CELULAR"_s, 12},
                                  {u"cidade"_s, u"CIDADE"_s, 16}},
                      .ligacao = {.tabela = u"convenios"_s,
                                  .codigo = u"idconv"_s,
                                  .nome = u"nmconv"_s,
                                  .pesquisa = [] { return escolheNumero<frmBuscaConvenios>(); }}}),
      ui(std::make_unique<Ui::frmcadcli>())
{
    ui->setupUi(this);
    perguntas_ = {
        {ui->cboAler, ui->txtAler, u"taler"_s, u"dsaler"_s, u"Preencha as informações da alergia!"_s},
        {ui->cboMed, ui->txtMed, u"tmed"_s, u"dsmed"_s, u"Preencha as informações da medicação!"_s},
        {ui->cboCir, ui->txtCir, u"tcir"_s, u"dscir"_s, u"Preencha as informações da cirurgia!"_s}};
    monta(ControlesPessoa::de(*ui, ui->txtIdConv, ui->txtNmConv));
}

frmcadcli::~frmcadcli() = default;

bool frmcadcli::recusa()
{
    const QWidgetList caixas =
        erradas({{ui->txtnome, isVazia(ui->txtnome)}, {ui->txtIdConv, isVazia(ui->txtNmConv)}});
    if (!caixas.isEmpty()) {
        pointAt(caixas);
        MsgBox(u"--- ERRO --- NOME NÃO INFORMADO!"_s, u"ATENÇÃO"_s);
        return true;
    }
    for (const Pergunta& pergunta : perguntas_)
        if (pergunta.resposta->currentText().startsWith(QLatin1Char('1')) && isVazia(pergunta.descricao)) {
            pointAtAnyOf({pergunta.resposta, pergunta.descricao});
            MsgBox(pergunta.falta, u"Atenção"_s);
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
