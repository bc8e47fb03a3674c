#include "registers/frmcadproduto.h"

#include "app/core/caixas.h"
#include "app/core/sql.h"
#include "app/core/variaveis.h"
#include "platform/forms/dialogs.h"
#include "platform/forms/hourglass.h"
#include "platform/forms/wrongboxes.h"
#include "platform/system/clock.h"
#include "platform/values/date.h"
#include "platform/values/format.h"
#include "platform/values/number.h"
#include "registers/escolha.h"
#include "registers/telasdebusca.h"
#include "ui_frmcadproduto.h"

using namespace Qt::StringLiterals;

using namespace Variaveis;

namespace {

void trocaVirgula(QLineEdit* caixa)
{
    caixa->setText(comPonto(caixa->text()));
}

} // namespace

frmCadProduto::frmCadProduto() : ui(std::make_unique<Ui::frmCadProduto>())
{
    ui->setupUi(this);
    ui->DataGrid1->setColumns({{u"cdpro"_s, u"CÓDIGO"_s, 12},
                               {u"dspro"_s, u"PRODUTO"_s, 42},
                               {u"un"_s, u"UN"_s, 8},
                               {u"cdgrupo"_s, u"GRUPO"_s, 8},
                               {u"vcusto"_s, u"CUSTO"_s, 15, u"#,##0.0000"_s},
                               {u"qmin"_s, u"QTDE.MIN"_s, 15, u"#,##0.0000"_s}});
    ui->DataGrid1->setDataSource(&Adodc1);
    wire();
}

frmCadProduto::~frmCadProduto() = default;

void frmCadProduto::wire()
{
    onLostFocus(ui->txtCdPro, &frmCadProduto::txtCdPro_LostFocus);
    onLostFocus(ui->txtFator, &frmCadProduto::txtFator_LostFocus);
    onChange(ui->txtCdGrupo, &frmCadProduto::txtCdGrupo_Change);
    onDblClick(ui->DataGrid1, &frmCadProduto::DataGrid1_DblClick, levaOCodigo);
    onClick(ui->cmdsalva, &frmCadProduto::cmdsalva_Click);
    onClick(ui->cmdretorna, &frmCadProduto::cmdretorna_Click);
    onClick(ui->Command2, &frmCadProduto::Command2_Click);
    onKey(Qt::Key_F2, &frmCadProduto::Command2_Click);
    onClick(ui->Command3, &frmCadProduto::Command3_Click);
    onKey(Qt::Key_F10, &frmCadProduto::Command3_Click);
}

void frmCadProduto::Form_Load()
{
    AbreConexao();
    Adodc1.setConnectionString(StringConexao);
    Adodc1.setRecordSource("select * from produtos where idlic = " + aspas(idlic) + "  order by dspro");
    Adodc1.Refresh();
}

void frmCadProduto::Form_Unload()
{
    FechaConexao();
    Adodc1.Close();
}

void frmCadProduto::Limpa()
{
    ui->cmdsalva->setEnabled(true);
    ui->cboLote->setCurrentIndex(0);
    for (QLineEdit* caixa : {ui->txtDsPro, ui->txtUN, ui->txtCdGrupo, ui->txtFator, ui->txtDtUA, ui->txtQtde})
        caixa->clear();
    ui->txtmemo->clear();
    ui->txtDtUC->setText(u"SR"_s);
    ui->DataGrid1->rest();
}

void frmCadProduto::cmdretorna_Click()
{
    Limpa();
    pointAtNothing(*this);
    ui->txtCdPro->clear();
    ui->txtCdPro->setFocus();
}

void frmCadProduto::Command2_Click()
{
    ui->txtCdGrupo->setFocus(); // before the choice: leaving the code box may empty the screen
    if (const auto grupo = escolheNumero<frmBuscaGrupo>())
        ui->txtCdGrupo->setText(grupo->codigo);
}

/// The user who gives up gets all rows.
void frmCadProduto::Command3_Click()
{
    const QString texto = InputBox(u"Produto: "_s, u"Pesquisa produto já cadastrado"_s).value_or(QString());
    Adodc1.setRecordSource("select * from produtos where  idlic = " + aspas(idlic) + " and dspro like " +
                           contem(texto) + " order by dspro");
    Adodc1.Refresh();
    ui->DataGrid1->setFocus();
}

void frmCadProduto::DataGrid1_DblClick()
{
    if (Adodc1.Recordset().Eof())
        return;
    ui->txtCdPro->setText(Adodc1.Recordset().Fields("cdpro").text());
    ui->txtCdPro->setFocus();
}

void frmCadProduto::txtCdGrupo_Change()
{
    ui->txtDsGrupo->clear();
    if (!isNumeric(ui->txtCdGrupo->text()))
        return;
    const auto nome = nomeDoCodigo("select * from grupoestoque where idlic = " + aspas(idlic) +
                                       " and  cdgrupo like " + codigoInteiro(ui->txtCdGrupo->text()),
                                   u"dsgrupo"_s);
    ui->txtDsGrupo->setText(nome.value_or(QString()));
}

