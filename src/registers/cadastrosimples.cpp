#include "registers/cadastrosimples.h"

#include "app/core/caixas.h"
#include "app/core/sql.h"
#include "app/core/variaveis.h"
#include "platform/forms/dialogs.h"
#include "platform/forms/hourglass.h"
#include "platform/forms/wrongboxes.h"
#include "platform/values/number.h"
#include "ui_cadastrosimples.h"

using namespace Qt::StringLiterals;

using namespace Variaveis;

CadastroSimples::CadastroSimples(const DescricaoCadastro& descricao)
    : ui(std::make_unique<Ui::CadastroSimples>()), descricao_(descricao)
{
    ui->setupUi(this);
    setWindowTitle(descricao_.titulo);
    ui->Label2->setText(descricao_.rotuloNome);
    for (QWidget* deOutros : std::initializer_list<QWidget*>{ui->Label3, ui->txtPDesc, ui->Label4, ui->cboCH})
        deOutros->hide();
    ui->DataGrid1->setColumns(descricao_.colunas);
    ui->DataGrid1->setDataSource(&Adodc1);
    wire();
}

CadastroSimples::~CadastroSimples() = default;

void CadastroSimples::wire()
{
    selectOnFocus(ui->txtcodcli);
    onLostFocus(ui->txtcodcli, &CadastroSimples::txtcodcli_LostFocus);
    onDblClick(ui->DataGrid1, &CadastroSimples::DataGrid1_DblClick, levaOCodigo);
    onClick(ui->cmdsalva, &CadastroSimples::cmdsalva_Click);
    onClick(ui->cmdretorna, &CadastroSimples::cmdretorna_Click);
    onClick(ui->Command1, &CadastroSimples::Command1_Click);
}

void CadastroSimples::Form_Load()
{
    Adodc1.setConnectionString(StringConexao);
    Adodc1.setRecordSource(descricao_.consulta());
    Adodc1.Refresh();
    Limpa();
}

void CadastroSimples::Form_Unload()
{
    FechaConexao();
    Adodc1.Close();
}

bool CadastroSimples::codigoInformado() const
{
    return isNumeric(ui->txtcodcli->text());
}

void CadastroSimples::Limpa()
{
    ui->cmdsalva->setEnabled(true);
    ui->Command1->setEnabled(false);
    ui->txtnome->clear();
    limpaCampos();
    ui->txtcodcli->clear();
    achada_.reset();
    ui->DataGrid1->rest();
}

void CadastroSimples::cmdretorna_Click()
{
    const Hourglass ampulheta;
    Limpa();
    pointAtNothing(*this);
    Adodc1.Refresh();
    ui->txtnome->setFocus();
}

void CadastroSimples::DataGrid1_DblClick()
{
    if (Adodc1.Recordset().Eof())
        return;
    ui->txtcodcli->setText(Adodc1.Recordset().Fields(descricao_.codigoDoClique).text());
    ui->txtcodcli->setFocus();
}

void CadastroSimples::txtcodcli_LostFocus()
{
    if (!codigoInformado())
        return Limpa();
    std::optional<Hourglass> ampulheta(std::in_place);
    ADODB::Recordset& linhas = Adodc1.Recordset();
    Adodc1.Refresh();
    linhas.Find(descricao_.codigo + " = " + codigoDaCaixa(ui->txtcodcli));
    if (linhas.Eof()) {
        ampulheta.reset();
        pointAt({ui->txtcodcli});
        MsgBox(u"--- ERRO --- CÓDIGO NÃO ENCONTRADO!"_s, u"ATENÇÃO"_s);
        return Limpa();
    }
    achada_ = linhas.Bookmark();
    ui->Command1->setEnabled(true);
    ui->txtnome->setText(linhas.Fields(descricao_.nome).text());
    mostraCampos(linhas);
}

bool CadastroSimples::recusa()
{
    if (!isVazia(ui->txtnome))
        return false;
    pointAt({ui->txtnome});
    MsgBox(u"--- ERRO --- NOME NÃO INFORMADO!"_s, u"ATENÇÃO"_s);
    return true;
}

bool CadastroSimples::achaParaEditar()
{
    if (achada_)
        Adodc1.Recordset().setBookmark(*achada_);
    return achada_.has_value();
}

void CadastroSimples::cmdsalva_Click()
{
    if (recusa())
        return;
    const Hourglass ampulheta;
    grava();
    cmdretorna_Click();
}

void CadastroSimples::grava()
{
    ADODB::Recordset& linhas = Adodc1.Recordset();
    if (!codigoInformado()) {
        linhas.AddNew();
        linhas.Fields("idlic") = idlic;
        linhas.Fields("evcad") = carimboRegistro();
    } else if (!achaParaEditar()) {
        return;
    }
    linhas.Fields(descricao_.nome) = ui->txtnome->text();
    linhas.Fields("evup") = carimboRegistro();
    gravaCampos(linhas);
    linhas.Update();
}

void CadastroSimples::Command1_Click()
{
    MsgBox(u"Ainda não disponivel!"_s, u"Atenção"_s);
}
