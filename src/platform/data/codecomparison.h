#pragma once

#include <QSet>
#include <QString>

/// Comparison of codes by equality.
///
/// The program compares codes with `like`, which compares texts and is served by no index. Where both sides
/// are whole numbers, two texts are alike exactly if the numbers are equal, and `=` finds the same rows by an
/// index: a number's text has neither a sign or zero in front that the number does not have, nor a pattern's
/// signs. Null is like nothing and equal to nothing.
namespace ADODB {

/// Column names in small letters.
using CodeNames = QSet<QString>;

/// Asks the server for the columns of the current database that hold whole numbers in every table and view
/// that has a column of the name. One that is shown with zeros in front is none of them.
QString codeNamesQuery();

/// The statement with `=` for `like` between two such columns, or such a column in front of a whole number of
/// 1 to 15 digits, bare or in single quotes, as the server would write it. All else is left as it is, above
/// all:
///
///   * what is not a condition of `where` or `on`, or only a part of one (a + b like c), negated, or escaped;
///   * names that the statement gives to anything itself;
///   * a whole statement with a comment, a backslash within a text, `having`, `with`, a union, a subselect or
///   a
///     function in the place of a table, or a table of another database.
QString comparedByEquality(const QString& sql, const CodeNames& codes);

/// The statement may change what the names mean on its connection (`create temporary table`, `use`): it is
/// none of those that read and write rows.
bool mayChangeNames(const QString& sql);

} // namespace ADODB
