#include "platform/data/error.h"
#include "platform/datafixture.h"

#include <random>

using namespace Qt::StringLiterals;

using namespace ADODB;

namespace {

/// Random steps over two tables of the same random rows, many of one name or of none, with names that a
/// collation takes for one and odd signs. The rows of one are read by pages, those of the other are all held.
/// Meanwhile a stranger inserts, changes and deletes rows of both.
class RandomWalk : public DataFixture, public testing::WithParamInterface<int>
{
protected:
    static void SetUpTestSuite()
    {
        DataFixture::SetUpTestSuite();
        database().execute(u"create table gemea like plano"_s);
    }
    static void TearDownTestSuite()
    {
        database().execute(u"drop table gemea"_s);
        DataFixture::TearDownTestSuite();
    }

    void SetUp() override
    {
        DataFixture::SetUp();
        random.seed(unsigned(GetParam()));
        for (int id = 3 * (40 + below(100)); id > 0; id -= 3)
            inBoth(u"insert into # (idplano, nmplano, pdesc, inicio, hora, sit) values (%1, %2, %3, %4, %5, "
                   "%6)"_s.arg(id)
                       .arg(name(), one(u"null|0|-1.25|12.5|9999999999999.99|9999999999999.98"),
                            one(u"null|'2026-01-31'|'2018-11-04'|'1999-12-31'"),
                            one(u"null|'08:00'|'-01:00'|'120:00:00'"), one(u"'N'|'X'")));
    }

    int below(int n) { return int(random() % unsigned(n)); }
    /// One of the texts between the "|".
    QString one(QStringView choices)
    {
        const QStringList of = choices.toString().split(u'|');
        return of[below(int(of.size()))];
    }
    QString name()
    {
        return one(u"null|''|'ana'|'ANA '|'Ána'|'ana\\\\'|'d''água'|'012'|'12'|' 12'|'12%'|'1_2'|'ß'|'ss'|"
                   "'😀'|'a?b'|'\"x'|'a\\nb'");
    }

    /// The stranger's statement, for the table #.
    void inBoth(const QString& sql)
    {
        for (const QString& table : {u"plano"_s, u"gemea"_s})
            errorOf([&] { connection.Execute(QString(sql).replace(u'#', table)); });
    }

    QString criteria()
    {
        return one(u"idplano = #|idplano like '#'|idplano > #|nmplano = 'ANA'|nmplano like 'a%'|"
                   "nmplano like 12|"
                   "nmplano like '%12%' and idplano > #|nmplano = '12%'|nmplano <> 'ana'|nmplano like '1_2'|"
                   "nmplano = ''|nmplano = 'ß'|nmplano = 'd''água'|nmplano = 'ana\\'|nmplano > 'b'|"
                   "pdesc = 12.5|pdesc = '9999999999999.99'|inicio < '2020/01/01'|hora = '08:00'|"
                   "sit = 'x' and pdesc > 0")
            .replace(u'#', QString::number(below(400)));
    }

    /// The current row's cells; where there is none, which end it is.
    static QStringList row(Recordset& rs)
    {
        if (rs.Eof() || rs.Bof())
            return {rs.Eof() ? u"end"_s : u"front"_s};
        QStringList cells;
        for (qsizetype i = 0; i < qsizetype(rs.columns().size()); ++i)
            cells << (rs.Fields(i).isNull() ? u"null"_s : rs.Fields(i).text());
        return cells;
    }

