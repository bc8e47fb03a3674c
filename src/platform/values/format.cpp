#include "platform/values/format.h"

#include "platform/values/date.h"
#include "platform/values/decimal.h"
#include "platform/values/number.h"

#include <vector>

using namespace Qt::StringLiterals;

namespace {

/// A number mask taken apart.
struct NumberMask
{
    enum class Kind
    {
        Whole,
        Point,
        Fraction,
        Comma,
        Literal
    };
    struct Piece
    {
        Kind kind;
        QChar character;
    };

    explicit NumberMask(QStringView mask);
    bool hasPlaces() const { return wholePlaces + fractionPlaces > 0; }

    std::vector<Piece> pieces;
    qsizetype wholePlaces = 0;
    qsizetype fractionPlaces = 0;
    /// The places that are always written: from the first "0" to the mark, from the mark to the last "0".
    qsizetype wholeFixed = 0;
    qsizetype fractionFixed = 0;
    bool grouped = false;

private:
    void addPlace(QChar place, bool behindPoint);
    void settleCommas();
};

NumberMask::NumberMask(QStringView mask)
{
    bool point = false;
    for (qsizetype i = 0; i < mask.size(); ++i) {
        const QChar character = mask[i];
        if (character == u'0' || character == u'#')
            addPlace(character, point);
        else if (character == u'.' && !point) {
            point = true;
            pieces.push_back({Kind::Point, u','});
        } else if (character == u',' && !point && wholePlaces > 0)
            pieces.push_back({Kind::Comma, character});
        else if (character == u'\\' && i + 1 < mask.size())
            pieces.push_back({Kind::Literal, mask[++i]});
        else
            pieces.push_back({Kind::Literal, character});
    }
    settleCommas();
}

void NumberMask::addPlace(QChar place, bool behindPoint)
{
    if (behindPoint) {
        ++fractionPlaces;
        if (place == u'0')
            fractionFixed = fractionPlaces;
    } else {
        ++wholePlaces;
        if (place == u'0' || wholeFixed > 0)
            ++wholeFixed;
    }
    pieces.push_back({behindPoint ? Kind::Fraction : Kind::Whole, place});
}

void NumberMask::settleCommas()
{
    bool inside = false; // a place of the whole part follows
    for (auto piece = pieces.rbegin(); piece != pieces.rend(); ++piece) {
        if (piece->kind == Kind::Whole)
            inside = true;
        else if (piece->kind == Kind::Comma && inside)
            grouped = true;
        else if (piece->kind == Kind::Comma)
            piece->kind = Kind::Literal;
    }
}

QString writeNumber(double value, const NumberMask& mask)
{
    using Kind = NumberMask::Kind;
    Decimal number = Decimal::of(value);
    number.round(mask.fractionPlaces);
    const QByteArray whole = number.whole.rightJustified(mask.wholeFixed, '0');
    const QByteArray fraction = number.fraction.leftJustified(mask.fractionFixed, '0');

    QString text;
    if (number.negative)
        text += u'-';
    qsizetype unwritten = whole.size();
    const auto writeWhole = [&](qsizetype placesLeft) {
        for (; unwritten > placesLeft; --unwritten) {
            text += QLatin1Char(whole[whole.size() - unwritten]);
            if (mask.grouped && unwritten > 1 && unwritten % 3 == 1)
                text += u'.';
        }
    };
    qsizetype placesLeft = mask.wholePlaces;
    qsizetype behind = 0;
    for (const NumberMask::Piece& piece : mask.pieces) {
        switch (piece.kind) {
        case Kind::Whole:
            writeWhole(--placesLeft);
            break;
        case Kind::Point:
            writeWhole(0);
            text += piece.character;
            break;
        case Kind::Fraction:
            if (behind < fraction.size())
                text += QLatin1Char(fraction[behind++]);
            break;
        case Kind::Comma:
            break;
        case Kind::Literal:
            text += piece.character;
            break;
        }
    }
    return text;
}

/// A piece of a date mask: so many digits of what the letter stands for, or a character as it is.
struct DatePiece
{
    char16_t letter = 0; ///< d, m (month), y, h, n, s; 0 for a character.
    int length = 0;
    QChar character;
};

/// How many letters of a run of equal ones make a piece: 0 for a lone "y".
int pieceLength(char16_t letter, qsizetype run)
{
    if (letter == u'y')
        return run >= 4 ? 4 : run >= 2 ? 2 : 0;
    return run >= 2 ? 2 : 1;
}

/// An "m" right behind an hour or in front of seconds becomes "n".
void settleMinutes(std::vector<DatePiece>& pieces)
{
    DatePiece* last = nullptr;
    for (DatePiece& piece : pieces) {
        if (piece.letter == 0)
            continue;
        if (last && last->letter == u'h' && piece.letter == u'm')
            piece.letter = u'n';
        if (last && last->letter == u'm' && piece.letter == u's')
            last->letter = u'n';
        last = &piece;
    }
}

std::vector<DatePiece> takeDateMask(QStringView mask)
{
    std::vector<DatePiece> pieces;
    for (qsizetype i = 0; i < mask.size(); ++i) {
        const char16_t letter = mask[i].toLower().unicode();
        if (mask[i] == u'\\' && i + 1 < mask.size()) {
            pieces.push_back({0, 0, mask[++i]});
            continue;
        }
        int length = 0;
        if (QStringView(u"dmyhns").contains(QChar(letter))) {
            qsizetype end = i;
            while (end < mask.size() && mask[end].toLower() == letter)
                ++end;
            length = pieceLength(letter, end - i);
        }
        if (length > 0) {
            pieces.push_back({letter, length, {}});
            i += length - 1;
        } else {
            pieces.push_back({0, 0, mask[i]});
        }
    }
    settleMinutes(pieces);
    return pieces;
}

int partOf(QDate date, QTime time, const DatePiece& piece)
{
    switch (piece.letter) {
    case u'd':
        return date.day();
    case u'm':
        return date.month();
    case u'y':
        return piece.length == 2 ? date.year() % 100 : date.year();
    case u'h':
        return time.hour();
    case u'n':
        return time.minute();
    default:
        return time.second();
    }
}

QString writeMoment(QDate date, QTime time, QStringView mask)
{
    if (!date.isValid())
        return {};
    QString text;
    for (const DatePiece& piece : takeDateMask(mask)) {
        if (piece.letter == 0)
            text += piece.character;
        else
            text += QString::number(partOf(date, time, piece)).rightJustified(piece.length, u'0');
    }
    return text;
}

} // namespace

QString Format(double value, QStringView mask)
{
    return writeNumber(value, NumberMask(mask));
}

QString Format(const QDateTime& value, QStringView mask)
{
    return writeMoment(value.date(), value.time(), mask);
}

QString Format(QDate value, QStringView mask)
{
    return writeMoment(value, QTime(0, 0), mask);
}

QString Format(const QString& text, QStringView mask)
{
    if (const NumberMask parts(mask); parts.hasPlaces()) {
        const std::optional<double> number = readNumber(text);
        return number ? writeNumber(*number, parts) : text;
    }
    const std::optional<QDateTime> moment = readDate(text);
    return moment ? Format(*moment, mask) : text;
}

QString Currency(double value)
{
    const QString amount = Format(value, u"#,##0.00");
    return amount.startsWith(u'-') ? u"-R$ "_s + amount.mid(1) : u"R$ "_s + amount;
}
