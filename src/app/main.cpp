#include "app/core/instalacao.h"
#include "app/frmprincipal.h"
#include "app/telas.h"
#include "platform/forms/application.h"
#include "platform/forms/theme.h"

int main(int argc, char** argv)
{
    Application application(argc, argv);
    Application::setApplicationName(Instalacao::nomePrograma());
    Theme::apply(application);
    ligaMenu();

    // From the event loop on, so that a failure of the start is told like any other.
    QMetaObject::invokeMethod(
        &application, [] { Form::of<frmPrincipal>().Show(); }, Qt::QueuedConnection);
    return Application::exec();
}
