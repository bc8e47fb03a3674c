#pragma once

#include <QList>
#include <QStringList>

/// A table written as one text: "|" between rows, the separator between the fields of a row.
inline QList<QStringList> textTable(QStringView text, QStringView separator = u"=")
{
    QList<QStringList> rows;
    for (const QString& row : text.toString().split(u'|'))
        rows += row.split(separator.toString());
    return rows;
}
