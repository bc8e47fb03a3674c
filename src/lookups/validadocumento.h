#pragma once

#include <QString>

namespace Rotirnas {

/// Checks the number of a person (CPF) or a company (CNPJ) by its two check digits. Variaveis::Resultado
/// becomes a bool, Variaveis::DocumentoValido the number in its mask, or "" when it is refused. A bare CNPJ
/// of 14 characters, right or wrong, is masked in `documento` itself; a bare CPF is not.
///
/// 11 to 18 characters are read, of which the first two are numeric. 11 characters, or 14 with a point as the
/// fourth, are a CPF; every other length is a CNPJ, whose mask may be there in part. Digits that are all the
/// same are not refused for that.
///
/// A CNPJ may carry the letters A to Z in front of its check digits; one counts as its character code less
/// that of "0". Lower case, blanks and every other character are refused, and so are more digits than the
/// document has.
void ValidaDocumento(QString& documento);

} // namespace Rotirnas
