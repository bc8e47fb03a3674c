#pragma once

#include <QString>
#include <QStringList>

/// How values enter a statement, and the connection's state before one.

/// The text between single quotes, as it is: a quote in it breaks the statement, and that is accepted.
QString aspas(const QString& texto);

/// Several texts likewise, with a comma between them: the values of an insertion.
QString aspas(const QStringList& textos);

/// Opens Conexao with StringConexao unless it is open. Throws ADODB::Error.
void AbreConexao();

/// Closes Conexao if it is open and opens it again.
void ReabreConexao();

/// Closes Conexao if it is open.
void FechaConexao();

/// Runs a statement that changes rows through cmdGeral, on Conexao as it stands. Throws ADODB::Error.
void ComandoGeral(const QString& comando);

/// The same on Conexao opened anew and closed behind it.
void ExecutaComando(const QString& comando);

/// Who and when, for statements built as text: "MARIA 31/01/2026 08:15:00".
QString carimbo();

/// Who and when, for registers that save through a bound row: "MARIA - 31/01/2026 08:15:00".
QString carimboRegistro();
