#pragma once

#include "platform/data/sqltokens.h"

#include <span>

namespace ADODB {

using TokenSpan = std::span<const Token>;

/// The parts of a statement that selects, deletes or updates rows of tables of the connection's database:
///
///   select items from tables [where condition] [order by columns] [rest]
///   delete from tables ...
///   update tables set ... [where condition] ...
///
/// The tables are joined by commas, or by `join` in its forms with a condition behind `on`. In the parts
/// brackets match.
struct StatementParts
{
    struct Table
    {
        QString name;
        QString alias;    ///< the name where it has none
        TokenSpan tokens; ///< with alias and index
    };

    StatementParts() = default;
    StatementParts(const StatementParts&) = delete;
    StatementParts& operator=(const StatementParts&) = delete;
    StatementParts(StatementParts&&) = default;
    StatementParts& operator=(StatementParts&&) = default;

    std::vector<Token> tokens;
    TokenSpan items; ///< of a select
    std::vector<Table> tables;
    std::vector<TokenSpan> conditions; ///< those of joins, then that of `where`
    TokenSpan order;
    TokenSpan rest;           ///< what follows: a grouping, a limit, a semicolon ...
    QSet<QString> givenNames; ///< to items and tables; and what may be one
};

/// None for a statement of any other form, which nothing can be said about: with a subselect, a union, `with`
/// or `having`, with a table of another database or a function in the place of a table, with a comment.
std::optional<StatementParts> statementParts(const QString& sql);

} // namespace ADODB
