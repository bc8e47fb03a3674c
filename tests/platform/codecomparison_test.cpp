#include "platform/data/codecomparison.h"
#include "platform/datafixture.h"
#include "support/statements.h"

using namespace ADODB;

namespace {

const CodeColumns codes{
    {u"a"_s, {{u"idpac"_s, true}, {u"idpro"_s, true}, {u"cdfor"_s, true}, {u"nome"_s, false}}},
    {u"b"_s, {{u"idpac"_s, true}, {u"idpro"_s, false}, {u"nome"_s, false}}},
    {u"c"_s, {{u"cdfor"_s, true}}}};

/// Statements behind a common beginning, each with "~" where `like` is to become "=".
void expectCompared(const QString& beginning, const QString& ends)
{
    for (const QString& end : ends.split(u'|')) {
        const QString statement = beginning + end;
        const QString written = QString(statement).replace(u'~', u"like"_s);
        EXPECT_EQ(comparedByEquality(written, codes), QString(statement).replace(u'~', u'='));
    }
}

TEST(CodeComparison, CodesAreComparedByEqualityInConditions)
{
    expectCompared(u"select * from a where "_s,
                   u"idpac ~ '12' and nome like '12'|idlic = 'x like 1'and IDPAC ~ 0 or(idpro ~ 7)order by 1|"
                   "idpac\n~\tidpro and dia between '1' and '2' and idpro ~ 4 for update|"
                   "nome = \"it's\" and obs = 'd''água' and not (idpac ~ 999999999999999);"_s);
    expectCompared(u""_s, u"delete from a where `idpac` ~ 1 limit 1|"
                          "update a set idpac = 2, nome = 'idpac like 1' where a.idpac ~ 1|"
                          "select nome as paciente, idpac codigo from a force index (`x`) where ((idpac ~ 1) "
                          "and (`idpro` = ?)) group by 1"_s);
    // A name stands for the column of its table.
    expectCompared(u"select * from "_s,
                   u"b where idpro like 2|z where idpac like 2|b A where a.idpro like 2|"
                   "a x join b AS y on X.idpro ~ x.idpac and y.idpro like x.idpro and a.idpac like 1|"
                   "a, b where idpac ~ 1 and idpro like 2 and a.idpro ~ 3 and cdfor ~ a.cdfor|"
                   "a, z where idpac like 1 and a.idpac ~ 1|"
                   "a left outer join c on (c.cdfor ~ a.cdfor) inner join b on b.idpac ~ '3' where cdfor ~ 4|"
                   "a join b on a.idpac ~ b.idpac, c where c.cdfor ~ 1 and c.idpac like 1"_s);
}

TEST(CodeComparison, WhatIsNoCodeOrNoPlainComparisonIsLeftAsWritten)
{
    // Values that are no number's own text.
    expectCompared(
        u"select * from a where idpac like "_s,
        u"'007'|007|'12%'|-1|'+1'|'1 '|''|1.0|1e3|0x1F|x'31'|1234567890123456|null|nome|b.nome|\"12\"|?|@n|"
        "(1)|binary 1|1 + 1|'1' '2'|'1' escape '1'|idpac(1)|idpac.a.idpac|1 collate utf8mb4_bin|1 like 1"_s);
    // Left sides, and what cannot be read with certainty.
    expectCompared(u"select * from a where "_s,
                   u"idpac not like 12|not idpac like 12|x.a.idpac like 12|1 + idpac like 12|@idpac like 12|"
                   "nome = idpac like 12|nome between 1 and idpac like 12|nome between 1 + 2 and idpac like "
                   "12|/* x */ idpac like 12|"
                   "nome = 'a\\'b' and idpac like 12|nome = 'D'Á' and idpac like 12|idpac like 12 -- and|"
                   "idpac like 12)|(idpac like 12"_s);
    // Places that are no condition, and statements in which a name may be something else than the column of a
    // table of this database.
    expectCompared(u""_s, u"select idpac like 12 from a|select * from a order by idpac like 12|"
                          "update a set nome = idpac like 12|select nome as idpac from a where idpac like 12|"
                          "select left(nome, 2) idpac from a where idpac like 12|"
                          "select max(idpac) from a where idpac like 12 having idpac like 12|"
                          "select * from (select nome as n from a) x where idpac like 12|"
                          "select * from a where idpac in (select idpac from a where idpac like 12)|"
                          "with x (idpac) as (select nome from a) select * from x where idpac like 12|"
                          "select idpac from a where idpac like 12 union select nome from a|"
                          "select * from a, outro.b where idpac like 12|"
                          "select * from json_table(nome, '$') j where idpac like 12|"
                          "select * from a natural join b where idpac like 12"_s);
}

class CodesOnTheWire : public DataFixture
{
protected:
    void TearDown() override
    {
        Connection::setCodesByEquality(true);
        database().execute(u"drop table if exists visita, recado"_s);
    }
};

TEST_F(CodesOnTheWire, TheCatalogueSaysWhatACodeIs)
{
    database().execute(
        u"create table visita (codvis int, codtxt varchar(9), codzer int zerofill, codlon bigint unsigned);"
        "create table recado (codvis varchar(9), codtxt int, codlon tinyint)"_s);
    // Another connection string: what a connection like this one has learned may be older than the tables.
    Connection own;
    own.setConnectionString(database().connectionString() + u"Charset=utf8mb4;"_s);
    own.Open();
    const auto isTurned = [&](const QString& rest) {
        QString last;
        const StatementWatch watch([&](const StatementEvent& event) { last = event.sent; });
        own.Execute(u"select * from "_s + rest);
        return !last.contains(u"like"_s);
    };
    EXPECT_TRUE(isTurned(u"visita where codvis like 1"_s)) << "though a text in another table";
    EXPECT_TRUE(isTurned(u"visita v where v.CODLON like codvis"_s));
    EXPECT_FALSE(isTurned(u"recado where codvis like 1"_s));
    EXPECT_FALSE(isTurned(u"visita where codzer like 1"_s)) << "its text has zeros in front";
    EXPECT_FALSE(isTurned(u"visita v, recado r where v.codvis like r.codvis"_s));

    Connection::setCodesByEquality(false);
    EXPECT_FALSE(isTurned(u"visita where codvis like 1"_s));
    Connection::setCodesByEquality(true);
    own.Execute(u"use "_s + database().name());
    EXPECT_FALSE(isTurned(u"visita where codvis like 1"_s)) << "the names may mean something else now";
    own.Close();
    own.Open();
    EXPECT_TRUE(isTurned(u"visita where codvis like 1"_s));
}

} // namespace
