#include "registers/buscas.h"

#include "app/core/funcoes.h"
#include "app/core/sql.h"
#include "app/core/variaveis.h"
#include "registers/cadastrossimples.h"
#include "registers/frmcadcli.h"
#include "registers/frmcadfor.h"
#include "registers/frmcadproduto.h"
#include "registers/frmcadprofissionais.h"

using namespace Variaveis;

namespace {

const QString porNome = QStringLiteral("PESQUISA PELO NOME");
const QString semPermissao = QStringLiteral("Perfil sem permissão!");
const QString naoAutorizado = QStringLiteral("Perfil não autorizado!");
const QString centroNaoAutorizado = QStringLiteral("--- Perfil não autorizado!");

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

/// The professionals of the tenant with their speciality; the conditions and the order follow.
QString profissionais()
{
    return "select p.idpro,p.cidade,p.nrcon,p.fonefixo,p.fonecel,p.nmpro,e.nmesp from profissionais p left "
           "join especialidades e on p.idesp like e.idesp where p.idlic = " +
           aspas(idlic);
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

bool BuscaDeCentro::podeCadastrar(const QString& direito) const
{
    Resultado = Funcoes::PerfilValor({}, direito);
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
           .recusa = centroNaoAutorizado,
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
                     .recusa = centroNaoAutorizado,
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

frmBuscaProd::frmBuscaProd()
    : Busca({.titulo = QStringLiteral("Insumos - Pesquisa"),
             .consulta =
                 [] { return "select * from produtos where idlic = " + aspas(idlic) + " order by dspro"; },
             .pesquisas = {peloNome([](const QString& t) {
                 return "select * from produtos where idlic = " + aspas(idlic) + " and  dspro like " +
                        contem(t) + " order by dspro";
             })},
             .codigo = QStringLiteral("cdpro"),
             .nome = {},
             .direito = QStringLiteral("cadinsi"),
             .recusa = semPermissao,
             .cadastro = abre<frmCadProduto>(),
             .colunas = {{QStringLiteral("cdpro"), QStringLiteral("CÓDIGO"), 16},
                         {QStringLiteral("dspro"), QStringLiteral("INSUMO"), 56},
                         {QStringLiteral("un"), QStringLiteral("UN"), 10},
                         {QStringLiteral("vcusto"), QStringLiteral("CUSTO"), 18}},
             .teclaNovo = Qt::Key_F5,
             .botaoNovo = QStringLiteral("F5 NOVO INSUMO"),
             .enterAnda = false})
{
}

frmBuscaFornecedor::frmBuscaFornecedor()
    : Busca(
          {.titulo = QStringLiteral("Pesquisa de Fornecedores"),
           .consulta =
               [] { return "select * from fornecedores where idlic = " + aspas(idlic) + " order by nmfor"; },
           .pesquisas = {peloNome([](const QString& t) {
                             return "select * from fornecedores where idlic = " + aspas(idlic) +
                                    " and nmfor like " + contem(t) + " order by nmfor";
                         }),
                         {Qt::Key_F3, QStringLiteral("F3 PESQUISA APELIDO"),
                          QStringLiteral("PESQUISA PELO APELIDO"), QStringLiteral("APELIDO:"),
                          [](const QString& t) {
                              return "select * from fornecedores where idlic = " + aspas(idlic) +
                                     " and  nmFANT like " + contem(t) + " order by nmFANT";
                          }},
                         {Qt::Key_F4, QStringLiteral("F4 PESQUISA CPF/CNPJ"),
                          QStringLiteral("PESQUISA PELO CPF/CNPJ"), QStringLiteral("CPF/CNPJ:"),
                          [](const QString& t) {
                              return "select * from fornecedores where idlic = " + aspas(idlic) +
                                     " and  CPF like " + contem(t) + " order by nmfor";
                          }},
                         {Qt::Key_F5, QStringLiteral("F5 PESQUISA FONE"),
                          QStringLiteral("PESQUISA PELO FONE"), QStringLiteral("FONE:"),
                          [](const QString& t) {
                              return "select * from fornecedores where  idlic = " + aspas(idlic) +
                                     " and fonefixo like " + contem(t) + " or fonecel like " + contem(t) +
                                     " order by nmfor";
                          }}},
           .codigo = QStringLiteral("cdfor"),
           .nome = QStringLiteral("nmfor"),
           .direito = QStringLiteral("cadfor"),
           .recusa = semPermissao,
           .cadastro = abre<frmCadFor>(),
           .colunas = {{QStringLiteral("cdfor"), QStringLiteral("CÓDIGO"), 8},
                       {QStringLiteral("nmfor"), QStringLiteral("NOME"), 31},
                       {QStringLiteral("nmfant"), QStringLiteral("APELIDO"), 27},
                       {QStringLiteral("cpf"), QStringLiteral("CPF/CNPJ"), 18},
                       {QStringLiteral("fonefixo"), QStringLiteral("FONE"), 16}}})
{
}

frmBuscaPacientes::frmBuscaPacientes()
    : Busca({.titulo = QStringLiteral("Pacientes - Pesquisa"),
             .consulta =
                 [] { return "select * from pacientes where idlic = " + aspas(idlic) + " order by nmpac"; },
             .pesquisas = {{Qt::Key_F2, QStringLiteral("F2 PESQUISA NOME"),
                            QStringLiteral("PESQUISA PELO NOME DO PACIENTE"), QStringLiteral("NOME:"),
                            [](const QString& t) {
                                return "select * from pacientes where idlic = " + aspas(idlic) +
                                       " and nmpac like " + contem(t) + " order by nmpac";
                            }},
                           {Qt::Key_F3, QStringLiteral("F3 PESQUISA TELEFONE"),
                            QStringLiteral("PESQUISA PELO TELEFONE"), QStringLiteral("TELEFONE:"),
                            [](const QString& t) {
                                return "select * from pacientes where idlic = " + aspas(idlic) +
                                       " and fonepac like " + contem(t) + " or fonecel like " + contem(t) +
                                       " or foneresp like " + contem(t) + " order by nmpac";
                            }}},
             .codigo = QStringLiteral("idpac"),
             .nome = QStringLiteral("nmPac"),
             .fimCalado = true,
             .direito = QStringLiteral("cadPac"),
             .recusa = naoAutorizado,
             .cadastro = abre<frmcadcli>(),
             .colunas = {{QStringLiteral("idpac"), QStringLiteral("CÓDIGO"), 10},
                         {QStringLiteral("nmPac"), QStringLiteral("PACIENTE"), 38},
                         {QStringLiteral("dtnasc"), QStringLiteral("NASCIMENTO"), 13},
                         {QStringLiteral("fonepac"), QStringLiteral("FONE"), 19},
                         {QStringLiteral("fonecel"), QStringLiteral("CELULAR"), 20}}})
{
}

frmBuscaProf::frmBuscaProf()
    : Busca({.titulo = QStringLiteral("Profissionais - Pesquisa"),
             .consulta = [] { return profissionais() + " and p.ondeatd <> '0' order by p.nmpro"; },
             .pesquisas = {{Qt::Key_F2, QStringLiteral("F2 PESQUISA NOME"),
                            QStringLiteral("PESQUISA PELO NOME DO PACIENTE"), QStringLiteral("NOME:"),
                            [](const QString& t) {
                                return profissionais() + " and p.nmpro like " + contem(t) +
                                       "  and p.ondeatd <> '0' order by p.nmpro";
                            }},
                           {Qt::Key_F3, QStringLiteral("F3 PESQUISA TELEFONE"),
                            QStringLiteral("PESQUISA PELO TELEFONE"), QStringLiteral("TELEFONE:"),
                            [](const QString& t) {
                                return profissionais() + " and p.fonefixo like " + contem(t) +
                                       " or p.fonecel like " + contem(t) +
                                       "  and p.ondeatd <> '0' order by p.nmpro";
                            }}},
             .codigo = QStringLiteral("idpro"),
             .nome = QStringLiteral("nmpro"),
             .fimCalado = true,
             .direito = QStringLiteral("cadProf"),
             .recusa = naoAutorizado,
             .cadastro = abre<frmCadProfissionais>(),
             .colunas = {{QStringLiteral("idpro"), QStringLiteral("CÓDIGO"), 9},
                         {QStringLiteral("nmpro"), QStringLiteral("PROFISSIONAL"), 25},
                         {QStringLiteral("nmesp"), QStringLiteral("ESPECIALIDADE"), 17},
                         {QStringLiteral("nrcon"), QStringLiteral("CONSELHO"), 18},
                         {QStringLiteral("fonecel"), QStringLiteral("CELULAR"), 17},
                         {QStringLiteral("cidade"), QStringLiteral("CIDADE"), 14}}})
{
}
