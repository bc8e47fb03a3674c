#pragma once

#include <QSet>
#include <QString>
#include <optional>
#include <vector>

namespace ADODB {

/// A piece of a statement that stands by itself.
struct Token
{
    enum class Kind
    {
        Word,       ///< a name or keyword, in small letters
        QuotedName, ///< in small letters, without its quotes
        Number,     ///< as it stands; whatever begins with a digit
        Text,       ///< between single quotes, without them
        OtherText,  ///< between double quotes
        Sign,
        End
    };

    Kind kind = Kind::End;
    QString text;
    qsizetype at = 0; ///< its place in the statement

    bool isName() const { return kind == Kind::Word || kind == Kind::QuotedName; }
    bool is(QLatin1String word) const { return kind == Kind::Word && text == word; }
    bool is(char sign) const { return kind == Kind::Sign && text == QLatin1Char(sign); }
    bool isOneOf(const QSet<QString>& words) const { return kind == Kind::Word && words.contains(text); }
};

/// Part of a name or keyword, or of a number.
bool isWordSign(QChar sign);

/// A statement's tokens and one of the kind End behind them. None where the statement cannot be read with
/// certainty: it has a comment, a text that stays open, or a backslash within a text, whose meaning hangs on
/// the server's mode.
std::optional<std::vector<Token>> tokensOf(QStringView sql);

} // namespace ADODB
