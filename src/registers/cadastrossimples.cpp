#include "registers/cadastrossimples.h"

#include "app/core/sql.h"
#include "app/core/variaveis.h"
#include "platform/forms/dialogs.h"
#include "platform/values/format.h"
#include "platform/values/number.h"
#include "ui_cadastrosimples.h"

using namespace Variaveis;

namespace {

const QString erroDeNome = QStringLiteral("--- ERRO --- NOME NÃO INFORMADO!");
const QString titulo = QStringLiteral("ATENÇÃO");

std::vector<GridColumn> colunas(const QString& codigo, const QString& nome, const QString& rotulo,
                                const QString& carimbo)
{
    return {{codigo, QStringLiteral("CÓDIGO"), 12},
            {nome, rotulo, 53},
            {carimbo, QStringLiteral("ÚLTIMA ALTERAÇÃO"), 35}};
}

} // namespace

frmCadConvenios::frmCadConvenios()
    : CadastroSimples(
          {.titulo = QStringLiteral("Convênios - Cadastro"),
           .rotuloNome = QStringLiteral("CONVÊNIO"),
           .codigo = QStringLiteral("idconv"),
           .nome = QStringLiteral("nmconv"),
           .consulta =
               [] { return "select * from convenios where idlic = " + aspas(idlic) + " order by nmconv"; },
           .colunas = {{QStringLiteral("idconv"), QStringLiteral("CÓDIGO"), 12},
                       {QStringLiteral("nmconv"), QStringLiteral("CONVÊNIO"), 41},
                       {QStringLiteral("pdesc"), QStringLiteral("% DESC."), 12, QStringLiteral("#,##0.00")},
                       {QStringLiteral("evup"), QStringLiteral("ÚLTIMA ALTERAÇÃO"), 35}}})
{
    ui->Label3->show();
    ui->txtPDesc->show();
    ui->campos->setColumnStretch(2, 1);
}

bool frmCadConvenios::recusa()
{
    if (ui->txtnome->text().trimmed().isEmpty() || !isNumeric(ui->txtPDesc->text())) {
        MsgBox(erroDeNome, titulo);
        return true;
    }
    if (toNumber(ui->txtPDesc->text()) < 0) {
        MsgBox(QStringLiteral("--- ERRO --- PERCENTUAL DE DESCONTO NÃO PODE SER MENOR QUE ZERO!"), titulo);
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
    Adodc1.Recordset().Find("idconv like " + aspas(codigoDigitado()));
    return !Adodc1.Recordset().Eof();
}

frmCadEspecialidade::frmCadEspecialidade()
    : CadastroSimples({.titulo = QStringLiteral("Especialidades - Cadastro"),
                       .rotuloNome = QStringLiteral("ESPECIALIDADE"),
                       .codigo = QStringLiteral("idesp"),
                       .nome = QStringLiteral("nmesp"),
                       .consulta =
                           [] {
                               return "select * from especialidades where idlic = " + aspas(idlic) +
                                      " order by nmesp";
                           },
                       .colunas = colunas(QStringLiteral("idesp"), QStringLiteral("nmesp"),
                                          QStringLiteral("ESPECIALIDADE"), QStringLiteral("evup"))})
{
}

frmCadProcedimentos::frmCadProcedimentos()
    : CadastroSimples(
          {.titulo = QStringLiteral("Procedimentos - Cadastro"),
           .rotuloNome = QStringLiteral("NOME"),
           .codigo = QStringLiteral("idproc"),
           .nome = QStringLiteral("nmproc"),
           .consulta =
               [] {
                   return "select * from procedimentos where idlic = " + aspas(idlic) + " order by nmproc";
               },
           .colunas = {{QStringLiteral("idproc"), QStringLiteral("CÓDIGO"), 12},
                       {QStringLiteral("nmproc"), QStringLiteral("NOME"), 44},
                       {QStringLiteral("ondeatd"), QStringLiteral("LOCAL"), 12, {}, Qt::AlignHCenter},
                       {QStringLiteral("evup"), QStringLiteral("ÚLTIMA ALTERAÇÃO"), 32}}})
{
    ui->Label4->show();
    ui->cboCH->show();
    ui->campos->setColumnStretch(3, 2);
}

QString frmCadProcedimentos::local() const
{
    return ui->cboCH->currentText().left(1);
}

bool frmCadProcedimentos::recusa()
{
    if (!ui->txtnome->text().trimmed().isEmpty() && isNumeric(local()))
        return false;
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
    ExecutaComando(codigoInformado() ? altera_(nome, codigoDigitado()) : insere_(nome));
}

frmCadGrupoEstoque::frmCadGrupoEstoque()
    : CadastroPorComando(
          {.titulo = QStringLiteral("Cadastro Grupo de Insumos"),
           .rotuloNome = QStringLiteral("NOME"),
           .codigo = QStringLiteral("cdgrupo"),
           .nome = QStringLiteral("dsgrupo"),
           .consulta =
               [] {
                   return "select * from grupoestoque where idlic = " + aspas(idlic) + "   order by dsgrupo";
               },
           .colunas = colunas(QStringLiteral("cdgrupo"), QStringLiteral("dsgrupo"), QStringLiteral("NOME"),
                              QStringLiteral("evup"))},
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
          {.titulo = QStringLiteral("Centro de Custos - Cadastro"),
           .rotuloNome = QStringLiteral("NOME"),
           .codigo = QStringLiteral("cdcen"),
           .nome = QStringLiteral("nmcen"),
           .consulta =
               [] { return "select * from centrocusto where idlic = " + aspas(idlic) + " order by nmcen"; },
           .colunas = colunas(QStringLiteral("cdcen"), QStringLiteral("nmcen"), QStringLiteral("NOME"),
                              QStringLiteral("evcad"))},
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
          {.titulo = QStringLiteral("SubCentro de Custos - Cadastro"),
           .rotuloNome = QStringLiteral("NOME"),
           .codigo = QStringLiteral("cdscen"),
           .nome = QStringLiteral("nmscen"),
           .consulta =
               [] {
                   return "select * from subcentrocusto where idlic = " + aspas(idlic) + " order by nmscen";
               },
           .colunas = colunas(QStringLiteral("cdscen"), QStringLiteral("nmscen"), QStringLiteral("NOME"),
                              QStringLiteral("evcad")),
           // Not a column of this table: the click is an error.
           .codigoDoClique = QStringLiteral("cdcen")},
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
