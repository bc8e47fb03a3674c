#pragma once

#include "platform/data/connection.h"

#include <QString>
#include <QVariant>

using namespace Qt::StringLiterals;

/// What every screen reads and some screens write. It lives for the whole run, and one thread uses it.
namespace Variaveis {

inline QString ArquivoINI;        ///< path of the configuration file
inline QString Logado = u"N"_s;   ///< "S" while a user is in
inline QString Usuario;           ///< the user's name, "" when logged off
inline QString LoginAberto;       ///< result of the login window: "S" after a good login
inline QString idlic;             ///< tenant key, a condition of nearly every statement
inline QString conexao;           ///< database server, as configured
inline QString banco;             ///< database name
inline QString userbco;           ///< database user
inline QString senha;             ///< database password
inline QString StringConexao;     ///< ODBC connection string, built once at start-up
inline ADODB::Connection Conexao; ///< the one connection of the screens
inline ADODB::Command cmdGeral;   ///< the shared command object
inline QString ArquivoTXT;        ///< the text report produced last
inline QString ArquivoPDF;        ///< the PDF produced last
inline QVariant Resultado;        ///< of the document check (bool) or the look-up of a right (text)
inline QString DocumentoValido;   ///< the document accepted last, "" when refused
inline QString RetornoCodigo;     ///< first value that a search dialog hands back
inline QString RetornoNome;       ///< second value that a search dialog hands back
inline QString RetornoFechamento; ///< "S" from a child screen that completed its work

} // namespace Variaveis
