#include "documents/pdf/messages.h"

#include "platform/forms/dialogs.h"

namespace PDFMessages {

void badArgument(const QString& title, const QString& what, const QString& value, const QString& fallback)
{
    MsgBox(what + value + QStringLiteral(".\n") + fallback, title + Writer, Icon::Critical);
}

void badImage(const QString& reason)
{
    MsgBox(QStringLiteral("Impossible d'inclure l'image dans le fichier PDF.\n") + reason,
           QStringLiteral("Fichier Image - ") + Writer, Icon::Critical);
}

} // namespace PDFMessages
