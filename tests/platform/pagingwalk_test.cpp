#include "platform/data/error.h"
#include "platform/datafixture.h"

#include <random>

using namespace Qt::StringLiterals;

using namespace ADODB;

namespace {

/// Random steps over random rows: many of one name or of none, names that a collation takes for one, odd
/// signs.
class RandomWalk : public DataFixture, public testing::WithParamInterface<int>
{
protected:
    void SetUp() override
    {
        DataFixture::SetUp();
        random.seed(unsigned(GetParam()));
        const QStringView values[] = {
            u"null|''|'ana'|'ANA '|'Ána'|'ana\\\\'|'d''água'|'012'|'12'|' 12'|'12%'|"
            "'1_2'|'ß'|'ss'|'😀'|'a?b'|'\"x'|'a\\nb'",
            u"null|0|-1.25|12.5|9999999999999.99|9999999999999.98",
            u"null|'2026-01-31'|'2018-11-04'|'1999-12-31'", u"null|'08:00'|'-01:00'|'120:00:00'", u"'N'|'X'"};
        QStringList rows;
        for (int id = 3 * (40 + below(100)); id > 0; id -= 3) {
            QStringList row{QString::number(id)};
            for (const QStringView column : values)
                row << one(column);
            rows << u'(' + row.join(u',') + u')';
        }
        database().execute(u"insert into plano (idplano, nmplano, pdesc, inicio, hora, sit) values "_s +
                           rows.join(u','));
        for (int i = below(4); i > 0; --i)
            order << one(u"nmplano|pdesc|inicio|hora|sit") + one(u"| desc| ASC");
        size = 1 + below(4);
    }

    int below(int n) { return int(random() % unsigned(n)); }
    /// One of the texts between the "|".
    QString one(QStringView choices)
    {
        const QStringList of = choices.toString().split(u'|');
        return of[below(int(of.size()))];
    }

    void openRows(Recordset& rs, qsizetype rowsOfAPage, const QString& conditions, const QStringList& columns)
    {
        pageSize = rowsOfAPage;
        open(rs, u"select * from plano"_s + conditions +
                     (columns.isEmpty() ? u""_s : u" order by "_s + columns.join(u", ")));
    }

