#pragma once

#include "platform/values/number.h"

#include <QLineEdit>
#include <initializer_list>
#include <utility>

/// What stands in a box.

/// Nothing but blanks.
inline bool isVazia(const QLineEdit* caixa)
{
    return caixa->text().trimmed().isEmpty();
}

/// The boxes that a check has found wrong.
inline QWidgetList erradas(std::initializer_list<std::pair<QWidget*, bool>> conferidas)
{
    QWidgetList caixas;
    for (const auto& [caixa, errada] : conferidas)
        if (errada)
            caixas << caixa;
    return caixas;
}

/// What the line of a register's grid does, for the help sheet: leaving the box of the code loads the row.
inline const QString levaOCodigo = QStringLiteral("leva o código ao campo CÓDIGO; Enter ali traz a ficha");

/// The code as it was typed, for a search among loaded rows or a statement: "12,5" -> "12.5". Throws
/// RuntimeError 13 where isNumeric is false. Its whole part is codigoInteiro's.
inline QString codigoDaCaixa(const QLineEdit* caixa)
{
    return plainNumber(toNumber(caixa->text()));
}
