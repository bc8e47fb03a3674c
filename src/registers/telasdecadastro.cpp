#include "registers/telasdecadastro.h"

#include "app/core/caixas.h"
#include "app/core/sql.h"
#include "app/core/variaveis.h"
#include "platform/forms/dialogs.h"
#include "platform/forms/wrongboxes.h"
#include "platform/values/format.h"
#include "platform/values/number.h"
#include "ui_cadastrosimples.h"

using namespace Qt::StringLiterals;

using namespace Variaveis;

namespace {

const QString erroDeNome = u"--- ERRO --- NOME NÃO INFORMADO!"_s;
const QString titulo = u"ATENÇÃO"_s;
const QStringList locais = {u"0 - Clinica"_s, u"1 - Home"_s};

std::vector<GridColumn> colunas(const QString& codigo, const QString& nome, const QString& rotulo,
                                const QString& carimbo)
{
    return {{codigo, u"CÓDIGO"_s, 12}, {nome, rotulo, 53}, {carimbo, u"ÚLTIMA ALTERAÇÃO"_s, 35}};
}

} // namespace

frmCadConvenios::frmCadConvenios()
    : CadastroSimples(
          {.titulo = u"Convênios - Cadastro"_s,
           .rotuloNome = u"CONVÊNIO"_s,
           .codigo = u"idconv"_s,
           .nome = u"nmconv"_s,
           .consulta =
               [] { return "select * from convenios where idlic = " + aspas(idlic) + " order by nmconv"; },
           .colunas = {{u"idconv"_s, u"CÓDIGO"_s, 12},
                       {u"nmconv"_s, u"CONVÊNIO"_s, 41},
                       {u"pdesc"_s, u"% DESC."_s, 12, u"#,##0.00"_s},
                       {u"evup"_s, u"ÚLTIMA ALTERAÇÃO"_s, 35}}})
{
    ui->Label3->show();
    ui->txtPDesc->show();
}

bool frmCadConvenios::recusa()
{
    const QWidgetList caixas =
        erradas({{ui->txtnome, isVazia(ui->txtnome)}, {ui->txtPDesc, !isNumeric(ui->txtPDesc->text())}});
    if (!caixas.isEmpty()) {
        pointAt(caixas);
        MsgBox(erroDeNome, titulo);
        return true;
    }
    if (toNumber(ui->txtPDesc->text()) < 0) {
        pointAt({ui->txtPDesc});
        MsgBox(u"--- ERRO --- PERCENTUAL DE DESCONTO NÃO PODE SER MENOR QUE ZERO!"_s, titulo);
        return true;
    }
    return false;
}

void frmCadConvenios::mostraCampos(ADODB::Recordset& linha)
{
    ui->txtPDesc->setText(Format(linha.Fields("pdesc").number(), u"#,##0.00"));
}

void frmCadConvenios::limpaCampos()
{
    ui->txtPDesc->clear();
}

void frmCadConvenios::gravaCampos(ADODB::Recordset& linha)
{
    linha.Fields("pdesc") = toNumber(ui->txtPDesc->text());
}

bool frmCadConvenios::achaParaEditar()
{
    Adodc1.Refresh();
    Adodc1.Recordset().Find("idconv like " + aspas(codigoDaCaixa(ui->txtcodcli)));
    return !Adodc1.Recordset().Eof();
}

frmCadEspecialidade::frmCadEspecialidade()
    : CadastroSimples({.titulo = u"Especialidades - Cadastro"_s,
                       .rotuloNome = u"ESPECIALIDADE"_s,
                       .codigo = u"idesp"_s,
                       .nome = u"nmesp"_s,
                       .consulta =
                           [] {
                               return "select * from especialidades where idlic = " + aspas(idlic) +
                                      " order by nmesp";
                           },
                       .colunas = colunas(u"idesp"_s, u"nmesp"_s, u"ESPECIALIDADE"_s, u"evup"_s)})
{
}

frmCadProcedimentos::frmCadProcedimentos()
    : CadastroSimples({.titulo = u"Procedimentos - Cadastro"_s,
                       .rotuloNome = u"NOME"_s,
                       .codigo = u"idproc"_s,
                       .nome = u"nmproc"_s,
                       .consulta =
                           [] {
                               return "select * from procedimentos where idlic = " + aspas(idlic) +
                                      " order by nmproc";
                           },
                       .colunas = {{u"idproc"_s, u"CÓDIGO"_s, 12},
                                   {u"nmproc"_s, u"NOME"_s, 42},
                                   {u"ondeatd"_s, u"LOCAL"_s, 14, {}, {}, locais},
                                   {u"evup"_s, u"ÚLTIMA ALTERAÇÃO"_s, 32}}})
{
    ui->Label4->show();
    ui->cboCH->show();
    ui->cboCH->addItems(locais);
    ui->cboCH->setCurrentIndex(-1);
}

