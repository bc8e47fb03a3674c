/// A register's grid over the patients of one clinic: opening it, finding a code, searching a name; its rows
/// read by pages against the same with all rows held in memory.
#include "app/core/variaveis.h"
#include "platform/forms/application.h"
#include "platform/forms/datagrid.h"
#include "platform/forms/theme.h"
#include "registers/frmcadcli.h"
#include "support/database.h"
#include "support/offscreen.h"
#include "support/report.h"
#include "support/screendriver.h"

#include <QElapsedTimer>
#include <QFile>
#include <benchmark/benchmark.h>
#include <map>

using namespace Qt::StringLiterals;

namespace {

constexpr int few = 1'000;
constexpr int many = 100'000;

/// The clinic's patients, and as many of another one's as the smaller number; does nothing where they are
/// there.
void fill(int patients)
{
    static int present = 0;
    if (present == patients)
        return;
    Database& database = Database::instance();
    database.clear();
    const QString insertion =
        u"insert into pacientes (idlic, dtcad, cpf, dtnasc, nmPac, fonecel, eMail, cep, rua, bairro, cidade, "
        "uf, "
        "idconv, obs, evup) select '%1', '2026-01-02', '123.456.789-09', date_add('1930-01-01', interval seq "
        "% "
        "30000 day), concat(elt(1 + seq % 10, 'ANA', 'JOÃO', 'MARIA', 'PEDRO', 'LUÍS', 'RITA', 'CARLOS', "
        "'SÔNIA', "
        "'BRUNO', 'TEREZA'), ' DE SOUZA ', md5(seq), if(seq % %3 = 0, ' ZULMIRA', '')), concat('(11) 9', "
        "seq), "
        "concat('paciente', seq, '@exemplo.com.br'), '01234-567', 'RUA DAS LARANJEIRAS', 'JARDIM SÃO PAULO', "
        "'SÃO JOSÉ DOS CAMPOS', 'SP', seq % 7, 'SEM OBSERVAÇÕES', 'RECEPCAO - 02/01/2026 10:11:12' from "
        "seq_1_to_%2;"_s;
    database.execute(insertion.arg(u"C1"_s).arg(patients).arg(patients / 10) +
                     insertion.arg(u"C2"_s).arg(few).arg(few) + u"analyze table pacientes"_s);
    present = patients;
}

double residentMegabytes()
{
    QFile file(u"/proc/self/status"_s);
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray& line : file.readAll().split('\n'))
        if (line.startsWith("VmRSS:"))
            return line.mid(6).chopped(2).trimmed().toDouble() / 1024;
    return 0;
}

const QString everyPatient = u"select * from pacientes where idlic = 'C1' order by nmpac"_s;
QString withName(const char* part)
{
    return u"select * from pacientes where idlic = 'C1' AND nmpac like '%%1%' order by nmpac"_s.arg(
        QLatin1String(part));
}

/// The rows and the grid of a register.
class Register
{
public:
    explicit Register(bool paged)
    {
        rows_.setPaged(paged);
        rows_.setCursorLocation(ADODB::Recordset::ClientSide);
        connection_.setConnectionString(Database::instance().connectionString());
        connection_.Open();
        grid_.setColumns(
            {{u"idpac"_s, u"CÓDIGO"_s, 15}, {u"nmpac"_s, u"NOME"_s, 60}, {u"fonecel"_s, u"CELULAR"_s, 25}});
        grid_.setDataSource(&rows_);
        grid_.resize(900, 500);
    }

    void show(const QString& sql)
    {
        rows_.Close();
        rows_.Open(sql, connection_, ADODB::Recordset::Static, ADODB::Recordset::Optimistic);
        grid_.show();
        paint();
    }

    /// As a register does with a code that was typed: the rows anew, then the one.
    bool find(int code)
    {
        rows_.Requery();
        rows_.Find(u"idpac = %1"_s.arg(code));
        paint();
        return !rows_.Eof() && rows_.Fields("idpac").integer() == code;
    }

    bool hasRows() const { return rows_.rowsHeld() > 0; }

private:
    void paint() { benchmark::DoNotOptimize(grid_.grab().cacheKey()); }

    ADODB::Connection connection_;
    ADODB::Recordset rows_;
    DataGrid grid_;
};

/// Runs `step`, each time behind `prepare`, until there are iterations enough. Beside the time: its
/// ratio to the one with few patients, the longest run, and what the process grew by at the first.
template <class Step>
void measure(
    benchmark::State& state, const std::string& name, int patients, Step step,
    const std::function<void()>& prepare = [] {})
{
    static std::map<std::string, double> secondsWithFew;
    double total = 0, longest = 0;
    const double before = residentMegabytes();
    for (auto _ : state) {
        prepare();
        QElapsedTimer timer;
        timer.start();
        if (!step())
            state.SkipWithError("not the rows that were asked for");
        const double seconds = double(timer.nsecsElapsed()) / 1e9;
        state.SetIterationTime(seconds);
        if (total == 0)
            state.counters["grown_MB"] = residentMegabytes() - before;
        total += seconds;
        longest = std::max(longest, seconds);
    }
    const double mean = total / double(state.iterations());
    state.counters["longest_ms"] = longest * 1e3;
    if (patients == few)
        secondsWithFew[name] = mean;
    else if (secondsWithFew.contains(name))
        state.counters["ratio_to_few"] = mean / secondsWithFew[name];
}

