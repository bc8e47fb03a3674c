#include "platform/data/codecomparison.h"

#include "platform/data/statementparts.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace ADODB {

namespace {

class Comparisons
{
public:
    Comparisons(const StatementParts& parts, const CodeColumns& codes) : parts_(parts), codes_(codes) {}

    /// The places of the words `like`, from the left; none where the statement is to be left alone.
    std::vector<qsizetype> places()
    {
        std::vector<qsizetype> places;
        for (const TokenSpan condition : parts_.conditions) {
            condition_ = condition;
            for (qsizetype i = 0; i < qsizetype(condition.size()); ++i) {
                if (token(i).is("between")) {
                    // Its `and` begins no condition.
                    if (!token(i + 1).isValue() || !token(i + 2).is("and") || !token(i + 3).isValue())
                        return {};
                    i += 3;
                } else if (token(i).is("like") && isOfCodes(i)) {
                    places.push_back(token(i).at);
                }
            }
        }
        return places;
    }

private:
    /// Of the condition; End outside it.
    const Token& token(qsizetype i) const
    {
        static const Token none;
        return i < 0 || i >= qsizetype(condition_.size()) ? none : condition_[std::size_t(i)];
    }

    /// The name that ends or begins at a place, going in a direction, is a code; moves the place behind it.
    bool takesCode(qsizetype& place, qsizetype direction) const
    {
        const qsizetype outer = place + 2 * direction;
        const bool isQualified = token(place + direction).is(".");
        const Token& qualifier = token(direction > 0 ? place : outer);
        const Token& name = token(isQualified && direction > 0 ? outer : place);
        place = (isQualified ? outer : place) + direction;
        return name.isName() && (!isQualified || qualifier.isName()) &&
               isCode(name.text, isQualified ? qualifier.text : QString());
    }

    bool isCode(const QString& name, const QString& qualifier) const
    {
        bool isFound = false;
        for (const StatementParts::Table& table : parts_.tables) {
            if (!qualifier.isEmpty() && qualifier != table.alias)
                continue;
            const auto columns = codes_.constFind(table.name);
            if (columns == codes_.constEnd() || !columns->value(name, true))
                return false;
            isFound = isFound || columns->contains(name);
        }
        return isFound && !parts_.givenNames.contains(name);
    }

    bool isOfCodes(qsizetype like) const
    {
        static const QSet<QString> joints = words("and or xor");
        static const QRegularExpression wholeNumber(u"^(?:0|[1-9][0-9]{0,14})$"_s);
        const auto isEdge = [&](const Token& beside, const char* bracket) {
            return beside.kind == Token::Kind::End || beside.isOneOf(joints) || beside.is(bracket);
        };
        qsizetype left = like - 1;
        qsizetype right = like + 1;
        if (!takesCode(left, -1) || !isEdge(token(left), "("))
            return false;
        if (token(right).isValue() && wholeNumber.match(token(right).text).hasMatch())
            ++right;
        else if (!takesCode(right, 1))
            return false;
        return isEdge(token(right), ")");
    }

    const StatementParts& parts_;
    const CodeColumns& codes_;
    TokenSpan condition_;
};

} // namespace

QString codeColumnsQuery()
{
    return u"select table_name, column_name,"
           " data_type in ('tinyint', 'smallint', 'mediumint', 'int', 'bigint')"
           " and instr(column_type, 'zerofill') = 0"
           " from information_schema.columns where table_schema = database()"_s;
}

QString comparedByEquality(const QString& sql, const CodeColumns& codes)
{
    if (sql.contains(u'\\'))
        return sql;
    const auto parts = statementParts(sql);
    if (!parts)
        return sql;
    const std::vector<qsizetype> places = Comparisons(*parts, codes).places();
    QString result = sql;
    for (auto place = places.rbegin(); place != places.rend(); ++place)
        result.replace(*place, 4, u'=');
    return result;
}

bool mayChangeNames(const QString& sql)
{
    static const QRegularExpression rowStatement(
        u"^[\\s(]*(?:select|insert|update|delete|replace|show|set|explain|start|begin|commit|rollback)\\b"_s,
        QRegularExpression::CaseInsensitiveOption);
    return !rowStatement.match(sql).hasMatch();
}

} // namespace ADODB
