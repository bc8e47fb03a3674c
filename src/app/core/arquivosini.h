#pragma once

#include <QString>

/// The configuration file beside the program: one section, five keys, every value enciphered.
namespace ArquivosINI {

struct Configuracao
{
    QString conexao; ///< the database server, with what the driver's string may carry behind it (";Port=",
                     ///< ";Socket=")
    QString senha;
    QString banco;
    QString userbco;
    QString idlic;
};

/// Program folder + "\tremosilva.ini".
QString Caminho();

/// The deciphered values. A key that the file lacks gives a short nonsense text, as does a value that was
/// never enciphered: nothing here recognises that. A value of more than 127 characters comes back cut.
Configuracao Le(const QString& arquivo);

/// Replaces the file whole; blanks at both ends of a value are dropped. Throws RuntimeError 75.
void Grava(const Configuracao& valores);

} // namespace ArquivosINI
