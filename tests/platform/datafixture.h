#pragma once

#include "platform/data/recordset.h"
#include "support/database.h"
#include "support/errorof.h"
#include "support/print.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <gtest/gtest.h>

using Table = QList<QStringList>;

/// A few tables that are no clinic's, and an open connection to them.
class DataFixture : public testing::Test
{
protected:
    static void SetUpTestSuite()
    {
        database().execute(QStringLiteral("create table plano (idplano int auto_increment primary key, "
                                          "nmplano varchar(60), pdesc decimal(15,2),"
                                          " qtde double, inicio date, hora time, visto datetime, obs "
                                          "longtext, sit char(1) not null default 'N');"
                                          "create table produto (idlic varchar(15), cdpro varchar(20), dspro "
                                          "varchar(60), primary key (idlic, cdpro));"
                                          "create table solto (a int, b varchar(10))"));
    }
    static void TearDownTestSuite()
    {
        database().execute(QStringLiteral("drop table plano, produto, solto"));
    }

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
        id.Open(QStringLiteral("select connection_id() as id"), target);
        database().execute(QStringLiteral("kill ") + id.Fields("id").text());
    }

    /// Opens a result that can be searched and changed.
    void open(ADODB::Recordset& rs, const QString& sql)
    {
        rs.setCursorLocation(ADODB::Recordset::ClientSide);
        rs.Open(sql, connection, ADODB::Recordset::Static, ADODB::Recordset::Optimistic);
    }

    static Table planos(const QString& columns = QStringLiteral("idplano, nmplano"))
    {
        return database().rows(QStringLiteral("select %1 from plano order by idplano").arg(columns));
    }

    ADODB::Connection connection;
};
