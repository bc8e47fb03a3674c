#include "platform/data/adodc.h"
#include "platform/data/error.h"
#include "platform/datafixture.h"
#include "platform/forms/datagrid.h"
#include "support/screendriver.h"

#include <QHeaderView>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

class Grid : public DataFixture
{
protected:
    void SetUp() override
    {
        DataFixture::SetUp();
        database().execute(
            u"insert into plano (nmplano, pdesc, inicio) select concat('PLANO ', seq), seq / 2,"
            " '2026-01-31' from seq_1_to_200"_s);
        source.setConnectionString(database().connectionString());
        source.setCommandType(1);
        source.setCursorLocation(ADODB::Recordset::ClientSide);
        source.setRecordSource(u"select * from plano order by idplano"_s);
        grid.setColumns({{u"idplano"_s, u"CÓDIGO"_s, 20},
                         {u"NMPLANO"_s, u"NOME"_s, 50},
                         {u"pdesc"_s, u"% DESC."_s, 15, u"##0.000"_s},
                         {u"inicio"_s, u"INÍCIO"_s, 15, {}, Qt::AlignHCenter}});
        grid.setDataSource(&source);
        grid.resize(600, 300);
        grid.show();
        grid.setFocus();
    }

    ADODB::Recordset& rs() { return source.Recordset(); }

    QString shown(int row, int column) { return grid.model()->index(row, column).data().toString(); }

    /// The row that the grid shows as its current one; -1 for none.
    int currentRow()
    {
        const QModelIndexList rows = grid.selectionModel()->selectedRows();
        EXPECT_EQ(grid.currentIndex().row(), rows.isEmpty() ? -1 : rows.first().row());
        return grid.currentIndex().row();
    }

    void press(int key) { QTest::keyClick(&grid, Qt::Key(key)); }

    QPoint middleOf(int row) { return grid.visualRect(grid.model()->index(row, 1)).center(); }

    Adodc source;
    DataGrid grid;
};

TEST_F(Grid, ShowsTheRowsWithCaptionsMasksAndAlignment)
{
    EXPECT_EQ(grid.model()->rowCount(), 0);
    QSignalSpy refreshed(&source, &Adodc::refreshed);
    source.Refresh();
    EXPECT_EQ(refreshed.size(), 1);
    EXPECT_EQ(grid.model()->rowCount(), 200);
    EXPECT_EQ(grid.model()->headerData(1, Qt::Horizontal).toString(), u"NOME");
    const QStringList cells = {u"5"_s, u"PLANO 5"_s, u"2,500"_s, u"31/01/2026"_s};
    const Qt::Alignment sides[] = {Qt::AlignRight, Qt::AlignLeft, Qt::AlignRight, Qt::AlignHCenter};
    for (int column = 0; column < 4; ++column) {
        EXPECT_EQ(shown(4, column), cells[column]);
        EXPECT_EQ(grid.model()->index(0, column).data(Qt::TextAlignmentRole).toInt(),
                  int(sides[column] | Qt::AlignVCenter));
    }
    grid.setColumns({{u"idplano"_s, u"LOCAL"_s, 100, {}, {}, {u"1 - UM"_s, u"10 - DEZ"_s}}});
    EXPECT_EQ((QStringList{shown(0, 0), shown(1, 0), shown(9, 0)}),
              (QStringList{u"1 - UM"_s, u"2"_s, u"10 - DEZ"_s}));
    EXPECT_EQ(grid.model()->index(0, 0).data(Qt::TextAlignmentRole).toInt(),
              int(Qt::AlignLeft | Qt::AlignVCenter));
    grid.setColumns({});
    EXPECT_EQ(grid.model()->columnCount(), 9);
    EXPECT_EQ(shown(0, 7), u""); // a null
}

