#include "platform/data/statementparts.h"

namespace ADODB {

namespace {

/// Words that may stand behind the condition of `where`.
const QSet<QString>& tailWords()
{
    static const QSet<QString> list = words("group order limit offset fetch for into window procedure lock");
    return list;
}

/// Words that may stand behind a table or the condition of its `on`.
const QSet<QString>& tableEnds()
{
    static const QSet<QString> list =
        words("left right inner outer cross natural join straight_join on using force set where") +
        tailWords();
    return list;
}

/// Reads tokens from left to right.
class Reader
{
public:
    explicit Reader(StatementParts& parts) : parts_(parts) {}

    bool read()
    {
        static const QSet<QString> foreign = words("select having with union intersect except lateral");
        for (std::size_t i = 1; i < parts_.tokens.size(); ++i)
            if (parts_.tokens[i].isOneOf(foreign))
                return false;
        if (!readTarget())
            return false;
        if (takes("where") && !readCondition(tailWords()))
            return false;
        if (takes("order")) {
            if (!takes("by"))
                return false;
            parts_.order = until(tailWords());
        }
        parts_.rest = {&token(), parts_.tokens.size() - 1 - at_};
        return areBracketsMatched_ && (isEnd() || token().isOneOf(tailWords()));
    }

private:
    const Token& token() const { return parts_.tokens[at_]; }
    bool isEnd() const { return token().kind == Token::Kind::End || token().is(";"); }

    bool takes(const char* wordOrSign)
    {
        const bool isThere = token().is(wordOrSign);
        at_ += isThere;
        return isThere;
    }

    /// Takes what stands in front of one of the words, outside brackets.
    TokenSpan until(const QSet<QString>& ends, bool isCommaEnd = false)
    {
        const std::size_t from = at_;
        int depth = 0;
        for (; !isEnd() && depth >= 0; ++at_) {
            if (depth == 0 && (token().isOneOf(ends) || (isCommaEnd && token().is(","))))
                break;
            depth += token().is("(") ? 1 : token().is(")") ? -1 : 0;
        }
        areBracketsMatched_ = areBracketsMatched_ && depth == 0;
        return {parts_.tokens.data() + from, at_ - from};
    }

    bool readCondition(const QSet<QString>& ends, bool isCommaEnd = false)
    {
        const TokenSpan condition = until(ends, isCommaEnd);
        parts_.conditions.push_back(condition);
        return !condition.empty();
    }

    /// What stands in front of `where`.
    bool readTarget()
    {
        if (takes("select")) {
            parts_.items = until(words("from"));
            noteGivenNames();
            return takes("from") && readTables();
        }
        if (takes("delete"))
            return takes("from") && readTables();
        if (!takes("update") || !readTables() || !takes("set"))
            return false;
        until(words("where"));
        return true;
    }

    bool readTables()
    {
        static const QSet<QString> sides = words("left right inner outer cross");
        if (!readTable())
            return false;
        for (;;) {
            if (!takes(",")) {
                const std::size_t before = at_;
                while (token().isOneOf(sides))
                    ++at_;
                if (!takes("join") && !takes("straight_join"))
                    return at_ == before;
            }
            if (!readTable() || (takes("on") && !readCondition(tableEnds(), true)))
                return false;
        }
    }

    bool readTable()
    {
        const std::size_t from = at_;
        const auto isFreeName = [&] { return token().isName() && !token().isOneOf(tableEnds()); };
        if (!isFreeName())
            return false;
        StatementParts::Table table{token().text, token().text, {}};
        ++at_;
        const bool isNamed = takes("as");
        if (isFreeName()) {
            table.alias = token().text;
            parts_.givenNames.insert(table.alias);
            ++at_;
        } else if (isNamed) {
            return false;
        }
        if (takes("force")) // an index
            until(tableEnds(), true);
        table.tokens = {parts_.tokens.data() + from, at_ - from};
        parts_.tables.push_back(table);
        return true;
    }

    /// A name behind a name, a value or `as` is given to what stands in front of it.
    void noteGivenNames()
    {
        static const QSet<QString> neverInFront = words("distinct all");
        for (std::size_t i = 1; i < parts_.items.size(); ++i) {
            const Token& before = parts_.items[i - 1];
            const bool isSign = before.kind == Token::Kind::Sign && !before.is(")");
            if (parts_.items[i].isName() && !isSign && !before.isOneOf(neverInFront))
                parts_.givenNames.insert(parts_.items[i].text);
        }
    }

    StatementParts& parts_;
    std::size_t at_ = 0;
    bool areBracketsMatched_ = true;
};

} // namespace

std::optional<StatementParts> statementParts(const QString& sql)
{
    auto tokens = tokensOf(sql);
    if (!tokens)
        return std::nullopt;
    StatementParts parts;
    parts.tokens = std::move(*tokens);
    return Reader(parts).read() ? std::optional(std::move(parts)) : std::nullopt;
}

} // namespace ADODB
