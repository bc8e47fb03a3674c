#include "support/database.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QXmlStreamReader>
#include <gtest/gtest.h>
#include <stdexcept>

namespace {

[[noreturn]] void fail(const QString& text)
{
    throw std::runtime_error(text.toStdString());
}

QByteArray output(const QString& program, const QStringList& arguments, const QByteArray& input = {})
{
    QProcess process;
    process.start(program, arguments);
    process.write(input);
    process.closeWriteChannel();
    if (!process.waitForFinished(60000) || process.exitStatus() != QProcess::NormalExit ||
        process.exitCode() != 0)
        fail(QStringLiteral("%1: %2 %3")
                 .arg(program, process.errorString(), QString::fromUtf8(process.readAllStandardError())));
    return process.readAllStandardOutput();
}

QString tool(const QString& name, const QStringList& arguments)
{
    return QString::fromUtf8(output(QStringLiteral(TEST_TOOLS_DIR "/") + name, arguments)).trimmed();
}

} // namespace

/// Makes the database when the tests start and drops it behind them, the application object being alive.
class DatabaseEnvironment : public testing::Environment
{
public:
    void SetUp() override { Database::instance().create(); }
    void TearDown() override { Database::instance().drop(); }
};

[[maybe_unused]] static const auto* const environment =
    testing::AddGlobalTestEnvironment(new DatabaseEnvironment);

Database& Database::instance()
{
    static Database database;
    return database;
}

void Database::create()
{
    const QString directory = QStringLiteral(TEST_SERVER_DIR);
    tool(QStringLiteral("private-server"),
         {QStringLiteral("start"), directory, QStringLiteral("--innodb-flush-log-at-trx-commit=0")});
    socket_ = tool(QStringLiteral("private-server"), {QStringLiteral("socket"), directory});
    // The driver manager reads the variable at its first use in the process.
    const QString drivers = tool(QStringLiteral("odbc-driver"), {QStringLiteral(TEST_BUILD_DIR "/odbc")});
    if (!drivers.isEmpty())
        qputenv("ODBCSYSINI", drivers.toLocal8Bit());

    const QString database = QFileInfo(QCoreApplication::applicationFilePath()).baseName();
    client(QStringLiteral("drop database if exists `%1`; create database `%1` character set utf8mb4;"
                          "create or replace user `%1`@localhost identified by '%2';"
                          "grant select, insert, update, delete on `%1`.* to `%1`@localhost;")
               .arg(database, password())
               .toUtf8());
    name_ = database;
    const QDir schema(QStringLiteral(TEST_SCHEMA_DIR));
    for (const QString& file : schema.entryList({QStringLiteral("*.sql")}, QDir::Files, QDir::Name)) {
        QFile script(schema.filePath(file));
        if (!script.open(QIODevice::ReadOnly))
            fail(QStringLiteral("%1: %2").arg(script.fileName(), script.errorString()));
        client(script.readAll());
    }
}

void Database::drop()
{
    execute(QStringLiteral("drop database `%1`; drop user `%1`@localhost").arg(name_));
}

QString Database::server() const
{
    return QStringLiteral("localhost;Socket=") + socket_;
}

QString Database::connectionString() const
{
    return QStringLiteral(
               "Driver={MySQL ODBC 8.0 ANSI Driver};Server=%1;Database=%2;User=%3;Password=%4;Option=3;")
        .arg(server(), name_, user(), password());
}

void Database::clear()
{
    // DELETE, because TRUNCATE makes every table's file anew.
    QString statements = QStringLiteral("set foreign_key_checks = 0;");
    const auto tables =
        rows(QStringLiteral("select table_name, auto_increment from information_schema.tables "
                            "where table_schema = database() and table_type = 'BASE TABLE'"));
    for (const QStringList& table : tables) {
        statements += QStringLiteral("delete from `%1`;").arg(table[0]);
        if (!table[1].isNull() && table[1] != u"1")
            statements += QStringLiteral("alter table `%1` auto_increment = 1;").arg(table[0]);
    }
    execute(statements);
}

void Database::execute(const QString& statements)
{
    client(statements.toUtf8());
}

void Database::load(const QString& folder)
{
    const QString before = QDir::currentPath(); // the script names its files without one
    QDir::setCurrent(folder);
    client("source load.sql", {QStringLiteral("--local-infile=1")});
    QDir::setCurrent(before);
}

QList<QStringList> Database::rows(const QString& query)
{
    // The one output format of the client that tells NULL from a text and keeps line ends; a bare carriage
    // return would be read as a line feed.
    QXmlStreamReader xml(client(query.toUtf8(), {QStringLiteral("--xml")}).replace("\r", "&#13;"));
    QList<QStringList> result;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        if (xml.name() == u"row")
            result.append(QStringList());
        if (xml.name() == u"field") {
            const bool isNull = xml.attributes().hasAttribute(QStringLiteral("xsi:nil"));
            const QString text = xml.readElementText();
            result.last().append(isNull ? QString() : text.isNull() ? QStringLiteral("") : text);
        }
    }
    if (xml.hasError())
        fail(QStringLiteral("%1: %2").arg(query, xml.errorString()));
    return result;
}

QString Database::value(const QString& query)
{
    const QList<QStringList> result = rows(query);
    return result.isEmpty() ? QString() : result.first().first();
}

QByteArray Database::client(const QByteArray& statements, const QStringList& options)
{
    QStringList arguments{QStringLiteral("--no-defaults"), QStringLiteral("--socket=") + socket_,
                          QStringLiteral("--user=root"), QStringLiteral("--default-character-set=utf8mb4")};
    arguments += options;
    if (!name_.isEmpty())
        arguments << name_;
    return output(QStringLiteral("mariadb"), arguments, statements);
}
