#include "registers/telasdebusca.h"

#include "app/core/funcoes.h"
#include "app/core/sql.h"
#include "app/core/variaveis.h"
#include "registers/frmcadcli.h"
#include "registers/frmcadfor.h"
#include "registers/frmcadproduto.h"
#include "registers/frmcadprofissionais.h"
#include "registers/telasdecadastro.h"

using namespace Qt::StringLiterals;

using namespace Variaveis;

namespace {

const QString porNome = u"PESQUISA PELO NOME"_s;
const QString semPermissao = u"Perfil sem permissão!"_s;
const QString naoAutorizado = u"Perfil não autorizado!"_s;
const QString centroNaoAutorizado = u"--- Perfil não autorizado!"_s;

template <class Tela>
std::function<void()> abre()
{
    return [] { Form::of<Tela>().ShowModal(); };
}

Pesquisa peloNome(std::function<QString(const QString&)> consulta)
{
    return {Qt::Key_F2, u"F2 PESQUISA NOME"_s, porNome, u"NOME:"_s, std::move(consulta)};
}

std::vector<GridColumn> codigoENome(const QString& codigo, const QString& nome, const QString& rotulo)
{
    return {{codigo, u"CÓDIGO"_s, 15}, {nome, rotulo, 85}};
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
    : Busca({.titulo = u"Convênios - Pesquisa"_s,
             .consulta =
                 [] { return "select * from convenios where idlic = " + aspas(idlic) + " order by nmconv"; },
             .pesquisas = {peloNome([](const QString& t) {
                 return "select * from convenios where idlic = " + aspas(idlic) + " and nmconv like " +
                        contem(t) + " order by nmconv";
             })},
             .codigo = u"idconv"_s,
             .nome = u"nmconv"_s,
             .direito = u"cadConv"_s,
             .recusa = semPermissao,
             .cadastro = abre<frmCadConvenios>(),
             .colunas = {{u"idconv"_s, u"CÓDIGO"_s, 15},
                         {u"nmconv"_s, u"CONVÊNIO"_s, 67},
                         {u"pdesc"_s, u"% DESC."_s, 18, u"#,##0.00"_s}}})
{
}

frmBuscaEspecialidades::frmBuscaEspecialidades()
    : Busca({.titulo = u"Especialidades - Pesquisa"_s,
             .consulta =
                 [] {
                     return "select * from especialidades where idlic = " + aspas(idlic) + " order by nmesp";
                 },
             .pesquisas = {peloNome([](const QString& t) {
                 return "select * from especialidades where idlic = " + aspas(idlic) + " and nmesp like " +
                        contem(t) + " order by nmesp";
             })},
             .codigo = u"idesp"_s,
             .nome = u"nmesp"_s,
             .direito = u"cadEsp"_s,
             .recusa = semPermissao,
             .cadastro = abre<frmCadEspecialidade>(),
             .colunas = codigoENome(u"idesp"_s, u"nmesp"_s, u"ESPECIALIDADE"_s)})
{
}

frmBuscaGrupo::frmBuscaGrupo()
    : Busca({.titulo = u"Pesquisa Grupo de Estoque"_s,
             .consulta =
                 [] {
                     return "select * from grupoestoque where  idlic = " + aspas(idlic) + " order by dsgrupo";
                 },
             .pesquisas = {peloNome([](const QString& t) {
                 return "select * from grupoestoque where  idlic = " + aspas(idlic) + " and  dsgrupo like " +
                        contem(t) + " order by dsgrupo";
             })},
             .codigo = u"cdgrupo"_s,
             .nome = u"dsgrupo"_s,
             .direito = u"cadgru"_s,
             .recusa = semPermissao,
             .cadastro = abre<frmCadGrupoEstoque>(),
             .colunas = codigoENome(u"cdgrupo"_s, u"dsgrupo"_s, u"GRUPO"_s)})
{
}

bool BuscaDeCentro::podeCadastrar(const QString& direito) const
{
    Resultado = Funcoes::PerfilValor({}, direito);
    return Resultado.toString() != QLatin1String("1");
}

frmBuscaCentroCusto::frmBuscaCentroCusto()
    : BuscaDeCentro(
          {.titulo = u"Centro de Custos - Pesquisa"_s,
           .consulta =
               [] { return "select * from centrocusto where idlic = " + aspas(idlic) + " order by nmcen"; },
           .pesquisas = {peloNome([](const QString& t) {
               return "select * from centrocusto where idlic = " + aspas(idlic) + " and nmcen like " +
                      contem(t) + " order by nmcen";
           })},
           .codigo = u"cdcen"_s,
           .nome = u"nmcen"_s,
           .direito = u"ctpgcadcen"_s,
           .recusa = centroNaoAutorizado,
           .cadastro = abre<frmCadCentroCusto>(),
           .colunas = codigoENome(u"cdcen"_s, u"nmcen"_s, u"CENTRO DE CUSTOS"_s)})
{
}

frmBuscaSubCentroCusto::frmBuscaSubCentroCusto()
    : BuscaDeCentro({.titulo = u"SubCentro de Custos - Pesquisa"_s,
                     .consulta =
                         [] {
                             return "select * from subcentrocusto where idlic = " + aspas(idlic) +
                                    " order by nmscen";
                         },
                     .pesquisas = {peloNome([](const QString& t) {
                         return "select * from subcentrocusto where idlic = " + aspas(idlic) +
                                " and nmscen like " + contem(t) + " order by nmscen";
                     })},
                     .codigo = u"cdscen"_s,
                     .nome = u"nmscen"_s,
                     .direito = u"ctpgcadscen"_s,
                     .recusa = centroNaoAutorizado,
                     .cadastro = abre<frmCadSubCentro>(),
                     .colunas = codigoENome(u"cdscen"_s, u"nmscen"_s, u"SUBCENTRO DE CUSTOS"_s)})
{
}

frmBuscaProcedimentos::frmBuscaProcedimentos()
    : Busca({.titulo = u"Procedimentos - Pesquisa"_s,
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
             .codigo = u"idproc"_s,
             .nome = u"nmproc"_s,
             .direito = u"cadproc"_s,
             .recusa = semPermissao,
             .cadastro = abre<frmCadProcedimentos>(),
             .colunas = codigoENome(u"idproc"_s, u"nmproc"_s, u"PROCEDIMENTO"_s)})
{
}

void frmBuscaProcedimentos::Form_Load()
{
    RetornoCodigo = u"0"_s;
    Busca::Form_Load();
}

frmBuscaProd::frmBuscaProd()
    : Busca({.titulo = u"Insumos - Pesquisa"_s,
             .consulta =
                 [] { return "select * from produtos where idlic = " + aspas(idlic) + " order by dspro"; },
             .pesquisas = {peloNome([](const QString& t) {
                 return "select * from produtos where idlic = " + aspas(idlic) + " and  dspro like " +
                        contem(t) + " order by dspro";
             })},
             .codigo = u"cdpro"_s,
             .nome = {},
             .direito = u"cadinsi"_s,
             .recusa = semPermissao,
             .cadastro = abre<frmCadProduto>(),
             .colunas = {{u"cdpro"_s, u"CÓDIGO"_s, 16},
                         {u"dspro"_s, u"INSUMO"_s, 56},
                         {u"un"_s, u"UN"_s, 10},
                         {u"vcusto"_s, u"CUSTO"_s, 18}},
             .teclaNovo = Qt::Key_F5,
             .botaoNovo = u"F5 NOVO INSUMO"_s,
             .enterAnda = false})
{
}

frmBuscaFornecedor::frmBuscaFornecedor()
    : Busca(
          {.titulo = u"Pesquisa de Fornecedores"_s,
           .consulta =
               [] { return "select * from fornecedores where idlic = " + aspas(idlic) + " order by nmfor"; },
           .pesquisas = {peloNome([](const QString& t) {
                             return "select * from fornecedores where idlic = " + aspas(idlic) +
                                    " and nmfor like " + contem(t) + " order by nmfor";
                         }),
                         {Qt::Key_F3, u"F3 PESQUISA APELIDO"_s, u"PESQUISA PELO APELIDO"_s, u"APELIDO:"_s,
                          [](const QString& t) {
                              return "select * from fornecedores where idlic = " + aspas(idlic) +
                                     " and  nmFANT like " + contem(t) + " order by nmFANT";
                          }},
                         {Qt::Key_F4, u"F4 PESQUISA CPF/CNPJ"_s, u"PESQUISA PELO CPF/CNPJ"_s, u"CPF/CNPJ:"_s,
                          [](const QString& t) {
                              return "select * from fornecedores where idlic = " + aspas(idlic) +
                                     " and  CPF like " + contem(t) + " order by nmfor";
                          }},
                         {Qt::Key_F5, u"F5 PESQUISA FONE"_s, u"PESQUISA PELO FONE"_s, u"FONE:"_s,
                          [](const QString& t) {
                              return "select * from fornecedores where  idlic = " + aspas(idlic) +
                                     " and fonefixo like " + contem(t) + " or fonecel like " + contem(t) +
                                     " order by nmfor";
                          }}},
           .codigo = u"cdfor"_s,
           .nome = u"nmfor"_s,
           .direito = u"cadfor"_s,
           .recusa = semPermissao,
           .cadastro = abre<frmCadFor>(),
           .colunas = {{u"cdfor"_s, u"CÓDIGO"_s, 8},
                       {u"nmfor"_s, u"NOME"_s, 31},
                       {u"nmfant"_s, u"APELIDO"_s, 27},
                       {u"cpf"_s, u"CPF/CNPJ"_s, 18},
                       {u"fonefixo"_s, u"FONE"_s, 16}}})
{
}

frmBuscaPacientes::frmBuscaPacientes()
    : Busca(
          {.titulo = u"Pacientes - Pesquisa"_s,
           .consulta =
               [] { return "select * from pacientes where idlic = " + aspas(idlic) + " order by nmpac"; },
           .pesquisas = {{Qt::Key_F2, u"F2 PESQUISA NOME"_s, u"PESQUISA PELO NOME DO PACIENTE"_s, u"NOME:"_s,
                          [](const QString& t) {
                              return "select * from pacientes where idlic = " + aspas(idlic) +
                                     " and nmpac like " + contem(t) + " order by nmpac";
                          }},
                         {Qt::Key_F3, u"F3 PESQUISA TELEFONE"_s, u"PESQUISA PELO TELEFONE"_s, u"TELEFONE:"_s,
                          [](const QString& t) {
                              return "select * from pacientes where idlic = " + aspas(idlic) +
                                     " and fonepac like " + contem(t) + " or fonecel like " + contem(t) +
                                     " or foneresp like " + contem(t) + " order by nmpac";
                          }}},
           .codigo = u"idpac"_s,
           .nome = u"nmPac"_s,
           .fimCalado = true,
           .direito = u"cadPac"_s,
           .recusa = naoAutorizado,
           .cadastro = abre<frmcadcli>(),
           .colunas = {{u"idpac"_s, u"CÓDIGO"_s, 10},
                       {u"nmPac"_s, u"PACIENTE"_s, 38},
                       {u"dtnasc"_s, u"NASCIMENTO"_s, 13},
                       {u"fonepac"_s, u"FONE"_s, 19},
                       {u"fonecel"_s, u"CELULAR"_s, 20}}})
{
}

frmBuscaProf::frmBuscaProf()
    : Busca(
          {.titulo = u"Profissionais - Pesquisa"_s,
           .consulta = [] { return profissionais() + " and p.ondeatd <> '0' order by p.nmpro"; },
           .pesquisas = {{Qt::Key_F2, u"F2 PESQUISA NOME"_s, u"PESQUISA PELO NOME DO PACIENTE"_s, u"NOME:"_s,
                          [](const QString& t) {
                              return profissionais() + " and p.nmpro like " + contem(t) +
                                     "  and p.ondeatd <> '0' order by p.nmpro";
                          }},
                         {Qt::Key_F3, u"F3 PESQUISA TELEFONE"_s, u"PESQUISA PELO TELEFONE"_s, u"TELEFONE:"_s,
                          [](const QString& t) {
                              return profissionais() + " and p.fonefixo like " + contem(t) +
                                     " or p.fonecel like " + contem(t) +
                                     "  and p.ondeatd <> '0' order by p.nmpro";
                          }}},
           .codigo = u"idpro"_s,
           .nome = u"nmpro"_s,
           .fimCalado = true,
           .direito = u"cadProf"_s,
           .recusa = naoAutorizado,
           .cadastro = abre<frmCadProfissionais>(),
           .colunas = {{u"idpro"_s, u"CÓDIGO"_s, 9},
                       {u"nmpro"_s, u"PROFISSIONAL"_s, 25},
                       {u"nmesp"_s, u"ESPECIALIDADE"_s, 17},
                       {u"nrcon"_s, u"CONSELHO"_s, 18},
                       {u"fonecel"_s, u"CELULAR"_s, 17},
                       {u"cidade"_s, u"CIDADE"_s, 14}}})
{
}