TEST_F(Grid, TheGridsRowIsTheRecordsetsAndEveryChangeOfItIsToldOnceAndSeen)
{
    QStringList told;
    QObject::connect(&grid, &DataGrid::rowChanged, [&] {
        const bool isRow = rs().State() == 1 && rs().heldPosition() >= 0;
        const QString name = isRow ? rs().Fields("nmplano").text().section(u' ', -1) : u"-"_s;
        told << name;
        EXPECT_EQ(currentRow(), isRow ? rs().heldPosition() : -1);
        EXPECT_EQ(shown(currentRow(), 1).section(u' ', -1), isRow ? name : QString());
        EXPECT_EQ(grid.viewport()->rect().contains(grid.visualRect(grid.currentIndex())), isRow);
    });
    const auto requeryWithout = [&](int code) {
        database().execute(u"delete from plano where idplano = %1"_s.arg(code));
        rs().Requery();
    };
    const auto rename = [&](const QString& name) {
        rs().Fields("nmplano") = name;
        rs().Update();
    };
    using Step = std::function<void()>;
    struct Case
    {
        const char* what;
        Step step;
        QStringList told;
    };
    const Case cases[] = {
        {"opened", [&] { source.Refresh(); }, {u"1"_s}},
        {"keys",
         [&] { press(Qt::Key_Down), press(Qt::Key_Down), press(Qt::Key_Up); },
         {u"2"_s, u"3"_s, u"2"_s}},
        {"mouse", [&] { QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, middleOf(4)); }, {u"5"_s}},
        {"the same row", [&] { QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, middleOf(4)); }, {}},
        {"last", [&] { QTest::keyClick(&grid, Qt::Key_End, Qt::ControlModifier); }, {u"200"_s}},
        {"a letter is no search", [&] { press(Qt::Key_P); }, {}},
        {"program", [&] { rs().Find(u"idplano = 150"_s); }, {u"150"_s}},
        {"not found", [&] { rs().Find(u"idplano = 999"_s); }, {u"-"_s}},
        {"found after all", [&] { rs().Find(u"idplano = 150"_s); }, {u"150"_s}},
        {"refreshed", [&] { source.Refresh(); }, {}},
        {"moved up by a requery", [&] { requeryWithout(1); }, {}},
        {"gone at a requery", [&] { requeryWithout(150); }, {u"151"_s}},
        {"filter", [&] { rs().Filter(u"idplano > 189"_s); }, {u"190"_s}},
        {"key under the filter", [&] { press(Qt::Key_Down); }, {u"191"_s}},
        {"columns, a change not being saved",
         [&] {
             rs().Fields("nmplano") = u"half typed"_s;
             grid.setColumns({{u"idplano"_s, u"CÓDIGO"_s, 50}, {u"nmplano"_s, u"NOME"_s, 50}});
         },
         {}},
        {"refreshed without filter and change", [&] { source.Refresh(); }, {}},
        {"delete", [&] { rs().Delete(); }, {u"192"_s}},
        {"end", [&] { rs().MoveLast(); }, {u"200"_s}},
        {"delete the last", [&] { rs().Delete(); }, {u"-"_s}},
        {"new row", [&] { rs().AddNew(), rename(u"NOVO"_s); }, {u"NOVO"_s}},
        {"update", [&] { rename(u"NOVA"_s); }, {u"NOVA"_s}},
        {"update to the same", [&] { rename(u"NOVA"_s); }, {}},
        {"closed", [&] { source.Close(), press(Qt::Key_Down); }, {u"-"_s}},
        {"opened again", [&] { source.Refresh(); }, {u"2"_s}},
    };
    for (const Case& given : cases) {
        told.clear();
        given.step();
        EXPECT_EQ(told, given.told) << given.what;
    }
}

