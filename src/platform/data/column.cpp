#include "platform/data/column.h"

#include "platform/values/date.h"
#include "platform/values/error.h"
#include "platform/values/format.h"
#include "platform/values/number.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace ADODB {

Row::Row(const std::vector<QByteArrayView>& cells)
{
    qsizetype size = 0;
    for (const QByteArrayView cell : cells)
        size += cell.size();
    bytes_.reserve(size);
    ends_.reserve(cells.size());
    for (const QByteArrayView cell : cells) {
        bytes_.append(cell);
        const auto end = qint32(bytes_.size());
        ends_.push_back(cell.isNull() ? ~end : end);
    }
}

QByteArrayView Row::cell(qsizetype column) const
{
    const auto offset = [](qint32 end) { return end < 0 ? ~end : end; };
    const qint32 end = ends_[std::size_t(column)];
    if (end < 0)
        return {};
    const qint32 start = column == 0 ? 0 : offset(ends_[std::size_t(column) - 1]);
    return {bytes_.constData() + start, qsizetype(end - start)};
}

WireValue Row::value(qsizetype column) const
{
    const QByteArrayView bytes = cell(column);
    return bytes.isNull() ? WireValue() : bytes.toByteArray();
}

namespace Cell {

namespace {

QString utf8(QByteArrayView cell)
{
    return QString::fromUtf8(cell);
}

/// Digits with at most one point among them and a sign in front.
bool isPlainNumber(const QString& text)
{
    static const QRegularExpression form(u"^[+-]?(\\d+\\.?\\d*|\\.\\d+)$"_s);
    return form.match(text).hasMatch();
}

} // namespace

QString text(const Column& column, QByteArrayView cell)
{
    switch (column.kind) {
    case ColumnKind::Text:
    case ColumnKind::Integer:
        return utf8(cell);
    case ColumnKind::Decimal:
    case ColumnKind::Real:
        return utf8(cell).replace(u'.', u',');
    case ColumnKind::Date:
        return Format(date(column, cell).date(), u"dd/mm/yyyy");
    case ColumnKind::Time:
    case ColumnKind::DateTime:
        return generalDate(date(column, cell));
    }
    Q_UNREACHABLE();
}

double number(const Column& column, QByteArrayView cell)
{
    if (isNumber(column.kind))
        return cell.toDouble();
    if (column.kind != ColumnKind::Text)
        Errors::typeMismatch(text(column, cell));
    return toNumber(utf8(cell));
}

qint64 integer(const Column& column, QByteArrayView cell)
{
    if (column.kind == ColumnKind::Integer) {
        bool fits = false;
        const qint64 result = cell.toLongLong(&fits);
        if (fits)
            return result;
    }
    return toInt64(number(column, cell));
}

QDateTime date(const Column& column, QByteArrayView cell)
{
    switch (column.kind) {
    case ColumnKind::Date:
        // Built as readDate builds it, so that the two compare equal on a day that summer time began at
        // midnight.
        return QDateTime(QDate::fromString(utf8(cell), Qt::ISODate), QTime(0, 0));
    case ColumnKind::Time:
        return QDateTime(QDate(1899, 12, 30), QTime::fromString(utf8(cell), Qt::ISODate));
    case ColumnKind::DateTime:
        return QDateTime::fromString(utf8(cell), Qt::ISODate);
    case ColumnKind::Text:
        return readDate(utf8(cell)).value_or(QDateTime());
    default:
        return {};
    }
}

QVariant value(const Column& column, QByteArrayView cell)
{
    switch (column.kind) {
    case ColumnKind::Text:
        return utf8(cell);
    case ColumnKind::Integer:
        return integer(column, cell);
    case ColumnKind::Decimal:
    case ColumnKind::Real:
        return number(column, cell);
    case ColumnKind::Date:
        return date(column, cell).date();
    case ColumnKind::Time:
        return date(column, cell).time();
    case ColumnKind::DateTime:
        return date(column, cell);
    }
    Q_UNREACHABLE();
}

WireValue fromText(const Column& column, const QString& text)
{
    if (column.kind == ColumnKind::Text)
        return text.isEmpty() ? QByteArray("") : text.toUtf8(); // a null text is no NULL
    if (isNumber(column.kind)) {
        const QString number = text.trimmed();
        if (number.isEmpty())
            return std::nullopt;
        return (isPlainNumber(number) ? number : plainNumber(toNumber(number))).toLatin1();
    }
    const std::optional<QDateTime> moment = readDate(text);
    if (!moment)
        return std::nullopt;
    switch (column.kind) {
    case ColumnKind::Date:
        return Format(*moment, u"yyyy-mm-dd").toLatin1();
    case ColumnKind::Time:
        return Format(*moment, u"hh:nn:ss").toLatin1();
    default:
        return Format(*moment, u"yyyy-mm-dd hh:nn:ss").toLatin1();
    }
}

} // namespace Cell

} // namespace ADODB
