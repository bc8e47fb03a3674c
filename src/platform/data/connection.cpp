#include "platform/data/connection.h"

#include "platform/data/rowstore.h"

#include <QElapsedTimer>

using namespace Qt::StringLiterals;

namespace ADODB {

namespace {

std::function<void(const StatementEvent&)> statementObserver;

bool& isByEquality()
{
    static bool on = qEnvironmentVariableIsEmpty("TREMOSILVA_COMPARE_AS_WRITTEN");
    return on;
}

/// What a database has answered to codeColumnsQuery().
struct KnownCodes
{
    CodeColumns columns;
    QElapsedTimer age;
};

constexpr qint64 oldestCodes = 60'000; ///< milliseconds

/// By connection string.
std::map<QString, KnownCodes>& knownCodes()
{
    static std::map<QString, KnownCodes> known;
    return known;
}

} // namespace

Connection::~Connection()
{
    Close();
}

void Connection::Open()
{
    if (session_)
        throw Error(Error::ObjectOpen, u"A conexão já está aberta."_s);
    session_ = std::make_shared<Odbc::Session>(connectionString_);
    try {
        // SET NAMES by its parts: the connector refuses the statement of that name.
        run(u"set character_set_client = utf8mb4, character_set_results = utf8mb4, "
            "character_set_connection = utf8mb4"_s);
    } catch (...) {
        Close();
        throw;
    }
}

void Connection::Close()
{
    if (!session_)
        return;
    session_->disconnect();
    session_.reset();
    namesChanged_ = false;
    primaryKeys_.clear();
}

qint64 Connection::Execute(const QString& sql)
{
    return run(sql)->affectedRows();
}

void Connection::BeginTrans()
{
    if (session()->inTransaction())
        throw Error(Error::NotAllowedHere, u"Já existe uma transação aberta nesta conexão."_s);
    guarded([&] { session_->begin(); });
}

void Connection::CommitTrans()
{
    if (!session()->inTransaction())
        throw Error(Error::NotAllowedHere, u"Não há transação aberta nesta conexão."_s);
    guarded([&] { session_->commit(); });
}

void Connection::setObserver(std::function<void(const StatementEvent&)> observer)
{
    statementObserver = std::move(observer);
}

void Connection::setCodesByEquality(bool on)
{
    isByEquality() = on;
}

std::unique_ptr<Odbc::Statement> Connection::run(const QString& sql, const std::vector<WireValue>& parameters)
{
    const QString text = withCodesCompared(sql);
    auto statement = guarded([&] { return send(text, sql, parameters); });
    if (mayChangeNames(sql)) {
        namesChanged_ = true;
        knownCodes().erase(connectionString_);
    }
    return statement;
}

QString Connection::withCodesCompared(const QString& sql)
{
    if (!isByEquality() || namesChanged_ || !session_ ||
        !sql.contains(QLatin1String("like"), Qt::CaseInsensitive))
        return sql;
    KnownCodes& known = knownCodes()[connectionString_];
    if (!known.age.isValid() || known.age.hasExpired(oldestCodes)) {
        const QString query = codeColumnsQuery();
        try {
            known.columns.clear();
            for (const Row& row : allRows(*send(query, query, {}))) {
                auto& columns = known.columns[QString::fromUtf8(row.cell(0)).toLower()];
                const QString name = QString::fromUtf8(row.cell(1)).toLower();
                // Two tables may differ in nothing but capital letters.
                columns[name] = columns.value(name, true) && row.cell(2) == "1";
            }
            known.age.start();
        } catch (const Error&) {
            // The statement itself will meet the same trouble, and is the one to tell of it.
            return sql;
        }
    }
    return comparedByEquality(sql, known.columns);
}

std::unique_ptr<Odbc::Statement> Connection::send(const QString& sql, const QString& asWritten,
                                                  const std::vector<WireValue>& parameters)
{
    QElapsedTimer timer;
    timer.start();
    const auto report = [&](bool ok) {
        if (statementObserver)
            statementObserver({asWritten, sql, double(timer.nsecsElapsed()) / 1e9, ok});
    };
    try {
        auto statement = std::make_unique<Odbc::Statement>(session(), sql.toUtf8(), parameters);
        report(true);
        return statement;
    } catch (const Error&) {
        report(false);
        throw;
    }
}

const std::shared_ptr<Odbc::Session>& Connection::session() const
{
    if (!session_)
        throw Error(Error::ObjectClosed, u"Operação não permitida: a conexão está fechada."_s);
    return session_;
}

const std::vector<QByteArray>& Connection::primaryKey(const QByteArray& catalog, const QByteArray& table)
{
    const std::pair place(catalog, table);
    const auto known = primaryKeys_.find(place);
    if (known != primaryKeys_.end())
        return known->second;
    auto key = guarded([&] { return Odbc::Statement::primaryKey(session(), catalog, table); });
    return primaryKeys_[place] = std::move(key);
}

void Command::setCommandType(int type)
{
    if (type != 1)
        throw Error(Error::InvalidArgument, u"Tipo de comando inválido: %1"_s.arg(type));
}

qint64 Command::Execute() const
{
    if (!connection_)
        throw Error(Error::ObjectClosed, u"O comando não tem conexão."_s);
    return connection_->Execute(text_);
}

} // namespace ADODB
