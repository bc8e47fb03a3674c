#include "documents/pdf/messages.h"

#include "platform/forms/dialogs.h"

using namespace Qt::StringLiterals;

namespace PDFMessages {

void badArgument(const QString& title, const QString& what, const QString& value, const QString& fallback)
{
    MsgBox(what + value + u".\n"_s + fallback, title + Writer, Icon::Critical);
}

void badImage(const QString& reason)
{
    MsgBox(u"Impossible d'inclure l'image dans le fichier PDF.\n"_s + reason, u"Fichier Image - "_s + Writer,
           Icon::Critical);
}

} // namespace PDFMessages
