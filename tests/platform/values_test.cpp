#include "platform/values/codepage.h"
#include "platform/values/date.h"
#include "platform/values/format.h"
#include "platform/values/number.h"
#include "support/errorof.h"
#include "support/texttable.h"

#include <gtest/gtest.h>

#include <functional>
#include <map>

using namespace Qt::StringLiterals;

namespace {

/// Expects that every row's first text becomes its second one; of a failure, its number behind "!".
void expectConverted(QStringView rows, const std::function<QString(const QString& text)>& convert)
{
    for (const QStringList& row : textTable(rows)) {
        QString result;
        const int error = errorOf([&] { result = convert(row[0]); });
        EXPECT_EQ(error ? u'!' + QString::number(error) : result, row[1]) << row[0].toStdString();
    }
}

QDateTime moment(int year, int month, int day, int hour = 0, int minute = 0, int second = 0)
{
    return QDateTime(QDate(year, month, day), QTime(hour, minute, second));
}

} // namespace

TEST(Format, writesNumbersByMask)
{
    const char16_t* rows =
        // money, quantities and unit prices
        u"1234.5=##########0.00=1234,50|-0.5=#########0.00=-0,50|1e20=###0.00=100000000000000000000,00|"
        u"12.5=#########0.00##=12,50|1.23456=#########0.00##=1,2346|0.00004=#######0.00##=0,00|"
        u"1e-300=########0.00##=0,00|"
        // rounding: on the decimal digits, half away from zero, with the carry through to a new digit
        u"1.005=0.00=1,01|-1.005=0.00=-1,01|2.5=0=3|999.995=0.00=1000,00|0.99996=0.00##=1,00|"
        u"0.30000000000000004=0.00##############=0,30|-0.004=0.00=0,00|"
        // codes, times, groups
        u"7=000=007|12345=000=12345|-7=0000=-0007|12=###0.=12,|0=#.##=,|0.25=.00=,25|1.1=0.0#0=1,100|"
        u"1234567.8=#,##0.00=1.234.567,80|999=#,##0=999|12=0,000=0.012|5=0,=5,|5=,0=,5|"
        // documents: the first zero keeps the leading zeros of the number
        u"12345678000195=0#\\.###\\.###\\/####\\-##=12.345.678/0001-95|"
        u"1234567890=0##\\.###\\.###\\-##=012.345.678-90|5=\\0-0\\=0-5\\";
    for (const QStringList& row : textTable(rows))
        EXPECT_EQ(Format(row[0].toDouble(), row[1]), row[2]) << row.join(u' ').toStdString();
    EXPECT_EQ(Currency(-1234567.895), u"-R$ 1.234.567,90");
}

TEST(Format, writesDatesByMask)
{
    const char16_t* rows =
        u"yyyy/mm/dd=2024/03/09|dd/mm/yy hh:nn=09/03/24 14:05|dd/mm/yyyy hh:mm=09/03/2024 14:05|"
        u"YYYYMMDDHHmmSS=20240309140507|hh dd/mm=14 09/03|mm:ss=05:07|d/m/yy h:n:s=9/3/24 14:5:7|"
        u"\\dd \\de y=d9 de y";
    for (const QStringList& row : textTable(rows))
        EXPECT_EQ(Format(moment(2024, 3, 9, 14, 5, 7), row[0]), row[1]) << row[0].toStdString();
    EXPECT_EQ(Format(QDate(987, 1, 2), u"yyyymmdd hh:nn"), u"09870102 00:00");
    EXPECT_EQ(Format(QDateTime(), u"dd/mm/yyyy"), u"");
}

TEST(Format, readsATextAsTheMaskAsks)
{
    for (const QStringList& row : textTable(
             u"R$ "
             u"1.234,5=##########0.00=1234,50|12345678000195=0#\\.###\\.###\\/####\\-##=12.345.678/0001-95|"
             u"2024-03-09 14:05:07=dd/mm/yyyy hh:nn=09/03/2024 14:05|=0.00=| abc=0.00= abc|"
             u"09/03/2024=0.00=09/03/2024|31/02/2024=yyyy/mm/dd=31/02/2024|12,5=dd/mm/yyyy=12,5"))
        EXPECT_EQ(Format(row[0], row[1]), row[2]) << row[0].toStdString();
}

