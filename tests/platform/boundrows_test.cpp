#include "platform/data/error.h"
#include "platform/datafixture.h"
#include "support/texttable.h"

using namespace Qt::StringLiterals;

using namespace ADODB;

namespace {

/// The same over rows held whole and over rows read by pages so small that every test crosses their edges.
class EitherStore : public DataFixture, public testing::WithParamInterface<bool>
{
protected:
    void SetUp() override
    {
        DataFixture::SetUp();
        pageSize = GetParam() ? 3 : 0;
    }
};

using BoundRows = EitherStore;

TEST_P(BoundRows, ANewRowIsSentWithWhatWasSetAndReadBack)
{
    Recordset rs;
    open(rs, u"select * from plano order by nmplano"_s);
    // A number that is left blank is the server's, any other stays.
    const auto numberFor = [&](const QString& name, const auto& number) {
        rs.AddNew();
        EXPECT_FALSE(rs.Eof());
        EXPECT_TRUE(rs.Fields("nmplano").isNull());
        rs.Fields("NMPLANO") = name;
        rs.Fields("idplano") = number;
        rs.Fields("pdesc") = 12.345;
        rs.Update();
        EXPECT_EQ(rs.Fields("pdesc").text() + rs.Fields("sit").text(), u"12,35N") << "read back";
        return rs.Fields("idplano").integer();
    };
    EXPECT_EQ(numberFor(u"UNIMED"_s, nullptr), 1);
    EXPECT_EQ(numberFor(u"B"_s, u""_s), 2);
    EXPECT_EQ(numberFor(u"D"_s, u"00"_s), 3);
    EXPECT_EQ(numberFor(u"AMIL"_s, 77), 77);
    EXPECT_EQ(rs.heldPosition(), 3) << "at the end";
    EXPECT_EQ(database().value(u"select group_concat(idplano, nmplano, pdesc, sit) from plano"_s),
              u"1UNIMED12.35N,2B12.35N,3D12.35N,77AMIL12.35N");
    rs.Requery();
    EXPECT_EQ(rs.heldPosition(), 0);
    EXPECT_EQ(rs.Fields("nmplano").text(), u"AMIL");
}

TEST_P(BoundRows, WhatIsAssignedArrivesAsTheColumnStoresIt)
{
    database().execute(u"insert into plano (nmplano) values ('velho')"_s);
    Recordset rs;
    open(rs, u"select * from plano"_s);
    const auto stored = [&](const QString& column, const auto& value) {
        rs.Fields(column) = value;
        const bool isNull = rs.Fields(column).isNull();
        rs.Update();
        const QString text = planos(column).first().first();
        EXPECT_EQ(text.isNull(), isNull);
        EXPECT_EQ(rs.Fields(column).isNull(), isNull);
        return text.isNull() ? u"null"_s : text;
    };
    for (const QString& text : {u"D'Ávila \\ \"x\" `y` % _ 日本 😀\r\n; --"_s, u""_s})
        EXPECT_EQ(stored(u"nmplano"_s, text), text);
    EXPECT_EQ(stored(u"nmplano"_s, nullptr), u"null");
    EXPECT_EQ(stored(u"nmplano"_s, 12.5), u"12.5");
    EXPECT_EQ(stored(u"nmplano"_s, QDate(2026, 1, 31)), u"2026/01/31");
    const QString large(150'000, u'é');
    EXPECT_EQ(stored(u"obs"_s, large), large);
    EXPECT_EQ(stored(u"qtde"_s, -1.5), u"-1.5");
    EXPECT_EQ(stored(u"inicio"_s, QDate(1899, 12, 30)), u"1899-12-30");
    EXPECT_EQ(stored(u"inicio"_s, QDate()), u"null");
    // Texts; on 4 November 2018 summer time began at midnight.
    for (const QStringList& row :
         textTable(u"pdesc=12.5=12.50|pdesc=1.234=1.23|pdesc=R$ -1.234,56=-1234.56|"
                   "pdesc=9999999999999.99=9999999999999.99|pdesc= =null|inicio=31/02/2026=null|"
                   "inicio=04/11/2018=2018-11-04|visto=04/11/2018 0:30=2018-11-04 00:30:00|"
                   "visto=2026/01/31=2026-01-31 00:00:00|hora=8:05=08:05:00"))
        EXPECT_EQ(stored(row[0], row[1]), row[2]) << row[1].toStdString();
    EXPECT_EQ(errorOf([&] { rs.Fields("pdesc") = u"doze"_s; }), 13);
}

TEST_P(BoundRows, ARecordsetUsedAgainKnowsNothingOfItsLastResult)
{
    database().execute(u"insert into plano (idplano) select seq from seq_1_to_120;"
                       "insert into produto values ('A', '1', 'luva'), ('A', '2', 'gaze')"_s);
    Recordset rs;
    open(rs, u"select * from plano order by idplano"_s);
    rs.Filter(u"idplano > 100"_s);
    rs.Fields("nmplano") = u"half typed"_s;
    rs.Close();
    open(rs, u"select * from produto order by cdpro"_s);
    rs.MoveNext();
    rs.Fields("dspro") = u"fio"_s;
    rs.Update();
    EXPECT_EQ(database().value(u"select group_concat(dspro) from produto"_s), u"luva,fio");
}

TEST_P(BoundRows, AnUpdateTouchesOneRowAndOnlyWhatWasSet)
{
    database().execute(
        u"insert into produto values ('A', '0012', 'luva'), ('A', '12', 'gaze'), ('B', '0012', 'soro')"_s);
    Recordset rs;
    open(rs, u"select * from produto order by idlic, cdpro"_s);
    // Another station has changed a column that this one does not set: it stays.
    Recordset other;
    open(other, u"select cdpro as codigo, idlic, dspro from produto where idlic = 'A' and cdpro = '0012'"_s);
    rs.Fields("dspro") = u"LUVA M"_s;
    rs.Update();
    other.Fields("codigo") = u"0013"_s;
    other.Update();
    EXPECT_EQ(other.Fields("dspro").text(), u"LUVA M") << "read back under its new key";
    other.Fields("dspro") = u"LUVA G"_s;
    other.Update();
    EXPECT_EQ(
        database().value(u"select group_concat(idlic, cdpro, dspro order by idlic, cdpro) from produto"_s),
        u"A0013LUVA G,A12gaze,B0012soro");
}

TEST_P(BoundRows, ADeletedRowLeavesTheNextOneCurrentAndOneThatIsGoneIsAnError)
{
    database().execute(u"insert into plano (nmplano) values ('A'), ('B'), ('C'), ('D'), ('E')"_s);
    Recordset rs;
    open(rs, u"select * from plano"_s);
    // An update that changes nothing finds its row all the same.
    rs.Fields("nmplano") = u"A"_s;
    rs.Update();
    database().execute(u"delete from plano where idplano = 1"_s);
    EXPECT_EQ(errorOf([&] { rs.Delete(); }), Error::RowGone);
    rs.MoveNext();
    for (const QString& next : {u"C"_s, u"D"_s, u"E"_s}) {
        rs.Delete();
        EXPECT_EQ(rs.Fields("nmplano").text(), next);
    }
    rs.Delete();
    EXPECT_TRUE(rs.Eof());
    EXPECT_EQ(planos(), Table());
    EXPECT_EQ(errorOf([&] { rs.Delete(); }), 3021);
}

TEST_P(BoundRows, WhatOtherStationsDoShowsAtTheRequeryAndNothingIsLocked)
{
    const auto stranger = [](const QString& sql) {
        database().execute(u"set innodb_lock_wait_timeout = 1; "_s + sql);
    };
    stranger(u"insert into produto select 'A', 100 + seq, 'luva' from seq_1_to_20"_s);
    Recordset rs;
    open(rs, u"select * from produto where idlic = 'A' order by cdpro"_s);
    stranger(u"insert into produto values ('A', '105b', 'DELES'); delete from produto where cdpro = '119';"
             "update produto set dspro = 'DELES' where cdpro = '120'"_s);
    const auto found = [&](const QString& criteria) {
        rs.Find(criteria);
        return rs.Eof() ? u"-"_s : rs.Fields("cdpro").text();
    };
    const auto saved = [&](const QString& column, const QString& text) {
        rs.Fields(column) = text;
        const int error = errorOf([&] { rs.Update(); });
        rs.CancelUpdate();
        return error;
    };
    EXPECT_EQ(found(u"dspro = 'DELES'"_s), u"-");
    rs.AddNew();
    rs.Fields("idlic") = u"A"_s;
    EXPECT_EQ(saved(u"cdpro"_s, u"105B"_s), 1062) << "a new row is inserted, whatever has come meanwhile";
    EXPECT_EQ(found(u"cdpro = '119'"_s), u"119");
    EXPECT_EQ(saved(u"dspro"_s, u"X"_s), Error::RowGone);

    // What is changed here is there for all at once, and here for good.
    EXPECT_EQ(found(u"cdpro = '110'"_s), u"110");
    EXPECT_EQ(saved(u"dspro"_s, u"NOSSO"_s), 0);
    EXPECT_EQ(found(u"cdpro = '101'"_s), u"101");
    rs.Delete();
    stranger(u"update produto set dspro = 'NOSSO!' where dspro = 'NOSSO'"_s);
    EXPECT_EQ(database().value(u"select concat(count(*), max(dspro)) from produto"_s), u"19NOSSO!");
    EXPECT_EQ(found(u"dspro = 'NOSSO'"_s), u"110");
    EXPECT_EQ(found(u"dspro = 'luva'"_s), u"102");
    rs.Requery();
    EXPECT_EQ(found(u"cdpro = '105b'"_s), u"105b");
    EXPECT_EQ(found(u"dspro = 'NOSSO!'"_s), u"110");
    EXPECT_EQ(found(u"cdpro = '119'"_s), u"-");
}

TEST_P(BoundRows, AnUnsavedChangeStandsInTheWayUntilItIsSavedOrCancelled)
{
    database().execute(u"insert into produto values ('A', '1', 'luva'), ('A', '2', 'gaze')"_s);
    Recordset rs;
    open(rs, u"select * from produto"_s);
    rs.AddNew();
    rs.Fields("idlic") = u"A"_s;
    rs.Fields("cdpro") = u"2"_s;
    EXPECT_EQ(errorOf([&] { rs.Update(); }), 1062);
    for (const auto& move : std::initializer_list<std::function<void()>>{
             [&] { rs.MoveNext(); }, [&] { rs.Filter({}); }, [&] { rs.Requery(); }, [&] { rs.AddNew(); }})
        EXPECT_EQ(errorOf(move), 3219);
    rs.Fields("cdpro") = u"3"_s;
    rs.Update();
    rs.Fields("dspro") = u"esquecido"_s;
    rs.CancelUpdate();
    rs.MovePrevious();
    EXPECT_EQ(rs.Fields("cdpro").text(), u"2");
    EXPECT_EQ(database().value(u"select max(concat(cdpro, ifnull(dspro, '-'))) from produto"_s), u"3-");
}

TEST_P(BoundRows, WhatHasNoOneTableAndKeyIsReadOnly)
{
    database().execute(u"insert into plano (nmplano) values ('A'); insert into solto values (1, 'x')"_s);
    for (const QString& sql :
         {u"select * from solto"_s, u"select p.*, s.b from plano p left join solto s on p.idplano like s.a"_s,
          u"select a.idplano, b.nmplano from plano a, plano b"_s, u"select nmplano from plano"_s,
          u"select concat(nmplano, '!'), idplano from plano"_s}) {
        Recordset rs;
        open(rs, sql);
        EXPECT_EQ(errorOf([&] { rs.Fields(0) = 1; }), 3251) << sql.toStdString();
    }
}

/// Rows that the searches below run over.
class Searched : public EitherStore
{
protected:
    void SetUp() override
    {
        EitherStore::SetUp();
        fill();
        open(rs, u"select * from plano order by idplano"_s);
    }

    static void fill()
    {
        database().clear();
        database().execute(u"insert into plano (nmplano, pdesc, inicio, visto, obs) values"
                           " ('0012', 12.50, '2026-01-31', '2026-01-31 10:00:00', 'ANDRÉ'),"
                           " ('12', -1, '2026-02-01', '2026-02-01 00:00:00', 'a and b'),"
                           " ('20260101', 0, null, null, 'd''água'),"
                           " ('X12', 100, '2018-11-04', '2018-11-04 00:30:00', null)"_s);
    }

    Recordset rs;
};

TEST_P(Searched, FindAndFilterReadTheSameCriteria)
{
    // Criteria, and the codes of the rows that meet them.
    const QStringView cases =
        u"IDPLANO=2 -> 2|idplano like '2' -> 2|idplano like '02' -> |idplano = '02' -> 2|idplano > 10 -> |"
        "nmplano like 12 -> 1,2|nmplano <> 12 -> 3,4|nmplano like '12' -> 2|nmplano like 'x%' -> 4|"
        "nmplano like '%0%1%' -> 1,3|nmplano like '12%2' -> |nmplano <> '12' -> 1,3,4|pdesc = 12.5 -> 1|"
        "pdesc = '12.5' -> 1|pdesc like '12,50' -> 1|pdesc <= -1 -> 2|inicio like '31/01/2026' -> 1|"
        "inicio < '2026/02/01' -> 1,4|visto <= '04/11/2018 00:30' -> 4|visto > '31/01/2026 09:59' -> 1,2|"
        "obs = 'andré' -> 1|obs = 'd''água' -> 3|obs = 'a and b' -> 2|"
        "obs like 'a%' AND idplano > 1 -> 2";
    for (const QStringList& row : textTable(cases, u" -> ")) {
        SCOPED_TRACE(row.join(u" -> ").toStdString());
        const QString& criteria = row[0];
        const QStringList expected = row[1].split(u',', Qt::SkipEmptyParts);
        rs.Filter({});
        rs.MoveLast(); // the search begins at the first row wherever the recordset stands
        rs.Find(criteria);
        EXPECT_EQ(rs.Eof() ? QString() : rs.Fields("idplano").text(), expected.value(0));
        rs.Filter(criteria);
        QStringList found;
        for (; !rs.Eof(); rs.MoveNext())
            found << rs.Fields("idplano").text();
        EXPECT_EQ(found, expected);
        EXPECT_EQ(rs.rowsHeld(), expected.size());
    }
    rs.Filter(u" "_s);
    EXPECT_EQ(rs.rowsHeld(), 4);
}

TEST_P(Searched, WhatIsNoCriterionIsRefusedByNumber)
{
    for (const QString& criteria : {u"nmplano like ABC"_s, u"nmplano = "_s, u"nmplano"_s, u"nmplano = 'a"_s,
                                    u"idplano = 1 and"_s, u"idplano = 1 or idplano = 2"_s,
                                    u"idplano = 1 nmplano = 2"_s, u"nmplano like12"_s, u"pdesc = 12,5"_s})
        EXPECT_EQ(errorOf([&] { rs.Find(criteria); }), 3001) << criteria.toStdString();
    EXPECT_EQ(errorOf([&] { rs.Filter(u"nada = 1"_s); }), 3265);
    EXPECT_EQ(rs.heldPosition(), 0);
}

TEST_P(Searched, RowsAreAddedAndDeletedUnderAFilterAndAMarkedOneIsGoneBackTo)
{
    rs.MoveNext();
    const RowMark mark = rs.Bookmark();
    rs.MoveFirst();
    rs.MovePrevious();
    EXPECT_TRUE(rs.Bof());
    EXPECT_EQ(errorOf([&] { rs.Bookmark(); }), 3021);
    rs.setBookmark(mark);
    rs.Fields("idplano") = 7;
    rs.Update();
    rs.Filter(u"pdesc > 12"_s);
    EXPECT_EQ(errorOf([&] { rs.setBookmark(mark); }), 3001);
    rs.MoveLast();
    rs.Delete();
    rs.AddNew();
    rs.Fields("pdesc") = 1;
    rs.Update();
    EXPECT_EQ(rs.rowsHeld(), 2);
    rs.Filter({});
    EXPECT_EQ(rs.Fields("idplano").integer(), 8);
    rs.setBookmark(mark);
    EXPECT_EQ(rs.Fields("idplano").integer(), 7) << "under its new key";
    rs.Delete();
    EXPECT_EQ(rs.Fields("idplano").integer(), 3);
    EXPECT_EQ(errorOf([&] { rs.setBookmark(mark); }), 3001);
    EXPECT_EQ(database().value(u"select group_concat(idplano) from plano"_s), u"1,3,8");
}

TEST_P(Searched, RequeryKeepsTheRow)
{
    const QString join =
        u"select p.idplano, s.b from plano p left join solto s on p.idplano like s.a order by nmplano, s.b"_s;
    rs.Close();
    // A row that is current, what happens, and the row that is current then.
    for (const QStringList& given : textTable(
             u"3 -> delete from plano where idplano = 1 -> 3|"
             "3 -> update plano set nmplano = null where idplano = 3 -> 3|"
             "2 -> delete from plano where idplano = 2 -> 3|4 -> delete from plano where idplano = 4 -> 1|"
             "99 -> insert into plano (nmplano) values ('zz') -> 1|2 -> delete from plano -> ",
             u" -> "))
        for (const QString& sql : {u"select * from plano order by nmplano"_s, join}) {
            fill();
            Recordset mine;
            open(mine, sql);
            mine.Find(u"idplano = "_s + given[0]);
            database().execute(given[1]);
            mine.Requery();
            EXPECT_EQ(mine.Eof() ? u""_s : mine.Fields("idplano").text(), given[2]) << given[1].toStdString();
        }
    // Where a join repeats the key, the row at the same position is meant.
    fill();
    database().execute(u"insert into solto values (1, 'a'), (1, 'b'), (1, 'c')"_s);
    Recordset mine;
    open(mine, join);
    mine.MoveNext();
    mine.Requery();
    EXPECT_EQ(mine.heldPosition(), 1);
}

std::string storeName(const testing::TestParamInfo<bool>& info)
{
    return info.param ? "Paged" : "Whole";
}

INSTANTIATE_TEST_SUITE_P(Stores, BoundRows, testing::Bool(), storeName);
INSTANTIATE_TEST_SUITE_P(Stores, Searched, testing::Bool(), storeName);

} // namespace
