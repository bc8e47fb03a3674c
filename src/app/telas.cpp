#include "app/telas.h"

#include "agenda/frmcli_agenda.h"
#include "app/core/menu.h"
#include "app/frmcadusuario.h"
#include "app/frmconfig.h"
#include "registers/frmcadcli.h"
#include "registers/frmcadferiados.h"
#include "registers/frmcadfor.h"
#include "registers/frmcadhorarios.h"
#include "registers/frmcadproduto.h"
#include "registers/frmcadprofissionais.h"
#include "registers/telasdecadastro.h"

namespace {

template <class Tela>
void abre(const char* entrada)
{
    Menu::principal().bind(QString::fromLatin1(entrada), [] { Form::of<Tela>().ShowModal(); });
}

} // namespace

void ligaMenu()
{
    abre<frmCadConvenios>("cadConv");
    abre<frmCadEspecialidade>("cadEsp");
    abre<frmCadFeriados>("cadFer");
    abre<frmCadFor>("cadfor");
    abre<frmCadGrupoEstoque>("cadgru");
    abre<frmCadHorarios>("cadHor");
    abre<frmCadProduto>("cadinsi");
    abre<frmcadcli>("cadPac");
    abre<frmCadProcedimentos>("cadproc");
    abre<frmCadProfissionais>("cadProf");
    abre<frmcadusuario>("cadUsu");
    abre<frmCadCentroCusto>("ctpgcadcen");
    abre<frmCadSubCentro>("ctpgcadscen");
    abre<frmCli_Agenda>("cliAG");
    abre<frmconfig>("mnupram");
}