void opening(benchmark::State& state, const std::string& name, bool paged, int patients)
{
    fill(patients);
    measure(state, name, patients, [&] {
        Register patientRegister(paged);
        patientRegister.show(everyPatient);
        return patientRegister.hasRows();
    });
}

void finding(benchmark::State& state, const std::string& name, bool paged, int patients)
{
    fill(patients);
    Register patientRegister(paged);
    patientRegister.show(everyPatient);
    int code = 0;
    measure(state, name, patients, [&] {
        // Far from the last one each time.
        code = (code + patients * 3 / 8) % patients + 1;
        return patientRegister.find(code);
    });
}

/// The patient register itself, as the menu opens it, until its window is painted.
void openingScreen(benchmark::State& state, const std::string& name, bool, int patients)
{
    fill(patients);
    measure(state, name, patients, [] {
        frmcadcli screen;
        screen.Show();
        benchmark::DoNotOptimize(screen.grab().cacheKey());
        const bool shown = ScreenDriver(screen).find(u"DataGrid1"_s) != nullptr;
        screen.Unload();
        return shown;
    });
}

/// Whether a widget has been painted since it was asked last.
class Painted : public QObject
{
public:
    explicit Painted(QWidget& widget) { widget.installEventFilter(this); }
    bool eventFilter(QObject*, QEvent* event) override
    {
        painted_ |= event->type() == QEvent::Paint;
        return false;
    }
    bool asked() { return std::exchange(painted_, false); }

private:
    bool painted_ = false;
};

/// A code that stands in its box is left, until the boxes hold the patient and those that changed are
/// painted.
void findingOnScreen(benchmark::State& state, const std::string& name, bool, int patients)
{
    fill(patients);
    frmcadcli screen;
    screen.Show();
    ScreenDriver driver(screen);
    settle();
    auto* box = static_cast<QLineEdit*>(driver.find(u"txtnome"_s));
    Painted nameBox(*box);
    Painted grid(*static_cast<DataGrid*>(driver.find(u"DataGrid1"_s))->viewport());
    int code = 0;
    const auto prepare = [&] {
        code = (code + patients * 3 / 8) % patients + 1;
        driver.focus(u"txtcodcli"_s);
        static_cast<QLineEdit*>(driver.find(u"txtcodcli"_s))->setText(QString::number(code));
        settle();
        nameBox.asked();
        grid.asked();
    };
    measure(
        state, name, patients,
        [&] {
            driver.focus(u"TXTRG"_s);
            return !box->text().isEmpty() && nameBox.asked() && grid.asked();
        },
        prepare);
    screen.Unload();
}

template <const char* part>
void searching(benchmark::State& state, const std::string& name, bool paged, int patients)
{
    fill(patients);
    Register patientRegister(paged);
    patientRegister.show(everyPatient);
    measure(state, name, patients, [&] {
        patientRegister.show(withName(part));
        return patientRegister.hasRows();
    });
}

constexpr char frequentName[] = "ANA"; // a tenth of the patients
constexpr char rareName[] = "ZULMIRA"; // ten patients

void registerAll()
{
    using Measured = void (*)(benchmark::State&, const std::string&, bool, int);
    const std::pair<const char*, Measured> measured[] = {{"open", opening},
                                                         {"find_code", finding},
                                                         {"open_frmcadcli", openingScreen},
                                                         {"find_code_frmcadcli", findingOnScreen},
                                                         {"frequent_name", searching<frequentName>},
                                                         {"rare_name", searching<rareName>}};
    for (const int patients : {few, many})
        for (const bool paged : {true, false})
            for (const auto& [what, function] : measured) {
                if (!paged && (function == openingScreen || function == findingOnScreen))
                    continue; // the screen has its rows by pages
                const std::string name = std::string(what) + (paged ? "/paged" : "/in_memory");
                benchmark::RegisterBenchmark((name + "/" + std::to_string(patients)).c_str(), function, name,
                                             paged, patients)
                    ->UseManualTime()
                    ->Iterations(paged || patients == few ? 30 : 3)
                    ->Unit(benchmark::kMillisecond);
            }
}

} // namespace

int main(int argc, char** argv)
{
    const OffScreen screen;
    qputenv("QT_LOGGING_RULES", "default.warning=false"); // what the window system off the screen cannot do
    Application application(argc, argv);
    Theme::apply(application);
    Report::setHandler([](const QString& what) { std::fprintf(stderr, "%s\n", qPrintable(what)); });
    benchmark::Initialize(&argc, argv);
    Database::instance().create();
    Variaveis::StringConexao = Database::instance().connectionString();
    Variaveis::idlic = u"C1"_s;
    registerAll();
    benchmark::RunSpecifiedBenchmarks();
    Database::instance().drop();
}
