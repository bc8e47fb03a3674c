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
    for (const QString& name : {u"UNIMED"_s, u"AMIL"_s}) {
        rs.AddNew();
        EXPECT_FALSE(rs.Eof());
        EXPECT_TRUE(rs.Fields("nmplano").isNull());
        rs.Fields("NMPLANO") = name;
        rs.Fields("pdesc") = 12.345;
        EXPECT_EQ(rs.Fields("nmplano").text(), name);
        rs.Update();
    }
    // The second one is current, at the end, with the server's number, default and rounding.
    EXPECT_EQ(rs.heldPosition(), 1);
    EXPECT_EQ(rs.Fields("idplano").text() + rs.Fields("pdesc").text() + rs.Fields("sit").text(), u"212,35N");
    EXPECT_EQ(planos(u"idplano, nmplano, pdesc, inicio, sit"_s),
              (Table{{u"1"_s, u"UNIMED"_s, u"12.35"_s, QString(), u"N"_s},
                     {u"2"_s, u"AMIL"_s, u"12.35"_s, QString(), u"N"_s}}));
    rs.Requery();
    EXPECT_EQ(rs.heldPosition(), 0);
    EXPECT_EQ(rs.Fields("nmplano").text(), u"AMIL");
}

TEST_P(BoundRows, WhatIsAssignedArrivesAsTheColumnStoresIt)
{
    using Assign = std::function<void(Field)>;
    struct Case
    {
        QString column;
        Assign assign;
        QString stored;
    };
    const auto text = [](const QString& value) { return Assign([value](Field field) { field = value; }); };
    const QString hard = u"D'Ávila \\ \"x\" `y` % _ 日本 😀\r\n; --"_s;
    const QString large(150'000, u'é');
    std::vector<Case> cases{
        {u"nmplano"_s, text(hard), hard},
        {u"nmplano"_s, text(QString()), u""_s},
        {u"nmplano"_s, [](Field f) { f = nullptr; }, QString()},
        {u"nmplano"_s, [](Field f) { f = 12.5; }, u"12.5"_s},
        {u"nmplano"_s, [](Field f) { f = QDate(2026, 1, 31); }, u"2026/01/31"_s},
        {u"obs"_s, text(large), large},
        {u"pdesc"_s, [](Field f) { f = 0.1 + 0.2; }, u"0.30"_s},
        {u"qtde"_s, [](Field f) { f = -1.5; }, u"-1.5"_s},
        {u"inicio"_s, [](Field f) { f = QDate(1899, 12, 30); }, u"1899-12-30"_s},
        {u"inicio"_s, [](Field f) { f = QDate(); }, QString()},
    };
    // Texts; on 4 November 2018 summer time began at midnight.
    for (const QStringList& row :
         textTable(u"pdesc=12.5=12.50|pdesc= 12,5 =12.50|pdesc=1.234=1.23|pdesc=1.234,56=1234.56|"
                   "pdesc=R$ -3,10=-3.10|pdesc=9999999999999.99=9999999999999.99|pdesc= =null|"
                   "inicio=31/01/2026=2026-01-31|inicio=2026/01/31=2026-01-31|inicio=04/11/2018=2018-11-04|"
                   "inicio=31/02/2026=null|inicio==null|visto=04/11/2018 0:30=2018-11-04 00:30:00|"
                   "visto=31/01/2026=2026-01-31 00:00:00|hora=8:05=08:05:00"))
        cases.push_back({row[0], text(row[1]), row[2] == u"null" ? QString() : row[2]});
    for (const Case& given : cases) {
        SCOPED_TRACE((given.column + u" to "_s + given.stored.left(40)).toStdString());
        database().clear();
        database().execute(u"insert into plano (nmplano, pdesc, qtde, inicio, hora, visto, obs)"
                           " values ('velho', 1, 1, '2000-01-01', '1:00', '2000-01-01', 'velho')"_s);
        Recordset rs;
        open(rs, u"select * from plano"_s);
        const Field field = rs.Fields(given.column);
        given.assign(field);
        EXPECT_EQ(field.isNull(), given.stored.isNull());
        rs.Update();
        const QString stored = planos(given.column).first().first();
        EXPECT_EQ(stored, given.stored);
        EXPECT_EQ(stored.isNull(), given.stored.isNull());
        EXPECT_EQ(field.isNull(), given.stored.isNull());
    }
    Recordset rs;
    open(rs, u"select * from plano"_s);
    EXPECT_EQ(errorOf([&] { rs.Fields("pdesc") = u"doze"_s; }), 13);
    EXPECT_EQ(errorOf([&] { rs.Fields("idplano") = QDate(2026, 1, 31); }), 13);
}

TEST_P(BoundRows, ANumberThatIsLeftBlankIsTheServersAndAnyOtherStays)
{
    using Assign = std::function<void(Field)>;
    const std::pair<Assign, int> cases[] = {
        {[](Field f) { f = nullptr; }, 1}, {[](Field f) { f = u""_s; }, 2}, {[](Field f) { f = 0; }, 3},
        {[](Field f) { f = u"00"_s; }, 4}, {[](Field f) { f = 77; }, 77},
    };
    Recordset rs;
    open(rs, u"select * from plano"_s);
    for (const auto& [assign, number] : cases) {
        rs.AddNew();
        assign(rs.Fields("idplano"));
        rs.Update();
        EXPECT_EQ(rs.Fields("idplano").integer(), number);
        EXPECT_EQ(rs.Fields("sit").text(), u"N") << "read back";
    }
}

TEST_P(BoundRows, ARecordsetUsedAgainKnowsNothingOfItsLastResult)
{
    database().execute(u"insert into plano (idplano) select seq from seq_1_to_200;"
                       "insert into produto values ('A', '1', 'luva'), ('A', '2', 'gaze')"_s);
    for (const bool isLost : {false, true}) {
        SCOPED_TRACE(isLost);
        Recordset rs;
        open(rs, u"select * from plano order by idplano"_s);
        rs.Filter(u"idplano > 100"_s);
        for (int i = 0; i < 10; ++i)
            rs.Delete();
        rs.Fields("nmplano") = u"half typed"_s;
        if (isLost)
            (pageSize > 0 ? readers.back() : connection).Close();
        else
            rs.Close();
        if (connection.State() == 0)
            connection.Open();
        open(rs, u"select * from produto order by cdpro"_s);
        rs.MoveNext();
        rs.Fields("dspro") = isLost ? u"soro"_s : u"fio"_s;
        rs.Update();
        EXPECT_EQ(database().value(u"select group_concat(dspro order by cdpro) from produto"_s),
                  isLost ? u"luva,soro" : u"luva,fio");
    }
    EXPECT_EQ(database().rows(u"select min(idplano), count(*), count(nmplano) from plano"
                              " where idplano > 100"_s),
              (Table{{u"121"_s, u"80"_s, u"0"_s}}));
}

TEST_P(BoundRows, AnUpdateTouchesOneRowAndOnlyWhatWasSet)
{
    database().execute(
        u"insert into produto values ('A', '0012', 'luva'), ('A', '12', 'gaze'), ('B', '0012', 'soro')"_s);
    Recordset rs;
    open(rs, u"select * from produto order by idlic, cdpro"_s);
    // Another station has changed a column that this one does not set: it stays.
    Recordset other;
    open(other, u"select cdpro, idlic, dspro from produto where idlic = 'A' and cdpro = '0012'"_s);
    rs.Fields("dspro") = u"LUVA M"_s;
    rs.Update();
    other.Fields("cdpro") = u"0013"_s;
    other.Update();
    const Table expected{
        {u"A"_s, u"0013"_s, u"LUVA M"_s}, {u"A"_s, u"12"_s, u"gaze"_s}, {u"B"_s, u"0012"_s, u"soro"_s}};
    const QString all = u"select * from produto order by idlic, cdpro"_s;
    EXPECT_EQ(database().rows(all), expected);
    // The row is read back under its new key, and can be changed again under it.
    EXPECT_EQ(other.Fields("dspro").text(), u"LUVA M");
    other.Fields("dspro") = u"LUVA G"_s;
    other.Update();
    EXPECT_EQ(database().rows(all).first().last(), u"LUVA G");
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
    rs.Fields("nmplano") = u"X"_s;
    EXPECT_EQ(errorOf([&] { rs.Update(); }), Error::RowGone);
    rs.CancelUpdate();
    EXPECT_EQ(errorOf([&] { rs.Delete(); }), Error::RowGone);
    for (const QString& next : {u"C"_s, u"D"_s, u"E"_s}) {
        rs.MoveFirst();
        rs.MoveNext();
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
    EXPECT_EQ(found(u"cdpro = '105b'"_s), u"-");
    EXPECT_EQ(found(u"dspro = 'DELES'"_s), u"-");
    rs.AddNew();
    rs.Fields("idlic") = u"A"_s;
    rs.Fields("cdpro") = u"105B"_s;
    EXPECT_EQ(errorOf([&] { rs.Update(); }), 1062) << "a new row is inserted, whatever has come meanwhile";
    rs.CancelUpdate();
    EXPECT_EQ(found(u"cdpro = '119'"_s), u"119");
    rs.Fields("dspro") = u"X"_s;
    EXPECT_EQ(errorOf([&] { rs.Update(); }), Error::RowGone);
    rs.CancelUpdate();

    // What is changed here is there for all at once, and here for good.
    EXPECT_EQ(found(u"cdpro = '110'"_s), u"110");
    rs.Fields("dspro") = u"NOSSO"_s;
    rs.Update();
    EXPECT_EQ(found(u"cdpro = '101'"_s), u"101");
    rs.Delete();
    stranger(u"update produto set dspro = concat(dspro, '!') where dspro = 'NOSSO'"_s);
    EXPECT_EQ(database().value(u"select concat(count(*), max(dspro)) from produto"_s), u"19NOSSO!");
    EXPECT_EQ(found(u"dspro = 'NOSSO'"_s), u"110");
    rs.MoveFirst();
    EXPECT_EQ(rs.Fields("cdpro").text(), u"102");

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
             [&] { rs.MoveNext(); }, [&] { rs.Find(u"cdpro = '1'"_s); }, [&] { rs.Filter({}); },
             [&] { rs.Requery(); }, [&] { rs.AddNew(); }, [&] { rs.Delete(); }, [&] { rs.Bookmark(); }})
        EXPECT_EQ(errorOf(move), 3219);
    rs.Fields("cdpro") = u"3"_s;
    rs.Update();
    rs.Fields("dspro") = u"esquecido"_s;
    rs.CancelUpdate();
    rs.MovePrevious();
    rs.AddNew();
    rs.CancelUpdate();
    EXPECT_EQ(rs.Fields("cdpro").text(), u"2");
    EXPECT_EQ(
        database().value(u"select group_concat(cdpro, ifnull(dspro, '-') order by cdpro) from produto"_s),
        u"1luva,2gaze,3-");
}

