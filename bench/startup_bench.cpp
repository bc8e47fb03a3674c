/// From the start of the process to the login standing open with its connection made, against a process of
/// the same library that shows two empty boxes.
#include "app/core/arquivosini.h"
#include "platform/system/files.h"
#include "support/database.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QProcess>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

using namespace Qt::StringLiterals;

namespace {

/// Seconds that the program ran; the status must be 0.
double run(benchmark::State& state, const QString& program, const QStringList& arguments)
{
    QElapsedTimer timer;
    timer.start();
    if (QProcess::execute(program, arguments) != 0)
        state.SkipWithError("the program failed");
    return double(timer.nsecsElapsed()) / 1e9;
}

void BM_LoginShown(benchmark::State& state)
{
    Database& database = Database::instance();
    database.execute(u"insert into usuarios (idlic,nmusuario,ususenha) values ('C1','MARIA','SEGREDO')"_s);
    const QTemporaryDir folder;
    Files::setProgramFolder(folder.path());
    qputenv("XDG_CONFIG_HOME", folder.path().toUtf8());
    ArquivosINI::Grava({database.server(), database.password(), database.name(), database.user(), u"C1"_s});

    double login = 0, bare = 0;
    for (auto _ : state) {
        bare += run(state, QString::fromUtf8(BARE_PROGRAM), {});
        // The scenario closes the login as soon as it is the active window, which ends the program.
        const double seconds =
            run(state, QString::fromUtf8(SCENARIO_PROGRAM), {folder.path(), u"close-login"_s});
        login += seconds;
        state.SetIterationTime(seconds);
    }
    state.counters["bare_s"] = bare / double(state.iterations());
    state.counters["ratio_bare_window"] = login / bare;
}
BENCHMARK(BM_LoginShown)->UseManualTime()->Iterations(20)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_LOGGING_RULES", "default.warning=false"); // what the window system off the screen cannot do
    QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    Database& database = Database::instance();
    database.create();
    benchmark::RunSpecifiedBenchmarks();
    database.drop();
}
