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
    qsizetype size = 0;

    bool isName() const { return kind == Kind::Word || kind == Kind::QuotedName; }
    bool isValue() const { return kind == Kind::Number || kind == Kind::Text; }
    bool is(const char* wordOrSign) const
    {
        return (kind == Kind::Word || kind == Kind::Sign) && text == QLatin1String(wordOrSign);
    }
    bool isOneOf(const QSet<QString>& words) const { return kind == Kind::Word && words.contains(text); }
};

/// A set of words out of one text, for Token::isOneOf.
QSet<QString> words(const char* list);

/// A statement's tokens and one of the kind End behind them. A backslash within a text hides the sign behind
/// it. None where the statement has a comment, or a text that stays open.
std::optional<std::vector<Token>> tokensOf(QStringView sql);

} // namespace ADODB
