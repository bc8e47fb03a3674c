#include "platform/data/paging/plainselect.h"

#include "platform/data/statementparts.h"

#include <algorithm>

namespace ADODB {

namespace {

QString textOf(const QString& sql, TokenSpan tokens)
{
    const qsizetype from = tokens.front().at;
    return sql.mid(from, tokens.back().at + tokens.back().size - from);
}

/// A column, maybe with its direction, and a comma or the end.
std::optional<std::vector<PlainSelect::Order>> orderOf(TokenSpan tokens)
{
    static const QSet<QString> directions = words("asc desc");
    std::vector<PlainSelect::Order> order;
    for (std::size_t i = 0; i < tokens.size(); ++i) {
        if (!tokens[i].isName())
            return std::nullopt;
        order.push_back({tokens[i].text});
        if (++i < tokens.size() && tokens[i].isOneOf(directions)) {
            order.back().descending = tokens[i].is("desc");
            ++i;
        }
        if (i < tokens.size() && (!tokens[i].is(",") || i + 1 == tokens.size()))
            return std::nullopt;
    }
    return order;
}

} // namespace

std::optional<PlainSelect> plainSelect(const QString& sql)
{
    const auto parts = statementParts(sql);
    if (!parts || parts->items.size() != 1 || !parts->items.front().is("*") || parts->tables.size() != 1 ||
        parts->tables.front().tokens.size() != 1 || !parts->rest.empty())
        return std::nullopt;
    auto order = orderOf(parts->order);
    if (!order)
        return std::nullopt;
    PlainSelect result{textOf(sql, parts->tables.front().tokens), {}, {}, std::move(*order)};
    if (parts->conditions.empty())
        return result;
    const TokenSpan conditions = parts->conditions.front();
    if (std::any_of(conditions.begin(), conditions.end(), [](const Token& token) { return token.is("?"); }))
        return std::nullopt;
    result.conditions = textOf(sql, conditions);
    for (std::size_t i = 1; i < conditions.size(); ++i)
        if (conditions[i].is("=") && conditions[i - 1].isName())
            result.comparedBy.insert(conditions[i - 1].text);
    return result;
}

} // namespace ADODB
