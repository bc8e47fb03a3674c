#pragma once

#include "platform/data/recordset.h"
#include "support/database.h"
#include "support/errorof.h"
#include "support/print.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <gtest/gtest.h>
#include <list>

using namespace Qt::StringLiterals;

using Table = QList<QStringList>;

/// A few tables that are no clinic's, and an open connection to them.
class DataFixture : public testing::Test
{
protected:
    static void SetUpTestSuite()
    {
        database().execute(u"create table plano (idplano int auto_increment primary key, "
                           "nmplano varchar(60), pdesc decimal(15,2),"
                           " qtde double, inicio date, hora time, visto datetime, obs "
                           "longtext, sit char(1) not null default 'N');"
                           "create table produto (idlic varchar(15), cdpro varchar(20), dspro "
                           "varchar(60), primary key (idlic, cdpro));"
                           "create table solto (a int, b varchar(10))"_s);
    }
    static void TearDownTestSuite() { database().execute(u"drop table plano, produto, solto"_s); }

    void SetUp() override
    {
        database().clear();
        connect(connection);
    }

    static Database& database() { return Database::instance(); }

    static void connect(ADODB::Connection& target)
    {
        target.setConnectionString(database().connectionString());
        target.Open();
    }

    /// Ends the session on the server's side.
    static void kill(ADODB::Connection& target)
    {
        ADODB::Recordset id;
        id.Open(u"select connection_id() as id"_s, target);
        const QString number = id.Fields("id").text();
        id.Close(); // or its closing would be the first to notice
        database().execute(u"kill "_s + number);
        const QString session = u"select id from information_schema.processlist where id = "_s + number;
        while (!database().value(session).isNull())
            ;
    }

    /// Opens a result that can be searched and changed; one that is read by pages has a connection of its
    /// own.
    void open(ADODB::Recordset& rs, const QString& sql)
    {
        rs.setCursorLocation(ADODB::Recordset::ClientSide);
        rs.setPaged(pageSize > 0);
        rs.setPageSize(pageSize);
        if (pageSize > 0)
            connect(readers.emplace_back());
        rs.Open(sql, pageSize > 0 ? readers.back() : connection, ADODB::Recordset::Static,
                ADODB::Recordset::Optimistic);
    }

    static Table planos(const QString& columns = u"idplano, nmplano"_s)
    {
        return database().rows(u"select %1 from plano order by idplano"_s.arg(columns));
    }

    ADODB::Connection connection;
    std::list<ADODB::Connection> readers;
    qsizetype pageSize = 0; ///< of the results opened; 0 for results held whole
};
