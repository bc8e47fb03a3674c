#include "support/database.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QXmlStreamReader>
#include <gtest/gtest.h>
#include <stdexcept>

using namespace Qt::StringLiterals;

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
    if (!process.waitForFinished(300000) || process.exitStatus() != QProcess::NormalExit ||
        process.exitCode() != 0)
        fail(u"%1: %2 %3"_s.arg(program, process.errorString(),
                                QString::fromUtf8(process.readAllStandardError())));
    return process.readAllStandardOutput();
}

QString tool(const QString& name, const QStringList& arguments)
{
    return QString::fromUtf8(output(QString::fromUtf8(TEST_TOOLS_DIR "/") + name, arguments)).trimmed();
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
    const QString directory = QString::fromUtf8(TEST_SERVER_DIR);
    tool(u"private-server"_s, {u"start"_s, directory, u"--innodb-flush-log-at-trx-commit=0"_s});
    socket_ = tool(u"private-server"_s, {u"socket"_s, directory});
    // The driver manager reads the variable at its first use in the process.
    const QString drivers = tool(u"odbc-driver"_s, {QString::fromUtf8(TEST_BUILD_DIR "/odbc")});
    if (!drivers.isEmpty())
        qputenv("ODBCSYSINI", drivers.toLocal8Bit());

    const QString database = QFileInfo(QCoreApplication::applicationFilePath()).baseName();
    client(u"drop database if exists `%1`; create database `%1` character set utf8mb4;"
           "create or replace user `%1`@localhost identified by '%2';"
           "grant select, insert, update, delete on `%1`.* to `%1`@localhost;"_s.arg(database, password())
               .toUtf8());
    name_ = database;
    const QDir schema(QString::fromUtf8(TEST_SCHEMA_DIR));
    for (const QString& file : schema.entryList({u"*.sql"_s}, QDir::Files, QDir::Name)) {
        QFile script(schema.filePath(file));
        if (!script.open(QIODevice::ReadOnly))
            fail(u"%1: %2"_s.arg(script.fileName(), script.errorString()));
        client(script.readAll());
    }
}

void Database::drop()
{
    execute(u"drop database `%1`; drop user `%1`@localhost"_s.arg(name_));
}

QString Database::server() const
{
    return u"localhost;Socket="_s + socket_;
}

QString Database::connectionString() const
{
    return u"Driver={MySQL ODBC 8.0 ANSI Driver};Server=%1;Database=%2;User=%3;Password=%4;Option=3;"_s.arg(
        server(), name_, user(), password());
}

void Database::clear()
{
    // DELETE, because TRUNCATE makes every table's file anew.
    QString statements = u"set foreign_key_checks = 0;"_s;
    const auto tables = rows(u"select table_name, auto_increment from information_schema.tables "
                             "where table_schema = database() and table_type = 'BASE TABLE'"_s);
    for (const QStringList& table : tables) {
        statements += u"delete from `%1`;"_s.arg(table[0]);
        if (!table[1].isNull() && table[1] != u"1")
            statements += u"alter table `%1` auto_increment = 1;"_s.arg(table[0]);
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
    client("source load.sql", {u"--local-infile=1"_s});
    QDir::setCurrent(before);
}

QList<QStringList> Database::rows(const QString& query)
{
    // The one output format of the client that tells NULL from a text and keeps line ends; a bare carriage
    // return would be read as a line feed.
    QXmlStreamReader xml(client(query.toUtf8(), {u"--xml"_s}).replace("\r", "&#13;"));
    QList<QStringList> result;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        if (xml.name() == u"row")
            result.append(QStringList());
        if (xml.name() == u"field") {
            const bool isNull = xml.attributes().hasAttribute(u"xsi:nil"_s);
            const QString text = xml.readElementText();
            result.last().append(isNull ? QString() : text.isNull() ? u""_s : text);
        }
    }
    if (xml.hasError())
        fail(u"%1: %2"_s.arg(query, xml.errorString()));
    return result;
}

QString Database::value(const QString& query)
{
    const QList<QStringList> result = rows(query);
    return result.isEmpty() ? QString() : result.first().first();
}

QByteArray Database::client(const QByteArray& statements, const QStringList& options)
{
    QStringList arguments{u"--no-defaults"_s, u"--socket="_s + socket_, u"--user=root"_s,
                          u"--default-character-set=utf8mb4"_s};
    arguments += options;
    if (!name_.isEmpty())
        arguments << name_;
    return output(u"mariadb"_s, arguments, statements);
}
