#include "registers/frmcadfor.h"

#include "app/core/caixas.h"
#include "app/core/sql.h"
#include "app/core/variaveis.h"
#include "lookups/validadocumento.h"
#include "platform/forms/dialogs.h"
#include "platform/forms/hourglass.h"
#include "platform/forms/wrongboxes.h"
#include "ui_frmcadfor.h"

using namespace Qt::StringLiterals;

using namespace Variaveis;

frmCadFor::frmCadFor() : ui(std::make_unique<Ui::frmCadFor>())
{
    ui->setupUi(this);
    ui->DataGrid1->setColumns({{u"cdfor"_s, u"CÓDIGO"_s, 7},
                               {u"nmfor"_s, u"NOME"_s, 31},
                               {u"nmfant"_s, u"APELIDO"_s, 23},
                               {u"cpf"_s, u"CNPJ/CPF"_s, 15},
                               {u"fonefixo"_s, u"FONE FIXO"_s, 12},
                               {u"fonecel"_s, u"CELULAR"_s, 12}});
    ui->DataGrid1->setDataSource(&Adodc1);
    wire();
}

frmCadFor::~frmCadFor() = default;

void frmCadFor::wire()
{
    onLostFocus(ui->txtcodcli, &frmCadFor::txtcodcli_LostFocus);
    onLostFocus(ui->TXTCPF, &frmCadFor::TXTCPF_LostFocus);
    onDblClick(ui->DataGrid1, &frmCadFor::DataGrid1_DblClick, levaOCodigo);
    onClick(ui->cmdsalva, &frmCadFor::cmdsalva_Click);
    onClick(ui->cmdretorna, &frmCadFor::cmdretorna_Click);
    onClick(ui->Command3, &frmCadFor::Command3_Click);
    onKey(Qt::Key_F10, &frmCadFor::Command3_Click);
    onClick(ui->Command2, &frmCadFor::Command2_Click);
    onKey(Qt::Key_F11, &frmCadFor::Command2_Click);
}

void frmCadFor::Form_Load()
{
    Adodc1.setConnectionString(StringConexao);
    Adodc1.setRecordSource("select * from fornecedores where idlic = " + aspas(idlic) + "   order by nmfor");
    Adodc1.Refresh();
}

void frmCadFor::Form_Unload()
{
    FechaConexao();
    Adodc1.Close();
}

void frmCadFor::Limpa()
{
    ui->cmdsalva->setEnabled(true);
    for (QLineEdit* caixa :
         {ui->txtnome, ui->txtnr, ui->txtnrcel, ui->txtemail, ui->TXTRG, ui->txtruar, ui->txtbairror,
          ui->txtcepr, ui->txtcidader, ui->txtufr, ui->TXTCPF, ui->txtcodcli, ui->txtfone, ui->txtcontato})
        caixa->clear();
    ui->txtmemo->clear();
    ui->DataGrid1->rest();
}

void frmCadFor::cmdretorna_Click()
{
    Limpa();
    pointAtNothing(*this);
    ui->TXTCPF->setFocus();
}

/// The user who gives up gets all rows.
void frmCadFor::pesquisa(const QString& pergunta, const QString& coluna)
{
    const QString texto = InputBox(pergunta, u"Pesquisa fornecedor já cadastrado"_s).value_or(QString());
    Adodc1.setRecordSource("select * from fornecedores where  idlic = " + aspas(idlic) + " and " + coluna +
                           " like " + contem(texto) + " order by " + coluna);
    Adodc1.Refresh();
}

void frmCadFor::Command3_Click()
{
    pesquisa(u"Nome: "_s, u"nmfor"_s);
}

void frmCadFor::Command2_Click()
{
    pesquisa(u"Apelido: "_s, u"nmfant"_s);
}

void frmCadFor::DataGrid1_DblClick()
{
    if (Adodc1.Recordset().Eof())
        return;
    ui->txtcodcli->setText(Adodc1.Recordset().Fields("cdfor").text());
    ui->txtcodcli->setFocus();
}

void frmCadFor::txtcodcli_LostFocus()
{
    if (!isNumeric(ui->txtcodcli->text()))
        return Limpa();
    std::optional<Hourglass> ampulheta(std::in_place);
    Adodc1.Refresh();
    Adodc1.Recordset().Find("cdfor = " + codigoDaCaixa(ui->txtcodcli));
    if (Adodc1.Recordset().Eof()) {
        ampulheta.reset();
        pointAt({ui->txtcodcli});
        MsgBox(u"--- ERRO --- CÓDIGO NÃO ENCONTRADO!"_s, u"ATENÇÃO"_s);
        return Limpa();
    }
    mostra();
}