QString frmCadProcedimentos::local() const
{
    return ui->cboCH->currentText().left(1);
}

bool frmCadProcedimentos::recusa()
{
    const QWidgetList caixas =
        erradas({{ui->txtnome, isVazia(ui->txtnome)}, {ui->cboCH, !isNumeric(local())}});
    if (caixas.isEmpty())
        return false;
    pointAt(caixas);
    MsgBox(erroDeNome, titulo);
    return true;
}

void frmCadProcedimentos::mostraCampos(ADODB::Recordset& linha)
{
    ui->cboCH->setCurrentIndex(int(linha.Fields("ondeatd").integer()));
}

void frmCadProcedimentos::gravaCampos(ADODB::Recordset& linha)
{
    linha.Fields("ondeatd") = local();
}

CadastroPorComando::CadastroPorComando(const DescricaoCadastro& descricao, Insere insere, Altera altera)
    : CadastroSimples(descricao), insere_(std::move(insere)), altera_(std::move(altera))
{
}

void CadastroPorComando::grava()
{
    const QString nome = ui->txtnome->text();
    ExecutaComando(codigoInformado() ? altera_(nome, codigoDaCaixa(ui->txtcodcli)) : insere_(nome));
}

frmCadGrupoEstoque::frmCadGrupoEstoque()
    : CadastroPorComando(
          {.titulo = u"Cadastro Grupo de Insumos"_s,
           .rotuloNome = u"NOME"_s,
           .codigo = u"cdgrupo"_s,
           .nome = u"dsgrupo"_s,
           .consulta =
               [] {
                   return "select * from grupoestoque where idlic = " + aspas(idlic) + "   order by dsgrupo";
               },
           .colunas = colunas(u"cdgrupo"_s, u"dsgrupo"_s, u"NOME"_s, u"evup"_s)},
          [](const QString& nome) {
              return "insert into grupoestoque (idlic,dsgrupo,evcad,evup) values (" + aspas(idlic) + "," +
                     aspas(nome) + "," + aspas(carimbo()) + "," + aspas(carimbo()) + ")";
          },
          [](const QString& nome, const QString& codigo) {
              return "update grupoestoque set dsgrupo = " + aspas(nome) + ",evup = " + aspas(carimbo()) +
                     " WHERE  idlic = " + aspas(idlic) + " and cdgrupo like " + codigo;
          })
{
}

frmCadCentroCusto::frmCadCentroCusto()
    : CadastroPorComando(
          {.titulo = u"Centro de Custos - Cadastro"_s,
           .rotuloNome = u"NOME"_s,
           .codigo = u"cdcen"_s,
           .nome = u"nmcen"_s,
           .consulta =
               [] { return "select * from centrocusto where idlic = " + aspas(idlic) + " order by nmcen"; },
           .colunas = colunas(u"cdcen"_s, u"nmcen"_s, u"NOME"_s, u"evcad"_s)},
          [](const QString& nome) {
              return "insert into centrocusto (idlic,nmcen,evcad) values (" + aspas(idlic) + "," +
                     aspas(nome) + "," + aspas(carimbo()) + ")";
          },
          [](const QString& nome, const QString& codigo) {
              return "update centrocusto set nmcen = " + aspas(nome) + ", evcad = " + aspas(carimbo()) +
                     " WHERE idlic = " + aspas(idlic) + " and cdcen like " + codigo;
          })
{
}

frmCadSubCentro::frmCadSubCentro()
    : CadastroPorComando(
          {.titulo = u"SubCentro de Custos - Cadastro"_s,
           .rotuloNome = u"NOME"_s,
           .codigo = u"cdscen"_s,
           .nome = u"nmscen"_s,
           .consulta =
               [] {
                   return "select * from subcentrocusto where idlic = " + aspas(idlic) + " order by nmscen";
               },
           .colunas = colunas(u"cdscen"_s, u"nmscen"_s, u"NOME"_s, u"evcad"_s),
           // Not a column of this table: the click is an error.
           .codigoDoClique = u"cdcen"_s},
          [](const QString& nome) {
              return "insert into subcentrocusto (idlic,nmscen,evcad) values (" + aspas(idlic) + "," +
                     aspas(nome) + "," + aspas(carimbo()) + ")";
          },
          [](const QString& nome, const QString& codigo) {
              return "update subcentrocusto set nmscen = " + aspas(nome) + ", evcad = " + aspas(carimbo()) +
                     " WHERE idlic = " + aspas(idlic) + " and cdscen like " + codigo;
          })
{
}
