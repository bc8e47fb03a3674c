/// The reception's day in a clinic with years of data: 100,000 patients, 500,000 appointments, 200,000 home
/// visits. A day of the agenda against the time of its own statements, with codes compared by equality on the
/// wire and as they are written; a booking, a keystroke of the search, a closing.
#include "agenda/frmcli_agenda.h"
#include "agenda/frmcli_agenda_pesquisa.h"
#include "agenda/frmcli_agendacf.h"
#include "app/core/variaveis.h"
#include "platform/forms/application.h"
#include "platform/forms/calendar.h"
#include "platform/forms/dialogs.h"
#include "platform/forms/theme.h"
#include "support/database.h"
#include "support/fixedclock.h"
#include "support/offscreen.h"
#include "support/report.h"
#include "support/screendriver.h"

#include <QDir>
#include <QElapsedTimer>
#include <QProcess>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

using namespace Qt::StringLiterals;

namespace {

const QDate today(2026, 3, 16);

/// Every question is a yes.
class Agreeing : public Dialogs
{
public:
    Answer message(const MessageBox& box) override
    {
        return box.buttons == Buttons::YesNo ? Answer::Yes : Answer::Ok;
    }
    std::optional<QString> input(const QString&, const QString&, const QString&) override { return {}; }
    std::optional<QString> file(const FileDialog&) override { return {}; }
};

void makeClinic()
{
    const QTemporaryDir folder;
    QProcess generator;
    generator.start(QString::fromUtf8(GENERATOR_PROGRAM),
                    {u"--tenant"_s, u"C1"_s, u"--today"_s, today.toString(Qt::ISODate), u"--patients"_s,
                     u"100000"_s, u"--appointments"_s, u"500000"_s, u"--visits"_s, u"200000"_s, u"--out"_s,
                     folder.path()});
    if (!generator.waitForFinished(120000) || generator.exitCode() != 0)
        Report::fail(u"the clinic was not made"_s);
    Database::instance().load(folder.path());
}

/// The statements since the last reset, as the server got them.
QStringList statements;

/// The time that the statements take when they are run again and all their rows read, in seconds.
double again(const QStringList& sent)
{
    ADODB::Connection::setObserver({});
    static ADODB::Connection connection;
    if (connection.State() == 0) {
        connection.setConnectionString(Variaveis::StringConexao);
        connection.Open();
    }
    QElapsedTimer timer;
    timer.start();
    for (const QString& statement : sent) {
        ADODB::Recordset rows;
        rows.Open(statement, connection);
        for (; rows.State() == 1 && !rows.Eof(); rows.MoveNext())
            benchmark::DoNotOptimize(rows.Fields(0).isNull());
    }
    return double(timer.nsecsElapsed()) / 1e9;
}

/// Beside the time: that of the step's own statements alone, run again behind each step.
void report(benchmark::State& state, const std::function<void()>& step)
{
    double total = 0, alone = 0, longest = 0;
    for (auto _ : state) {
        statements.clear();
        ADODB::Connection::setObserver([](const ADODB::StatementEvent& event) { statements << event.sent; });
        QElapsedTimer timer;
        timer.start();
        step();
        const double seconds = double(timer.nsecsElapsed()) / 1e9;
        state.SetIterationTime(seconds);
        total += seconds;
        alone += again(statements);
        longest = std::max(longest, seconds);
    }
    state.counters["statements_ms"] = alone / double(state.iterations()) * 1e3;
    state.counters["ratio_to_statements"] = total / alone;
    state.counters["longest_ms"] = longest * 1e3;
}

class Agenda
{
public:
    Agenda() : driver_(screen_)
    {
        screen_.Show();
        settle();
    }
    ~Agenda() { screen_.Unload(); }

    /// As a click on the day, until the day stands in list and grid.
    void go(QDate day)
    {
        auto* calendar = static_cast<MonthCalendar*>(driver_.find(u"Calendar1"_s));
        calendar->setValue(day);
        Q_EMIT calendar->dayChosen(day);
    }

    ScreenDriver& driver() { return driver_; }