void frmCadFor::mostra()
{
    ADODB::Recordset& linha = Adodc1.Recordset();
    ui->txtnrcel->setText(linha.Fields("fonecel").text());
    ui->TXTCPF->setText(linha.Fields("cpf").text());
    ui->TXTRG->setText(linha.Fields("rg").text());
    ui->txtnome->setText(linha.Fields("nmfor").text());
    ui->txtmemo->setPlainText(linha.Fields("obs").text());
    ui->txtruar->setText(linha.Fields("rua").text());
    ui->txtnr->setText(linha.Fields("nrcasa").text());
    ui->txtemail->setText(linha.Fields("eMail").text());
    ui->txtbairror->setText(linha.Fields("bairro").text());
    ui->txtcepr->setText(linha.Fields("cep").text());
    ui->txtcidader->setText(linha.Fields("cidade").text());
    ui->txtufr->setText(linha.Fields("uf").text());
    ui->txtfone->setText(linha.Fields("fonefixo").text());
    ui->txtcontato->setText(linha.Fields("nmfant").text());
}

/// A document that is none goes without a word; a good one stays as it was typed.
void frmCadFor::TXTCPF_LostFocus()
{
    QString documento = ui->TXTCPF->text();
    if (documento.isEmpty())
        return;
    Rotirnas::ValidaDocumento(documento);
    if (!Resultado.toBool())
        ui->TXTCPF->clear();
}

void frmCadFor::cmdsalva_Click()
{
    if (isVazia(ui->txtnome)) {
        pointAt({ui->txtnome});
        MsgBox(u"--- ERRO --- NOME NÃO INFORMADO!"_s, u"ATENÇÃO"_s);
        return;
    }
    const Hourglass ampulheta;
    ExecutaComando(isNumeric(ui->txtcodcli->text()) ? alteracao() : inclusao());
    Adodc1.Refresh();
    cmdretorna_Click();
}

QString frmCadFor::alteracao() const
{
    return "update fornecedores set upev = " + aspas(carimbo()) + ",cep = " + aspas(ui->txtcepr->text()) +
           ", nmfor = " + aspas(ui->txtnome->text()) + ",nmfant = " + aspas(ui->txtcontato->text()) +
           ", cpf = " + aspas(ui->TXTCPF->text()) + ",rg = " + aspas(ui->TXTRG->text()) +
           ",fonefixo = " + aspas(ui->txtfone->text()) + ",fonecel = " + aspas(ui->txtnrcel->text()) +
           ", email = " + aspas(ui->txtemail->text()) + ", rua = " + aspas(ui->txtruar->text()) +
           ", nrcasa = " + aspas(ui->txtnr->text()) + ",bairro = " + aspas(ui->txtbairror->text()) +
           ",cidade = " + aspas(ui->txtcidader->text()) + ",uf = " + aspas(ui->txtufr->text()) +
           ",obs = " + aspas(ui->txtmemo->toPlainText()) + " WHERE idlic = " + aspas(idlic) +
           " and cdfor like " + codigoDaCaixa(ui->txtcodcli);
}

QString frmCadFor::inclusao() const
{
    return "insert into fornecedores "
           "(idlic,nmfor,nmfant,cpf,rg,fonefixo,fonecel,email,rua,nrcasa,bairro,cidade,uf,obs,cep,evcad,upev)"
           " values (" +
           aspas(idlic) + "," + aspas(ui->txtnome->text()) + "," + aspas(ui->txtcontato->text()) + "," +
           aspas(ui->TXTCPF->text()) + "," + aspas(ui->TXTRG->text()) + "," + aspas(ui->txtfone->text()) +
           "," + aspas(ui->txtnrcel->text()) + "," + aspas(ui->txtemail->text()) + "," +
           aspas(ui->txtruar->text()) + "," + aspas(ui->txtnr->text()) + "," + aspas(ui->txtbairror->text()) +
           "," + aspas(ui->txtcidader->text()) + "," + aspas(ui->txtufr->text()) + "," +
           aspas(ui->txtmemo->toPlainText()) + "," + aspas(ui->txtcepr->text()) + "," + aspas(carimbo()) +
           "," + aspas(carimbo()) + ")";
}
