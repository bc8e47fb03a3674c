#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QDateTime>
#include <QString>
#include <QVariant>
#include <optional>
#include <vector>

namespace ADODB {

/// What a column holds, and with it the form of its cells on the wire: UTF-8 text; "-12"; "12.50"; "1.5e-7";
/// "2026-01-31"; "08:15:00"; "2026-01-31 08:15:00".
enum class ColumnKind
{
    Text,
    Integer,
    Decimal,
    Real,
    Date,
    Time,
    DateTime
};

/// Whole numbers and fractions.
constexpr bool isNumber(ColumnKind kind)
{
    return kind == ColumnKind::Integer || kind == ColumnKind::Decimal || kind == ColumnKind::Real;
}

/// Days, times and both together.
constexpr bool isDate(ColumnKind kind)
{
    return kind == ColumnKind::Date || kind == ColumnKind::Time || kind == ColumnKind::DateTime;
}

struct Column
{
    QByteArray name; ///< as the result shows it
    ColumnKind kind = ColumnKind::Text;
    int bytes = 0; ///< room that the longest value takes, 0 where the driver does not know
    bool autoIncrement = false;
    bool nullable = true;
    /// Where the column comes from; the names are empty for an expression.
    QByteArray catalog;
    QByteArray table;
    QByteArray tableAlias;
    QByteArray baseName;
};

/// A value on its way to the server, in the wire form; nullopt is NULL.
using WireValue = std::optional<QByteArray>;

/// One row in one piece of memory.
class Row
{
public:
    Row() = default;
    explicit Row(const std::vector<QByteArrayView>& cells);

    /// isNull() where the cell is NULL; an empty text is not null. Valid as long as the row.
    QByteArrayView cell(qsizetype column) const;
    WireValue value(qsizetype column) const;

    bool operator==(const Row&) const = default;

private:
    QByteArray bytes_;
    std::vector<qint32> ends_; ///< behind each cell's last byte; negative (ones' complement) for a null cell
};

/// Cells as the program sees them. Every function takes a cell that is not null.
namespace Cell {

/// The workstation's form: a decimal keeps its column's scale and takes a comma ("12,50"), a date is
/// dd/mm/yyyy, a time hh:nn:ss, both with a blank between; the time is left out at midnight.
QString text(const Column& column, QByteArrayView cell);

/// Throws RuntimeError 13 for a date, and for a text that is no number.
double number(const Column& column, QByteArrayView cell);

/// A fraction goes to the nearest whole number, a half to the even one. Throws as number() does, and
/// RuntimeError 6.
qint64 integer(const Column& column, QByteArrayView cell);

/// A time alone belongs to 30/12/1899. A text is read as a workstation reads dates; for what is no date the
/// result's date() is invalid. Its isValid() says less, see readDate.
QDateTime date(const Column& column, QByteArrayView cell);

/// QString, qint64, double, QDate, QTime or QDateTime.
QVariant value(const Column& column, QByteArrayView cell);

/// The text in the wire form of the column. A date column takes what a workstation reads as a date and NULL
/// for any other text. A numeric column takes "12.5" and "12,5", where a single point is always the decimal
/// mark ("1.234" is less than two), and NULL for a blank text; throws RuntimeError 13 for a text that is no
/// number.
WireValue fromText(const Column& column, const QString& text);

} // namespace Cell

} // namespace ADODB
