#include "platform/data/criteria.h"

#include "platform/data/error.h"
#include "platform/values/date.h"

#include <QRegularExpression>
#include <algorithm>
#include <cmath>
#include <compare>

using namespace Qt::StringLiterals;

namespace ADODB {

namespace {

[[noreturn]] void invalid(const QString& text)
{
    throw Error(Error::InvalidArgument, u"Critério inválido: %1"_s.arg(text));
}

std::optional<double> wireNumber(const QString& text)
{
    bool ok = false;
    const double number = text.trimmed().toDouble(&ok);
    return ok ? std::optional(number) : std::nullopt;
}

/// `text` against a pattern in which "%" stands for any characters.
bool isLike(const QString& text, const QString& pattern)
{
    const QStringList pieces = pattern.split(u'%');
    if (pieces.size() == 1)
        return text == pattern;
    if (!text.startsWith(pieces.first()))
        return false;
    qsizetype at = pieces.first().size();
    for (qsizetype i = 1; i + 1 < pieces.size(); ++i) {
        at = text.indexOf(pieces[i], at);
        if (at < 0)
            return false;
        at += pieces[i].size();
    }
    return text.size() - at >= pieces.last().size() && text.endsWith(pieces.last());
}

} // namespace

qsizetype columnPlace(const std::vector<Column>& columns, QStringView name)
{
    const auto found = std::find_if(columns.begin(), columns.end(), [&](const Column& column) {
        return name.compare(QString::fromUtf8(column.name), Qt::CaseInsensitive) == 0;
    });
    return found == columns.end() ? -1 : found - columns.begin();
}

Criteria::Criteria(const QString& text, const std::vector<Column>& columns)
{
    // One condition and what stands behind it. A doubled quote is a quote within the value.
    static const QRegularExpression form(u"^\\s*(\\w+)\\s*(<>|<=|>=|=|<|>|\\blike\\b)\\s*('(?:["
                                         "^']|'')*'|[^\\s']+)\\s*(?:$|\\band\\b(?=.))"_s,
                                         QRegularExpression::CaseInsensitiveOption |
                                             QRegularExpression::UseUnicodePropertiesOption |
                                             QRegularExpression::DotMatchesEverythingOption);
    QString rest = text;
    do {
        const QRegularExpressionMatch match = form.match(rest);
        if (!match.hasMatch())
            invalid(text);
        conditions_.push_back(
            condition(match.captured(1), match.captured(2).toLower(), match.captured(3), columns));
        rest = rest.mid(match.capturedLength());
    } while (!rest.isEmpty());
}

Criteria::Condition Criteria::condition(const QString& name, const QString& op, const QString& value,
                                        const std::vector<Column>& columns)
{
    static const std::map<QString, Operator> operators{
        {u"="_s, Operator::Equal},        {u"<>"_s, Operator::NotEqual}, {u"<"_s, Operator::Less},
        {u"<="_s, Operator::LessOrEqual}, {u">"_s, Operator::Greater},   {u">="_s, Operator::GreaterOrEqual},
        {u"like"_s, Operator::Like},
    };
    const qsizetype place = columnPlace(columns, name);
    if (place < 0)
        throw Error(Error::UnknownField, u"O campo \"%1\" não existe no resultado."_s.arg(name));
    Condition result{columns[std::size_t(place)], place, operators.at(op), {}, {}, {}};
    const ColumnKind kind = result.column.kind;
    if (!value.startsWith(u'\'')) {
        result.number = wireNumber(value);
        if (!result.number)
            invalid(value);
        return result;
    }
    const QString text = value.mid(1, value.size() - 2).replace(u"''"_s, u"'"_s);
    result.text = text.toCaseFolded();
    if (isDate(kind))
        result.date = readDate(text);
    else if (isNumber(kind) && result.op != Operator::Like)
        result.number = wireNumber(text);
    return result;
}

bool Criteria::matches(const Row& row) const
{
    return std::all_of(conditions_.begin(), conditions_.end(), [&](const Condition& condition) {
        return condition.matches(row.cell(condition.place));
    });
}

bool Criteria::Condition::matches(QByteArrayView cell) const
{
    if (cell.isNull())
        return false;
    if (number) {
        const std::optional<double> mine = wireNumber(QString::fromUtf8(cell));
        return mine ? holds(*mine <=> *number) : op == Operator::NotEqual;
    }
    if (date) {
        // As the clock shows them: within the hour that summer time left out, moments have no order.
        const QDateTime mine = Cell::date(column, cell);
        return holds(std::pair(mine.date(), mine.time()) <=> std::pair(date->date(), date->time()));
    }
    const QString mine = Cell::text(column, cell).toCaseFolded();
    return op == Operator::Like ? isLike(mine, text) : holds(mine.compare(text) <=> 0);
}

/// The one value of a column of whole numbers that meets the condition; an empty text where none does.
std::optional<QByteArray> Criteria::Condition::wholeNumber() const
{
    constexpr double mostExact = 1e15;
    if (column.kind != ColumnKind::Integer || (op != Operator::Equal && op != Operator::Like))
        return std::nullopt;
    if (number) {
        const bool isWhole = std::abs(*number) < mostExact && *number == std::floor(*number);
        return isWhole ? std::optional(QByteArray::number(qint64(*number))) : std::nullopt;
    }
    if (op != Operator::Like || text.contains(u'%'))
        return std::nullopt;
    bool ok = false;
    const QString plain = QString::number(text.toLongLong(&ok));
    return ok && plain == text ? text.toUtf8() : QByteArray("");
}

ParameterisedStatement Criteria::Condition::serverCondition() const
{
    static const std::map<Operator, QString> signs{
        {Operator::Equal, u"="_s},        {Operator::NotEqual, u"<>"_s}, {Operator::Less, u"<"_s},
        {Operator::LessOrEqual, u"<="_s}, {Operator::Greater, u">"_s},   {Operator::GreaterOrEqual, u">="_s},
        {Operator::Like, u"="_s},
    };
    const QString name = quotedName(column.baseName);
    if (const auto whole = wholeNumber())
        return whole->isEmpty() ? ParameterisedStatement{u"false"_s, {}}
                                : ParameterisedStatement{name + u" = ?"_s, {*whole}};
    const bool isEquality = op == Operator::Equal || op == Operator::Like;
    const bool isExact = column.kind == ColumnKind::Integer || column.kind == ColumnKind::Decimal;
    if (number && std::isfinite(*number) && (isExact || (column.kind == ColumnKind::Text && isEquality))) {
        // With more digits the server's exact number and the rounded one compare differently.
        const QByteArray digits = QByteArray::number(*number, 'g', 15);
        if (digits.toDouble() != *number)
            return {};
        // Of a text the server takes the number that it begins with.
        return {u"%1 %2 ?"_s.arg(isExact ? name : name + u" + 0"_s, signs.at(op)), {digits}};
    }
    if (number || date || column.kind != ColumnKind::Text || !isEquality)
        return {};
    QString pattern = text;
    for (const QChar special : {u'!', u'_'})
        pattern.replace(special, QString(u'!') + special);
    if (op == Operator::Equal)
        pattern.replace(u'%', u"!%"_s);
    // Under this collation letters of any case are the same, whatever the column's own says.
    return {u"convert(%1 using utf8mb4) collate utf8mb4_unicode_ci like ? escape '!'"_s.arg(name),
            {pattern.toUtf8()}};
}

ParameterisedStatement Criteria::serverCondition() const
{
    ParameterisedStatement result;
    for (const Condition& condition : conditions_) {
        const ParameterisedStatement term = condition.serverCondition();
        if (term.sql.isEmpty())
            continue;
        result.sql += (result.sql.isEmpty() ? QString() : u" and "_s) + term.sql;
        result.parameters.insert(result.parameters.end(), term.parameters.begin(), term.parameters.end());
    }
    return result;
}

bool Criteria::namesNumber(qsizetype column) const
{
    return std::any_of(conditions_.begin(), conditions_.end(), [&](const Condition& condition) {
        return condition.place == column && condition.wholeNumber().has_value();
    });
}

bool Criteria::Condition::holds(std::partial_ordering result) const
{
    switch (op) {
    case Operator::Equal:
    case Operator::Like:
        return result == 0;
    case Operator::NotEqual:
        return result != 0;
    case Operator::Less:
        return result < 0;
    case Operator::LessOrEqual:
        return result <= 0;
    case Operator::Greater:
        return result > 0;
    case Operator::GreaterOrEqual:
        return result >= 0;
    }
    Q_UNREACHABLE();
}

} // namespace ADODB