TEST_P(BoundRows, WhatHasNoOneTableAndKeyIsReadOnly)
{
    database().execute(u"insert into plano (nmplano) values ('A'); insert into solto values (1, 'x')"_s);
    for (const QString& sql :
         {u"select * from solto"_s, u"select p.*, s.b from plano p left join solto s on p.idplano like s.a"_s,
          u"select a.idplano, b.nmplano from plano a, plano b"_s, u"select nmplano from plano"_s,
          u"select 1 as a"_s}) {
        SCOPED_TRACE(sql.toStdString());
        Recordset rs;
        open(rs, sql);
        EXPECT_EQ(errorOf([&] { rs.Fields(0) = 1; }), 3251);
        EXPECT_EQ(errorOf([&] { rs.AddNew(); }), 3251);
        EXPECT_EQ(errorOf([&] { rs.Delete(); }), 3251);
        EXPECT_FALSE(rs.Eof());
    }
    Recordset rs;
    open(rs, u"select idplano, nmplano as nome, concat(nmplano, '!') as grito from plano"_s);
    EXPECT_EQ(errorOf([&] { rs.Fields("grito") = u"B!"_s; }), 3251);
    rs.Fields("nome") = u"B"_s;
    rs.Update();
    EXPECT_EQ(planos(), (Table{{u"1"_s, u"B"_s}}));

    Recordset locked;
    locked.Open(u"select * from plano"_s, connection, Recordset::Static, Recordset::ReadOnly);
    EXPECT_EQ(errorOf([&] { locked.Fields("nmplano") = u"C"_s; }), 3251);
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
        u"idplano = 2 -> 2|IDPLANO=2 -> 2|idplano like '2' -> 2|idplano like '02' -> |idplano = '02' -> 2|"
        "idplano = 99 -> |idplano > 10 -> |nmplano like 12 -> 1,2|nmplano = 12 -> 1,2|nmplano <> 12 -> 3,4|"
        "nmplano like '12' -> 2|nmplano like '%12' -> 1,2,4|nmplano like 'x%' -> 4|"
        "nmplano like '%0%1%' -> 1,3|nmplano like '12%2' -> |nmplano <> '12' -> 1,3,4|pdesc = 12.5 -> 1|"
        "pdesc = '12.5' -> 1|pdesc like '12,50' -> 1|pdesc <= -1 -> 2|pdesc >= 12.5 -> 1,4|"
        "inicio = '2026/01/31' -> 1|inicio like '31/01/2026' -> 1|inicio < '2026/02/01' -> 1,4|"
        "inicio <> '2026/02/01' -> 1,4|inicio > '2018/11/04' -> 1,2|visto < '04/11/2018 00:31' -> 4|"
        "visto <= '04/11/2018 00:30' -> 4|visto > '31/01/2026 09:59' -> 1,2|obs = 'andré' -> 1|"
        "obs = 'd''água' -> 3|obs = 'a and b' -> 2|obs like 'a%' and idplano > 1 -> 2|"
        "nmplano like 12 AND pdesc like -1 -> 2";
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
    for (const QString& criteria : {u"nmplano like ABC"_s, u"nmplano = "_s, u"nmplano"_s, u"= 2"_s,
                                    u"nmplano = 'a"_s, u"idplano = 1 and"_s, u"idplano = 1 or idplano = 2"_s,
                                    u"idplano = 1 nmplano = 2"_s, u"nmplano like12"_s, u"pdesc = 12,5"_s}) {
        SCOPED_TRACE(criteria.toStdString());
        EXPECT_EQ(errorOf([&] { rs.Find(criteria); }), 3001);
        EXPECT_EQ(errorOf([&] { rs.Filter(criteria); }), 3001);
    }
    EXPECT_EQ(errorOf([&] { rs.Find(u"nada = 1"_s); }), 3265);
    EXPECT_EQ(rs.heldPosition(), 0);
}

