#include "platform/data/error.h"
#include "platform/data/recordset.h"
#include "support/database.h"

#include <gtest/gtest.h>

using namespace ADODB;

TEST(Smoke, Reads)
{
    auto& db = Database::instance();
    db.execute(QStringLiteral(
        "create table t (id int auto_increment primary key, nm varchar(60), v decimal(15,2), d date)"));
    Connection c;
    c.setConnectionString(db.connectionString());
    c.Open();
    Recordset rs;
    rs.setCursorLocation(3);
    rs.Open(QStringLiteral("select * from t"), c, 3, 3);
    rs.AddNew();
    rs.Fields("NM") = QStringLiteral("O'Hara \\ 😀");
    rs.Fields("v") = QStringLiteral("12,5");
    rs.Fields("d") = QDate(2026, 1, 31);
    rs.Update();
    EXPECT_EQ(rs.Fields("id").integer(), 1);
    EXPECT_EQ(rs.Fields("v").text(), u"12,50");
    EXPECT_EQ(rs.Fields("d").text(), u"31/01/2026");
    EXPECT_EQ(db.rows(QStringLiteral("select * from t")),
              (QList<QStringList>{{u"1"_qs, u"O'Hara \\ 😀"_qs, u"12.50"_qs, u"2026-01-31"_qs}}));
}
