#include "lookups/json/jsonbag.h"
#include "platform/values/error.h"
#include "support/errorof.h"
#include "support/print.h"
#include "support/texttable.h"

#include <gtest/gtest.h>
#include <limits>
#include <random>

using namespace Qt::StringLiterals;

namespace {

/// What the document is when it is written again.
QString rewritten(const QString& text, bool decimals = false)
{
    JsonBag bag;
    bag.setDecimalMode(decimals);
    bag.setJSON(text);
    return bag.JSON();
}

/// "number text" of the RuntimeError that the call throws, "" if it throws none. It comes from JsonBag.
template <class Call>
QString failureOf(Call call)
{
    try {
        call();
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.source(), u"JsonBag");
        return QString::number(error.number()) + u' ' + error.description();
    }
    return {};
}

} // namespace

TEST(JsonReading, Accepts)
{
    const struct
    {
        QString text, written = text;
    } rows[] = {
        {u" \t\r\n[ ] "_s, u"[]"_s},
        {u"[,,,1 2,\"x\",]"_s, u"[1,2,\"x\"]"_s},
        {uR"({"a":1,,"b":2 "c":3,})"_s, uR"({"a":1,"b":2,"c":3})"_s},
        {uR"({ "a" : [ { } , [ ] ] })"_s, uR"({"a":[{},[]]})"_s},
        {u"[]]] what follows"_s, u"[]"_s},
        {u"[TRUE,False,nUlL,truefalse]"_s, u"[true,false,null,true,false]"_s},
        // names
        {uR"({"":"","a":1,"A":2})"_s},
        {uR"({"a":1,"b":2,"a":3,"\u0062":4})"_s, uR"({"a":3,"b":4})"_s},
        {uR"([{"a":1,"b":2},{"a":5},{"a":6,"c":7},{"b":8,"b":9}])"_s,
         uR"([{"a":1,"b":2},{"a":5},{"a":6,"c":7},{"b":9}])"_s},
        {uR"([{"a":1,"ab":2},{"ab":3,"a":4},{"a":5,"abc":6},{"a":7,"ab":8,"c":9}])"_s},
        {uR"([{"a":1,"x":2},{"b":3,"c":4},{"b":5,"x":6}])"_s},
        {uR"([{"a":1,"b":2,"a":3},{"a":4,"b":5,"a":8},{"b":6,"a":7}])"_s,
         uR"([{"b":2,"a":3},{"b":5,"a":8},{"b":6,"a":7}])"_s},
        {uR"([{"\\":1},{"\"x":2},{"\"x":3}])"_s},
        // texts
        {uR"(["\"\\\/\b\f\n\r\t\u00e7"])"_s, uR"(["\"\\/\b\f\n\r\tç"])"_s},
        {u"[\"a\"\"b\"\"\x7F\"]"_s, uR"(["a","b","\u007F"])"_s},
        {u"[\"ç\u20AC / \u007E\"]"_s},
        {uR"(["\u0000\u001F\u0080\u009f"])"_s, uR"(["\u0000\u001F\u0080\u009F"])"_s},
        {u"[\"\u00A0\u034E\u034F\u0350\u200A\u200B\u200F\u2010\u2027\u2028\u202E\u202F\"]"_s,
         u"[\"\u00A0\u034E\\u034F\u0350\u200A\\u200B\\u200F\u2010\u2027\\u2028\\u202E\u202F\"]"_s},
        {u"[\"\u205F\u2060\u2061\uFDFF\uFE00\uFE0F\uFE10\uFEFE\uFEFF\uFFFC\uFFFD\"]"_s,
         u"[\"\u205F\\u2060\u2061\uFDFF\\uFE00\\uFE0F\uFE10\uFEFE\\uFEFF\uFFFC\\uFFFD\"]"_s},
        {u"[\"\U0001F600\\ud83d\"]"_s, uR"(["\uD83D\uDE00\uD83D"])"_s},
        // numbers
        {u"[0,-1,12.5,-0.25,1e3,1E+3,25e-1]"_s, u"[0,-1,12.5,-0.25,1000,1000,2.5]"_s},
        {u"[0.1,0.30000000000000004,123456789012,1e20,1.5E300]"_s,
         u"[0.1,0.30000000000000004,123456789012,1e+20,1.5e+300]"_s},
        {u"[9007199254740993,0.00001,0.000001,9754103.8898074246]"_s,
         u"[9007199254740992,0.00001,1e-06,9754103.889807425]"_s},
        {u"[1.7976931348623157e+308,5e-324,2.2250738585072014e-308,-0]"_s},
        {u"[1.,007,-012.50,1.e1,1true,-1e-999]"_s, u"[1,7,-12.5,10,1,true,-0]"_s},
        {QString(JsonBag::deepest, u'[') + QString(JsonBag::deepest, u']')},
        {u"[\"%1\",\"%2\\n\"]"_s.arg(QString(200'000, u'x'), QString(100, u'y'))},
    };
    for (const auto& row : rows)
        EXPECT_EQ(rewritten(row.text), row.written);
}

TEST(JsonReading, RejectsWithThePosition)
{
    const struct
    {
        QString failure;
        QStringList texts; ///< with a "|" in front of the character that is told
    } rows[] = {
        {u"13 Expected either { or [ at character %1"_s, {u"|"_s, u" \n|\"a\""_s, u"|\u00A0[]"_s}},
        {u"13 Bad value at character %1"_s, {u"[true|"_s, u"[ |nul"_s, u"[1|}"_s, uR"({"a": |})"_s}},
        {u"13 Expected , or } at character %1"_s, {u"{|"_s, uR"({"a":null|)"_s, uR"({"a":1|])"_s}},
        {u"13 Found \",\" before first item at character %1"_s, {uR"({|,"a":1})"_s}},
        {u"13 Expected : at character %1"_s, {uR"({"a" |1})"_s, uR"([{"a":1},{"a"|=2}])"_s}},
        {u"13 Expected \" at character %1"_s, {u"[\"abc|"_s, uR"([{"abc":1},{"ab|)"_s}},
        {u"13 Invalid string character at %1"_s, {u"[\"a|\x1F\"]"_s, u"[\"\\na|"_s + QChar(0) + u"\"]"_s}},
        {u"13 Bad string character escape at character %1"_s,
         {uR"(["\|)"_s, uR"(["\|B"])"_s, uR"(["\u|123)"_s, uR"(["\u|+123"])"_s}},
        {u"13 Ran off end of string while parsing a number"_s, {u"[1e5"_s}},
        {u"13 Second decimal point at character %1"_s, {u"[1.2|.3]"_s}},
        {u"6 Number overflow or parse error at character %1"_s, {u"[0, |1e]"_s, u"[|1e309]"_s}},
        {u"28 Nested too deep at character %1"_s,
         {QString(1000, u'[') + u"|[]"_s, u"{\"a\":"_s.repeated(1000) + u"|{\"a\":"_s.repeated(100'000)}},
    };
    for (const auto& row : rows)
        for (QString text : row.texts) {
            const QString failure =
                QString(row.failure).replace(u"%1"_s, QString::number(text.indexOf(u'|') + 1));
            text.remove(u'|');
            EXPECT_EQ(failureOf([&] { rewritten(text); }), failure) << text.left(40).toStdString();
        }
}

TEST(JsonReading, DecimalsKeepTheirDigits)
{
    for (const QStringList& row : textTable(
             u"1234567890123456789012345678|-12345678901234.56789012345678|79228162514264337593543950335|"
             "0.00001234567890123456789012345678|12345678901234567890123456784.5="
             "12345678901234567890123456785|"
             "0.99999999999999999999999999995=1|1.50=1.5|1e3=1000|25e-1=2.5|-0=0|007=7|"
             "1E-25=0.0000000000000000000000001|1e-99999999999=0"))
        EXPECT_EQ(rewritten(u"[%1]"_s.arg(row[0]), true), u"[%1]"_s.arg(row.last()));
    for (const QStringList& row : textTable(u"79228162514264337593543950336|1e99999999999|1e"))
        EXPECT_EQ(failureOf([&] { rewritten(u"[%1]"_s.arg(row[0]), true); }),
                  u"6 Number overflow or parse error at character 2");

    JsonBag bag;
    bag.setDecimalMode(true);
    bag.setJSON(u"[[0.1]]"_s);
    EXPECT_EQ(bag.Item(1).bag().Item(1).kind(), JsonValue::Kind::Decimal);
    EXPECT_EQ(bag.Item(1).bag().Item(1).number(), 0.1);
}

TEST(JsonReading, AFailureLeavesTheItemsReadSoFar)
{
    JsonBag bag;
    bag.setItem(u"old", 1);
    for (const auto& [text, left] : {std::pair(uR"([1,{"a":2},[3,[4,?)"_s, uR"([1,{"a":2}])"_s),
                                     {uR"({"a":1,"b":2,"a":x})"_s, uR"({"a":1,"b":2})"_s},
                                     {u"1"_s, u"{}"_s}}) {
        EXPECT_EQ(errorOf([&, &text = text] { bag.setJSON(text); }), 13);
        EXPECT_EQ(bag.JSON(), left) << text.toStdString();
    }
}

TEST(JsonReading, AlikeObjectsOfADocumentStandAlone)
{
    JsonBag bag;
    bag.setJSON(u"[{\"nome\":\"ANA\",\"uf\":\"SP\"},{\"nome\":\"RUI\",\"uf\":\"RJ\"},{\"nome\":\"LIA\"}]"_s);
    const JsonValue name = bag.Item(1).bag().Item(u"nome");
    const JsonValue first = bag.Item(2).bag().Item(1);
    const std::shared_ptr<JsonBag> child = bag.Item(2).sharedBag();
    child->setItem(u"nome", u"EVA");
    bag.Item(1).bag().Remove(u"uf");
    bag.Item(3).bag().setItem(u"uf", u"AC");
    EXPECT_EQ(bag.JSON(),
              u"[{\"nome\":\"ANA\"},{\"uf\":\"RJ\",\"nome\":\"EVA\"},{\"nome\":\"LIA\",\"uf\":\"AC\"}]");
    bag.Clear();
    EXPECT_EQ(child->JSON(), u"{\"uf\":\"RJ\",\"nome\":\"EVA\"}");
    // The document's texts go with its last bag.
    child->Clear();
    bag.setJSON(u"[\"%1\"]"_s.arg(QString(1000, u'x')));
    EXPECT_EQ(name.text(), u"ANA");
    EXPECT_EQ(first.text(), u"RUI");
}

TEST(JsonWriting, LinesAndIndents)
{
    JsonBag bag;
    bag.setJSON(u"{\"a\":[1,{\"b\":\"x y\"},[]],\"c\":{},\"d\":null}"_s);
    bag.Whitespace = true;
    EXPECT_EQ(bag.JSON(), u"{\r\n    \"a\":[\r\n        1,\r\n        {\r\n            \"b\":\"x y\"\r\n"
                          "        },\r\n        []\r\n    ],\r\n    \"c\":{},\r\n    \"d\":null\r\n}");
}

TEST(JsonBagItems, AreAskedForAddedAndRemoved)
{
    JsonBag bag;
    bag.setItem(u"a", true);
    bag.AddNewArray(u"lista").setItem(nullptr, 1.5);
    bag.AddNewObject(u"B").setItem(u"á", u"\"");
    bag.setItem(u"a", nullptr);
    EXPECT_EQ(bag.NewEnum(), (QStringList{u"lista"_s, u"B"_s, u"a"_s})) << "a replaced item moves to the end";
    EXPECT_EQ(bag.Item(u"B").bag().Item(u"á").text(), u"\"");
    EXPECT_TRUE(bag.Exists(1));
    for (const JsonKey& key : {JsonKey(u"a"), JsonKey(0), JsonKey(4), JsonKey(nullptr)})
        EXPECT_FALSE(bag.Exists(key));
    for (const JsonKey& key : {JsonKey(u"b"), JsonKey(nullptr), JsonKey(0), JsonKey(4)})
        bag.Remove(key);
    EXPECT_EQ(bag.JSON(), u"{\"lista\":[1.5],\"B\":{\"á\":\"\\\"\"},\"a\":null}");
}

TEST(JsonBagItems, WrongCallsAreErrors)
{
    JsonBag object;
    object.setItem(u"a", 1);
    JsonBag array;
    array.setJSON(u"[1]"_s);
    const std::pair<int, std::function<void()>> rows[] = {
        {5, [&] { object.setIsArray(true); }}, {5, [&] { object.Item(u"A"); }},
        {94, [&] { object.Item(); }},          {9, [&] { array.Item(2); }},
        {5, [&] { array.setItem(u"a", 1); }},  {9, [&] { array.setItem(0, 1); }},
        {5, [&] { object.setItem(1, 1); }},    {5, [&] { array.Name(1); }},
    };
    for (const auto& [number, call] : rows)
        EXPECT_EQ(errorOf(call), number);
    EXPECT_EQ(object.JSON() + array.JSON(), u"{\"a\":1}[1]");
}

TEST(JsonBagItems, ManyChangeAsAListDoes)
{
    std::mt19937 random(7);
    const auto below = [&](qsizetype bound) { return qsizetype(random() % std::size_t(bound)); };
    for (const bool array : {false, true}) {
        JsonBag bag;
        bag.setItem(u"gone", 1);
        bag.Remove(u"gone");
        bag.setIsArray(array);
        const auto written = [array](const QString& name, double value) {
            return (array ? QString() : u"\"%1\":"_s.arg(name)) + QString::number(value);
        };
        QStringList list; ///< the items as they are written
        for (int i = 0; i < 6'000; ++i) {
            const QString name = QString::number(below(600));
            const QString item = written(name, i);
            const auto found = std::find_if(list.begin(), list.end(), [&](const QString& other) {
                return !array && other.startsWith(item.first(name.size() + 3));
            });
            const qsizetype place = found != list.end() ? found - list.begin() : below(list.size() + 1);
            // At first items become more, then fewer.
            const bool removes = place < list.size() && below(4) < (i < 3'000 ? 1 : 3) && list.size() > 1;
            if (removes)
                bag.Remove(found != list.end() && i % 2 ? JsonKey(name) : JsonKey(place + 1));
            else
                bag.setItem(array ? JsonKey(place + 1) : JsonKey(name), i);
            if (removes || found != list.end())
                list.removeAt(place);
            if (!removes && array && place < list.size())
                list[place] = item;
            else if (!removes)
                list.append(item);
            ASSERT_EQ(bag.Count(), list.size());
            const qsizetype any = below(list.size());
            ASSERT_EQ(written(array ? QString() : bag.Name(any + 1), bag.Item(any + 1).number()), list[any]);
        }
        EXPECT_EQ(bag.JSON(), (array ? u"[%1]"_s : u"{%1}"_s).arg(list.join(u',')));
    }
}

TEST(JsonBagItems, AChainOfAnyLengthIsDropped)
{
    JsonBag bag;
    auto* last = &bag;
    for (int i = 0; i < 300'000; ++i)
        last = &last->AddNewObject(u"a");
    EXPECT_EQ(failureOf([&] { bag.JSON(); }), u"28 Nested too deep");
    bag.Clear();
    EXPECT_EQ(bag.JSON(), u"{}");
}

TEST(JsonValues, KindsAndConversions)
{
    JsonBag bag;
    bag.setIsArray(true);
    for (const JsonValue& value :
         {JsonValue(QVariant()), JsonValue(QVariant(true)), JsonValue(QVariant(-7)),
          JsonValue(qint64(9007199254740993)), JsonValue(QVariant(std::numeric_limits<quint64>::max()))})
        bag.setItem({}, value);
    EXPECT_EQ(bag.JSON(), u"[null,true,-7,9007199254740993,18446744073709551615]");
    EXPECT_EQ(errorOf([] { JsonValue(u"1").number(); }), 13);
}
