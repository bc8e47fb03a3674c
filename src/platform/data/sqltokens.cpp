#include "platform/data/sqltokens.h"

namespace ADODB {

namespace {

/// The text or quoted name that begins at `at`, with its quotes; null where it stays open or has a backslash.
QStringView quotedAt(QStringView sql, qsizetype at)
{
    const QChar quote = sql[at];
    for (qsizetype i = at + 1; i < sql.size(); ++i) {
        if (sql[i] == u'\\' && quote != u'`')
            return {};
        if (sql[i] != quote)
            continue;
        if (i + 1 < sql.size() && sql[i + 1] == quote)
            ++i;
        else
            return sql.mid(at, i + 1 - at);
    }
    return {};
}

} // namespace

bool isWordSign(QChar sign)
{
    return sign.isLetterOrNumber() || sign == u'_' || sign == u'$' || sign.unicode() >= 0x80;
}

std::optional<std::vector<Token>> tokensOf(QStringView sql)
{
    using Kind = Token::Kind;
    std::vector<Token> tokens;
    for (qsizetype i = 0; i < sql.size();) {
        const QChar sign = sql[i];
        const QStringView two = sql.mid(i, 2);
        if (sign == u'#' || two == u"--" || two == u"/*")
            return std::nullopt;
        qsizetype size = 1;
        if (sign == u'\'' || sign == u'"' || sign == u'`') {
            const QStringView quoted = quotedAt(sql, i);
            if (quoted.isNull())
                return std::nullopt;
            size = quoted.size();
            const QString inside = quoted.mid(1, size - 2).toString();
            tokens.push_back({sign == u'\''  ? Kind::Text
                              : sign == u'"' ? Kind::OtherText
                                             : Kind::QuotedName,
                              sign == u'`' ? inside.toLower() : inside, i});
        } else if (isWordSign(sign)) {
            while (i + size < sql.size() && isWordSign(sql[i + size]))
                ++size;
            const QString word = sql.mid(i, size).toString();
            // Behind a point "1" is the end of a number; a name may begin with a digit there, but no code
            // does.
            tokens.push_back({sign.isDigit() ? Kind::Number : Kind::Word, word.toLower(), i});
        } else if (!sign.isSpace()) {
            tokens.push_back({Kind::Sign, sign, i});
        }
        i += size;
    }
    tokens.push_back({Kind::End, {}, sql.size()});
    return tokens;
}

} // namespace ADODB
