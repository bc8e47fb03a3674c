#pragma once

#include <QDate>
#include <QString>
#include <QStringList>
#include <optional>

/// How values enter a statement, and how statements are run on the screens' connection. Failures of the
/// database are ADODB::Error.

/// The text between single quotes, as it is: a quote in it breaks the statement, and that is accepted.
QString aspas(const QString& texto);

/// Several texts likewise, with a comma between them: the values of an insertion.
QString aspas(const QStringList& textos);

/// The pattern, in its quotes, of the texts that hold this one somewhere.
QString contem(const QString& texto);

/// Every comma made a point, as the server wants a number: nothing is read, so that what was typed is sent.
QString comPonto(QString numero);

/// The whole part of a code, towards zero: "12,5" -> "12", "1.000" -> "1000", which would be 1 to the server.
/// A text that is no number comes back without the blanks around it.
QString codigoInteiro(const QString& codigo);

/// A day as the columns hold it, "yyyy/mm/dd". A text that is no date comes back as it is.
QString emColuna(QDate dia);
QString emColuna(const QString& dia);

/// This second as keys and file names have it: "260316083015".
QString instante();

/// Who and when, for statements built as text: "MARIA 31/01/2026 08:15:00".
QString carimbo();

/// Who and when, for registers that save through a bound row: "MARIA - 31/01/2026 08:15:00".
QString carimboRegistro();

/// Opens Conexao with StringConexao unless it is open.
void AbreConexao();

/// Closes Conexao if it is open and opens it again.
void ReabreConexao();

/// Closes Conexao if it is open.
void FechaConexao();

/// The name behind a code: the column's text in the query's first row, nothing where there is no row.
std::optional<QString> nomeDoCodigo(const QString& consulta, const QString& coluna);

/// Runs statements that change rows in a transaction of their own. One that fails leaves the transaction to
/// the connection's end.
void ExecutaEmTransacao(const QStringList& comandos);

/// Runs a statement that changes rows through cmdGeral, on Conexao as it stands.
void ComandoGeral(const QString& comando);

/// The same on Conexao opened anew and closed behind it.
void ExecutaComando(const QString& comando);
