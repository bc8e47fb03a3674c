#include "platform/data/connection.h"
#include "platform/data/error.h"
#include "platform/datafixture.h"
#include "platform/forms/datagrid.h"
#include "support/statements.h"

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
        fill();
        pageSize = 20;
    }

    static void fill()
    {
        database().clear();
        database().execute(
            u"insert into plano (idplano, nmplano, pdesc, inicio, sit) select 1 + seq * 387 % 1000,"
            " if(seq % 7 = 0, null, concat(elt(1 + seq % 5, 'ANA', 'ána', 'JOSÉ', 'Jose', 'É'), seq % 13)),"
            " if(seq % 11 = 0, null, (seq % 4) / 4 - 0.25),"
            " if(seq % 3, date_add('2026-01-01', interval seq % 9 day), null),"
            " if(seq % 2, 'N', 'X') from seq_1_to_1000"_s);
    }

    static QStringList codes(const QString& rest)
    {
        QStringList result;
        for (const QStringList& row : database().rows(u"select idplano from plano "_s + rest))
            result << row.first();
        return result;
    }

    static QString code(Recordset& rs)
    {
        return rs.Eof() || rs.Bof() ? QString() : rs.Fields("idplano").text();
    }

    static QStringList walk(Recordset& rs)
    {
        QStringList result;
        for (; !rs.Eof(); rs.MoveNext())
            result << code(rs);
        return result;
    }

    static QStringList walkBack(Recordset& rs)
    {
        QStringList result;
        for (; !rs.Bof(); rs.MovePrevious())
            result.prepend(code(rs));
        return result;
    }

    const QString ownersRows = u"where sit = 'N' order by nmplano"_s;
    const QString inOrder = ownersRows + u", idplano"_s;
};

TEST_F(Paging, RowsComeInTheServersOrderBothWays)
{
    // As it stands in the statement, and with what the key decides.
    const std::pair<QString, QString> orders[] = {
        {u"WHERE sit = 'N' ORDER BY pdesc DESC, NMPLANO"_s, u", idplano"_s},
        {u"where sit = 'N' or (sit = 'X' and pdesc > 0) order by inicio asc, nmplano desc, idplano desc"_s,
         {}},
        {u"where sit = 'N'"_s, u" order by idplano"_s},
    };
    for (const auto& [rest, tie] : orders)
        for (const int size : {3, 50, 500}) {
            SCOPED_TRACE(rest.toStdString() + " / " + std::to_string(size));
            pageSize = size;
            const QStringList expected = codes(rest + tie);
            Recordset rs;
            open(rs, u"select * from plano "_s + rest);
            ASSERT_EQ(rs.rowsHeld(), size);
            EXPECT_EQ(walk(rs), expected);
            EXPECT_LE(rs.rowsHeld(), 27 * size) << "what lies far behind is let go";
            rs.MovePrevious();
            EXPECT_EQ(walkBack(rs), expected);
            rs.MoveLast();
            EXPECT_EQ(rs.AbsolutePosition(), expected.size());
            EXPECT_EQ(walkBack(rs), expected);
        }
}

TEST_F(Paging, OnlyAPlainStatementOfATableWithAKeyIsReadByPages)
{
    database().execute(u"insert into solto select seq, seq from seq_1_to_30;"
                       "update plano set nmplano = 'a) order by (limit 1' where idplano <= 30"_s);
    const std::pair<QString, bool> cases[] = {
        {u" SELECT * FROM plano WHERE (nmplano <> ')' ) Order By nmplano "_s, true},
        {u"select * from plano where nmplano = 'a) order by (limit 1' order by nmplano"_s, true},
        {u"select * from plano where nmplano <> 'it''s \\' --' order by nmplano"_s, true},
        {u"select * from plano where idplano <= 30 limit 25"_s, false},
        {u"select * from plano where idplano <= 30 order by 1"_s, false},
        {u"select * from plano where idplano <= 30 order by qtde"_s, false},
        {u"select * from plano where idplano <= 30 order by length(nmplano)"_s, false},
        {u"select * from plano where idplano in (select a from solto)"_s, false},
        {u"select idplano, nmplano from plano where idplano <= 30"_s, false},
        {u"select * from plano p where idplano <= 30"_s, false},
        {u"select * from plano where idplano <= 30 -- order by nmplano"_s, false},
        {u"select * from solto order by a"_s, false},
    };
    for (const auto& [sql, isPaged] : cases) {
        SCOPED_TRACE(sql.toStdString());
        Recordset rs;
        open(rs, sql);
        EXPECT_EQ(rs.rowsHeld() == pageSize, isPaged);
        EXPECT_GE(rs.RecordCount(), 25);
    }
    Recordset rs;
    EXPECT_EQ(errorOf([&] { open(rs, u"select * from plano where nmplano = 'D'Á' order by nmplano"_s); }),
              1064);
    EXPECT_EQ(errorOf([&] { open(rs, u"select * from plano where true) or (true order by nmplano"_s); }),
              1064);
    EXPECT_EQ(errorOf([&] { open(rs, u"select * from plano where nada = 1 order by nmplano"_s); }), 1054);
}

