#pragma once

#include <QString>

namespace Funcoes {

/// The right of `usuario` to the menu entry `campo`, read row by row: "0" granted, "1" withheld, which is
/// also the answer where no row exists. Rows of all tenants count, and the last one decides. Throws
/// ADODB::Error.
QString PerfilValor(const QString& usuario, const QString& campo);

} // namespace Funcoes