TEST_P(Searched, RowsAreAddedAndDeletedUnderAFilter)
{
    rs.Filter(u"pdesc like 77"_s);
    EXPECT_TRUE(rs.Eof());
    rs.AddNew();
    rs.Fields("pdesc") = 77;
    rs.Update();
    EXPECT_EQ(rs.rowsHeld(), 1);
    rs.Filter(u"idplano > 2"_s);
    EXPECT_EQ(rs.rowsHeld(), 3);
    rs.Delete();
    EXPECT_EQ(rs.Fields("idplano").integer(), 4);
    rs.Filter({});
    EXPECT_EQ(rs.rowsHeld(), 4);
    EXPECT_EQ(database().value(u"select group_concat(idplano order by idplano) from plano"_s), u"1,2,4,5");
}

TEST_P(Searched, AMarkedRowIsGoneBackTo)
{
    rs.MoveLast();
    const RowMark mark = rs.Bookmark();
    rs.MoveFirst();
    rs.MovePrevious();
    EXPECT_TRUE(rs.Bof());
    EXPECT_EQ(errorOf([&] { rs.MovePrevious(); }), 3021);
    EXPECT_EQ(errorOf([&] { rs.Bookmark(); }), 3021);
    rs.setBookmark(mark);
    rs.Fields("idplano") = 7;
    rs.Update();
    rs.MoveFirst();
    rs.setBookmark(mark);
    EXPECT_EQ(rs.Fields("idplano").integer(), 7) << "under its new key";
    rs.Filter(u"idplano < 3"_s);
    EXPECT_EQ(errorOf([&] { rs.setBookmark(mark); }), 3001);
    rs.Filter({});
    rs.setBookmark(mark);
    rs.Delete();
    EXPECT_EQ(errorOf([&] { rs.setBookmark(mark); }), 3001);
}