    int lines() const { return int(driver_.list(u"List1"_s).size()); }
    int visits() const { return int(driver_.grid(u"DataGrid1"_s).size()); }
    int freeLine() const
    {
        const QStringList all = driver_.list(u"List1"_s);
        for (int i = 0; i < all.size(); ++i)
            if (all[i].size() == 5)
                return i;
        return -1;
    }

private:
    frmCli_Agenda screen_;
    ScreenDriver driver_;
};

/// A working day a time, around today.
QDate workingDay(int number)
{
    return today.addDays(number / 5 * 7 + number % 5);
}

void day(benchmark::State& state, bool equality, bool painted)
{
    ADODB::Connection::setCodesByEquality(equality);
    Agenda agenda;
    agenda.driver().window().setUpdatesEnabled(painted);
    int number = 0;
    report(state, [&] { agenda.go(workingDay(number++ % 10)); });
    agenda.go(today);
    state.counters["lines"] = agenda.lines();
    state.counters["visits"] = agenda.visits();
    ADODB::Connection::setCodesByEquality(true);
}

/// "Salvar" on a filled panel, until the day stands anew.
void booking(benchmark::State& state)
{
    Agenda agenda;
    int number = 400;
    FixedClock clock(QDateTime(today, QTime(8, 30)));
    double longest = 0;
    for (auto _ : state) {
        agenda.go(workingDay(number++));
        clock.advance(1);
        agenda.driver().doubleClickRow(u"List1"_s, agenda.freeLine());
        agenda.driver().type(u"txtIdPac"_s, QString::number(number));
        agenda.driver().press(Qt::Key_Return);
        QElapsedTimer timer;
        timer.start();
        agenda.driver().click(u"Command7"_s);
        const double seconds = double(timer.nsecsElapsed()) / 1e9;
        state.SetIterationTime(seconds);
        longest = std::max(longest, seconds);
        if (agenda.driver().visible(u"frmAgendamento"_s))
            state.SkipWithError("not booked");
    }
    state.counters["longest_ms"] = longest * 1e3;
}

/// One more letter of a name, until the grid is painted.
void keystroke(benchmark::State& state)
{
    frmCli_Agenda_Pesquisa screen;
    screen.Show();
    settle();
    auto* box = static_cast<QLineEdit*>(ScreenDriver(screen).find(u"txtnmpac"_s));
    const QString name = u"MARIA APARECIDA"_s;
    int letters = 0;
    report(state, [&] {
        box->setText(name.left(letters++ % int(name.size()) + 1));
        benchmark::DoNotOptimize(screen.grab().cacheKey());
    });
    screen.Unload();
}

/// "Encerrar" with 5 procedures and 3 payments.
void closing(benchmark::State& state)
{
    const QStringList first =
        Database::instance().rows(u"select idagenda, idpac, nmpac, idpro, idproc, idconv from "
                                  "agenda_clinica where status <> '2' limit 1"_s)[0];
    FixedClock clock(QDateTime(today, QTime(8, 30)));
    double longest = 0;
    for (auto _ : state) {
        frmCli_AgendaCF screen;
        screen.recebe({.idPac = first[1],
                       .nmPac = first[2],
                       .idAgenda = first[0],
                       .profissional = u"DRA|%1|100|1|0"_s.arg(first[3]),
                       .data = u"16/03/2026"_s,
                       .hora = u"08:30"_s,
                       .procedimento = u"CONSULTA|"_s + first[4],
                       .valor = u"100"_s,
                       .idConv = first[5],
                       .nmConv = u"PLANO"_s});
        screen.Show();
        ScreenDriver driver(screen);
        settle();
        for (int i = 0; i < 5; ++i) {
            static_cast<QLineEdit*>(driver.find(u"txtIdProc"_s))->setText(first[4]);
            static_cast<QLineEdit*>(driver.find(u"txtNmProc"_s))->setText(u"CONSULTA"_s);
            static_cast<QLineEdit*>(driver.find(u"txtQt"_s))->setText(u"1"_s);
            static_cast<QLineEdit*>(driver.find(u"txtVR"_s))->setText(u"100"_s);
            driver.click(u"Command2"_s);
        }
        for (const char* kind : {"DINHEIRO", "PIX", "CONVENIO"}) {
            driver.choose(u"cboMP"_s, QString::fromLatin1(kind));
            driver.type(u"txtVrMp"_s, u"200"_s);
            driver.click(u"Command16"_s);
        }
        clock.advance(1);
        QElapsedTimer timer;
        timer.start();
        driver.click(u"Command1"_s);
        const double seconds = double(timer.nsecsElapsed()) / 1e9;
        state.SetIterationTime(seconds);
        longest = std::max(longest, seconds);
        if (screen.isLoaded())
            state.SkipWithError("not closed");
    }
    state.counters["longest_ms"] = longest * 1e3;
}

void runAll()
{
    const FixedClock clock(QDateTime(today, QTime(8, 30)));
    Database::instance().create();
    makeClinic();
    Variaveis::idlic = u"C1"_s;
    Variaveis::Usuario = u"MARIA"_s;
    Variaveis::StringConexao = Database::instance().connectionString();
    const auto timed = [](const char* name, auto function, int iterations = 30) {
        benchmark::RegisterBenchmark(name, function)
            ->UseManualTime()
            ->Unit(benchmark::kMillisecond)
            ->Iterations(iterations);
    };
    timed(
        "day", [](benchmark::State& state) { day(state, true, true); }, 30);
    timed(
        "day, not painted", [](benchmark::State& state) { day(state, true, false); }, 30);
    timed(
        "day, codes compared as written", [](benchmark::State& state) { day(state, false, true); }, 3);
    timed("booking", booking);
    timed("keystroke of the search", keystroke);
    timed("closing, 5 procedures and 3 payments", closing);
    benchmark::RunSpecifiedBenchmarks();
    Database::instance().drop();
}

} // namespace

int main(int argc, char** argv)
{
    const OffScreen screen;
    qputenv("QT_LOGGING_RULES", "default.warning=false"); // what the window system off the screen cannot do
    benchmark::Initialize(&argc, argv);
    Application application(argc, argv);
    Theme::apply(application);
    Dialogs::install(std::make_unique<Agreeing>());
    Report::setHandler([](const QString& what) {
        std::fprintf(stderr, "agenda_bench: %s\n", qPrintable(what));
        Application::end(1);
    });
    runAll();
    Application::end(0);
}
