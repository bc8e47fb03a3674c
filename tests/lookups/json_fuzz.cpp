#include "lookups/json/jsonbag.h"
#include "platform/values/error.h"

#include <QJsonDocument>
#include <cstdio>
#include <cstdlib>
#include <nlohmann/json.hpp>
#include <random>

using namespace Qt::StringLiterals;

/// Reads documents that are spoilt at random, the same ones for the same seed, and ends the program where one
/// is neither read nor refused as it should. Meant to run under the sanitizers:
///   json_fuzz [ROUNDS [SEED]]

namespace {

const QString seeds[] = {
    u"[1,-2.5e+10,true,null,\"a\\u00e7\\n\\\"\",{\"a\":[],\"b\":{}}]"_s,
    u"[{\"a\":1,\"b\":2},{\"a\":3,\"b\":4},{\"b\":5,\"a\":6,\"a\":7},{\"a\":8}]"_s,
    u"{\"nome\":\"S\u00E3o\\ud83d\\ude00\",\"x\":[[[[]]]],\"y\":0.1234567890123456789012345678}"_s,
    u"{\"a\":{\"a\":{\"a\":{\"b\":FALSE,\"c\":1E-400}}},\"\":\"\"} rest"_s,
};

const QString pieces = u"[]{}:,\"\\\\u0019e+-. \ntrfalsn\u00E7\u2028"_s + QChar(0xD800) + QChar(0xDC00);

QString spoilt(QString text, std::mt19937& random)
{
    const auto below = [&](qsizetype bound) { return qsizetype(random() % std::size_t(bound)); };
    for (qsizetype change = 1 + below(4); change > 0; --change) {
        const qsizetype at = below(text.size() + 1);
        const QChar piece = pieces[below(pieces.size())];
        const QString inserts[] = {{},
                                   {},
                                   piece,
                                   piece,
                                   text.mid(below(text.size() + 1), below(20)),
                                   QString(1 + below(1200), pieces[below(4)])};
        text.replace(at, below(3), inserts[below(std::size(inserts))]);
    }
    return text;
}

[[noreturn]] void fail(const char* what, const QString& text)
{
    std::fprintf(stderr, "%s: %s\n", what, qPrintable(text.toUtf8().toPercentEncoding()));
    std::exit(1);
}

/// Changes the items of the outermost bag, and asks for what a user may.
void use(JsonBag& bag, std::mt19937& random)
{
    for (qsizetype i = bag.Count(); i > 0; i -= 1 + qsizetype(random() % 3)) {
        const JsonValue value = bag.Item(i);
        if (bag.IsArray())
            bag.setItem(i, random() % 2 ? value : JsonValue(u"x"));
        else if (random() % 2)
            bag.setItem(QString(bag.Name(i)), value);
        else
            bag.Remove(i);
    }
}

void check(const QString& text, bool decimals, std::mt19937& random)
{
    JsonBag bag;
    bag.setDecimalMode(decimals);
    try {
        bag.setJSON(text);
    } catch (const RuntimeError& error) {
        // Beyond depth or decimals a well-formed document may be refused too.
        const bool beyond = error.number() == 28 || (error.number() == 6 && decimals);
        if (error.source() != u"JsonBag" || (error.number() != 13 && error.number() != 6 && !beyond))
            fail("another error", text);
        if (!beyond && nlohmann::json::accept(text.toUtf8().toStdString()))
            fail("refused though well-formed", text);
    }
    // Read in part or whole, it can be written, and what is written is read as the same.
    JsonBag again;
    again.setDecimalMode(decimals);
    again.Whitespace = random() % 2;
    bag.Whitespace = again.Whitespace;
    const QString written = bag.JSON();
    again.setJSON(written);
    if (again.JSON() != written)
        fail("not read back", text);
    if (QJsonDocument::fromJson(written.toUtf8()).isNull())
        fail("written ill-formed", text);
    use(bag, random);
    bag.JSON();
}

} // namespace

int main(int argc, char** argv)
{
    const long rounds = argc > 1 ? std::atol(argv[1]) : 20'000;
    std::mt19937 random(argc > 2 ? unsigned(std::atol(argv[2])) : 1);
    for (long round = 0; round < rounds; ++round)
        check(spoilt(seeds[std::size_t(round) % std::size(seeds)], random), round % 3 == 0, random);
    return 0;
}
