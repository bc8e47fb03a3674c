#include "platform/data/error.h"
#include "platform/datafixture.h"
#include "support/statements.h"

#include <QElapsedTimer>
#include <QTcpServer>

using namespace ADODB;

namespace {

using Data = DataFixture;

constexpr int locations[] = {Recordset::ServerSide, Recordset::ClientSide};

template <class Call>
Error thrownBy(Call call)
{
    try {
        call();
    } catch (const Error& error) {
        return error;
    }
    throw std::logic_error("no error");
}

TEST_F(Data, AFieldSaysWhatItHoldsAndShowsItAsTheWorkstationWritesIt)
{
    using enum Field::Type;
    const std::tuple<QString, Field::Type, QString, QVariant> cases[] = {
        {u"-12"_s, Number, u"-12"_s, qint64(-12)},
        {u"9223372036854775807"_s, Number, u"9223372036854775807"_s, std::numeric_limits<qint64>::max()},
        {u"cast(1234.5 as decimal(15,2))"_s, Number, u"1234,50"_s, 1234.5},
        {u"cast(-0.05 as decimal(15,4))"_s, Number, u"-0,0500"_s, -0.05},
        {u"12.5e0"_s, Number, u"12,5"_s, 12.5},
        {u"date('2026-01-31')"_s, Date, u"31/01/2026"_s, QDate(2026, 1, 31)},
        {u"time('08:05:00')"_s, Date, u"08:05:00"_s, QTime(8, 5)},
        {u"timestamp('2026-01-31 08:05:09')"_s, Date, u"31/01/2026 08:05:09"_s,
         QDateTime(QDate(2026, 1, 31), QTime(8, 5, 9))},
        {u"timestamp('2026-01-31 00:00:00')"_s, Date, u"31/01/2026"_s,
         QDateTime(QDate(2026, 1, 31), QTime(0, 0))},
        // Summer time began at midnight: the clock was never at half past.
        {u"timestamp('2018-11-04 00:30:00')"_s, Date, u"04/11/2018 00:30:00"_s,
         QDateTime(QDate(2018, 11, 4), QTime(0, 30))},
        {u"'ação 日本 😀'"_s, Text, u"ação 日本 😀"_s, u"ação 日本 😀"_s},
        {u"''"_s, Text, u""_s, u""_s},
        {u"cast(null as date)"_s, Null, u""_s, QVariant()},
    };
    for (const int location : locations)
        for (const auto& [expression, type, text, value] : cases) {
            SCOPED_TRACE(expression.toStdString());
            Recordset rs;
            rs.setCursorLocation(location);
            rs.Open(u"select %1 as v"_s.arg(expression), connection);
            EXPECT_EQ(rs.Fields("v").type(), type);
            EXPECT_EQ(rs.Fields("v").text(), text);
            EXPECT_EQ(rs.Fields("v").value(), value);
            EXPECT_EQ(rs.Fields("v").isNull(), type == Null);
        }
}

TEST_F(Data, AFieldIsFoundByNameAndReadAsNumberAndDateOutOfTextToo)
{
    Recordset rs;
    rs.Open(u"select '12,5' a, 'doze' b, '31/01/2026' c, cast(2.5 as decimal(5,1)) d, null e,"
            " date('2026-01-31') f, 2 as A"_s,
            connection);
    for (int round = 0; round < 2; ++round) // the second one knows the places already
        EXPECT_EQ(rs.Fields("A").number(), 12.5) << "the first of two, in any case";
    EXPECT_EQ(rs.Fields(u"a"_s).integer(), 12);
    EXPECT_EQ(errorOf([&] { rs.Fields("b").number(); }), 13);
    EXPECT_EQ(errorOf([&] { rs.Fields("f").number(); }), 13);
    EXPECT_EQ(rs.Fields("c").date().date(), QDate(2026, 1, 31));
    EXPECT_FALSE(rs.Fields("b").date().isValid());
    EXPECT_EQ(rs.Fields("d").integer(), 2);
    EXPECT_EQ(rs.Fields("e").number(), 0);
    EXPECT_EQ(rs.Fields("e").integer(), 0);
    EXPECT_FALSE(rs.Fields("e").date().isValid());
    EXPECT_EQ(errorOf([&] { rs.Fields("ab"); }), 3265);
}

TEST_F(Data, RowsComeWholeAcrossTheEdgesOfBlocks)
{
    for (const int count : {0, 1, 256, 257, 513})
        for (const int location : locations) {
            Recordset rs;
            rs.setCursorLocation(location);
            rs.Open(u"select seq as n from seq_1_to_1000 where seq <= %1"_s.arg(count), connection);
            int read = 0;
            for (; !rs.Eof(); rs.MoveNext())
                ASSERT_EQ(rs.Fields("n").integer(), ++read);
            EXPECT_EQ(read, count);
            EXPECT_EQ(errorOf([&] { rs.Fields("n").text(); }), 3021);
            EXPECT_EQ(errorOf([&] { rs.MoveNext(); }), 3021);
        }
}

// Columns that a loop does not look at are no longer transferred; a loop that begins to, later, must not
// notice.
TEST_F(Data, AColumnMayBeReadForTheFirstTimeAnywhere)
{
    Recordset rs;
    rs.Open(u"select seq as n, if(seq % 3, concat('linha ', seq), null) as t, repeat('é', seq) as longo"
            " from seq_1_to_1500"_s,
            connection);
    for (int n = 1; !rs.Eof(); rs.MoveNext(), ++n) {
        ASSERT_EQ(rs.Fields("n").integer(), n);
        if (n == 700 || n == 703 || n > 1200) {
            ASSERT_EQ(rs.Fields("t").isNull(), n % 3 == 0) << n;
            ASSERT_EQ(rs.Fields("t").text(), n % 3 ? u"linha %1"_s.arg(n) : QString());
            ASSERT_EQ(rs.Fields("longo").text(), QString(n, u'é'));
        }
    }
}

// The block grows with the text that is read; the driver must forget where the columns beside it used to be.
TEST_F(Data, ATextThatOutgrowsTheBlockIsReadAloneFromWideRows)
{
    for (const int longRow : {0, 3}) { // all rows grow at once, or one far beyond what a block takes
        const QString sql = u"select repeat('a', 250) a, if(seq = 3, repeat('o', %1), repeat('o', %2)) obs,"
                            " date('2026-01-31') b, repeat('c', 250) c from seq_1_to_600"_s;
        Recordset rs;
        rs.Open(longRow ? sql.arg(40000).arg(1) : sql.arg(300).arg(300), connection);
        for (int n = 1; !rs.Eof(); rs.MoveNext(), ++n)
            ASSERT_EQ(rs.Fields("obs").text(), QString(!longRow ? 300 : n == longRow ? 40000 : 1, u'o')) << n;
    }
}

TEST_F(Data, ALongTextIsNeverCut)
{
    for (const int location : locations)
        for (const int size : {127, 128, 255, 256, 257, 150'000}) {
            SCOPED_TRACE(size);
            Recordset rs;
            rs.setCursorLocation(location);
            rs.Open(u"select repeat('é', %1) t, repeat('z', %1) z, 'depois' d union all"
                    " select 'x', null, repeat('y', %1)"_s.arg(size),
                    connection);
            EXPECT_EQ(rs.Fields("t").text(), QString(size, u'é'));
            EXPECT_EQ(rs.Fields("z").text(), QString(size, u'z'));
            EXPECT_EQ(rs.Fields("d").text(), u"depois");
            rs.MoveNext();
            EXPECT_EQ(rs.Fields("t").text(), u"x");
            EXPECT_TRUE(rs.Fields("z").isNull());
            EXPECT_EQ(rs.Fields("d").text(), QString(size, u'y'));
        }
}

TEST_F(Data, TheServersErrorComesWithItsNumberStateTextAndStatement)
{
    const std::tuple<QString, int, QString, QString> cases[] = {
        {u"insert into plano (nmplano) values ('D'Ávila')"_s, 1064, u"42000"_s, u"vila"_s},
        {u"select nada from plano"_s, 1054, u"42S22"_s, u"nada"_s},
        {u"insert into plano (sit) values (null)"_s, 1048, u"23000"_s, u"sit"_s},
        {u"create table outra (a int)"_s, 1142, u"42000"_s, u"denied"_s},
    };
    for (const auto& [statement, number, state, words] : cases) {
        SCOPED_TRACE(statement.toStdString());
        const Error error = thrownBy([&, sql = statement] { connection.Execute(sql); });
        EXPECT_EQ(error.number(), number);
        EXPECT_EQ(error.sqlState(), state);
        EXPECT_TRUE(error.description().contains(words)) << error.description().toStdString();
        EXPECT_FALSE(error.description().startsWith(u'['));
        EXPECT_EQ(error.detail(), statement);
    }
    EXPECT_EQ(connection.State(), 1);
    EXPECT_EQ(planos(), Table());
}

TEST_F(Data, AConnectionThatIsNotToBeHadHasANumberAndNamesNoPassword)
{
    QTcpServer silent; // what connects to it is accepted by the system, and nobody answers
    ASSERT_TRUE(silent.listen(QHostAddress::LocalHost));
    const QString silentServer = u"127.0.0.1;Port=%1;CONN_TIMEOUT=1"_s.arg(silent.serverPort());
    const QString good = database().connectionString();
    const std::pair<QString, int> cases[] = {
        {QString(good).replace(u"Password=s3nha"_s, u"Password=segredo"_s), 1045},
        {QString(good).replace(database().server(), u"127.0.0.1;Port=1"_s), 2002},
        {QString(good).replace(database().server(), silentServer), 2013},
        {QString(good).replace(u"MySQL"_s, u"Outro"_s), 3706},
        {u"DSN=nada;Password=segredo"_s, 3706},
        {QString(), 3706}};
    for (const auto& [connectionString, number] : cases) {
        SCOPED_TRACE(connectionString.toStdString());
        QElapsedTimer timer;
        timer.start();
        Connection other;
        other.setConnectionString(connectionString);
        const Error error = thrownBy([&] { other.Open(); });
        EXPECT_EQ(error.number(), number) << error.description().toStdString();
        EXPECT_FALSE((error.description() + error.detail()).contains(u"segredo"));
        EXPECT_EQ(other.State(), 0);
        EXPECT_LT(timer.elapsed(), 10'000) << "the server's field says a second";
    }
}

TEST(ConnectionString, HasATimeOutUnlessTheServersFieldHasOne)
{
    const QString ours = u"CONN_TIMEOUT=15;"_s;
    const QString own = u"Server=s; conn_timeout = 2;User=u;"_s;
    EXPECT_EQ(Odbc::withTimeout(u"Server=s;User=u;"_s), u"Server=s;User=u;"_s + ours);
    EXPECT_EQ(Odbc::withTimeout(u"Server=s"_s), u"Server=s;"_s + ours);
    EXPECT_EQ(Odbc::withTimeout(own), own);
}

TEST_F(Data, WhatIsClosedOrOpenAlreadyIsRefusedByNumber)
{
    const auto expectErrors = [](int number, const std::vector<std::function<void()>>& calls) {
        for (std::size_t i = 0; i < calls.size(); ++i)
            EXPECT_EQ(errorOf(calls[i]), number) << "call " << i;
    };
    Recordset rs;
    expectErrors(3704, {[&] { rs.Eof(); }});
    rs.Open(u"select 1 as a"_s, connection);
    Field field = rs.Fields("a");
    expectErrors(3705, {[&] { connection.Open(); }, [&] { rs.Open(u"select 2"_s, connection); }});
    expectErrors(
        3219, {[&] { connection.CommitTrans(); }, [&] { rs.MovePrevious(); }, [&] { rs.Find(u"a = 1"_s); }});
    expectErrors(3251, {[&] { field = 2; }});
    rs.Close();
    expectErrors(3704, {[&] { field = u"x"_s; }});
    connection.Close();
    expectErrors(3704, {[&] { rs.Open(u"select 1"_s, connection); }, [&] { connection.BeginTrans(); }});
}

TEST_F(Data, ClosingTheConnectionClosesItsRecordsets)
{
    Recordset forward;
    Recordset memory;
    {
        Connection own;
        connect(own);
        forward.Open(u"select seq from seq_1_to_1000"_s, own);
        memory.Open(u"select * from plano"_s, own, 3, 3);
        own.Close();
        EXPECT_EQ(forward.State(), 0);
        EXPECT_EQ(errorOf([&] { memory.AddNew(); }), 3704);
        own.Open();
        forward.Open(u"select seq from seq_1_to_1000"_s, own);
        memory.Open(u"select * from plano"_s, own, 3, 3);
    }
    EXPECT_EQ(errorOf([&] { forward.MoveNext(); }), 3704);
    EXPECT_EQ(errorOf([&] { memory.Requery(); }), 3704);
}

TEST_F(Data, AChangingStatementRunsThroughExecuteOpenAndCommand)
{
    EXPECT_EQ(connection.Execute(u"insert into plano (nmplano) values ('A'), ('B'), ('C')"_s), 3);
    EXPECT_EQ(connection.Execute(u"update plano set nmplano = 'A' where idplano = 1"_s), 1);
    Recordset rs;
    rs.Open(u"delete from plano where idplano like 1"_s, connection, 2, 3);
    EXPECT_EQ(rs.State(), 0);
    Command command;
    command.setActiveConnection(&connection);
    command.setCommandType(1);
    command.setCommandText(u"update plano set nmplano = 'Z' where idplano = 2"_s);
    rs.setCursorLocation(3);
    rs.Open(command, 1, 2);
    EXPECT_EQ(rs.State(), 0);
    EXPECT_EQ(planos(), (Table{{u"2"_s, u"Z"_s}, {u"3"_s, u"C"_s}}));
    EXPECT_EQ(errorOf([&] { command.setCommandType(4); }), 3001);
}

TEST_F(Data, ATransactionShowsAtItsCommitAndGoesWithItsConnection)
{
    connection.BeginTrans();
    EXPECT_EQ(errorOf([&] { connection.BeginTrans(); }), 3219);
    connection.Execute(u"insert into plano (nmplano) values ('FICA')"_s);
    EXPECT_EQ(planos(), Table());
    connection.CommitTrans();
    EXPECT_EQ(planos(), (Table{{u"1"_s, u"FICA"_s}}));
    connection.Execute(u"update plano set nmplano = 'MUDA'"_s);
    EXPECT_EQ(planos(), (Table{{u"1"_s, u"MUDA"_s}}));

    connection.BeginTrans();
    connection.Execute(u"insert into plano (nmplano) values ('VAI')"_s);
    connection.Close();
    EXPECT_EQ(planos().size(), 1);

    // The next connection commits every statement by itself again, and no lock of the old one is left.
    connection.Open();
    connection.Execute(u"update plano set nmplano = 'SOLTO'"_s);
    EXPECT_EQ(planos(), (Table{{u"1"_s, u"SOLTO"_s}}));
}

TEST_F(Data, AStatementThatFailsTheSecondTimeLeavesTheRowsInMemoryAndClosesAForwardOnlyResult)
{
    for (const int location : locations) {
        SCOPED_TRACE(location);
        database().execute(u"create table passageira as select seq n from seq_1_to_600"_s);
        Recordset rs;
        rs.setCursorLocation(location);
        rs.Open(u"select * from passageira"_s, connection);
        rs.MoveNext();
        database().execute(u"drop table passageira"_s);
        EXPECT_EQ(errorOf([&] { rs.Requery(); }), 1146);
        const bool inMemory = location == Recordset::ClientSide;
        EXPECT_EQ(rs.State(), inMemory ? 1 : 0);
        EXPECT_EQ(errorOf([&] { EXPECT_EQ(rs.Fields("n").integer(), 2); }), inMemory ? 0 : 3704);
    }
}

TEST_F(Data, ALostServerIsOneErrorAndThenAClosedConnection)
{
    using Step = std::function<void()>;
    Recordset rs;
    const std::pair<const char*, Step> steps[] = {
        {"statement", [&] { connection.Execute(u"insert into plano (nmplano) values ('X')"_s); }},
        {"requery", [&] { rs.Requery(); }},
        {"first row change", [&] { rs.AddNew(); }},
        {"transaction", [&] { connection.BeginTrans(); }},
        {"commit", [&] { connection.CommitTrans(); }}};
    for (const auto& [name, step] : steps) {
        SCOPED_TRACE(name);
        rs.Close();
        open(rs, u"select * from plano"_s);
        if (name == std::string_view("commit")) {
            connection.BeginTrans();
            connection.Execute(u"update plano set nmplano = 'X'"_s);
        }
        kill(connection);
        const Error error = thrownBy(step);
        EXPECT_EQ(error.number(), 2006);
        EXPECT_EQ(error.description(), u"Server has gone away");
        EXPECT_EQ(connection.State(), 0);
        EXPECT_EQ(rs.State(), 0);
        connection.Open();
        EXPECT_EQ(connection.Execute(u"insert into plano (nmplano) values ('Y')"_s), 1);
    }
}

TEST_F(Data, TwoResultsAndTwoConnectionsStandSideBySide)
{
    Connection second;
    connect(second);
    Recordset outer;
    outer.Open(u"select seq as n from seq_1_to_600"_s, connection);
    for (; !outer.Eof(); outer.MoveNext()) {
        Recordset inner;
        inner.Open(u"select %1 * 2 as d"_s.arg(outer.Fields("n").text()),
                   outer.Fields("n").integer() % 2 ? connection : second);
        ASSERT_EQ(inner.Fields("d").integer(), outer.Fields("n").integer() * 2);
    }
}

TEST_F(Data, EveryStatementPassesTheObserver)
{
    QStringList seen;
    const StatementWatch watch([&](const StatementEvent& event) {
        EXPECT_GE(event.seconds, 0);
        seen << (event.ok ? u"+"_s : u"-"_s) + event.statement.section(u' ', 0, 0);
    });
    connection.Execute(u"insert into plano (nmplano) values ('A')"_s);
    Recordset rs;
    open(rs, u"select * from plano"_s);
    rs.Fields("nmplano") = u"B"_s;
    rs.Update();
    rs.Delete();
    EXPECT_NE(errorOf([&] { connection.Execute(u"selec"_s); }), 0);
    connection.Execute(u"delete from plano"_s);
    EXPECT_EQ(seen, (QStringList{u"+insert"_s, u"+select"_s, u"+update"_s, u"+select"_s, u"+delete"_s,
                                 u"-selec"_s, u"+delete"_s}));
}

} // namespace
