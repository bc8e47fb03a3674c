#include "platform/data/codecomparison.h"
#include "platform/datafixture.h"
#include "support/statements.h"
#include "support/texttable.h"

using namespace Qt::StringLiterals;

using namespace ADODB;

namespace {

const CodeNames codes{u"idpac"_s, u"idpro"_s, u"cdfor"_s};

/// Statements, each with "~" where `like` is to become "=".
void expectCompared(const QStringList& statements)
{
    for (const QString& statement : statements) {
        const QString written = QString(statement).replace(u'~', u"like"_s);
        EXPECT_EQ(comparedByEquality(written, codes), QString(statement).replace(u'~', u'='));
    }
}

TEST(CodeComparison, CodesAreComparedByEqualityInConditions)
{
    expectCompared({
        u"select * from a where idpac ~ 12"_s,
        u"select * from a where idpac ~ '12' and nome like '12'"_s,
        u"select * from a where idlic = 'x like 1'and IDPAC ~ 0 or(idpro ~ 7)order by nome"_s,
        u"delete from a where `idpac` ~ 999999999999999;"_s,
        u"update a set idpac = 2, nome = 'idpac like 1' where a.idpac ~ 1 limit 1"_s,
        u"select * from a A left join b B on A.idpac ~ B.idpac left join c on (c.cdfor ~ A.cdfor and "
        "c.idpro ~ '3') where A.idlic = 'L' and A.nome like '%ANA%' and A.idpro ~ 3 group by 1"_s,
        u"select * from a, b where a.idpac\n~\tb.idpac and a.dia between '1' and '2' and a.idpro ~ 4"_s,
        u"select * from (a, b) where a.idpac ~ b.idpac"_s,
        u"select * from a where idpac in (select idpac from b where b.idpro ~ a.idpro) for update"_s,
        u"select * from a where exists (select 1 from b where b.idpac ~ a.idpac) and not (idpro ~ 5)"_s,
        u"select nome as paciente, idpac codigo from a where idpac ~ 5"_s,
        u"select * from a where nome = \"it's\" and obs = 'd''água' and idpac ~ 5"_s,
    });
}

TEST(CodeComparison, WhatIsNoCodeOrNoPlainComparisonIsLeftAsWritten)
{
    const auto expectConditionsLeft = [](QStringView conditions) {
        for (const QStringList& condition : textTable(conditions, u"|"))
            expectCompared({u"select * from a where "_s + condition.first()});
    };
    // Values that are no number's own text.
    expectConditionsLeft(u"idpac like '007'|idpac like 007|idpac like '12%'|idpac like '1_'|idpac like '-1'|"
                         "idpac like -1|idpac like '+1'|idpac like ' 1'|idpac like '1 '|idpac like ''|"
                         "idpac like 1.0|idpac like '1.0'|idpac like 1e3|idpac like 0x1F|idpac like x'31'|"
                         "idpac like 1234567890123456|idpac like null|idpac like nome|idpac like b.nome|"
                         "idpac like \"12\"|idpac like ?|idpac like @n|idpac like (1)|idpac like binary 1|"
                         "idpac like 1 + 1|idpac like '1' '2'|idpac like '1' escape '1'|"
                         "idpac like concat(1)|idpac like idpac(1)|idpac like b.a.idpac|"
                         "idpac like 1 collate utf8mb4_bin|idpac like 1 like 1");
    // Left sides, and what cannot be read with certainty.
    expectConditionsLeft(u"nome like 12|idpac not like 12|not idpac like 12|x.a.idpac like 12|"
                         "1 + idpac like 12|-idpac like 12|@idpac like 12|nome = idpac like 12|"
                         "nome between 1 and idpac like 12|/* x */ idpac like 12|"
                         "nome = '\\' and idpac like 12|nome = 'D'Á' and idpac like 12|"
                         "idpac like 12 -- and|nome = 'x and idpac like 12");
    // Places.
    expectCompared({
        u"select idpac like 12 from a"_s,
        u"select sum(idpac like 12) from a"_s,
        u"select * from a order by idpac like 12"_s,
        u"update a set nome = idpac like 12"_s,
        u"show columns from idpac like '12'"_s,
    });
    // Statements in which a name may be something else than the column of a table of this database.
    expectCompared({
        u"select nome as idpac from a where idpac like 12"_s,
        u"select nome idpac from a where idpac like 12"_s,
        u"select left(nome, 2) idpac from a where idpac like 12"_s,
        u"select max(idpac) from a where idpac like 12 having idpac like 12"_s,
        u"select * from (select nome as n from a) x where idpac like 12"_s,
        u"select * from a join (select 1) x on x.idpac like a.idpac"_s,
        u"with x (idpac) as (select nome from a) select * from x where idpac like 12"_s,
        u"select idpac from a where idpac like 12 union select nome from a"_s,
        u"select * from outro.a where idpac like 12"_s,
        u"select * from a, outro.b where idpac like 12"_s,
        u"select * from json_table(nome, '$') j where idpac like 12"_s,
    });
}

class CodesOnTheWire : public DataFixture
{
protected:
    void TearDown() override
    {
        Connection::setCodesByEquality(true);
        database().execute(u"drop table if exists visita, recado"_s);
    }

