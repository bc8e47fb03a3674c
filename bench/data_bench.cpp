/// Reading the 100,000 rows and 27 columns of the patients: the recordset against the bare interface.
#include "platform/data/recordset.h"
#include "support/database.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <array>
#include <benchmark/benchmark.h>
#include <sql.h>
#include <sqlext.h>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

constexpr int rowCount = 100'000;
constexpr const char* statementText = "select * from pacientes";
/// Read as text from every row, with their numbers in the table.
constexpr std::array<std::pair<const char*, SQLUSMALLINT>, 4> readColumns{
    {{"idpac", 1}, {"nmPac", 7}, {"fonecel", 9}, {"cidade", 15}}};

void fill(Database& database)
{
    database.execute(
        u"insert into pacientes "
        "(idlic,dtcad,cpf,rg,dtnasc,nmPac,fonepac,fonecel,eMail,cep,rua,nrrua,bairro,cidade,uf,"
        "nmresp,foneresp,idconv,taler,dsaler,tmed,dsmed,tcir,dscir,obs,evup) "
        "select 'CLINICA', '2026-01-02', '123.456.789-09', '12.345.678-9', date_add('1930-01-01', interval "
        "seq % 30000 "
        "day), concat('MARIA DA CONCEIÇÃO DE SOUZA ', seq), '(11) 3456-7890', concat('(11) 9', seq), "
        "concat('paciente', seq, '@exemplo.com.br'), '01234-567', 'RUA DAS LARANJEIRAS', seq % 2000, 'JARDIM "
        "SÃO "
        "PAULO', 'SÃO JOSÉ DOS CAMPOS', 'SP', 'JOSÉ DE SOUZA', '(11) 98765-4321', seq % 7, '0', null, '1', "
        "'LOSARTANA "
        "50MG', '0', '', 'SEM OBSERVAÇÕES', 'RECEPCAO - 02/01/2026 10:11:12' from seq_1_to_100000"_s);
}

/// A connection and a statement of the bare interface.
class Bare
{
public:
    explicit Bare(const QByteArray& connectionString)
    {
        SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &environment_);
        SQLSetEnvAttr(environment_, SQL_ATTR_ODBC_VERSION, SQLPOINTER(SQL_OV_ODBC3), 0);
        SQLAllocHandle(SQL_HANDLE_DBC, environment_, &connection_);
        QByteArray text = connectionString;
        if (!SQL_SUCCEEDED(SQLDriverConnect(connection_, nullptr, reinterpret_cast<SQLCHAR*>(text.data()),
                                            SQL_NTS, nullptr, 0, nullptr, SQL_DRIVER_NOPROMPT)))
            throw std::runtime_error("no connection");
        SQLAllocHandle(SQL_HANDLE_STMT, connection_, &statement);
        QByteArray sql(statementText);
        if (!SQL_SUCCEEDED(SQLExecDirect(statement, reinterpret_cast<SQLCHAR*>(sql.data()), SQL_NTS)))
            throw std::runtime_error("no result");
    }
    ~Bare()
    {
        SQLFreeHandle(SQL_HANDLE_STMT, statement);
        SQLDisconnect(connection_);
        SQLFreeHandle(SQL_HANDLE_DBC, connection_);
        SQLFreeHandle(SQL_HANDLE_ENV, environment_);
    }
    Bare(const Bare&) = delete;
    Bare& operator=(const Bare&) = delete;

    SQLHSTMT statement = nullptr;

private:
    SQLHENV environment_ = nullptr;
    SQLHDBC connection_ = nullptr;
};

struct Buffer
{
    std::array<char, 256> bytes;
    SQLLEN size;

    QString text() const { return size < 0 ? QString() : QString::fromUtf8(bytes.data(), qsizetype(size)); }
};

/// One row at a time into bound columns: all of them, or those that are read.
qsizetype readBound(const QByteArray& connectionString, bool allColumns)
{
    Bare bare(connectionString);
    constexpr std::size_t columnCount = 27;
    std::vector<Buffer> buffers(columnCount + 1);
    const auto bind = [&](SQLUSMALLINT number) {
        SQLBindCol(bare.statement, number, SQL_C_CHAR, buffers[number].bytes.data(),
                   SQLLEN(buffers[number].bytes.size()), &buffers[number].size);
    };
    if (allColumns)
        for (SQLUSMALLINT number = 1; number <= columnCount; ++number)
            bind(number);
    else
        for (const auto& column : readColumns)
            bind(column.second);
    qsizetype characters = 0;
    while (SQL_SUCCEEDED(SQLFetch(bare.statement)))
        for (const auto& column : readColumns)
            characters += buffers[column.second].text().size();
    return characters;
}

/// Nothing bound; each value that is read is asked for.
qsizetype readByGetData(const QByteArray& connectionString)
{
    Bare bare(connectionString);
    Buffer buffer;
    qsizetype characters = 0;
    while (SQL_SUCCEEDED(SQLFetch(bare.statement)))
        for (const auto& column : readColumns) {
            SQLGetData(bare.statement, column.second, SQL_C_CHAR, buffer.bytes.data(),
                       SQLLEN(buffer.bytes.size()), &buffer.size);
            characters += buffer.text().size();
        }
    return characters;
}

qsizetype readRecordset(ADODB::Connection& connection, int location)
{
    ADODB::Recordset rs;
    rs.setCursorLocation(location);
    rs.Open(QString::fromLatin1(statementText), connection);
    qsizetype characters = 0;
    for (; !rs.Eof(); rs.MoveNext())
        for (const auto& column : readColumns)
            characters += rs.Fields(column.first).text().size();
    return characters;
}

/// The time of the recordset, and beside it its ratio to each bare loop of the same round.
void BM_Read(benchmark::State& state, int location)
{
    const QByteArray text = Database::instance().connectionString().toUtf8();
    double bound = 0, boundRead = 0, getData = 0, recordset = 0;
    const qsizetype expected = readBound(text, true);
    const auto timed = [&](double& total, const auto& read) {
        QElapsedTimer timer;
        timer.start();
        if (read() != expected)
            state.SkipWithError("the readers disagree");
        const double seconds = double(timer.nsecsElapsed()) / 1e9;
        total += seconds;
        return seconds;
    };
    for (auto _ : state) {
        timed(bound, [&] { return readBound(text, true); });
        timed(boundRead, [&] { return readBound(text, false); });
        timed(getData, [&] { return readByGetData(text); });
        // The bare loops connect within their time too.
        state.SetIterationTime(timed(recordset, [&] {
            ADODB::Connection connection;
            connection.setConnectionString(Database::instance().connectionString());
            connection.Open();
            return readRecordset(connection, location);
        }));
    }
    const auto rounds = double(state.iterations());
    state.counters["bare_s"] = bound / rounds;
    state.counters["ratio_bound_all"] = recordset / bound;
    state.counters["ratio_bound_read"] = recordset / boundRead;
    state.counters["ratio_getdata"] = recordset / getData;
    state.SetItemsProcessed(state.iterations() * rowCount);
}
BENCHMARK_CAPTURE(BM_Read, forward_only, ADODB::Recordset::ServerSide)
    ->UseManualTime()
    ->Iterations(10)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_Read, in_memory, ADODB::Recordset::ClientSide)
    ->UseManualTime()
    ->Iterations(5)
    ->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    Database& database = Database::instance();
    database.create();
    fill(database);
    benchmark::RunSpecifiedBenchmarks();
    database.drop();
}
