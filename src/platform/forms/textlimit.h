#pragma once

#include <QString>

class QWidget;

/// How much a box takes of what is typed and pasted: what the column behind it holds. The box's property
/// "limit" is the column's type as the tables have it:
///
///   varchar(150)    characters
///   text            65,535 bytes of UTF-8
///   date            dd/mm/yyyy
///   decimal(15,2)   a number of 13 digits before the comma; decimals beyond the 2 are rounded later
///   int, bigint     a code, of whose number the whole part is kept
///
/// A text that is no number stays for the screen to refuse. What the program itself puts into a box is never
/// cut.
class TextLimit
{
public:
    /// No limit for a box without the property. The inner part of a combo box has the combo's.
    static TextLimit of(const QWidget* box);

    bool isNone() const { return kind_ == Kind::None; }

    bool holds(const QString& text) const;

    /// As much of the beginning of `text` as has room between the two pieces. The figures of a number come in
    /// together or not at all: cut, they would be another number.
    QString admitted(const QString& before, const QString& text, const QString& after) const;

    /// Taking a comma away makes a greater number: a box for numbers refuses the deletion, too.
    static void watchDeletions(QWidget* box);

private:
    enum class Kind
    {
        None,
        Characters,
        Bytes,
        Decimal,
        Int,
        BigInt
    };

    bool isNumber() const { return kind_ >= Kind::Decimal; }
    bool holdsNumber(const QString& number) const;
    qsizetype size(QStringView text) const;
    QString beginning(const QString& text, qsizetype room) const;

    Kind kind_ = Kind::None;
    qsizetype size_ = 0;     ///< in characters, bytes or digits
    qsizetype decimals_ = 0; ///< of these
};
