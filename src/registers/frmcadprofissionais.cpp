#include "registers/frmcadprofissionais.h"

#include "app/core/caixas.h"
#include "app/core/sql.h"
#include "platform/forms/dialogs.h"
#include "platform/forms/wrongboxes.h"
#include "platform/values/format.h"
#include "platform/values/number.h"
#include "registers/telasdebusca.h"
#include "ui_frmcadprofissionais.h"

using namespace Qt::StringLiterals;

namespace {
const QString atencao = u"ATENÇÃO"_s;
const QStringList locais = {u"0 - CLINICA"_s, u"1 - HOME"_s, u"2 - HOME E CLINICA"_s};
} // namespace

frmCadProfissionais::frmCadProfissionais()
    : CadastroPessoa({.tabela = u"profissionais"_s,
                      .codigo = u"idpro"_s,
                      .nome = u"nmpro"_s,
                      .fonefixo = u"fonefixo"_s,
                      .tituloPesquisa = u"Pesquisa profissionais já cadastrado"_s,
                      .limpaCodigo = true,
                      .colunas = {{u"idpro"_s, u"CÓDIGO"_s, 8},
                                  {u"nmpro"_s, u"NOME"_s, 29},
                                  {u"nrcon"_s, u"No CONSELHO"_s, 13},
                                  {u"ondeatd"_s, u"CLÍNICA/HOME"_s, 16, {}, {}, locais},
                                  {u"valor"_s, u"VALOR"_s, 10, u"#,##0.00"_s},
                                  {u"fonefixo"_s, u"FONE FIXO"_s, 12},
                                  {u"fonecel"_s, u"CELULAR"_s, 12}},
                      .ligacao = {.tabela = u"especialidades"_s,
                                  .codigo = u"idesp"_s,
                                  .nome = u"nmesp"_s,
                                  .pesquisa = [] { return escolheNumero<frmBuscaEspecialidades>(); }}}),
      ui(std::make_unique<Ui::frmCadProfissionais>())
{
    ui->setupUi(this);
    ui->cboCH->addItems(locais);
    monta(ControlesPessoa::de(*ui, ui->txtIdEsp, ui->txtNmEsp));
    onLostFocus(ui->txtVR, &frmCadProfissionais::txtVR_LostFocus);
}

frmCadProfissionais::~frmCadProfissionais() = default;

QString frmCadProfissionais::local() const
{
    return ui->cboCH->currentText().left(1);
}

void frmCadProfissionais::txtVR_LostFocus()
{
    if (isNumeric(ui->txtVR->text()))
        return ui->txtVR->setText(Currency(toNumber(ui->txtVR->text())));
    pointAt({ui->txtVR});
    MsgBox(u"--- ERRO --- VALOR INVÁLIDO!"_s, atencao);
}

bool frmCadProfissionais::recusa()
{
    const QWidgetList caixas = erradas({{ui->cboCH, !isNumeric(local())},
                                        {ui->txtnome, isVazia(ui->txtnome)},
                                        {ui->txtIdEsp, isVazia(ui->txtNmEsp)},
                                        {ui->txtVR, !isNumeric(ui->txtVR->text())}});
    if (!caixas.isEmpty()) {
        pointAt(caixas);
        MsgBox(u"--- ERRO --- NOME NÃO INFORMADO!"_s, atencao);
        return true;
    }
    if (semTelefone())
        return true;
    if (toNumber(ui->txtVR->text()) < 0) {
        pointAt({ui->txtVR});
        MsgBox(u"--- ERRO --- VALOR NÃO PODE SER MENOR QUE ZERO!"_s, atencao);
        return true;
    }
    return false;
}

void frmCadProfissionais::mostraCampos(ADODB::Recordset& linha)
{
    ui->txtVR->setText(Currency(linha.Fields("valor").number()));
    ui->txtNoCon->setText(linha.Fields("nrcon").text());
    ui->cboCH->setCurrentIndex(int(linha.Fields("ondeatd").integer()));
}

void frmCadProfissionais::gravaCampos(ADODB::Recordset& linha)
{
    linha.Fields("nrcon") = ui->txtNoCon->text();
    linha.Fields("valor") = comPonto(Format(toNumber(ui->txtVR->text()), u"##########0.00"));
    linha.Fields("ondeatd") = local();
}

void frmCadProfissionais::limpaCampos()
{
    ui->txtVR->clear();
    ui->txtNoCon->clear();
    ui->cboCH->setCurrentIndex(0);
}
