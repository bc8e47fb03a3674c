#include "platform/data/error.h"
#include "platform/datafixture.h"

using namespace ADODB;

namespace {

using BoundRows = DataFixture;

TEST_F(BoundRows, ANewRowIsSentWithWhatWasSetAndReadBack)
{
    Recordset rs;
    open(rs, u"select * from plano order by nmplano"_qs);
    EXPECT_TRUE(rs.Eof());
    for (const QString& name : {u"UNIMED"_qs, u"AMIL"_qs}) {
        rs.AddNew();
        EXPECT_FALSE(rs.Eof());
        EXPECT_TRUE(rs.Fields("nmplano").isNull());
        rs.Fields("NMPLANO") = name;
        rs.Fields("pdesc") = 12.345;
        EXPECT_EQ(rs.Fields("nmplano").text(), name);
        rs.Update();
    }
    // The second one is current, at the end, with the server's number, default and rounding.
    EXPECT_EQ(rs.AbsolutePosition(), 2);
    EXPECT_EQ(rs.Fields("idplano").integer(), 2);
    EXPECT_EQ(rs.Fields("pdesc").text(), u"12,35");
    EXPECT_EQ(rs.Fields("sit").text(), u"N");
    EXPECT_EQ(planos(u"idplano, nmplano, pdesc, inicio, sit"_qs),
              (Table{{u"1"_qs, u"UNIMED"_qs, u"12.35"_qs, QString(), u"N"_qs},
                     {u"2"_qs, u"AMIL"_qs, u"12.35"_qs, QString(), u"N"_qs}}));
    rs.Requery();
    EXPECT_EQ(rs.AbsolutePosition(), 1);
    EXPECT_EQ(rs.Fields("nmplano").text(), u"AMIL");
}

TEST_F(BoundRows, WhatIsAssignedArrivesAsTheColumnStoresIt)
{
    using Assign = std::function<void(Field)>;
    const auto text = [](const QString& value) { return Assign([value](Field field) { field = value; }); };
    const QString null;
    const QString hard = u"D'Ávila \\ \"x\" `y` % _ 日本 😀\r\n; --"_qs;
    const QString large(150'000, u'é');
    struct Case
    {
        const char* column;
        Assign assign;
        QString stored;
    };
    const Case cases[] = {
        {"nmplano", text(hard), hard},
        {"nmplano", text(u""_qs), u""_qs},
        {"nmplano", text(QString()), u""_qs},
        {"nmplano", [](Field f) { f = nullptr; }, null},
        {"pdesc", [](Field f) { f = 1234567.89; }, u"1234567.89"_qs},
        {"nmplano", [](Field f) { f = 12.5; }, u"12.5"_qs},
        {"nmplano", [](Field f) { f = 7; }, u"7"_qs},
        {"nmplano", [](Field f) { f = QDate(2026, 1, 31); }, u"2026/01/31"_qs},
        {"obs", text(large), large},
        {"pdesc", text(u"12.5"_qs), u"12.50"_qs},
        {"pdesc", text(u" 12,5 "_qs), u"12.50"_qs},
        {"pdesc", text(u"1.234"_qs), u"1.23"_qs},
        {"pdesc", text(u"1.234,56"_qs), u"1234.56"_qs},
        {"pdesc", text(u"R$ -3,10"_qs), u"-3.10"_qs},
        {"pdesc", text(u"9999999999999.99"_qs), u"9999999999999.99"_qs},
        {"pdesc", text(u" "_qs), null},
        {"pdesc", [](Field f) { f = 0.1 + 0.2; }, u"0.30"_qs},
        {"qtde", [](Field f) { f = -1.5; }, u"-1.5"_qs},
        {"inicio", text(u"31/01/2026"_qs), u"2026-01-31"_qs},
        {"inicio", text(u"2026/01/31"_qs), u"2026-01-31"_qs},
        {"inicio", text(u"04/11/2018"_qs), u"2018-11-04"_qs}, // summer time began at midnight
        {"visto", text(u"04/11/2018 0:30"_qs), u"2018-11-04 00:30:00"_qs},
        {"inicio", text(u"31/02/2026"_qs), null},
        {"inicio", text(u""_qs), null},
        {"inicio", [](Field f) { f = QDate(1899, 12, 30); }, u"1899-12-30"_qs},
        {"inicio", [](Field f) { f = QDate(); }, null},
        {"hora", text(u"8:05"_qs), u"08:05:00"_qs},
        {"visto", text(u"31/01/2026 8:05"_qs), u"2026-01-31 08:05:00"_qs},
        {"visto", text(u"31/01/2026"_qs), u"2026-01-31 00:00:00"_qs},
    };
    for (const Case& given : cases) {
        database().clear();
        database().execute(u"insert into plano (nmplano, pdesc, qtde, inicio, hora, visto, obs)"
                           " values ('velho', 1, 1, '2000-01-01', '1:00', '2000-01-01', 'velho')"_qs);
        Recordset rs;
        open(rs, u"select * from plano"_qs);
        given.assign(rs.Fields(given.column));
        EXPECT_EQ(rs.Fields(given.column).isNull(), given.stored.isNull()) << given.column;
        rs.Update();
        const QString stored = planos(QString::fromLatin1(given.column)).first().first();
        EXPECT_EQ(stored, given.stored) << given.column;
        EXPECT_EQ(stored.isNull(), given.stored.isNull()) << given.column;
        EXPECT_EQ(rs.Fields(given.column).isNull(), given.stored.isNull()) << given.column;
    }
    Recordset rs;
    open(rs, u"select * from plano"_qs);
    EXPECT_EQ(errorOf([&] { rs.Fields("pdesc") = u"doze"_qs; }), 13);
    EXPECT_EQ(errorOf([&] { rs.Fields("idplano") = QDate(2026, 1, 31); }), 13);
}

TEST_F(BoundRows, ANumberThatIsLeftBlankIsTheServersAndAnyOtherStays)
{
    using Assign = std::function<void(Field)>;
    const std::pair<Assign, int> cases[] = {
        {[](Field f) { f = nullptr; }, 1},  {[](Field f) { f = u""_qs; }, 2}, {[](Field f) { f = 0; }, 3},
        {[](Field f) { f = u"00"_qs; }, 4}, {[](Field f) { f = 77; }, 77},
    };
    Recordset rs;
    open(rs, u"select * from plano"_qs);
    for (const auto& [assign, number] : cases) {
        rs.AddNew();
        assign(rs.Fields("idplano"));
        rs.Update();
        EXPECT_EQ(rs.Fields("idplano").integer(), number);
        EXPECT_EQ(rs.Fields("sit").text(), u"N") << "read back";
    }
}

TEST_F(BoundRows, ARecordsetUsedAgainKnowsNothingOfItsLastResult)
{
    database().execute(u"insert into plano (nmplano) select concat('P', seq) from seq_1_to_200;"
                       "insert into produto values ('A', '1', 'luva'), ('A', '2', 'gaze')"_qs);
    for (const bool reconnect : {false, true}) {
        SCOPED_TRACE(reconnect);
        Recordset rs;
        open(rs, u"select * from plano order by idplano"_qs);
        rs.Filter(u"idplano > 100"_qs);
        for (int i = 0; i < 10; ++i)
            rs.Delete();
        rs.Fields("nmplano") = u"half typed"_qs;
        if (reconnect) {
            connection.Close();
            connection.Open();
        } else {
            rs.Close();
        }
        open(rs, u"select * from produto order by cdpro"_qs);
        EXPECT_EQ(rs.RecordCount(), 2);
        EXPECT_EQ(rs.AbsolutePosition(), 1);
        rs.MoveNext();
        rs.Fields("dspro") = reconnect ? u"soro"_qs : u"fio"_qs;
        rs.Update();
        EXPECT_EQ(database().value(u"select group_concat(dspro order by cdpro) from produto"_qs),
                  reconnect ? u"luva,soro" : u"luva,fio");
    }
    EXPECT_EQ(
        database().rows(u"select min(idplano), max(idplano), count(*), sum(nmplano = 'half typed') from plano"
                        " where idplano > 100"_qs),
        (Table{{u"121"_qs, u"200"_qs, u"80"_qs, u"0"_qs}}));
}

TEST_F(BoundRows, AnUpdateTouchesOneRowAndOnlyWhatWasSet)
{
    database().execute(
        u"insert into produto values ('A', '0012', 'luva'), ('A', '12', 'gaze'), ('B', '0012', 'soro')"_qs);
    Recordset rs;
    open(rs, u"select * from produto order by idlic, cdpro"_qs);
    // Another station has changed a column that this one does not set: it stays.
    Recordset other;
    open(other, u"select cdpro, idlic, dspro from produto where idlic = 'A' and cdpro = '0012'"_qs);
    rs.Fields("dspro") = u"LUVA M"_qs;
    rs.Update();
    other.Fields("cdpro") = u"0013"_qs;
    other.Update();
    const Table expected{{u"A"_qs, u"0013"_qs, u"LUVA M"_qs},
                         {u"A"_qs, u"12"_qs, u"gaze"_qs},
                         {u"B"_qs, u"0012"_qs, u"soro"_qs}};
    const QString all = u"select * from produto order by idlic, cdpro"_qs;
    EXPECT_EQ(database().rows(all), expected);
    // The row is read back under its new key, and can be changed again under it.
    EXPECT_EQ(other.Fields("dspro").text(), u"LUVA M");
    other.Fields("dspro") = u"LUVA G"_qs;
    other.Update();
    EXPECT_EQ(database().rows(all).first().last(), u"LUVA G");
}

TEST_F(BoundRows, DeletingLeavesTheNextRowCurrent)
{
    database().execute(u"insert into plano (nmplano) values ('A'), ('B'), ('C')"_qs);
    Recordset rs;
    open(rs, u"select * from plano"_qs);
    rs.MoveNext();
    rs.Delete();
    EXPECT_EQ(rs.Fields("nmplano").text(), u"C");
    EXPECT_EQ(rs.RecordCount(), 2);
    rs.Delete();
    EXPECT_TRUE(rs.Eof());
    EXPECT_EQ(planos(), (Table{{u"1"_qs, u"A"_qs}}));
    EXPECT_EQ(errorOf([&] { rs.Delete(); }), 3021);
    rs.Filter({});
    EXPECT_EQ(rs.RecordCount(), 1);
}

TEST_F(BoundRows, ARowThatIsGoneIsAnError)
{
    database().execute(u"insert into plano (nmplano) values ('A'), ('B')"_qs);
    Recordset rs;
    open(rs, u"select * from plano"_qs);
    // An update that changes nothing finds its row all the same.
    rs.Fields("nmplano") = u"A"_qs;
    rs.Update();
    database().execute(u"delete from plano where idplano = 1"_qs);
    rs.Fields("nmplano") = u"X"_qs;
    EXPECT_EQ(errorOf([&] { rs.Update(); }), Error::RowGone);
    rs.CancelUpdate();
    EXPECT_EQ(errorOf([&] { rs.Delete(); }), Error::RowGone);
    EXPECT_EQ(planos(), (Table{{u"2"_qs, u"B"_qs}}));
}

TEST_F(BoundRows, AnUnsavedChangeStandsInTheWayUntilItIsSavedOrCancelled)
{
    database().execute(u"insert into produto values ('A', '1', 'luva'), ('A', '2', 'gaze')"_qs);
    Recordset rs;
    open(rs, u"select * from produto"_qs);
    rs.AddNew();
    rs.Fields("idlic") = u"A"_qs;
    rs.Fields("cdpro") = u"2"_qs;
    EXPECT_EQ(errorOf([&] { rs.Update(); }), 1062);
    for (const auto& move : std::initializer_list<std::function<void()>>{
             [&] { rs.MoveNext(); }, [&] { rs.Find(u"cdpro = '1'"_qs); }, [&] { rs.Filter({}); },
             [&] { rs.Requery(); }, [&] { rs.AddNew(); }, [&] { rs.Delete(); },
             [&] { rs.setAbsolutePosition(2); }})
        EXPECT_EQ(errorOf(move), 3219);
    rs.Fields("cdpro") = u"3"_qs;
    rs.Update();
    rs.Fields("dspro") = u"esquecido"_qs;
    rs.CancelUpdate();
    rs.MovePrevious();
    rs.AddNew();
    rs.CancelUpdate();
    EXPECT_EQ(rs.Fields("cdpro").text(), u"2");
    EXPECT_EQ(
        database().value(u"select group_concat(cdpro, ifnull(dspro, '-') order by cdpro) from produto"_qs),
        u"1luva,2gaze,3-");
}

TEST_F(BoundRows, WhatHasNoOneTableAndKeyIsReadOnly)
{
    database().execute(u"insert into plano (nmplano) values ('A'); insert into solto values (1, 'x')"_qs);
    for (const QString& sql : {u"select * from solto"_qs,
                               u"select p.*, s.b from plano p left join solto s on p.idplano like s.a"_qs,
                               u"select a.idplano, b.nmplano from plano a, plano b"_qs,
                               u"select nmplano from plano"_qs, u"select 1 as a"_qs}) {
        SCOPED_TRACE(sql.toStdString());
        Recordset rs;
        open(rs, sql);
        EXPECT_EQ(errorOf([&] { rs.Fields(0) = 1; }), 3251);
        EXPECT_EQ(errorOf([&] { rs.AddNew(); }), 3251);
        EXPECT_EQ(errorOf([&] { rs.Delete(); }), 3251);
        EXPECT_FALSE(rs.Eof());
    }
    Recordset rs;
    open(rs, u"select idplano, nmplano as nome, concat(nmplano, '!') as grito from plano"_qs);
    EXPECT_EQ(errorOf([&] { rs.Fields("grito") = u"B!"_qs; }), 3251);
    rs.Fields("nome") = u"B"_qs;
    rs.Update();
    EXPECT_EQ(planos(), (Table{{u"1"_qs, u"B"_qs}}));
    EXPECT_EQ(rs.Fields("grito").text(), u"A!");

    Recordset locked;
    locked.Open(u"select * from plano"_qs, connection, Recordset::Static, Recordset::ReadOnly);
    EXPECT_EQ(errorOf([&] { locked.Fields("nmplano") = u"C"_qs; }), 3251);
}

/// Rows that the searches below run over.
class Searched : public DataFixture
{
protected:
    void SetUp() override
    {
        DataFixture::SetUp();
        fill();
        open(rs, u"select * from plano order by idplano"_qs);
    }

    static void fill()
    {
        database().clear();
        database().execute(u"insert into plano (nmplano, pdesc, inicio, visto, obs) values"
                           " ('0012', 12.50, '2026-01-31', '2026-01-31 10:00:00', 'ANDRÉ'),"
                           " ('12', -1, '2026-02-01', '2026-02-01 00:00:00', 'a and b'),"
                           " ('20260101', 0, null, null, 'd''água'),"
                           " ('X12', 100, '2018-11-04', '2018-11-04 00:30:00', null)"_qs);
    }

    Recordset rs;
};

TEST_F(Searched, FindAndFilterReadTheSameCriteria)
{
    const std::pair<QString, QStringList> cases[] = {
        {u"idplano = 2"_qs, {u"2"_qs}},
        {u"IDPLANO=2"_qs, {u"2"_qs}},
        {u"idplano like '2'"_qs, {u"2"_qs}},
        {u"idplano like '02'"_qs, {}},
        {u"idplano = '02'"_qs, {u"2"_qs}},
        {u"idplano = 99"_qs, {}},
        {u"idplano > 10"_qs, {}},
        {u"nmplano like 12"_qs, {u"1"_qs, u"2"_qs}},
        {u"nmplano = 12"_qs, {u"1"_qs, u"2"_qs}},
        {u"nmplano <> 12"_qs, {u"3"_qs, u"4"_qs}},
        {u"nmplano like '12'"_qs, {u"2"_qs}},
        {u"nmplano like '%12'"_qs, {u"1"_qs, u"2"_qs, u"4"_qs}},
        {u"nmplano like 'x%'"_qs, {u"4"_qs}},
        {u"nmplano like '%0%1%'"_qs, {u"1"_qs, u"3"_qs}},
        {u"nmplano like '12%2'"_qs, {}},
        {u"nmplano = '20260101'"_qs, {u"3"_qs}},
        {u"nmplano <> '12'"_qs, {u"1"_qs, u"3"_qs, u"4"_qs}},
        {u"pdesc = 12.5"_qs, {u"1"_qs}},
        {u"pdesc = '12.5'"_qs, {u"1"_qs}},
        {u"pdesc like '12,50'"_qs, {u"1"_qs}},
        {u"pdesc <= -1"_qs, {u"2"_qs}},
        {u"pdesc >= 12.5"_qs, {u"1"_qs, u"4"_qs}},
        {u"inicio = '2026/01/31'"_qs, {u"1"_qs}},
        {u"inicio = '31/01/2026'"_qs, {u"1"_qs}},
        {u"inicio like '31/01/2026'"_qs, {u"1"_qs}},
        {u"inicio < '2026/02/01'"_qs, {u"1"_qs, u"4"_qs}},
        {u"inicio <> '2026/02/01'"_qs, {u"1"_qs, u"4"_qs}},
        {u"inicio = '04/11/2018'"_qs, {u"4"_qs}}, // summer time began at midnight
        {u"inicio > '2018/11/04'"_qs, {u"1"_qs, u"2"_qs}},
        {u"visto < '04/11/2018 00:31'"_qs, {u"4"_qs}},
        {u"visto <= '04/11/2018 00:30'"_qs, {u"4"_qs}},
        {u"visto > '31/01/2026 09:59'"_qs, {u"1"_qs, u"2"_qs}},
        {u"obs = 'andré'"_qs, {u"1"_qs}},
        {u"obs = 'd''água'"_qs, {u"3"_qs}},
        {u"obs = 'a and b'"_qs, {u"2"_qs}},
        {u"obs like 'a%' and idplano > 1"_qs, {u"2"_qs}},
        {u"nmplano like 12 AND pdesc like -1"_qs, {u"2"_qs}},
    };
    for (const auto& [criteria, expected] : cases) {
        SCOPED_TRACE(criteria.toStdString());
        rs.Filter({});
        rs.MoveLast(); // the search begins at the first row wherever the recordset stands
        rs.Find(criteria);
        EXPECT_EQ(rs.Eof() ? QString() : rs.Fields("idplano").text(), expected.value(0));
        rs.Filter(criteria);
        QStringList found;
        for (; !rs.Eof(); rs.MoveNext())
            found << rs.Fields("idplano").text();
        EXPECT_EQ(found, expected);
        EXPECT_EQ(rs.RecordCount(), expected.size());
    }
    rs.Filter(u" "_qs);
    EXPECT_EQ(rs.RecordCount(), 4);
}

TEST_F(Searched, WhatIsNoCriterionIsRefusedByNumber)
{
    for (const QString& criteria :
         {u"nmplano like ABC"_qs, u"nmplano = "_qs, u"nmplano"_qs, u"= 2"_qs, u"nmplano = 'a"_qs,
          u"idplano = 1 and"_qs, u"idplano = 1 or idplano = 2"_qs, u"idplano = 1 nmplano = 2"_qs,
          u"nmplano like12"_qs, u"pdesc = 12,5"_qs}) {
        SCOPED_TRACE(criteria.toStdString());
        EXPECT_EQ(errorOf([&] { rs.Find(criteria); }), 3001);
        EXPECT_EQ(errorOf([&] { rs.Filter(criteria); }), 3001);
    }
    EXPECT_EQ(errorOf([&] { rs.Find(u"nada = 1"_qs); }), 3265);
    EXPECT_EQ(rs.RecordCount(), 4);
    EXPECT_EQ(rs.AbsolutePosition(), 1);
    Recordset none;
    open(none, u"select * from produto"_qs);
    none.Find(u"cdpro = '1'"_qs);
    EXPECT_TRUE(none.Eof());
}

TEST_F(Searched, RowsAreAddedAndDeletedUnderAFilter)
{
    rs.Filter(u"pdesc like 77"_qs);
    EXPECT_TRUE(rs.Eof());
    rs.AddNew();
    rs.Fields("pdesc") = 77;
    rs.Update();
    EXPECT_EQ(rs.RecordCount(), 1);
    rs.Filter(u"idplano > 2"_qs);
    EXPECT_EQ(rs.RecordCount(), 3);
    rs.Delete();
    EXPECT_EQ(rs.Fields("idplano").integer(), 4);
    rs.Filter({});
    EXPECT_EQ(rs.RecordCount(), 4);
    EXPECT_EQ(database().value(u"select group_concat(idplano order by idplano) from plano"_qs), u"1,2,4,5");
}

TEST_F(Searched, APositionIsGoneBackTo)
{
    rs.MoveLast();
    const qsizetype mark = rs.Bookmark();
    rs.MoveFirst();
    rs.MovePrevious();
    EXPECT_TRUE(rs.Bof());
    EXPECT_EQ(errorOf([&] { rs.MovePrevious(); }), 3021);
    EXPECT_EQ(errorOf([&] { rs.Bookmark(); }), 3021);
    rs.setBookmark(mark);
    EXPECT_EQ(rs.AbsolutePosition(), 4);
    rs.setAbsolutePosition(2);
    EXPECT_EQ(rs.Fields("idplano").integer(), 2);
    EXPECT_EQ(errorOf([&] { rs.setAbsolutePosition(5); }), 3001);
    rs.Filter(u"idplano < 3"_qs);
    EXPECT_EQ(errorOf([&] { rs.setBookmark(mark); }), 3001);
}

TEST_F(Searched, RequeryKeepsTheRow)
{
    struct Case
    {
        const char* happened;
        QString statement;
        int before; ///< position that the recordset stands on, 5 behind the last row
        QString after;
    };
    const Case cases[] = {
        {"the row moved up", u"delete from plano where idplano = 1"_qs, 3, u"3"_qs},
        {"the row moved down", u"insert into plano (idplano) values (-5)"_qs, 3, u"3"_qs},
        {"the row went", u"delete from plano where idplano = 2"_qs, 2, u"3"_qs},
        {"the last row went", u"delete from plano where idplano = 4"_qs, 4, u"1"_qs},
        {"it was at the end", u"insert into plano (idplano) values (9)"_qs, 5, u"1"_qs},
        {"all rows went", u"delete from plano"_qs, 2, QString()},
    };
    for (const Case& given : cases)
        for (
            const QString& sql :
            {u"select * from plano order by idplano"_qs,
             u"select p.idplano, s.b from plano p left join solto s on p.idplano like s.a order by p.idplano"_qs}) {
            SCOPED_TRACE(given.happened);
            fill();
            Recordset own;
            open(own, sql);
            own.MoveLast();
            if (given.before == 5)
                own.MoveNext();
            else
                own.setAbsolutePosition(given.before);
            database().execute(given.statement);
            own.Requery();
            EXPECT_EQ(own.Eof() ? QString() : own.Fields("idplano").text(), given.after);
        }
    // Where a join repeats the key, the row at the same position is meant.
    fill();
    database().execute(u"insert into solto values (1, 'a'), (1, 'b'), (1, 'c')"_qs);
    Recordset own;
    open(own, u"select p.idplano, s.b from plano p, solto s order by p.idplano, s.b"_qs);
    own.setAbsolutePosition(5);
    own.Requery();
    EXPECT_EQ(own.AbsolutePosition(), 5);
}

} // namespace