    /// What the server is sent for a statement through this connection.
    static QString sent(Connection& target, const QString& sql)
    {
        QString last;
        const StatementWatch watch([&](const StatementEvent& event) { last = event.sent; });
        target.Execute(sql);
        return last;
    }
};

TEST_F(CodesOnTheWire, TheCatalogueSaysWhatACodeIs)
{
    database().execute(
        u"create table visita (codvis int, codtxt int, codzer int zerofill, codlon bigint unsigned);"
        "create table recado (codvis smallint, codtxt varchar(9), codlon tinyint)"_s);
    // Another connection string: what a connection like this one has learned may be older than the tables.
    Connection own;
    own.setConnectionString(database().connectionString() + u"Charset=utf8mb4;"_s);
    own.Open();
    const auto isTurned = [&](const QString& condition) {
        return !sent(own, u"select * from visita where "_s + condition).contains(u"like"_s);
    };
    EXPECT_TRUE(isTurned(u"codvis like 1"_s));
    EXPECT_TRUE(isTurned(u"CODLON like codvis"_s));
    EXPECT_FALSE(isTurned(u"codtxt like 1"_s)) << "a text in another table";
    EXPECT_FALSE(isTurned(u"codzer like 1"_s)) << "its text has zeros in front";
    EXPECT_FALSE(isTurned(u"codvis like codtxt"_s));

    Connection::setCodesByEquality(false);
    EXPECT_FALSE(isTurned(u"codvis like 1"_s));
    Connection::setCodesByEquality(true);
    EXPECT_TRUE(isTurned(u"codvis like 1"_s));
    own.Execute(u"use "_s + database().name());
    EXPECT_FALSE(isTurned(u"codvis like 1"_s)) << "the names may mean something else now";
    own.Close();
    own.Open();
    EXPECT_TRUE(isTurned(u"codvis like 1"_s));
}

TEST_F(CodesOnTheWire, BoundRowsAndChangesAreSentSoToo)
{
    database().execute(u"insert into plano (nmplano) values ('A'), ('B'), ('C')"_s);
    QStringList written;
    QStringList seen;
    const StatementWatch watch([&](const StatementEvent& event) {
        written << event.statement;
        seen << event.sent;
    });
    pageSize = 1;
    Recordset rs;
    open(rs, u"select * from plano where idplano like 2 or idplano like '3' order by nmplano"_s);
    EXPECT_EQ(rs.Fields("nmplano").text(), u"B");
    rs.MoveNext();
    EXPECT_EQ(rs.Fields("nmplano").text(), u"C");
    EXPECT_EQ(rs.rowsHeld(), 2);
    EXPECT_EQ(connection.Execute(u"delete from plano where idplano like 2"_s), 1);
    EXPECT_GE(written.filter(u"like"_s).size(), 4);
    EXPECT_EQ(seen.filter(u"like"_s), QStringList());
    EXPECT_EQ(planos().size(), 2);
}

} // namespace