    /// The current row's cells; none where there is no row.
    static QStringList row(Recordset& rs)
    {
        QStringList cells;
        for (qsizetype i = 0; rs.heldPosition() >= 0 && i < qsizetype(rs.columns().size()); ++i)
            cells << (rs.Fields(i).isNull() ? u"null"_s : rs.Fields(i).text());
        return cells;
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

    std::mt19937 random;
    QStringList order;
    qsizetype size = 0;
};

TEST_P(RandomWalk, RowsReadByPagesShowAsRowsHeldWhole)
{
    const QString conditions = one(u"| where sit = 'N'| where sit = 'N' or nmplano is null|"
                                   " where nmplano like '%a%' and pdesc like '%'");
    Recordset paged;
    Recordset whole;
    openRows(paged, size, conditions, order);
    openRows(whole, 0, conditions, order + QStringList(u"idplano"_s));
    SCOPED_TRACE(paged.source().toStdString() + " / " + std::to_string(size));
    QStringList trace;
    std::vector<std::pair<qsizetype, qsizetype>> marks;
    const auto both = [&](const QString& what, const std::function<void(Recordset&)>& step) {
        trace << what;
        EXPECT_EQ(errorOf([&] { step(paged); }), errorOf([&] { step(whole); }));
        EXPECT_EQ(row(paged), row(whole));
        EXPECT_EQ(paged.AbsolutePosition(), whole.AbsolutePosition());
        EXPECT_EQ(paged.RecordCount(), whole.RecordCount());
    };
    for (int i = 0; i < 300 && !HasFailure(); ++i) {
        const int n = 1 + below(10);
        const QString wanted = criteria();
        const auto repeated = [&](const QString& what, void (Recordset::*move)()) {
            both(what, [&](Recordset& rs) {
                for (int k = 0; k < n; ++k)
                    (rs.*move)();
            });
        };
        const std::function<void()> steps[] = {
            [&] { repeated(u"next"_s, &Recordset::MoveNext); },
            [&] { repeated(u"previous"_s, &Recordset::MovePrevious); },
            [&] { both(u"first"_s, [](Recordset& rs) { rs.MoveFirst(); }); },
            [&] { both(u"last"_s, [](Recordset& rs) { rs.MoveLast(); }); },
            [&] { both(u"to %1"_s.arg(12 * n), [&](Recordset& rs) { rs.setAbsolutePosition(12 * n); }); },
            [&] { both(u"find "_s + wanted, [&](Recordset& rs) { rs.Find(wanted); }); },
            [&] { both(u"filter "_s + wanted, [&](Recordset& rs) { rs.Filter(n > 7 ? wanted : u""_s); }); },
            [&] {
                if (n < 9)
                    return;
                marks.clear();
                both(u"requery"_s, [&](Recordset& rs) { rs.Requery(); });
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
            }};
        steps[below(int(std::size(steps)))]();
    }
    EXPECT_FALSE(HasFailure()) << trace.join(u"; ").toStdString();
}

// A changed row stays where it stands though its place is another one now, and is met once for all that.
TEST_P(RandomWalk, ChangedRowsAreNeitherLostNorRepeated)
{
    Recordset rs;
    openRows(rs, size, {}, order);
    SCOPED_TRACE(rs.source().toStdString() + " / " + std::to_string(size));
    const auto code = [&] { return rs.Fields("idplano").text(); };
    const auto change = [&] {
        rs.Fields("nmplano") = one(u"aa|zz|ana|M");
        rs.Fields("inicio") = QDate(1990 + below(50), 1, 1);
        rs.Fields("sit") = one(u"N|X");
        rs.Update();
    };
    std::map<qsizetype, QString> marks;
    QStringList trace;
    for (int i = 0; i < 60 && !HasFailure(); ++i) {
        const bool isOnRow = rs.heldPosition() >= 0;
        const int what = below(isOnRow ? 8 : 4);
        trace << QString::number(what);
        if (what == 0)
            for (int n = below(40); n > 0 && !rs.Eof(); --n)
                rs.MoveNext();
        if (what == 1)
            for (int n = below(40); n > 0 && !rs.Bof(); --n)
                rs.MovePrevious();
        if (what == 2)
            rs.Find(u"idplano > %1"_s.arg(below(400)));
        if (what == 3) {
            rs.AddNew();
            change();
        }
        if (what == 4)
            change();
        if (what == 5) {
            const QString old = code();
            rs.Fields("idplano") = 1000 + i;
            rs.Update();
            for (auto& [mark, marked] : marks)
                marked = marked == old ? code() : marked;
        }
        if (what == 6) {
            std::erase_if(marks, [&](const auto& mark) { return mark.second == code(); });
            rs.Delete();
        }
        if (what == 7)
            marks[rs.Bookmark()] = code();
        Recordset number;
        number.Open(u"select count(*) from plano"_s, connection);
        EXPECT_EQ(rs.RecordCount(), number.Fields(0).integer());
        EXPECT_LE(rs.AbsolutePosition(), rs.RecordCount());
        if (below(3) > 0)
            continue;
        while (!rs.Bof())
            rs.MovePrevious();
        QSet<QString> met;
        int rows = 0;
        for (rs.MoveNext(); !rs.Eof(); rs.MoveNext(), ++rows)
            met << code();
        EXPECT_EQ(rows, met.size());
        EXPECT_EQ(met.size(), rs.RecordCount());
        for (const auto& [mark, marked] : marks) {
            rs.setBookmark(mark);
            EXPECT_EQ(code(), marked);
        }
    }
    rs.Requery();
    Recordset whole;
    openRows(whole, 0, {}, order + QStringList(u"idplano"_s));
    for (rs.MoveFirst(); !rs.Eof() && !whole.Eof(); rs.MoveNext(), whole.MoveNext())
        EXPECT_EQ(row(rs), row(whole));
    EXPECT_EQ(rs.Eof(), whole.Eof());
    EXPECT_FALSE(HasFailure()) << trace.join(u' ').toStdString();
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomWalk, testing::Range(1, 7));

} // namespace
