#include "app/core/instalacao.h"
#include "app/core/menu.h"
#include "app/frmcadusuario.h"
#include "app/frmconfig.h"
#include "app/frmprincipal.h"
#include "platform/forms/application.h"
#include "platform/forms/theme.h"

namespace {

template <class Screen>
void opens(const char* entry)
{
    Menu::principal().bind(QString::fromLatin1(entry), [] { Form::of<Screen>().ShowModal(); });
}

} // namespace

int main(int argc, char** argv)
{
    Application application(argc, argv);
    Application::setApplicationName(Instalacao::nomePrograma());
    Theme::apply(application);

    opens<frmcadusuario>("cadUsu");
    opens<frmconfig>("mnupram");

    // From the event loop on, so that a failure of the start is told like any other.
    QMetaObject::invokeMethod(
        &application, [] { Form::of<frmPrincipal>().Show(); }, Qt::QueuedConnection);
    return Application::exec();
}
