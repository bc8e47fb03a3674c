#include "platform/data/sqltokens.h"

namespace ADODB {

namespace {

bool isWordSign(QChar sign)
{
    return sign.isLetterOrNumber() || sign == u'_' || sign == u'$' || sign.unicode() >= 0x80;
}

/// The size of the text or quoted name that begins at `at`, with its quotes; 0 where it stays open.
qsizetype quotedSize(QStringView sql, qsizetype at)
{
    const QChar quote = sql[at];
    for (qsizetype i = at + 1; i < sql.size(); ++i) {
        const bool isHiding = sql[i] == u'\\' && quote != u'`';
        if (isHiding || (sql[i] == quote && i + 1 < sql.size() && sql[i + 1] == quote))
            ++i;
        else if (sql[i] == quote)
            return i + 1 - at;
    }
    return 0;
}

} // namespace

QSet<QString> words(const char* list)
{
    const QStringList each = QString::fromLatin1(list).split(u' ');
    return {each.begin(), each.end()};
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
            size = quotedSize(sql, i);
            if (size == 0)
                return std::nullopt;
            const QString inside = sql.mid(i + 1, size - 2).toString();
            if (sign == u'`')
                tokens.push_back({Kind::QuotedName, inside.toLower(), i, size});
            else
                tokens.push_back({sign == u'"' ? Kind::OtherText : Kind::Text, inside, i, size});
        } else if (isWordSign(sign)) {
            while (i + size < sql.size() && isWordSign(sql[i + size]))
                ++size;
            // Behind a point "1" is the end of a number; a name may begin with a digit there, but no code
            // does.
            tokens.push_back(
                {sign.isDigit() ? Kind::Number : Kind::Word, sql.mid(i, size).toString().toLower(), i, size});
        } else if (!sign.isSpace()) {
            tokens.push_back({Kind::Sign, sign, i, size});
        }
        i += size;
    }
    tokens.push_back({Kind::End, {}, sql.size(), 0});
    return tokens;
}

} // namespace ADODB
