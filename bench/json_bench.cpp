/// JsonBag beside Qt's JSON and nlohmann's over a document of 10 MB of small objects: reading (with dropping
/// what was read) and writing. Bytes are those of the document as UTF-8, which the two others read and write;
/// JsonBag's texts are UTF-16, and its rows "Utf8" convert from and to UTF-8 in the measured time.
///
/// What changes bags is measured as a ratio: of the time for ten times as many items to the time for so many,
/// which is about ten where the time for one item does not grow with their number.
///
/// Document 0 has patients that are alike, as a web service lists them; in document 1 each object has a
/// choice and order of names of its own.
#include "lookups/json/jsonbag.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <algorithm>
#include <benchmark/benchmark.h>
#include <ctime>
#include <functional>
#include <nlohmann/json.hpp>
#include <random>

namespace {

constexpr qsizetype documentSize = 10'000'000;

QByteArray field(int number, std::mt19937& random)
{
    const QByteArray digits = QByteArray::number(random() % 100'000'000);
    switch (number) {
    case 0:
        return "\"idpac\":" + digits;
    case 1:
        return "\"nmPac\":\"MARIA JOSÉ DA CONCEIÇÃO " + digits + "\"";
    case 2:
        return "\"cpf\":\"" + digits.rightJustified(11, '0') + "\"";
    case 3:
        return "\"valor\":" + QByteArray::number(double(random() % 1'000'000) / 100);
    case 4:
        return "\"ativo\":" + QByteArray(random() % 2 ? "true" : "false");
    case 5:
        return "\"obs\":" + QByteArray(random() % 3 ? "null" : "\"linha\\numa \\\"citação\\\"\"");
    case 6:
        return "\"endereco\":{\"cep\":\"01001-000\",\"rua\":\"PRAÇA DA SÉ\",\"numero\":" +
               QByteArray::number(random() % 2000) + ",\"uf\":\"SP\"}";
    default:
        return "\"fones\":[{\"tipo\":\"cel\",\"numero\":\"" + digits +
               "\"},{\"tipo\":\"res\",\"numero\":\"3232-1010\"}]";
    }
}

const QByteArray& document(int kind)
{
    static std::map<int, QByteArray> made;
    QByteArray& text = made[kind];
    std::mt19937 random(1);
    std::vector<int> fields{0, 1, 2, 3, 4, 5, 6, 7};
    while (text.size() < documentSize) {
        std::size_t count = fields.size();
        if (kind == 1) {
            std::shuffle(fields.begin(), fields.end(), random);
            count = 1 + random() % fields.size();
        }
        text += text.isEmpty() ? "[{" : ",{";
        for (std::size_t i = 0; i < count; ++i)
            text += (i > 0 ? "," : "") + field(fields[i], random);
        text += '}';
    }
    if (!text.endsWith(']'))
        text += ']';
    return text;
}

void counted(benchmark::State& state)
{
    state.SetBytesProcessed(int64_t(state.iterations()) * document(int(state.range(0))).size());
}

void ReadJsonBag(benchmark::State& state)
{
    const QString text = QString::fromUtf8(document(int(state.range(0))));
    for (auto _ : state) {
        JsonBag bag;
        bag.setJSON(text);
        benchmark::DoNotOptimize(bag.Count());
    }
    counted(state);
}

void ReadJsonBagUtf8(benchmark::State& state)
{
    const QByteArray& text = document(int(state.range(0)));
    for (auto _ : state) {
        JsonBag bag;
        bag.setJSON(QString::fromUtf8(text));
        benchmark::DoNotOptimize(bag.Count());
    }
    counted(state);
}

void ReadQt(benchmark::State& state)
{
    const QByteArray& text = document(int(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(QJsonDocument::fromJson(text).array().size());
    counted(state);
}

void ReadNlohmann(benchmark::State& state)
{
    const std::string text = document(int(state.range(0))).toStdString();
    for (auto _ : state)
        benchmark::DoNotOptimize(nlohmann::json::parse(text).size());
    counted(state);
}

void WriteJsonBag(benchmark::State& state)
{
    JsonBag bag;
    bag.setJSON(QString::fromUtf8(document(int(state.range(0)))));
    for (auto _ : state)
        benchmark::DoNotOptimize(bag.JSON().size());
    counted(state);
}

void WriteJsonBagUtf8(benchmark::State& state)
{
    JsonBag bag;
    bag.setJSON(QString::fromUtf8(document(int(state.range(0)))));
    for (auto _ : state)
        benchmark::DoNotOptimize(bag.JSON().toUtf8().size());
    counted(state);
}

void WriteQt(benchmark::State& state)
{
    const QJsonDocument read = QJsonDocument::fromJson(document(int(state.range(0))));
    for (auto _ : state)
        benchmark::DoNotOptimize(read.toJson(QJsonDocument::Compact).size());
    counted(state);
}

void WriteNlohmann(benchmark::State& state)
{
    const nlohmann::json read = nlohmann::json::parse(document(int(state.range(0))).toStdString());
    for (auto _ : state)
        benchmark::DoNotOptimize(read.dump().size());
    counted(state);
}

/// Measures the processor's time for the work on `few` items and on ten times as many.
void measureRatio(benchmark::State& state, const std::function<void(int count)>& work)
{
    constexpr int few = 8'000;
    const auto timeFor = [&](int count) {
        const std::clock_t start = std::clock();
        work(count);
        return double(std::clock() - start);
    };
    double forFew = 0;
    double forMany = 0;
    for (auto _ : state) {
        forFew += timeFor(few);
        forMany += timeFor(10 * few);
    }
    state.counters["ratio"] = forMany / forFew;
}

void ReadOneNameManyTimes(benchmark::State& state)
{
    measureRatio(state, [](int count) {
        JsonBag bag;
        bag.setJSON(u"{"_s + u"\"a\":1,"_s.repeated(count) + u"\"b\":2}"_s);
        benchmark::DoNotOptimize(bag.Count());
    });
}

/// From the front, each item being looked at first.
void RemoveByIndex(benchmark::State& state)
{
    const bool array = state.range(0) == 1;
    measureRatio(state, [array](int count) {
        JsonBag bag;
        bag.setIsArray(array);
        for (int i = 0; i < count; ++i)
            bag.setItem(array ? JsonKey() : JsonKey(QString::number(i)), i);
        while (bag.Count() > 0) {
            benchmark::DoNotOptimize(bag.Item(1).number());
            bag.Remove(1);
        }
    });
}

BENCHMARK(ReadOneNameManyTimes)->Unit(benchmark::kMillisecond);
BENCHMARK(RemoveByIndex)->ArgName("array")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);
BENCHMARK(ReadJsonBag)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);
BENCHMARK(ReadJsonBagUtf8)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);
BENCHMARK(ReadQt)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);
BENCHMARK(ReadNlohmann)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);
BENCHMARK(WriteJsonBag)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);
BENCHMARK(WriteJsonBagUtf8)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);
BENCHMARK(WriteQt)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);
BENCHMARK(WriteNlohmann)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
