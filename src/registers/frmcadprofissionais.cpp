#include "registers/frmcadprofissionais.h"

#include "platform/forms/dialogs.h"
#include "platform/values/format.h"
#include "platform/values/number.h"
#include "registers/buscas.h"
#include "ui_frmcadprofissionais.h"

namespace {
const QString atencao = QStringLiteral("ATENÇÃO");
}

frmCadProfissionais::frmCadProfissionais()
    : CadastroPessoa(
          {.tabela = QStringLiteral("profissionais"),
           .codigo = QStringLiteral("idpro"),
           .nome = QStringLiteral("nmpro"),
           .fonefixo = QStringLiteral("fonefixo"),
           .tituloPesquisa = QStringLiteral("Pesquisa profissionais já cadastrado"),
           .limpaCodigo = true,
           .colunas = {{QStringLiteral("idpro"), QStringLiteral("CÓDIGO"), 8},
                       {QStringLiteral("nmpro"), QStringLiteral("NOME"), 32},
                       {QStringLiteral("nrcon"), QStringLiteral("No CONSELHO"), 13},
                       {QStringLiteral("ondeatd"), QStringLiteral("CLÍNICA/HOME"), 11, {}, Qt::AlignHCenter},
                       {QStringLiteral("valor"), QStringLiteral("VALOR"), 12, QStringLiteral("#,##0.00")},
                       {QStringLiteral("fonefixo"), QStringLiteral("FONE FIXO"), 12},
                       {QStringLiteral("fonecel"), QStringLiteral("CELULAR"), 12}},
           .ligacao = {.tabela = QStringLiteral("especialidades"),
                       .codigo = QStringLiteral("idesp"),
                       .nome = QStringLiteral("nmesp"),
                       .pesquisa = [] { Form::of<frmBuscaEspecialidades>().ShowModal(); }}}),
      ui(std::make_unique<Ui::frmCadProfissionais>())
{
    ui->setupUi(this);
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
        ui->txtVR->setText(Currency(toNumber(ui->txtVR->text())));
    else
        MsgBox(QStringLiteral("--- ERRO --- VALOR INVÁLIDO!"), atencao);
}

bool frmCadProfissionais::recusa()
{
    if (!isNumeric(local()) || ui->txtnome->text().trimmed().isEmpty() ||
        ui->txtNmEsp->text().trimmed().isEmpty() || !isNumeric(ui->txtVR->text())) {
        MsgBox(QStringLiteral("--- ERRO --- NOME NÃO INFORMADO!"), atencao);
        return true;
    }
    if (semTelefone())
        return true;
    if (toNumber(ui->txtVR->text()) < 0) {
        MsgBox(QStringLiteral("--- ERRO --- VALOR NÃO PODE SER MENOR QUE ZERO!"), atencao);
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
    linha.Fields("valor") = Format(toNumber(ui->txtVR->text()), u"##########0.00").replace(u',', u'.');
    linha.Fields("ondeatd") = local();
}

void frmCadProfissionais::limpaCampos()
{
    ui->txtVR->clear();
    ui->txtNoCon->clear();
    ui->cboCH->setCurrentIndex(0);
}