void frmCadProduto::txtFator_LostFocus()
{
    ui->txtFator->setText(Format(ui->txtFator->text(), u"#########0.00##"));
}

/// The code goes bare into the search, so that 12 finds 0012; a code in letters is the data layer's error.
void frmCadProduto::txtCdPro_LostFocus()
{
    if (isVazia(ui->txtCdPro))
        return Limpa();
    const Hourglass ampulheta;
    ADODB::Recordset& linhas = Adodc1.Recordset();
    Adodc1.Refresh();
    if (!linhas.Eof())
        linhas.Find("cdpro like " + ui->txtCdPro->text());
    if (linhas.Eof())
        return Limpa();
    mostra();
}

void frmCadProduto::mostra()
{
    ADODB::Recordset& linha = Adodc1.Recordset();
    ui->txtDsPro->setText(linha.Fields("DSPRO").text());
    ui->txtUN->setText(linha.Fields("un").text());
    ui->txtCdGrupo->setText(linha.Fields("cdgrupo").text());
    ui->txtFator->setText(Format(linha.Fields("vcusto").number(), u"############0.00##"));
    ui->txtDtUC->setText(linha.Fields("dtucmp").text());
    ui->txtmemo->setPlainText(linha.Fields("obs").text());
    ui->txtDtUA->setText(linha.Fields("qmin").text());
    ui->txtQtde->setText(u"***"_s);
    ui->cboLote->setCurrentIndex(int(linha.Fields("caplote").integer()));
}

bool frmCadProduto::recusa()
{
    const QWidgetList caixas = erradas({{ui->txtCdPro, isVazia(ui->txtCdPro)},
                                        {ui->txtDsPro, isVazia(ui->txtDsPro)},
                                        {ui->txtUN, isVazia(ui->txtUN)},
                                        {ui->txtCdGrupo, isVazia(ui->txtDsGrupo)},
                                        {ui->txtFator, !isNumeric(ui->txtFator->text())},
                                        {ui->txtDtUA, !isNumeric(ui->txtDtUA->text())}});
    if (!caixas.isEmpty()) {
        pointAt(caixas);
        MsgBox(u"--- ERRO --- DADOS INCOMPLETOS!"_s, u"ATENÇÃO"_s);
        return true;
    }
    if (toNumber(ui->txtFator->text()) < 0) {
        pointAt({ui->txtFator});
        MsgBox(u"--- ERRO --- VALOR DO CUSTO NÃO PODE SER MENOR QUE ZERO!"_s, u"Atenção"_s);
        return true;
    }
    if (toNumber(ui->txtDtUA->text()) < 0) {
        pointAt({ui->txtDtUA});
        MsgBox(u"--- ERRO --- ESTOQUE MINIMO NÃO PODE SER MENOR QUE ZERO!"_s, u"Atenção"_s);
        return true;
    }
    return false;
}

void frmCadProduto::cmdsalva_Click()
{
    if (recusa())
        return;
    const Hourglass ampulheta;
    // Read before the commas go: with a point alone "1.000" could mean one as well as a thousand.
    const double custo = toNumber(ui->txtFator->text());
    const double minimo = toNumber(ui->txtDtUA->text());
    trocaVirgula(ui->txtFator);
    trocaVirgula(ui->txtDtUA);
    grava(custo, minimo);
    cmdretorna_Click();
}

/// Here the code is compared as text: 12 and 0012 are two products.
void frmCadProduto::grava(double custo, double minimo)
{
    ADODB::Recordset& linhas = Adodc1.Recordset();
    linhas.Find("cdpro like " + aspas(ui->txtCdPro->text()));
    if (linhas.Eof()) {
        linhas.AddNew();
        linhas.Fields("idlic") = idlic;
        linhas.Fields("cdpro") = ui->txtCdPro->text();
        linhas.Fields("evcad") = carimbo();
    }
    linhas.Fields("DSPRO") = ui->txtDsPro->text();
    linhas.Fields("un") = ui->txtUN->text();
    linhas.Fields("cdgrupo") = integerPart(ui->txtCdGrupo->text());
    linhas.Fields("vcusto") = custo;
    linhas.Fields("evup") = carimbo();
    linhas.Fields("dtucmp") = ui->txtDtUC->text();
    linhas.Fields("obs") = ui->txtmemo->toPlainText();
    linhas.Fields("qmin") = minimo;
    linhas.Fields("caplote") = ui->cboLote->currentText().left(1);
    linhas.Update();
}

void frmCadProduto::GeraCodigoProduto()
{
    const QDateTime agora = Clock::now();
    const QString pedido = Format(agora, u"yymmddhhmmss") + u"CAD"_s;
    AbreConexao();
    Conexao.Execute("insert into produtoscodigos (cdpror,evcad) values (" + aspas(pedido) + "," +
                    aspas(QLatin1Char('|') + generalDate(agora)) + ")");
    ADODB::Recordset linha;
    linha.Open("select * from produtoscodigos where cdpror = " + aspas(pedido), Conexao, 0, 1);
    CodigoGerado = Format(linha.Fields("cdpro").number(), u"0000");
    linha.Close();
}
