#include "app/telas.h"

#include "app/core/menu.h"
#include "app/frmcadusuario.h"
#include "app/frmconfig.h"

namespace {

template <class Tela>
void abre(const char* entrada)
{
    Menu::principal().bind(QString::fromLatin1(entrada), [] { Form::of<Tela>().ShowModal(); });
}

} // namespace

void ligaMenu()
{
    abre<frmcadusuario>("cadUsu");
    abre<frmconfig>("mnupram");
}