TEST(Number, readsWhatAWorkstationWritesAndNothingElse)
{
    expectConverted(
        u"0=0|007=7| 12,5 =12.5|,5=0.5|5,=5|+3=3|- 3=-3|1.234=1234|-1.234.567,89=-1234567.89|"
        u"R$\u00A01.234,56=1234.56|-R$ 2,00=-2|R$ -2,00=-2|12.5=12.5|0.125=0.125|1234.567=1234.567|.5=0.5",
        [](auto& text) { return plainNumber(toNumber(text)); });
    const char16_t* none =
        u"|   |-|+ |,|.|R$|R$ -|--1|-+1|R$R$1|-R$-1|1-|1,2,3|1.23.456|1.234.56|1234.567,8|1.2,3|0.123.456|"
        u".123.456|1,234.5|1..234|0.125,5|1 234|12a|abc|1e5|inf|nan|0x10|\u0661\u0662|123.456.789-09";
    for (const QStringList& row : textTable(none))
        EXPECT_EQ(errorOf([&] { toNumber(row[0]); }), 13) << row[0].toStdString();
    EXPECT_FALSE(isNumeric(QString(400, u'9')));
}

TEST(Number, becomesWhole)
{
    expectConverted(u"0.5=0|1.5=2|2.5=2|-0.5=0|-1.5=-2|2.51=3|32766.5=32766|32767.5=!6|-32768.5=-32768",
                    [](auto& text) { return QString::number(toInt16(text.toDouble())); });
    expectConverted(u"9223372036854775808=!6|-9223372036854775808=-9223372036854775808|inf=!6|nan=!6",
                    [](auto& text) { return QString::number(toInt64(text.toDouble())); });
    expectConverted(u"-12,9=-12|0,9999999999999999999=0|,7=0|9007199254740993=9007199254740993|abc=!13|"
                    u"-9223372036854775808,9=-9223372036854775808|9223372036854775808=!6",
                    [](auto& text) { return QString::number(integerPart(text)); });
}

TEST(Number, readsTheLeadingNumberOfAnyText)
{
    expectConverted(u"8.5\" x 11\"=8.5|12,5=12|18pt=18| 1 2.5=12.5|- 3=-3|+4=4|.5=0.5|1.2.3=1.2|5-3=5|--3=0|"
                    u"-.=0|=0|abc=0|inf=0|2e3=2",
                    [](auto& text) { return QString::number(leadingNumber(text)); });
    EXPECT_EQ(leadingNumber(QString(400, u'9')), 0);
}

TEST(Number, writesPlainNumbers)
{
    expectConverted(u"0.30000000000000004=0.3|-0.25=-0.25|-0.0=0|100=100|1e-7=0.0000001|"
                    u"1e21=1000000000000000000000|123456789012345=123456789012345|inf=!6|nan=!6",
                    [](auto& text) { return plainNumber(text.toDouble()); });
}

TEST(Number, isKeptInSinglePrecision)
{
    EXPECT_EQ(double(toSingle(33.3333)), 33.33330154418945);
    expectConverted(
        u"3.3333=3.3333|860.585=860.585|49210480=4.921048E+07|-12.5=-12.5|0=0|-0.0=0|0.0001=0.0001|"
        u"1234567.4=1234567|9999999=9999999|10000000=1E+07|123456789=1.234568E+08|"
        u"33.33333333=33.33333|0.33333333=0.3333333|0.033333333=3.333333E-02|1e-7=0.0000001|"
        u"1.5e-38=1.5E-38|-2e30=-2E+30|3.5e38=!6|inf=!6|nan=!6",
        [](auto& text) { return plainSingle(toSingle(text.toDouble())); });
}

TEST(Number, isNotDividedByZero)
{
    EXPECT_EQ(divide(10, 4), 2.5);
    EXPECT_EQ(divide(0, -4), 0);
    for (const double dividend : {1.0, 0.0})
        EXPECT_EQ(errorOf([&] { divide(dividend, 0); }), 11);
    EXPECT_EQ(errorOf([] { divide(1e300, 1e-300); }), 6);
}

TEST(Date, readsWhatAWorkstationWritesAndNothingElse)
{
    expectConverted(
        u" 9/3/2024 =2024-03-09 00:00:00|31/12/29=2029-12-31 00:00:00|1/1/30=1930-01-01 00:00:00|"
        u"2024/03/09=2024-03-09 00:00:00|2024-3-9=2024-03-09 00:00:00|29/2/2000=2000-02-29 00:00:00|"
        u"09/03/2024 8:05=2024-03-09 08:05:00|2024-03-09T23:59:59=2024-03-09 23:59:59|"
        u"14:05:07=1899-12-30 14:05:07",
        [](auto& text) { return Format(toDate(text), u"yyyy-mm-dd hh:nn:ss"); });
    const char16_t* none =
        u"| |hoje|  /  /    |29/02/1900|31/04/2024|0/1/2024|12/13/2024|01/01/0024|1/1/202|1/1/20244|1/2024|"
        u"09-03-2024|2024/03-09|20240309|1.1.2024|-1/1/2024|24:00|12:60|12|12:5|:30|1:02:03:04|"
        u"1/1/2024 25:00|1/1/2024T|12:30 1/1/2024|1/1/2024/1|\u0661/1/2024";
    for (const QStringList& row : textTable(none)) {
        EXPECT_FALSE(isDate(row[0])) << row[0].toStdString();
        EXPECT_EQ(errorOf([&] { toDate(row[0]); }), 13) << row[0].toStdString();
    }
}

