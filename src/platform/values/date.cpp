#include "platform/values/date.h"

#include "platform/values/error.h"
#include "platform/values/format.h"

#include <QList>
#include <algorithm>
#include <array>
#include <chrono>

using namespace Qt::StringLiterals;

namespace {

/// The day that a time without a date belongs to.
QDate zeroDay()
{
    return QDate(1899, 12, 30);
}

/// The number written with `least` to `most` digits and nothing else.
std::optional<int> digits(QStringView text, qsizetype least, qsizetype most)
{
    if (text.size() < least || text.size() > most)
        return std::nullopt;
    int value = 0;
    for (const QChar character : text) {
        if (character < u'0' || character > u'9')
            return std::nullopt;
        value = value * 10 + (character.unicode() - u'0');
    }
    return value;
}

std::optional<int> readYear(QStringView text)
{
    if (const std::optional<int> year = digits(text, 2, 2))
        return *year < 30 ? 2000 + *year : 1900 + *year;
    const std::optional<int> year = digits(text, 4, 4);
    return year && *year >= 100 ? year : std::nullopt;
}

std::optional<QDate> readDay(QStringView text)
{
    const bool slashes = text.contains(u'/');
    QList<QStringView> parts = text.split(slashes ? u'/' : u'-');
    if (parts.size() != 3)
        return std::nullopt;
    if (parts.first().size() == 4)
        std::reverse(parts.begin(), parts.end());
    else if (!slashes)
        return std::nullopt;

    const std::optional<int> day = digits(parts[0], 1, 2);
    const std::optional<int> month = digits(parts[1], 1, 2);
    const std::optional<int> year = readYear(parts[2]);
    if (!day || !month || !year || !QDate::isValid(*year, *month, *day))
        return std::nullopt;
    return QDate(*year, *month, *day);
}

std::optional<QTime> readTime(QStringView text)
{
    const QList<QStringView> parts = text.split(u':');
    if (parts.size() != 2 && parts.size() != 3)
        return std::nullopt;
    const std::optional<int> hour = digits(parts[0], 1, 2);
    const std::optional<int> minute = digits(parts[1], 2, 2);
    const std::optional<int> second = parts.size() == 3 ? digits(parts[2], 2, 2) : 0;
    if (!hour || !minute || !second || !QTime::isValid(*hour, *minute, *second))
        return std::nullopt;
    return QTime(*hour, *minute, *second);
}

QDate known(QDate date)
{
    if (!date.isValid())
        Errors::typeMismatch({});
    return date;
}

QDate inRange(QDate date)
{
    if (!date.isValid() || date < QDate(100, 1, 1) || date > QDate(9999, 12, 31))
        Errors::invalidArgument();
    return date;
}

QDateTime later(const QDateTime& moment, std::chrono::seconds seconds)
{
    const QDateTime face(known(moment.date()), moment.time(), Qt::UTC); // which has no summer time
    const QDateTime result = face.addSecs(seconds.count());
    return QDateTime(inRange(result.date()), result.time());
}

} // namespace

std::optional<QDateTime> readDate(QStringView text)
{
    text = text.trimmed();
    if (const std::optional<QTime> time = readTime(text))
        return QDateTime(zeroDay(), *time);

    qsizetype gap = text.indexOf(u' ');
    if (gap < 0)
        gap = text.indexOf(u'T');
    const std::optional<QDate> day = readDay(gap < 0 ? text : text.left(gap));
    const std::optional<QTime> time = gap < 0 ? QTime(0, 0) : readTime(text.mid(gap + 1));
    if (!day || !time)
        return std::nullopt;
    return QDateTime(*day, *time);
}

bool isDate(QStringView text)
{
    return readDate(text).has_value();
}

QDateTime toDate(QStringView text)
{
    const std::optional<QDateTime> moment = readDate(text);
    if (!moment)
        Errors::typeMismatch(text.toString());
    return *moment;
}

QDate addDays(QDate date, qint32 days)
{
    return inRange(known(date).addDays(days));
}

QDate addMonths(QDate date, qint32 months)
{
    return inRange(known(date).addMonths(months));
}

QDateTime addHours(const QDateTime& moment, qint32 hours)
{
    return later(moment, std::chrono::hours(hours));
}

QDateTime addMinutes(const QDateTime& moment, qint32 minutes)
{
    return later(moment, std::chrono::minutes(minutes));
}

int weekday(QDate date)
{
    return known(date).dayOfWeek() % 7 + 1;
}

QString weekdayName(int weekday)
{
    static const std::array<QString, 7> Names{u"domingo"_s,      u"segunda-feira"_s, u"terça-feira"_s,
                                              u"quarta-feira"_s, u"quinta-feira"_s,  u"sexta-feira"_s,
                                              u"sábado"_s};
    if (weekday < 1 || weekday > 7)
        Errors::subscriptOutOfRange();
    return Names[static_cast<size_t>(weekday - 1)];
}

QString monthName(int month)
{
    static const std::array<QString, 12> Names{u"janeiro"_s,  u"fevereiro"_s, u"março"_s,    u"abril"_s,
                                               u"maio"_s,     u"junho"_s,     u"julho"_s,    u"agosto"_s,
                                               u"setembro"_s, u"outubro"_s,   u"novembro"_s, u"dezembro"_s};
    if (month < 1 || month > 12)
        Errors::subscriptOutOfRange();
    return Names[static_cast<size_t>(month - 1)];
}

QString generalDate(const QDateTime& moment)
{
    if (moment.date() == zeroDay())
        return Format(moment, u"hh:nn:ss");
    if (moment.time() < QTime(0, 0, 1))
        return Format(moment, u"dd/mm/yyyy");
    return Format(moment, u"dd/mm/yyyy hh:nn:ss");
}