TEST_F(Grid, TheCurrentRowLooksChosenOnceSomebodyWentThere)
{
    // Its ground against that of another row, at the right edge of a cell.
    const auto looksChosen = [&] {
        const QImage seen = grid.viewport()->grab().toImage();
        const auto ground = [&](int row) {
            return seen.pixel(grid.visualRect(grid.model()->index(row, 3)).topRight() + QPoint(-2, 2));
        };
        const int row = grid.currentIndex().row();
        return ground(row) != ground(row == 0 ? 1 : row - 1);
    };
    const struct
    {
        const char* what;
        std::function<void()> step;
        bool chosen;
    } cases[] = {
        {"opened, with the focus", [&] { source.Refresh(); }, true},
        {"without", [&] { grid.clearFocus(); }, false},
        {"found where it stood", [&] { rs().Find(u"idplano = 1"_s); }, true},
        {"refreshed", [&] { source.Refresh(); }, false},
        {"found far away", [&] { rs().Find(u"idplano = 190"_s); }, true},
        {"refreshed on it", [&] { source.Refresh(); }, false},
        {"clicked",
         [&] { QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, middleOf(grid.currentIndex().row())); },
         true},
        {"the focus goes", [&] { grid.clearFocus(); }, true},
        {"put to rest", [&] { grid.rest(); }, false},
        {"filtered", [&] { rs().Filter(u"idplano > 100"_s); }, false},
        {"the screen's choice", [&] { grid.setProperty("choice", true); }, true},
    };
    for (const auto& given : cases) {
        given.step();
        EXPECT_EQ(looksChosen(), given.chosen) << given.what;
    }
}

TEST_F(Grid, ACellThatIsCutShowsItsTextInAHint)
{
    source.Refresh();
    EXPECT_EQ(hintAt(grid.viewport(), middleOf(0)), u"");
    const QString text = u"W"_s.repeated(50);
    rs().Fields("nmplano") = text;
    rs().Update();
    EXPECT_EQ(hintAt(grid.viewport(), middleOf(0)), text);
}

TEST_F(Grid, WidthsAndHeightsFollowTheGridAndItsFont)
{
    for (const int width : {600, 317, 1200}) {
        grid.resize(width, 300);
        source.Refresh();
        QList<double> shares;
        for (int column = 0; column < 4; ++column)
            shares << std::round(100.0 * grid.columnWidth(column) / grid.viewport()->width());
        if (width > 317) {
            EXPECT_EQ(shares, (QList<double>{20, 50, 15, 15}));
        }
        for (int column = 0; column < 4; ++column)
            EXPECT_GE(grid.columnWidth(column), grid.horizontalHeader()->sectionSizeHint(column)) << width;
        EXPECT_EQ(grid.horizontalHeader()->length(), grid.viewport()->width());
    }
    const int before = grid.rowHeight(0);
    const double caption = grid.horizontalHeader()->viewport()->font().pointSizeF();
    QFont font = grid.font();
    font.setPointSizeF(font.pointSizeF() * 2);
    grid.setFont(font);
    EXPECT_GE(grid.rowHeight(0), before + before / 2);
    EXPECT_EQ(grid.horizontalHeader()->viewport()->font().pointSizeF(), 2 * caption);
}

TEST_F(Grid, TheSourceMayGoBeforeTheGridAndTheGridBeforeTheSource)
{
    {
        Adodc passing;
        passing.setConnectionString(database().connectionString());
        passing.setRecordSource(u"select * from plano"_s);
        passing.Refresh();
        grid.setDataSource(&passing);
    }
    EXPECT_EQ(grid.model()->rowCount(), 0);
    press(Qt::Key_Down);
    grid.setDataSource(&source);
    auto second = std::make_unique<DataGrid>();
    second->setDataSource(&source);
    source.Refresh();
    QObject::connect(&grid, &DataGrid::rowChanged, [&] { second.reset(); });
    rs().MoveNext(); // the second one goes before it is told
    EXPECT_FALSE(second);
    EXPECT_EQ(currentRow(), 1);
}

TEST_F(Grid, AFailingHandlerKeepsNoOtherGridFromItsRow)
{
    DataGrid second;
    second.setDataSource(&source);
    source.Refresh();
    QObject::connect(&grid, &DataGrid::rowChanged, [] { Errors::objectNotSet(); });
    EXPECT_EQ(errorOf([&] { rs().MoveNext(); }), 91);
    EXPECT_EQ(second.currentIndex().row(), 1);
}

} // namespace