TEST(Date, keepsTheDayWhoseMidnightSummerTimeSkipped)
{
    ASSERT_FALSE(moment(2018, 11, 4).isValid()) << "the zone has no summer time";
    const QDateTime first = toDate(u"04/11/2018");
    EXPECT_EQ(first.date(), QDate(2018, 11, 4));
    EXPECT_EQ(first.time(), QTime(0, 0));
    EXPECT_LT(first, toDate(u"04/11/2018 02:00"));
    EXPECT_EQ(Format(u"04/11/2018"_s, u"yyyy/mm/dd"), u"2018/11/04");
    EXPECT_EQ(generalDate(first), u"04/11/2018");
    EXPECT_EQ(generalDate(toDate(u"8:05")), u"08:05:00");
    EXPECT_EQ(generalDate(moment(2024, 3, 9, 0, 0, 1)), u"09/03/2024 00:00:01");
    EXPECT_EQ(generalDate(QDateTime()), u"");
}

TEST(Date, isCountedOnByTheCalendar)
{
    using Step = std::function<QDateTime(const QDateTime& from, int count)>;
    const std::map<QChar, Step> steps{
        {u'd', [](auto& from, int count) { return QDateTime(addDays(from.date(), count), {}); }},
        {u'm', [](auto& from, int count) { return QDateTime(addMonths(from.date(), count), {}); }},
        {u'h', addHours},
        {u'n', addMinutes}};
    // Days, months, hours or minutes later; "!" where the calendar ends.
    const char16_t* rows =
        u"28/02/2024=1 d=29/02/2024|01/03/2023=-1 d=28/02/2023|03/11/2018=1 d=04/11/2018|"
        u"30/12/9999=1 d=31/12/9999|31/12/9999=1 d=!|01/01/0100=-1 d=!|01/01/2024=2147483647 d=!|"
        u"31/01/2024=1 m=29/02/2024|31/01/2023=1 m=28/02/2023|31/08/2024=1 m=30/09/2024|31/01/2024=2 "
        u"m=31/03/2024|"
        u"15/12/2024=114 m=15/06/2034|31/03/2024=-1 m=29/02/2024|01/12/9999=1 m=!|01/01/0100=-1 m=!|"
        u"31/12/2024 20:00=12 h=01/01/2025 08:00:00|03/11/2018 20:00=12 h=04/11/2018 08:00:00|"
        u"03/11/2018 20:00=4 h=04/11/2018|17/02/2018 20:00=12 h=18/02/2018 08:00:00|"
        u"01/03/2024 01:30:15=-2 h=29/02/2024 23:30:15|31/12/9999 23:00=1 h=!|01/01/0100 00:59=-1 h=!|"
        u"31/12/2024 23:45=30 n=01/01/2025 00:15:00|03/11/2018 23:45=60 n=04/11/2018 00:45:00|"
        u"31/12/9999 23:59=1 n=!|01/01/0100=-1 n=!";
    for (const QStringList& row : textTable(rows)) {
        QDateTime to;
        const auto step = steps.at(row[1].back());
        const int error = errorOf([&] { to = step(toDate(row[0]), row[1].section(u' ', 0, 0).toInt()); });
        EXPECT_EQ(error, row[2] == u"!" ? 5 : 0) << row.join(u' ').toStdString();
        EXPECT_EQ(generalDate(to), error ? QString() : row[2]) << row.join(u' ').toStdString();
    }
    EXPECT_EQ(errorOf([] { addMonths(QDate(), 1); }), 13);
    EXPECT_EQ(errorOf([] { addHours(QDateTime(), 1); }), 13);
}

TEST(CodePage, encodesTextAndMarksWhatItLacks)
{
    QByteArray all;
    for (int byte = 0; byte < 256; ++byte)
        all += static_cast<char>(byte);
    const std::tuple<QString, QByteArray, bool> rows[] = {
        {CodePage::decode(all), all, true},
        {u"1ª via nº 2 – € 5 ‘Œ™Ÿ’ \u0081"_s, "1\xAA via n\xBA 2 \x96 \x80 5 \x91\x8C\x99\x9F\x92 \x81",
         true},
        {u"\u0080x → Ł a\u0303"_s, "?x ? ? a?", false},
        {u"a😀b"_s, "a?b", false},
        {QString(QChar(0xD83D)) + u'b', "?b", false}};
    for (const auto& [text, encoded, covered] : rows) {
        EXPECT_EQ(CodePage::encode(text), encoded) << text.toStdString();
        EXPECT_EQ(CodePage::covers(text), covered) << text.toStdString();
    }
}
