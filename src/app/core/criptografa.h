#pragma once

#include <QString>

/// The text cipher of the configuration file: the characters' codes in code page 1252, exclusive-or with a
/// repeating key, written as two hexadecimal digits each. It hides values from a text editor and protects
/// them from nobody else.
namespace Criptografa {

/// Twice as many characters as `texto`, "0" to "9" and "A" to "F".
QString Cifrar(const QString& texto);

/// The inverse of Cifrar. Never fails: a pair that is no hexadecimal number counts as far as its digits go,
/// and as 0 without any.
QString Decifrar(const QString& hexadecimal);

} // namespace Criptografa
