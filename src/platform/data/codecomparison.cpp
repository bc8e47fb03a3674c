#include "platform/data/codecomparison.h"

#include "platform/data/sqltokens.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace ADODB {

namespace {

QSet<QString> words(const char* list)
{
    const QStringList each = QString::fromLatin1(list).split(u' ');
    return {each.begin(), each.end()};
}

/// Reads a statement's tokens once from left to right and notes the places of the comparisons.
class Reader
{
public:
    Reader(std::vector<Token> tokens, const CodeNames& codes) : tokens_(std::move(tokens)), codes_(codes) {}

    /// The places of the words `like`, from the left; none where the statement is to be left alone.
    std::vector<qsizetype> comparisons()
    {
        static const QSet<QString> foreign = words("having with union intersect except lateral");
        for (at_ = 0; at_ < tokens_.size(); ++at_) {
            if (token().isOneOf(foreign) || (isTablePlace() && isForeignTable()))
                return {};
            noteGivenName();
            if (token().is(QLatin1String("like")) && level().clause == Clause::Condition)
                noteComparison();
            follow();
        }
        std::vector<qsizetype> places;
        for (const Found& found : found_)
            if (!given_.contains(found.left) && !given_.contains(found.right))
                places.push_back(found.at);
        return places;
    }

private:
    enum class Clause
    {
        Other,
        Tables,
        Condition
    };
    /// What stands between two brackets.
    struct Level
    {
        Clause clause = Clause::Other;
        bool isOn = false;       ///< the condition is a join's
        int betweens = 0;        ///< whose `and` is still to come
        bool wasBetween = false; ///< the last `and` was one's
    };
    struct Found
    {
        qsizetype at;
        QString left;
        QString right; ///< empty for a number
    };

    const Token& token(qsizetype from = 0) const
    {
        static const Token none;
        const qsizetype place = qsizetype(at_) + from;
        return place < 0 || place >= qsizetype(tokens_.size()) ? none : tokens_[std::size_t(place)];
    }
    Level& level() { return levels_.back(); }

    bool isTablePlace()
    {
        static const QSet<QString> before = words("from join straight_join update");
        return level().clause == Clause::Tables &&
               (token(-1).isOneOf(before) || token(-1).is(',') || token(-1).is('('));
    }

    /// A subselect, a function or a table of another database in the place of a table.
    bool isForeignTable() const
    {
        if (token().is('('))
            return token(1).is(QLatin1String("select"));
        return token().is(QLatin1String("select")) ||
               (token().isName() && (token(1).is('.') || token(1).is('(')));
    }

    /// A name behind a name, a value or `as` is given to what stands in front of it.
    void noteGivenName()
    {
        static const QSet<QString> neverInFront = words(
            "select distinct all where and or xor not on by when then else case like between in is set div "
            "mod regexp rlike binary interval from join straight_join update into");
        const Token& before = token(-1);
        if (token().isName() && !before.isOneOf(neverInFront) && before.kind != Token::Kind::End &&
            (before.kind != Token::Kind::Sign || before.is(')')))
            given_.insert(token().text);
    }

    /// The name of the code that ends or begins at an offset, going in a direction; moves the offset behind
    /// it.
    QString codeAt(qsizetype& offset, int direction) const
    {
        const Token* name = &token(offset);
        offset += direction;
        if (!name->isName())
            return {};
        if (token(offset).is('.')) {
            const Token& other = token(offset + direction);
            if (!other.isName())
                return {};
            if (direction > 0)
                name = &other;
            offset += 2 * direction;
        }
        return codes_.contains(name->text) ? name->text : QString();
    }

    void noteComparison()
    {
        static const QSet<QString> begins = words("where on and or xor");
        static const QSet<QString> ends =
            words("and or xor where group order limit inner left right cross natural join straight_join for");
        static const QRegularExpression wholeNumber(u"^(?:0|[1-9][0-9]{0,14})$"_s);
        qsizetype offset = -1;
        const QString left = codeAt(offset, -1);
        const Token& before = token(offset);
        const bool isBetweens = before.is(QLatin1String("and")) && level().wasBetween;
        if (left.isEmpty() || isBetweens || !(before.isOneOf(begins) || before.is('(')))
            return;
        offset = 1;
        QString right;
        const bool isValue = token(1).kind == Token::Kind::Number || token(1).kind == Token::Kind::Text;
        if (isValue && wholeNumber.match(token(1).text).hasMatch())
            ++offset;
        else if (right = codeAt(offset, 1); right.isEmpty())
            return;
        const Token& after = token(offset);
        if (after.isOneOf(ends) || after.is(')') || after.is(';') || after.kind == Token::Kind::End)
            found_.push_back({token().at, left, right});
    }

    /// Takes the token's part in what is where.
    void follow()
    {
        static const QSet<QString> tables = words("from join straight_join update into");
        static const QSet<QString> others = words("select set group order limit values");
        if (token().is('(')) {
            const bool isTables = isTablePlace();
            const bool isCondition = level().clause == Clause::Condition;
            levels_.push_back({isTables ? Clause::Tables : isCondition ? Clause::Condition : Clause::Other});
        } else if (token().is(')') && levels_.size() > 1) {
            levels_.pop_back();
        } else if (token().isOneOf(tables) || (token().is(',') && level().isOn)) {
            level() = {Clause::Tables};
        } else if (token().isOneOf(others)) {
            level() = {};
        } else if (token().is(QLatin1String("where")) || token().is(QLatin1String("on"))) {
            level() = {Clause::Condition, token().is(QLatin1String("on"))};
        } else if (token().is(QLatin1String("between"))) {
            ++level().betweens;
        } else if (token().is(QLatin1String("and"))) {
            level().wasBetween = level().betweens > 0;
            level().betweens -= level().wasBetween;
        } else if (token().is(QLatin1String("or")) || token().is(QLatin1String("xor"))) {
            level().wasBetween = false;
        }
    }

    std::vector<Token> tokens_;
    const CodeNames& codes_;
    std::size_t at_ = 0;
    std::vector<Level> levels_ = std::vector<Level>(1);
    QSet<QString> given_;
    std::vector<Found> found_;
};

} // namespace

QString codeNamesQuery()
{
    return u"select lower(column_name) as nome from information_schema.columns where table_schema = "
           u"database()"
           " group by lower(column_name) having min(data_type in ('tinyint', 'smallint', 'mediumint', 'int', "
           "'bigint')"
           " and instr(column_type, 'zerofill') = 0) = 1"_s;
}

QString comparedByEquality(const QString& sql, const CodeNames& codes)
{
    auto tokens = tokensOf(sql);
    if (!tokens)
        return sql;
    const std::vector<qsizetype> places = Reader(std::move(*tokens), codes).comparisons();
    QString result = sql;
    for (auto place = places.rbegin(); place != places.rend(); ++place)
        result.replace(*place, 4, u'=');
    return result;
}

bool mayChangeNames(const QString& sql)
{
    static const QSet<QString> rowStatements =
        words("select insert update delete replace show set explain start begin commit rollback");
    qsizetype from = 0;
    while (from < sql.size() && (sql[from].isSpace() || sql[from] == u'('))
        ++from;
    qsizetype to = from;
    while (to < sql.size() && isWordSign(sql[to]))
        ++to;
    return !rowStatements.contains(sql.mid(from, to - from).toLower());
}

} // namespace ADODB
