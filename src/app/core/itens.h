#pragma once

#include <QStringList>

/// Items of lists and combo boxes that carry codes behind a name: "name|code|...", the name on 45 characters.

QString itemComCodigos(const QString& nome, const QStringList& codigos);

/// A code of such an item, counted from its end, 1 being the last: a name may hold the separator. Empty for
/// an empty item.
QString codigoDoItem(const QString& item, int doFim = 1);

QString nomeDoItem(const QString& item);
