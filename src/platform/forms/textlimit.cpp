#include "platform/forms/textlimit.h"

#include "platform/values/error.h"
#include "platform/values/number.h"

#include <QComboBox>
#include <QLineEdit>
#include <QRegularExpression>
#include <QValidator>
#include <algorithm>
#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

/// The longest text that is read as a number: digits, groups, sign, currency and blanks.
constexpr qsizetype longestNumber = 40;

class Deletions : public QValidator
{
public:
    Deletions(TextLimit limit, QObject* parent) : QValidator(parent), limit_(limit) {}

    State validate(QString& text, int&) const override { return limit_.holds(text) ? Acceptable : Invalid; }

private:
    TextLimit limit_;
};

} // namespace

TextLimit TextLimit::of(const QWidget* box)
{
    const bool isInner = qobject_cast<const QComboBox*>(box->parentWidget());
    const QString column = (isInner ? box->parentWidget() : box)->property("limit").toString();
    if (column.isEmpty())
        return {};
    static const QRegularExpression type(u"^([a-z]+)(?:\\((\\d+)(?:,(\\d+))?\\))?$"_s);
    static const QHash<QString, Kind> kinds = {
        {u"varchar"_s, Kind::Characters}, {u"date"_s, Kind::Characters}, {u"text"_s, Kind::Bytes},
        {u"decimal"_s, Kind::Decimal},    {u"int"_s, Kind::Int},         {u"bigint"_s, Kind::BigInt}};
    const QRegularExpressionMatch found = type.match(column);
    if (!kinds.contains(found.captured(1)))
        Errors::invalidProperty(box->objectName());
    TextLimit limit;
    limit.kind_ = kinds.value(found.captured(1));
    if (limit.kind_ == Kind::Bytes)
        limit.size_ = 65535;
    else
        limit.size_ = found.captured(1) == QLatin1String("date") ? 10 : found.captured(2).toInt();
    limit.decimals_ = found.captured(3).toInt();
    return limit;
}

bool TextLimit::holds(const QString& text) const
{
    if (isNumber())
        return text.size() <= longestNumber && (!isNumeric(text) || holdsNumber(text));
    return isNone() || size(text) <= size_;
}

bool TextLimit::holdsNumber(const QString& number) const
{
    if (kind_ == Kind::Decimal) // less what would be rounded up to one digit more
        return std::abs(toNumber(number)) < std::pow(10, size_ - decimals_) - 0.5 * std::pow(10, -decimals_);
    try {
        const qint64 whole = integerPart(number);
        return kind_ == Kind::BigInt ||
               (whole >= std::numeric_limits<qint32>::min() && whole <= std::numeric_limits<qint32>::max());
    } catch (const RuntimeError&) {
        return false;
    }
}

qsizetype TextLimit::size(QStringView text) const
{
    if (kind_ == Kind::Bytes)
        return text.toUtf8().size();
    return text.size() -
           std::count_if(text.begin(), text.end(), [](QChar unit) { return unit.isLowSurrogate(); });
}

QString TextLimit::admitted(const QString& before, const QString& text, const QString& after) const
{
    if (isNone())
        return text;
    if (isNumber())
        return holds(before + text + after) ? text : QString();
    return beginning(text, size_ - size(before) - size(after));
}

QString TextLimit::beginning(const QString& text, qsizetype room) const
{
    qsizetype taken = 0;
    while (taken < text.size()) {
        const qsizetype units = text[taken].isHighSurrogate() ? 2 : 1;
        room -= size(QStringView(text).mid(taken, units));
        if (room < 0)
            break;
        taken += units;
    }
    return text.left(taken);
}

void TextLimit::watchDeletions(QWidget* box)
{
    auto* line = qobject_cast<QLineEdit*>(box);
    if (!line || line->validator())
        return;
    const TextLimit limit = of(line);
    if (!limit.isNumber())
        return;
    line->setValidator(new Deletions(limit, line));
    if (!limit.holds(line->text()))
        line->setText(line->text()); // so that the line knows, and lets it be shortened
}