TEST_F(Paging, ARowIsFoundNearFarAndNotAtAll)
{
    database().execute(u"update plano set nmplano = 'Zoé_1' where idplano = 777;"
                       "update plano set nmplano = 'ZOE_1' where idplano = 11;"
                       "update plano set nmplano = ' 0012.0' where idplano = 12;"
                       "update plano set nmplano = ' 0012A' where idplano = 13"_s);
    const QStringList expected = codes(u"order by nmplano, idplano"_s);
    Recordset rs;
    open(rs, u"select * from plano order by nmplano"_s);
    QStringList statements;
    const StatementWatch watch([&](const StatementEvent& event) { statements << event.statement; });
    const auto firstOf = [&](const QString& condition) {
        return codes(u"where "_s + condition + u" order by nmplano, idplano limit 1"_s).value(0);
    };
    const std::pair<QString, QString> cases[] = {
        {u"idplano = "_s + expected[2], expected[2]},
        {u"idplano = "_s + expected[600], expected[600]},
        {u"idplano like '"_s + expected[100] + u"'"_s, expected[100]},
        {u"idplano = 12.5"_s, {}},
        {u"nmplano = 'zoé_1'"_s, u"777"_s},
        {u"nmplano like 12"_s, u"12"_s},
        {u"nmplano like 'zo%_1'"_s, firstOf(u"nmplano like 'zo%'"_s)},
        {u"nmplano like 'É5' and idplano > 500"_s, firstOf(u"nmplano like binary 'É5' and idplano > 500"_s)},
        {u"inicio = '03/01/2026'"_s, firstOf(u"inicio = '2026-01-03'"_s)},
    };
    for (const auto& [criteria, found] : cases) {
        SCOPED_TRACE(criteria.toStdString());
        statements.clear();
        rs.Find(criteria);
        EXPECT_EQ(code(rs), found);
        EXPECT_EQ(rs.Eof(), found.isEmpty());
        EXPECT_LE(rs.rowsHeld(), 2 * pageSize + 1);
        EXPECT_LE(statements.size(), criteria.startsWith(u"idplano") ? 3 : 60);
        EXPECT_TRUE(statements.filter(u"count("_s).isEmpty());
        EXPECT_EQ(walk(rs), found.isEmpty() ? QStringList() : expected.mid(expected.indexOf(found)));
        rs.MovePrevious();
        EXPECT_EQ(code(rs), expected.last());
        rs.MoveFirst();
    }
}

TEST_F(Paging, RequeryStandsOnTheRowWhereverItIsNow)
{
    const QString sql = u"select * from plano "_s + ownersRows;
    const QStringList before = codes(inOrder);
    const QString mine = before[250];
    struct Case
    {
        const char* what;
        QString statement;
        QString after;
    };
    const Case cases[] = {
        {"it was renamed", u"update plano set nmplano = 'zz' where idplano = "_s + mine, mine},
        {"it came to the front", u"update plano set nmplano = null where idplano = "_s + mine, mine},
        {"it went", u"delete from plano where idplano = "_s + mine, before[251]},
        {"it became another owner's", u"update plano set sit = 'X' where idplano = "_s + mine, before[251]},
        {"all behind went too",
         u"delete from plano where sit = 'N' and idplano not in (%1)"_s.arg(before.mid(0, 250).join(u',')),
         before[0]},
    };
    for (const Case& given : cases) {
        SCOPED_TRACE(given.what);
        fill();
        Recordset rs;
        open(rs, sql);
        rs.Find(u"idplano = "_s + mine);
        database().execute(given.statement);
        rs.Requery();
        EXPECT_EQ(code(rs), given.after);
        const QStringList now = codes(inOrder);
        EXPECT_EQ(walk(rs), now.mid(std::max<qsizetype>(now.indexOf(given.after), 0)));
    }
}

TEST_F(Paging, AGridReadsOnAsItIsLookedThrough)
{
    pageSize = 10;
    const QStringList expected = codes(inOrder);
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
}

} // namespace
