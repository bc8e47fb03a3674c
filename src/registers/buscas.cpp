#include "registers/buscas.h"

#include "app/core/funcoes.h"
#include "app/core/sql.h"
#include "app/core/variaveis.h"
#include "registers/cadastrossimples.h"

using namespace Variaveis;

namespace {

const QString porNome = QStringLiteral("PESQUISA PELO NOME");
const QString semPermissao = QStringLiteral("Perfil sem permissão!");
const QString naoAutorizado = QStringLiteral("Perfil não autorizado!");

/// Texts that hold what was typed somewhere.
QString contem(const QString& texto)
{
    return aspas(QLatin1Char('%') + texto + QLatin1Char('%'));
}

template <class Tela>
std::function<void()> abre()
{
    return [] { Form::of<Tela>().ShowModal(); };
}

Pesquisa peloNome(std::function<QString(const QString&)> consulta)
{
    return {Qt::Key_F2, QStringLiteral("F2 PESQUISA NOME"), porNome, QStringLiteral("NOME:"),
            std::move(consulta)};
}

std::vector<GridColumn> codigoENome(const QString& codigo, const QString& nome, const QString& rotulo)
{
    return {{codigo, QStringLiteral("CÓDIGO"), 15}, {nome, rotulo, 85}};
}

} // namespace

frmBuscaConvenios::frmBuscaConvenios()
    : Busca(
          {.titulo = QStringLiteral("Convênios - Pesquisa"),
           .consulta =
               [] { return "select * from convenios where idlic = " + aspas(idlic) + " order by nmconv"; },
           .pesquisas = {peloNome([](const QString& t) {
               return "select * from convenios where idlic = " + aspas(idlic) + " and nmconv like " +
                      contem(t) + " order by nmconv";
           })},
           .codigo = QStringLiteral("idconv"),
           .nome = QStringLiteral("nmconv"),
           .direito = QStringLiteral("cadConv"),
           .recusa = semPermissao,
           .cadastro = abre<frmCadConvenios>(),
           .colunas = {{QStringLiteral("idconv"), QStringLiteral("CÓDIGO"), 15},
                       {QStringLiteral("nmconv"), QStringLiteral("CONVÊNIO"), 67},
                       {QStringLiteral("pdesc"), QStringLiteral("% DESC."), 18, QStringLiteral("#,##0.00")}}})
{
}

frmBuscaEspecialidades::frmBuscaEspecialidades()
    : Busca({.titulo = QStringLiteral("Especialidades - Pesquisa"),
             .consulta =
                 [] {
                     return "select * from especialidades where idlic = " + aspas(idlic) + " order by nmesp";
                 },
             .pesquisas = {peloNome([](const QString& t) {
                 return "select * from especialidades where idlic = " + aspas(idlic) + " and nmesp like " +
                        contem(t) + " order by nmesp";
             })},
             .codigo = QStringLiteral("idesp"),
             .nome = QStringLiteral("nmesp"),
             .direito = QStringLiteral("cadEsp"),
             .recusa = semPermissao,
             .cadastro = abre<frmCadEspecialidade>(),
             .colunas = codigoENome(QStringLiteral("idesp"), QStringLiteral("nmesp"),
                                    QStringLiteral("ESPECIALIDADE"))})
{
}

frmBuscaGrupo::frmBuscaGrupo()
    : Busca({.titulo = QStringLiteral("Pesquisa Grupo de Estoque"),
             .consulta =
                 [] {
                     return "select * from grupoestoque where  idlic = " + aspas(idlic) + " order by dsgrupo";
                 },
             .pesquisas = {peloNome([](const QString& t) {
                 return "select * from grupoestoque where  idlic = " + aspas(idlic) + " and  dsgrupo like " +
                        contem(t) + " order by dsgrupo";
             })},
             .codigo = QStringLiteral("cdgrupo"),
             .nome = QStringLiteral("dsgrupo"),
             .direito = QStringLiteral("cadgru"),
             .recusa = semPermissao,
             .cadastro = abre<frmCadGrupoEstoque>(),
             .colunas =
                 codigoENome(QStringLiteral("cdgrupo"), QStringLiteral("dsgrupo"), QStringLiteral("GRUPO"))})
{
}

