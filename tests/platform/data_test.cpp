#include "platform/data/error.h"
#include "platform/datafixture.h"
#include "support/texttable.h"

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

TEST_F(Data, AFieldIsShownAsTheWorkstationWritesIt)
{
    // Summer time began at midnight on 4 November 2018: the clock was never at half past.
    const QStringView cases =
        u"-12 -> -12|9223372036854775807 -> 9223372036854775807|cast(1234.5 as decimal(15,2)) -> 1234,50|"
        "cast(-0.05 as decimal(15,4)) -> -0,0500|12.5e0 -> 12,5|date('2026-01-31') -> 31/01/2026|"
        "time('08:05:00') -> 08:05:00|timestamp('2026-01-31 08:05:09') -> 31/01/2026 08:05:09|"
        "timestamp('2026-01-31 00:00:00') -> 31/01/2026|"
        "timestamp('2018-11-04 00:30:00') -> 04/11/2018 00:30:00|'ação 日本 😀' -> ação 日本 😀|'' -> |"
        "cast(null as date) -> ";
    for (const int location : locations)
        for (const QStringList& row : textTable(cases, u" -> ")) {
            Recordset rs;
            rs.setCursorLocation(location);
            rs.Open(u"select %1 as v"_s.arg(row[0]), connection);
            EXPECT_EQ(rs.Fields("v").text(), row[1]) << row[0].toStdString();
            EXPECT_EQ(rs.Fields("v").isNull(), row[0].contains(u"null"));
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
    for (const char* noNumber : {"b", "f"})
        EXPECT_EQ(errorOf([&] { rs.Fields(noNumber).number(); }), 13);
    EXPECT_EQ(rs.Fields("c").date().date(), QDate(2026, 1, 31));
    EXPECT_FALSE(rs.Fields("b").date().isValid());
    EXPECT_EQ(rs.Fields("d").integer(), 2);
    EXPECT_EQ(rs.Fields("e").number(), 0);
    EXPECT_FALSE(rs.Fields("e").date().isValid());
    EXPECT_EQ(errorOf([&] { rs.Fields("ab"); }), 3265);
}

// A block of rows grows with the texts that are read, without the columns that a loop does not look at; what
// is too long for it is read alone. A loop must not notice.
TEST_F(Data, RowsComeWholeWhateverIsReadOfThem)
{
    const QString sql =
        u"select seq as n, repeat('a', 250) as a, if(seq % 3, repeat('é', if(seq < 800 or seq % 97,"
        " seq * 7 % 300, 150000)), null) as t, date('2026-01-31') as d, repeat('z', seq % 300) as z,"
        " repeat('c', 250) as c from seq_1_to_2000 where seq <= %1"_s;
    for (const int count : {0, 1, 256, 257, 1500})
        for (const int location : locations)
            for (const int every : {1, 350}) { // of all rows, or of a few now and then
                Recordset rs;
                rs.setCursorLocation(location);
                rs.Open(sql.arg(count), connection);
                int n = 0;
                for (; !rs.Eof(); rs.MoveNext()) {
                    ASSERT_EQ(rs.Fields("n").integer(), ++n);
                    if (n % every > 3 && n < 1200)
                        continue;
                    const int length = n < 800 || n % 97 ? n * 7 % 300 : 150'000;
                    ASSERT_EQ(rs.Fields("z").text(), QString(n % 300, u'z'));
                    ASSERT_EQ(rs.Fields("t").text(), n % 3 ? QString(length, u'é') : QString());
                    ASSERT_EQ(rs.Fields("t").isNull(), n % 3 == 0);
                }
                EXPECT_EQ(n, count);
                EXPECT_EQ(errorOf([&] { rs.MoveNext(); }), 3021);
            }
}

TEST_F(Data, TheServersErrorComesWithItsNumberStateTextAndStatement)
{
    const QString statement = u"insert into plano (nmplano) values ('D'Ávila')"_s;
    const Error error = thrownBy([&] { connection.Execute(statement); });
    EXPECT_EQ(error.number(), 1064);
    EXPECT_EQ(error.sqlState(), u"42000");
    EXPECT_TRUE(error.description().startsWith(u"You have an error")) << error.description().toStdString();
    EXPECT_EQ(error.detail(), statement);
    EXPECT_EQ(errorOf([&] { connection.Execute(u"insert into plano (sit) values (null)"_s); }), 1048);
    EXPECT_EQ(connection.State(), 1);
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
        {u"DSN=nada;Password=segredo"_s, 3706}};
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

TEST_F(Data, ClosingTheConnectionClosesItsRecordsets)
{
    Recordset forward;
    Recordset memory;
    for (const bool goes : {false, true}) {
        Connection own;
        connect(own);
        forward.Open(u"select seq from seq_1_to_1000"_s, own);
        memory.Open(u"select * from plano"_s, own, 3, 3);
        if (!goes)
            own.Close();
        EXPECT_EQ(forward.State(), int(goes));
        EXPECT_EQ(errorOf([&] { memory.Requery(); }), goes ? 0 : 3704);
    }
    EXPECT_EQ(errorOf([&] { forward.MoveNext(); }), 3704);
    EXPECT_EQ(errorOf([&] { memory.AddNew(); }), 3704);
}

TEST_F(Data, ATransactionShowsAtItsCommitAndGoesWithItsConnection)
{
    const auto insertInTransaction = [this](const QString& name) {
        connection.BeginTrans();
        EXPECT_EQ(errorOf([&] { connection.BeginTrans(); }), 3219);
        connection.Execute(u"insert into plano (nmplano) values ('%1')"_s.arg(name));
    };
    // Behind it every statement is committed by itself again, and no lock is left.
    const auto expectOnlyRow = [this](const QString& name) {
        connection.Execute(u"update plano set nmplano = concat(nmplano, '!')"_s);
        EXPECT_EQ(planos(), (Table{{u"1"_s, name}}));
    };
    insertInTransaction(u"FICA"_s);
    EXPECT_EQ(planos(), Table());
    connection.CommitTrans();
    expectOnlyRow(u"FICA!"_s);
    insertInTransaction(u"VAI"_s);
    connection.Close();
    connection.Open();
    expectOnlyRow(u"FICA!!"_s);
}

TEST_F(Data, ALostServerIsOneErrorAndThenAClosedConnection)
{
    Recordset rs;
    const std::pair<const char*, std::function<void()>> steps[] = {
        {"statement", [&] { connection.Execute(u"insert into plano (nmplano) values ('X')"_s); }},
        {"requery", [&] { rs.Requery(); }},
        {"first row change", [&] { rs.AddNew(); }},
        {"transaction", [&] { connection.BeginTrans(); }},
        {"commit", [&] { connection.CommitTrans(); }}};
    for (const auto& [name, step] : steps) {
        SCOPED_TRACE(name);
        rs.Close();
        open(rs, u"select * from plano"_s);
        if (name == std::string_view("commit"))
            connection.BeginTrans();
        kill(connection);
        const Error error = thrownBy(step);
        EXPECT_EQ(error.number(), 2006);
        EXPECT_EQ(error.description(), u"Server has gone away");
        EXPECT_EQ(connection.State(), 0);
        EXPECT_EQ(rs.State(), 0);
        connection.Open();
    }
}

} // namespace
