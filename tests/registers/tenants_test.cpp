#include "app/shell_fixture.h"
#include "registers/buscas.h"
#include "registers/cadastrossimples.h"
#include "registers/frmcadcli.h"
#include "registers/frmcadferiados.h"
#include "registers/frmcadfor.h"
#include "registers/frmcadhorarios.h"
#include "registers/frmcadproduto.h"
#include "registers/frmcadprofissionais.h"

using namespace Variaveis;

namespace {

/// Every table holds one row of the tenant C1, named OWN, and one of the tenant C2, named STRANGER, with the
/// same telephones.
class Tenants : public LoggedIn
{
protected:
    Tenants()
    {
        for (const auto& [tenant, name] :
             {std::pair(u"C1"_qs, u"OWN"_qs), std::pair(u"C2"_qs, u"STRANGER"_qs)})
            execute(
                u"insert into convenios (idlic,nmconv,pdesc) values ('%1','%2',0);"
                "insert into especialidades (idlic,nmesp) values ('%1','%2');"
                "insert into procedimentos (idlic,nmproc,ondeatd) values ('%1','%2','0');"
                "insert into grupoestoque (idlic,dsgrupo) values ('%1','%2');"
                "insert into centrocusto (idlic,nmcen) values ('%1','%2');"
                "insert into subcentrocusto (idlic,nmscen) values ('%1','%2');"
                "insert into pacientes (idlic,nmPac,fonepac,fonecel,foneresp,idconv) values "
                "('%1','%2','11','22','33',1);"
                "insert into profissionais (idlic,nmpro,fonefixo,fonecel,idesp,ondeatd,valor) values "
                "('%1','%2','11','22',1,'2',0);"
                "insert into fornecedores (idlic,nmfor,nmfant,cpf,fonefixo,fonecel) values "
                "('%1','%2','%2','1','11','22');"
                "insert into produtos (idlic,cdpro,dspro,un,cdgrupo,vcusto,qmin,caplote) values "
                "('%1','%1','%2','UN',1,0,0,'1');"
                "insert into feriados (idlic,dia,Mes,nMes,obs) values ('%1',1,1,'JANEIRO','%2');"
                "insert into diahr (idlic,idpro,dia,hr,ondeatd,idesp) values ('%1',1,'2 - SEGUNDA-FEIRA','%2','0',1)"_qs
                    .arg(tenant, name));
    }

    /// The names in the grid of an opened screen.
    static QStringList names(ScreenDriver& screen, const QString& grid = u"DataGrid1"_qs)
    {
        QStringList found;
        for (const QStringList& row : screen.grid(grid))
            for (const QString& cell : row)
                if ((cell == u"OWN" || cell == u"STRANGER") && !found.contains(cell))
                    found << cell;
        return found;
    }

    template <class Screen>
    QStringList listOf(const QString& grid = u"DataGrid1"_qs)
    {
        QStringList found;
        open<Screen>([&](ScreenDriver& screen) {
            found = names(screen, grid);
            screen.press(Qt::Key_Escape);
        });
        return found;
    }

    /// What the search under the key shows for the text.
    template <class Screen>
    QStringList search(Qt::Key key, const QString& prompt, const QString& text)
    {
        dialogs.expectInput(prompt, text);
        QStringList found;
        open<Screen>([&](ScreenDriver& screen) {
            screen.press(key);
            found = names(screen);
            screen.press(Qt::Key_Escape);
        });
        return found;
    }

    const QStringList own = {u"OWN"_qs};
    const QStringList both = {u"OWN"_qs, u"STRANGER"_qs};
};

} // namespace

TEST_F(Tenants, ListsShowTheirOwn)
{
    EXPECT_EQ(listOf<frmCadConvenios>(), own);
    EXPECT_EQ(listOf<frmCadEspecialidade>(), own);
    EXPECT_EQ(listOf<frmCadProcedimentos>(), own);
    EXPECT_EQ(listOf<frmCadGrupoEstoque>(), own);
    EXPECT_EQ(listOf<frmCadCentroCusto>(), own);
    EXPECT_EQ(listOf<frmCadSubCentro>(), own);
    EXPECT_EQ(listOf<frmcadcli>(), own);
    EXPECT_EQ(listOf<frmCadProfissionais>(), own);
    EXPECT_EQ(listOf<frmCadFor>(), own);
    EXPECT_EQ(listOf<frmCadProduto>(), own);
    EXPECT_EQ(listOf<frmCadFeriados>(u"DataGrid2"_qs), own);
    EXPECT_EQ(listOf<frmBuscaConvenios>(), own);
    EXPECT_EQ(listOf<frmBuscaEspecialidades>(), own);
    EXPECT_EQ(listOf<frmBuscaGrupo>(), own);
    EXPECT_EQ(listOf<frmBuscaCentroCusto>(), own);
    EXPECT_EQ(listOf<frmBuscaSubCentroCusto>(), own);
    EXPECT_EQ(listOf<frmBuscaProcedimentos>(), own);
    EXPECT_EQ(listOf<frmBuscaProd>(), own);
    EXPECT_EQ(listOf<frmBuscaFornecedor>(), own);
    EXPECT_EQ(listOf<frmBuscaPacientes>(), own);
    EXPECT_EQ(listOf<frmBuscaProf>(), own);

    open<frmCadHorarios>([&](ScreenDriver& screen) {
        EXPECT_EQ(qobject_cast<QComboBox*>(screen.find(u"cboPro"_qs))->count(), 2) << "its own, and HOME";
        screen.choose(u"cboPro"_qs, u"OWN"_qs);
        EXPECT_EQ(names(screen, u"DataGrid2"_qs), own);
        screen.press(Qt::Key_Escape);
    });
}