    std::mt19937 random;
};

TEST_P(RandomWalk, RowsReadByPagesShowAndChangeAsRowsHeldWhole)
{
    const QString conditions = one(u"|| where sit = 'N'| where sit = 'N' or nmplano is null|"
                                   " where nmplano like '%a%' and pdesc like '%'");
    QStringList order;
    for (int i = below(4); i > 0; --i)
        order << one(u"nmplano|pdesc|inicio|hora|sit") + one(u"| desc| ASC");
    Recordset whole;
    open(whole, u"select * from gemea"_s + conditions + u" order by "_s +
                    (order + QStringList(u"idplano"_s)).join(u", "));
    pageSize = 1 + below(4);
    Recordset paged;
    open(paged, u"select * from plano"_s + conditions +
                    (order.isEmpty() ? u""_s : u" order by "_s + order.join(u", ")));
    SCOPED_TRACE(paged.source().toStdString() + " / " + std::to_string(pageSize));
    QStringList trace;
    std::vector<std::pair<RowMark, RowMark>> marks;
    const auto both = [&](const QString& what, const std::function<void(Recordset&)>& step) {
        trace << what;
        EXPECT_EQ(errorOf([&] { step(paged); }), errorOf([&] { step(whole); }));
        for (Recordset* rs : {&paged, &whole})
            rs->CancelUpdate();
        EXPECT_EQ(row(paged), row(whole));
    };
    for (int i = 0; i < 300 && !HasFailure(); ++i) {
        const int n = 1 + below(10);
        const QString number = QString::number(below(400));
        const QString wanted = criteria();
        const QString text = one(u"aa|zz|ana|M");
        const auto repeated = [&](const QString& what, void (Recordset::*move)()) {
            both(what, [&](Recordset& rs) {
                for (int k = 0; k < n * n / 2; ++k)
                    (rs.*move)();
            });
        };
        const auto find = [&] { both(u"find "_s + wanted, [&](Recordset& rs) { rs.Find(wanted); }); };
        const auto change = [&] {
            const QString how = one(u"set |key |add ");
            both(how + number + text, [&](Recordset& rs) {
                if (how == u"add ")
                    rs.AddNew();
                if (how != u"set ")
                    rs.Fields("idplano") = number;
                rs.Fields("nmplano") = text;
                rs.Fields("inicio") = QDate(1990 + 5 * n, 1, 1);
                rs.Update();
            });
        };
        const std::function<void()> steps[] = {
            [&] { repeated(u"next"_s, &Recordset::MoveNext); },
            [&] { repeated(u"previous"_s, &Recordset::MovePrevious); },
            [&] { both(u"first"_s, [](Recordset& rs) { rs.MoveFirst(); }); },
            [&] { both(u"last"_s, [](Recordset& rs) { rs.MoveLast(); }); },
            find,
            find,
            change,
            change,
            change,
            [&] {
                both(u"filter "_s + wanted, [&](Recordset& rs) { rs.Filter(i % 8 == 0 ? wanted : u""_s); });
            },
            [&] {
                // A row that is gone leaves its position, or its place in the order: not always the same.
                if (n < 3)
                    return marks.clear(),
                           both(u"requery"_s, [](Recordset& rs) { rs.Requery(), rs.MoveFirst(); });
            },
            [&] {
                if (paged.heldPosition() >= 0)
                    marks.emplace_back(paged.Bookmark(), whole.Bookmark());
            },
            [&] {
                for (const auto& [ofPaged, ofWhole] : marks)
                    both(u"mark"_s, [&, a = ofPaged, b = ofWhole](Recordset& rs) {
                        rs.setBookmark(&rs == &paged ? a : b);
                    });
            },
            [&] { both(u"delete"_s, [](Recordset& rs) { rs.Delete(); }); },
            [&] {
                inBoth(u"insert into # (idplano, nmplano, sit) values (%1, %2, 'N')"_s.arg(number, name()));
                inBoth(u"update # set nmplano = %1, pdesc = 1 where idplano between %2 and %2 + 9"_s.arg(
                    name(), number));
                inBoth(u"delete from # where idplano = %1"_s.arg(below(400)));
            }};
        steps[below(int(std::size(steps)))]();
    }
    EXPECT_FALSE(HasFailure()) << trace.join(u"; ").toStdString();
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomWalk, testing::Range(1, 9));

} // namespace
