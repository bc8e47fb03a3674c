#pragma once

#include <QHash>
#include <QString>

/// Comparison of codes by equality.
///
/// The program compares codes with `like`, which compares texts and is served by no index. Where both sides
/// are whole numbers, two texts are alike exactly if the numbers are equal, and `=` finds the same rows by an
/// index: a number's text has neither a sign or zero in front that the number does not have, nor a pattern's
/// signs. Null is like nothing and equal to nothing.
namespace ADODB {

/// For each table its columns, and which of them are codes; all names in small letters.
using CodeColumns = QHash<QString, QHash<QString, bool>>;

/// Asks the server for the columns of the tables and views of the current database: table, column, 1 for a
/// code. A code holds whole numbers; one that is shown with zeros in front is none.
QString codeColumnsQuery();

/// The statement with `=` for `like` between two codes, or a code in front of a whole number of 1 to 15
/// digits, bare or in single quotes, as the server would write it. A name stands for the column of the table
/// that its alias says; a bare name must be a code in every table of the statement that has a column of it.
/// All else is left as it is, above all:
///
///   * what is not a condition of `where` or `on`, or only a part of one (a + b like c), negated, or escaped;
///   * names that the statement gives to anything itself;
///   * a whole statement that statementParts() cannot read, with a backslash, whose meaning hangs on the
///     server's mode, or with `between` and anything but two values.
QString comparedByEquality(const QString& sql, const CodeColumns& codes);

/// The statement may change what the names mean on its connection (`create temporary table`, `use`): it is
/// none of those that read and write rows.
bool mayChangeNames(const QString& sql);

} // namespace ADODB