TEST_F(Tenants, SearchesLetThroughWhatStandsBehindTheirOr)
{
    const QString name = u"NOME:"_qs;
    const QString phone = u"TELEFONE:"_qs;
    EXPECT_EQ(search<frmBuscaConvenios>(Qt::Key_F2, name, u""_qs), own);
    EXPECT_EQ(search<frmBuscaEspecialidades>(Qt::Key_F2, name, u""_qs), own);
    EXPECT_EQ(search<frmBuscaGrupo>(Qt::Key_F2, name, u""_qs), own);
    EXPECT_EQ(search<frmBuscaCentroCusto>(Qt::Key_F2, name, u""_qs), own);
    EXPECT_EQ(search<frmBuscaSubCentroCusto>(Qt::Key_F2, name, u""_qs), own);
    EXPECT_EQ(search<frmBuscaProcedimentos>(Qt::Key_F2, name, u""_qs), own);
    EXPECT_EQ(search<frmBuscaProd>(Qt::Key_F2, name, u""_qs), own);
    EXPECT_EQ(search<frmBuscaFornecedor>(Qt::Key_F2, name, u""_qs), own);
    EXPECT_EQ(search<frmBuscaFornecedor>(Qt::Key_F3, u"APELIDO:"_qs, u""_qs), own);
    EXPECT_EQ(search<frmBuscaFornecedor>(Qt::Key_F4, u"CPF/CNPJ:"_qs, u"1"_qs), own);
    EXPECT_EQ(search<frmBuscaFornecedor>(Qt::Key_F5, u"FONE:"_qs, u"11"_qs), own);
    EXPECT_EQ(search<frmBuscaFornecedor>(Qt::Key_F5, u"FONE:"_qs, u"22"_qs), both);
    EXPECT_EQ(search<frmBuscaPacientes>(Qt::Key_F2, name, u""_qs), own);
    EXPECT_EQ(search<frmBuscaPacientes>(Qt::Key_F3, phone, u"11"_qs), own);
    EXPECT_EQ(search<frmBuscaPacientes>(Qt::Key_F3, phone, u"22"_qs), both);
    EXPECT_EQ(search<frmBuscaPacientes>(Qt::Key_F3, phone, u"33"_qs), both);
    EXPECT_EQ(search<frmBuscaProf>(Qt::Key_F2, name, u""_qs), own);
    EXPECT_EQ(search<frmBuscaProf>(Qt::Key_F3, phone, u"11"_qs), own);
    EXPECT_EQ(search<frmBuscaProf>(Qt::Key_F3, phone, u"22"_qs), both);

    // Only the last branch carries the place: somebody of the clinic is found by the first telephone.
    execute(u"update profissionais set ondeatd = '0'"_qs);
    EXPECT_EQ(listOf<frmBuscaProf>(), QStringList());
    EXPECT_EQ(search<frmBuscaProf>(Qt::Key_F3, phone, u"11"_qs), own);
    EXPECT_EQ(search<frmBuscaProf>(Qt::Key_F3, phone, u"22"_qs), QStringList());

    EXPECT_EQ(search<frmcadcli>(Qt::Key_F10, u"Nome: "_qs, u""_qs), own);
    EXPECT_EQ(search<frmCadProfissionais>(Qt::Key_F10, u"Nome: "_qs, u""_qs), own);
    EXPECT_EQ(search<frmCadFor>(Qt::Key_F10, u"Nome: "_qs, u""_qs), own);
    EXPECT_EQ(search<frmCadFor>(Qt::Key_F11, u"Apelido: "_qs, u""_qs), own);
    EXPECT_EQ(search<frmCadProduto>(Qt::Key_F10, u"Produto: "_qs, u""_qs), own);
}