TEST_P(Searched, RequeryKeepsTheRow)
{
    const QString join =
        u"select p.idplano, s.b from plano p left join solto s on p.idplano like s.a order by "_s;
    struct Case
    {
        const char* happened;
        QString statement;
        QString before;
        QString after;
    };
    const Case cases[] = {
        {"the row moved up", u"delete from plano where idplano = 1"_s, u"3"_s, u"3"_s},
        {"the row moved down", u"insert into plano (idplano, nmplano) values (-5, '')"_s, u"3"_s, u"3"_s},
        {"the row came to the front", u"update plano set nmplano = null where idplano = 3"_s, u"3"_s, u"3"_s},
        {"the row went", u"delete from plano where idplano = 2"_s, u"2"_s, u"3"_s},
        {"the last row went", u"delete from plano where idplano = 4"_s, u"4"_s, u"1"_s},
        {"it was at the end", u"insert into plano (nmplano) values ('zz')"_s, u"99"_s, u"1"_s},
        {"all rows went", u"delete from plano"_s, u"2"_s, {}},
    };
    rs.Close();
    for (const Case& given : cases)
        for (const QString& sql : {u"select * from plano order by nmplano"_s, join + u"nmplano"_s}) {
            SCOPED_TRACE(given.happened);
            fill();
            Recordset mine;
            open(mine, sql);
            mine.Find(u"idplano = "_s + given.before);
            database().execute(given.statement);
            mine.Requery();
            EXPECT_EQ(mine.Eof() ? QString() : mine.Fields("idplano").text(), given.after);
        }
    // Where a join repeats the key, the row at the same position is meant.
    fill();
    database().execute(u"insert into solto values (1, 'a'), (1, 'b'), (1, 'c')"_s);
    Recordset mine;
    open(mine, join + u"p.idplano, s.b"_s);
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
