#pragma once

#include <QStringList>

/// Codes in the boxes of the agenda's screens and in the items of their lists.

/// The code that is typed in a box, as a statement wants it: "12,5" -> "12", "1.000" -> "1000", which would
/// be 1 to the server. A text that is no number comes back without the blanks around it.
QString codigoDigitado(const QString& texto);

/// "name|code|...", the name on 45 characters.
QString itemComCodigos(const QString& nome, const QStringList& codigos);

/// A code of such an item, counted from its end, 1 being the last: a name may hold the separator. Empty for
/// an empty item.
QString codigoDoItem(const QString& item, int doFim = 1);

QString nomeDoItem(const QString& item);
