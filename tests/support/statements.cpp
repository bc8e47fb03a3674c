#include "support/statements.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QSaveFile>
#include <set>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

std::set<QString> recorded;

QDir folder()
{
    return QDir(QString::fromUtf8(TEST_BUILD_DIR "/test-statements"));
}

QString ownFile()
{
    return QFileInfo(QCoreApplication::applicationFilePath()).baseName() + u".json"_s;
}

void record(const ADODB::StatementEvent& event)
{
    if (event.ok && event.statement.contains(QLatin1String("like"), Qt::CaseInsensitive) &&
        !event.statement.contains(u'?'))
        recorded.insert(event.statement);
}

} // namespace

StatementWatch::StatementWatch(std::function<void(const ADODB::StatementEvent&)> see)
{
    ADODB::Connection::setObserver([see = std::move(see)](const ADODB::StatementEvent& event) {
        record(event);
        see(event);
    });
}

StatementWatch::~StatementWatch()
{
    StatementRecord::start();
}

void StatementRecord::start()
{
    ADODB::Connection::setObserver(record);
}

void StatementRecord::write()
{
    QJsonArray statements;
    for (const QString& statement : recorded)
        statements << statement;
    QDir().mkpath(folder().path());
    QSaveFile file(folder().filePath(ownFile()));
    if (!file.open(QIODevice::WriteOnly) || file.write(QJsonDocument(statements).toJson()) < 0 ||
        !file.commit())
        throw std::runtime_error((file.fileName() + u": "_s + file.errorString()).toStdString());
}

QStringList StatementRecord::all()
{
    std::set<QString> statements;
    for (const QFileInfo& found : folder().entryInfoList({u"*.json"_s})) {
        if (found.fileName() == ownFile())
            continue;
        QFile file(found.filePath());
        const bool isOpen = file.open(QIODevice::ReadOnly);
        const QJsonDocument document = QJsonDocument::fromJson(file.readAll());
        if (!isOpen || !document.isArray())
            throw std::runtime_error((file.fileName() + u": cannot be read"_s).toStdString());
        for (const QJsonValue& statement : document.array())
            statements.insert(statement.toString());
    }
    return {statements.begin(), statements.end()};
}