BuscaDeCentro::BuscaDeCentro(const DescricaoBusca& descricao) : Busca(descricao), direito_(descricao.direito)
{
}

bool BuscaDeCentro::podeCadastrar() const
{
    Resultado = Funcoes::PerfilValor({}, direito_);
    return Resultado.toString() != QLatin1String("1");
}

frmBuscaCentroCusto::frmBuscaCentroCusto()
    : BuscaDeCentro(
          {.titulo = QStringLiteral("Centro de Custos - Pesquisa"),
           .consulta =
               [] { return "select * from centrocusto where idlic = " + aspas(idlic) + " order by nmcen"; },
           .pesquisas = {peloNome([](const QString& t) {
               return "select * from centrocusto where idlic = " + aspas(idlic) + " and nmcen like " +
                      contem(t) + " order by nmcen";
           })},
           .codigo = QStringLiteral("cdcen"),
           .nome = QStringLiteral("nmcen"),
           .direito = QStringLiteral("ctpgcadcen"),
           .recusa = QStringLiteral("--- Perfil não autorizado!"),
           .cadastro = abre<frmCadCentroCusto>(),
           .colunas = codigoENome(QStringLiteral("cdcen"), QStringLiteral("nmcen"),
                                  QStringLiteral("CENTRO DE CUSTOS"))})
{
}

frmBuscaSubCentroCusto::frmBuscaSubCentroCusto()
    : BuscaDeCentro({.titulo = QStringLiteral("SubCentro de Custos - Pesquisa"),
                     .consulta =
                         [] {
                             return "select * from subcentrocusto where idlic = " + aspas(idlic) +
                                    " order by nmscen";
                         },
                     .pesquisas = {peloNome([](const QString& t) {
                         return "select * from subcentrocusto where idlic = " + aspas(idlic) +
                                " and nmscen like " + contem(t) + " order by nmscen";
                     })},
                     .codigo = QStringLiteral("cdscen"),
                     .nome = QStringLiteral("nmscen"),
                     .direito = QStringLiteral("ctpgcadscen"),
                     .recusa = QStringLiteral("--- Perfil não autorizado!"),
                     .cadastro = abre<frmCadSubCentro>(),
                     .colunas = codigoENome(QStringLiteral("cdscen"), QStringLiteral("nmscen"),
                                            QStringLiteral("SUBCENTRO DE CUSTOS"))})
{
}

frmBuscaProcedimentos::frmBuscaProcedimentos()
    : Busca({.titulo = QStringLiteral("Procedimentos - Pesquisa"),
             .consulta =
                 [] {
                     return "select * from procedimentos where idlic = " + aspas(idlic) +
                            " and ondeatd = " + aspas(RetornoCodigo) + " order by nmproc";
                 },
             .pesquisas = {peloNome([](const QString& t) {
                 return "select * from procedimentos where idlic = " + aspas(idlic) +
                        "  and ondeatd = " + aspas(RetornoCodigo) + " and nmproc like " + contem(t) +
                        " order by nmproc";
             })},
             .codigo = QStringLiteral("idproc"),
             .nome = QStringLiteral("nmproc"),
             .direito = QStringLiteral("cadproc"),
             .recusa = semPermissao,
             .cadastro = abre<frmCadProcedimentos>(),
             .colunas = codigoENome(QStringLiteral("idproc"), QStringLiteral("nmproc"),
                                    QStringLiteral("PROCEDIMENTO"))})
{
}

void frmBuscaProcedimentos::Form_Load()
{
    RetornoCodigo = QStringLiteral("0");
    Busca::Form_Load();
}
