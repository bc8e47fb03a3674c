#include "platform/data/paging/plainselect.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace ADODB {

namespace {

bool bracketsMatch(const QString& text)
{
    int depth = 0;
    for (const QChar sign : text) {
        depth += sign == u'(' ? 1 : sign == u')' ? -1 : 0;
        if (depth < 0)
            return false;
    }
    return depth == 0;
}

} // namespace

QString withoutTexts(QString sql)
{
    QChar quote;
    for (qsizetype i = 0; i < sql.size(); ++i) {
        const QChar sign = sql[i];
        if (quote.isNull()) {
            if (sign == u'\'' || sign == u'"')
                quote = sign;
        } else if (sign == u'\\' && i + 1 < sql.size()) {
            sql[i] = sql[i + 1] = u'x';
            ++i;
        } else if (sign == quote) {
            quote = QChar();
        } else {
            sql[i] = u'x';
        }
    }
    return quote.isNull() ? sql : QString();
}

std::optional<PlainSelect> plainSelect(const QString& sql)
{
    static const QRegularExpression form(u"^\\s*select\\s+\\*\\s+from\\s+(\\w+)(?:\\s+where\\s+"
                                         "(.+?))?(?:\\s+order\\s+by\\s+([\\w\\s,]+))?\\s*$"_s,
                                         QRegularExpression::CaseInsensitiveOption |
                                             QRegularExpression::DotMatchesEverythingOption);
    static const QRegularExpression foreign(
        u"[?;#`]|--|/\\*|\\b(select|where|group|having|window|order|limit|offset|fetch|procedure|"
        "into|for|lock|union|except|intersect)\\b"_s,
        QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression orderForm(u"^\\s*(\\w+)(?:\\s+(asc|desc))?\\s*$"_s,
                                              QRegularExpression::CaseInsensitiveOption);
    const QRegularExpressionMatch match = form.match(withoutTexts(sql));
    if (!match.hasMatch() || match.captured(2).contains(foreign) || !bracketsMatch(match.captured(2)))
        return std::nullopt;
    PlainSelect result{match.captured(1), sql.mid(match.capturedStart(2), match.capturedLength(2)), {}};
    if (match.hasCaptured(3))
        for (const QString& item : match.captured(3).split(u',')) {
            const QRegularExpressionMatch order = orderForm.match(item);
            if (!order.hasMatch())
                return std::nullopt;
            result.order.push_back(
                {order.captured(1), order.captured(2).compare(u"desc", Qt::CaseInsensitive) == 0});
        }
    return result;
}

} // namespace ADODB
