#include "platform/data/connection.h"
#include "platform/data/error.h"
#include "platform/datafixture.h"
#include "platform/forms/datagrid.h"
#include "support/statements.h"
#include "support/texttable.h"

#include <QScrollBar>
#include <QTest>

using namespace Qt::StringLiterals;

using namespace ADODB;

namespace {

/// A thousand rows of two owners (sit), many of the same name or of none.
class Paging : public DataFixture
{
protected:
    void SetUp() override
    {
        DataFixture::SetUp();
        database().execute(
            u"insert into plano (idplano, nmplano, sit) select 1 + seq * 387 % 1000,"
            " if(seq % 7 = 0, null, concat(elt(1 + seq % 5, 'ANA', 'ána', 'JOSÉ', 'Jose', 'É'), seq % 13)),"
            " if(seq % 2, 'N', 'X') from seq_1_to_1000"_s);
        pageSize = 20;
    }

    static QString code(Recordset& rs) { return rs.Eof() ? QString() : rs.Fields("idplano").text(); }

    const QString ownersRows = u"where sit = 'N' order by nmplano"_s;
};

TEST_F(Paging, OnlyAPlainStatementOfATableWithAKeyIsReadByPages)
{
    database().execute(u"insert into solto select seq, seq from seq_1_to_30;"
                       "update plano set nmplano = 'a) order by (limit 1' where idplano <= 30"_s);
    const auto rowsOf = [&](const QString& sql) {
        Recordset rs;
        open(rs, sql);
        return rs.rowsHeld();
    };
    for (const QString& sql :
         {u" SELECT * FROM plano WHERE (nmplano <> ')' ) Order By nmplano "_s,
          u"select * from plano where nmplano = 'a) order by (limit 1' order by nmplano"_s})
        EXPECT_EQ(rowsOf(sql), pageSize) << sql.toStdString();
    for (const QString& rest :
         {u"where idplano <= 30 limit 25"_s, u"where idplano <= 30 order by 1"_s,
          u"where idplano <= 30 order by qtde"_s, u"where idplano <= 30 order by length(nmplano)"_s,
          u"p where idplano <= 30"_s, u"where idplano <= 30 -- order by nmplano"_s})
        EXPECT_GE(rowsOf(u"select * from plano "_s + rest), 25) << rest.toStdString();
    EXPECT_EQ(rowsOf(u"select idplano, nmplano from plano where idplano <= 30"_s), 30);
    EXPECT_EQ(rowsOf(u"select * from solto order by a"_s), 30);
    for (const QString& wrong : {u"nmplano = 'D'Á' order by nmplano"_s, u"true) or (true order by nmplano"_s})
        EXPECT_EQ(errorOf([&] { rowsOf(u"select * from plano where "_s + wrong); }), 1064);
}

TEST_F(Paging, ARowIsFoundWithoutReadingAllThatLieBefore)
{
    database().execute(u"update plano set nmplano = 'Zoé_1' where idplano = 777;"
                       "update plano set nmplano = ' 0012.0' where idplano = 12"_s);
    Recordset rs;
    open(rs, u"select * from plano order by nmplano"_s);
    int statements = 0;
    const StatementWatch watch([&](const StatementEvent&) { ++statements; });
    for (const QStringList& row : textTable(
             u"idplano = 600 -> 600|idplano like '77' -> 77|idplano = 12.5 -> |nmplano = 'zoé_1' -> 777|"
             "nmplano like 12 -> 12|nmplano like 'zo%_1' -> 777",
             u" -> ")) {
        SCOPED_TRACE(row[0].toStdString());
        statements = 0;
        rs.Find(row[0]);
        EXPECT_EQ(code(rs), row[1]);
        EXPECT_LE(rs.rowsHeld(), 2 * pageSize + 1);
        EXPECT_LE(statements, 4);
        rs.MovePrevious();
        rs.MoveFirst();
    }
}

TEST_F(Paging, NothingIsHeldOnceAllIsReadOrTheResultIsClosed)
{
    const auto change = [](const QString& what) {
        database().execute(u"set lock_wait_timeout = 1; alter table plano comment '%1'"_s.arg(what));
    };
    Recordset rs;
    open(rs, u"select * from plano where idplano <= 15"_s);
    change(u"few rows"_s);
    rs.Close();
    open(rs, u"select * from plano"_s);
    EXPECT_THROW(change(u"under a grid"_s), std::runtime_error);
    while (!rs.Eof())
        rs.MoveNext();
    rs.Filter(u"idplano > 7"_s);
    change(u"all read"_s);
    rs.Requery();
    rs.Close();
    change(u"closed"_s);
    {
        Recordset passing;
        open(passing, u"select * from plano"_s);
        EXPECT_EQ(errorOf([&] { open(rs, u"select * from plano where nada = 1"_s); }), 1054);
    }
    change(u"gone"_s);
}

TEST_F(Paging, AGridReadsOnAsItIsLookedThrough)
{
    pageSize = 10;
    QStringList expected;
    for (const QStringList& row : database().rows(u"select idplano from plano %1, idplano"_s.arg(ownersRows)))
        expected << row.first();
    Recordset rs;
    DataGrid grid;
    grid.setColumns({{u"idplano"_s, u"CÓDIGO"_s, 100}});
    grid.setDataSource(&rs);
    grid.resize(300, 200);
    grid.show();
    open(rs, u"select * from plano "_s + ownersRows);
    QScrollBar* bar = grid.verticalScrollBar();
    const auto seenAt = [&](int line) {
        return grid.model()->index(bar->value() + line, 0).data().toString();
    };
    EXPECT_LE(grid.model()->rowCount(), 30);

    // By keys to the end and back: no row is missed, the grid's row is the recordset's.
    QStringList passed{code(rs)};
    while (code(rs) != expected.last() && passed.size() < 600) {
        QTest::keyClick(&grid, Qt::Key_Down);
        passed << code(rs);
        ASSERT_EQ(grid.currentIndex().data().toString(), code(rs));
    }
    EXPECT_EQ(passed, expected);
    EXPECT_LE(grid.model()->rowCount(), 27 * pageSize) << "what lies far behind is let go";
    for (int pages = 0; code(rs) != expected.first() && pages < 500; ++pages)
        QTest::keyClick(&grid, Qt::Key_PageUp);
    EXPECT_EQ(code(rs), expected.first());
    QTest::keyClick(&grid, Qt::Key_End, Qt::ControlModifier);
    EXPECT_EQ(code(rs), expected.last());
    EXPECT_LE(grid.model()->rowCount(), 30);

    // Scrolling upwards reads in front, and what is seen goes up line by line.
    int at = int(expected.indexOf(seenAt(0)));
    int told = 0;
    QObject::connect(&grid, &DataGrid::rowChanged, [&] { ++told; });
    for (; at > 0; --at) {
        ASSERT_EQ(seenAt(0), expected[at]);
        ASSERT_EQ(seenAt(3), expected[at + 3]);
        bar->setValue(bar->value() - 1);
    }
    EXPECT_EQ(seenAt(0), expected.first());
    EXPECT_EQ(code(rs), expected.last()) << "scrolling moves no row";
    EXPECT_EQ(told, 0);
    QTest::keyClick(&grid, Qt::Key_Home, Qt::ControlModifier);
    EXPECT_EQ(code(rs), expected.first());
    EXPECT_EQ(told, 1);

    grid.clearFocus();
    rs.Requery();
    EXPECT_FALSE(grid.showsChoice());
    rs.MoveLast();
    EXPECT_TRUE(grid.showsChoice()) << "a row that was gone to, where others had to be read";
}

TEST_F(Paging, AGridWhoseServerIsLostStaysAsItIsAndTheNextStatementTells)
{
    Recordset rs;
    DataGrid grid;
    grid.setDataSource(&rs);
    grid.resize(300, 200);
    grid.show();
    open(rs, u"select * from plano "_s + ownersRows);
    const QString first = code(rs);
    kill(readers.back());
    const int rows = grid.model()->rowCount();
    grid.verticalScrollBar()->setValue(rows);
    QTest::keyClick(&grid, Qt::Key_End, Qt::ControlModifier);
    EXPECT_EQ(code(rs), first);
    for (int i = 0; i < 2 * rows; ++i)
        QTest::keyClick(&grid, Qt::Key_Down);
    EXPECT_EQ(rs.heldPosition(), rows - 1);
    EXPECT_EQ(grid.model()->rowCount(), rows);
    EXPECT_EQ(grid.currentIndex().siblingAtColumn(0).data().toString(), code(rs));
    const int number = errorOf([&] { rs.MoveNext(); });
    EXPECT_TRUE(number == 2006 || number == 2013) << number;
    EXPECT_EQ(rs.State(), 0);
}

} // namespace
