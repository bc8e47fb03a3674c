#pragma once

#include <QList>
#include <QString>
#include <QStringList>

using namespace Qt::StringLiterals;

/// The test program's own database on the private server: made afresh, with the product's schema, before the
/// program's first test, dropped behind its last one. The server is started where it does not answer.
///
/// What is set up and read here goes through the server's own client as its administrator, never through the
/// product's database layer. Any failure throws std::runtime_error with the client's words.
class Database
{
public:
    static Database& instance();

    /// What the product connects with: an account that may select, insert, update and delete, and nothing
    /// else.
    QString connectionString() const;
    QString server() const; ///< "localhost;Socket=..."
    const QString& name() const { return name_; }
    QString user() const { return name_; }
    QString password() const { return u"s3nha=Teste"_s; }

    /// What the tests' start and end do, for a program that is no test. Needs the application object.
    void create();
    void drop();

    /// Empties all tables; their numbering starts at 1 again.
    void clear();
    /// One or more statements, separated by semicolons.
    void execute(const QString& statements);
    /// The rows of a clinic that the generator has left in the folder.
    void load(const QString& folder);
    /// The rows of a query; NULL is a null text.
    QList<QStringList> rows(const QString& query);
    /// The first value of a query's first row; null if there is no row.
    QString value(const QString& query);

private:
    Database() = default;
    QByteArray client(const QByteArray& statements, const QStringList& options = {});

    QString name_;
    QString socket_;
};
