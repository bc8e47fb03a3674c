#include "platform/data/codecomparison.h"
#include "platform/datafixture.h"
#include "support/statements.h"

#include <QRegularExpression>
#include <iostream>
#include <map>

using namespace Qt::StringLiterals;

using namespace ADODB;

namespace {

struct ColumnOf
{
    QString name;
    QString type;
    qsizetype length = 0; ///< of a text, 0 for anything else
    bool isKey = false;
};

/// Every statement that the test programs have sent and that is compared by equality on its way, against the
/// same statement as it is written. Each one runs over rows made for it: some meet its conditions, others
/// nearly.
class SentStatements : public DataFixture
{
protected:
    void SetUp() override
    {
        DataFixture::SetUp();
        Recordset names;
        names.Open(codeNamesQuery(), connection);
        for (; !names.Eof(); names.MoveNext())
            codes << names.Fields(0).text();
        Recordset columns;
        columns.Open(
            u"select table_name, lower(column_name), data_type,"
            " if(data_type like '%char' or data_type like '%text', least(character_maximum_length, 30), 0),"
            " column_key = 'PRI' from information_schema.columns where table_schema = database()"
            " order by table_name, ordinal_position"_s,
            connection);
        for (; !columns.Eof(); columns.MoveNext())
            tables[columns.Fields(0).text()].push_back({columns.Fields(1).text(), columns.Fields(2).text(),
                                                        columns.Fields(3).integer(),
                                                        columns.Fields(4).integer() == 1});
    }
    void TearDown() override { Connection::setCodesByEquality(true); }

    /// The rows that a changing statement is about; those of a select, all of them where it is asked for its
    /// columns alone.
    static QString selection(QString sql)
    {
        static const QRegularExpression form(
            u"^\\s*(?:delete\\s+from|update)\\s+(\\w+)\\s(?:.*?\\s)?(where\\s.*)$"_s,
            QRegularExpression::CaseInsensitiveOption | QRegularExpression::DotMatchesEverythingOption);
        static const QRegularExpression noRows(u"\\slimit 0$"_s);
        return sql.replace(form, u"select * from \\1 \\2"_s).remove(noRows);
    }

    /// The values that a statement compares columns with, by the column.
    static std::map<QString, QString> values(const QString& sql)
    {
        static const QRegularExpression comparison(
            u"(\\w+)\\s*(=|<>|<=|>=|<|>|\\blike\\b)\\s*(?:'([^']*)'|(\\d+))"_s,
            QRegularExpression::CaseInsensitiveOption);
        std::map<QString, QString> result;
        for (auto found = comparison.globalMatch(sql); found.hasNext();) {
            const QRegularExpressionMatch match = found.next();
            const QString other = match.captured(3) + match.captured(4);
            const QString met = match.captured(2) != u"<>" ? other : other == u"0" ? u"1"_s : u"0"_s;
            result.try_emplace(match.captured(1).toLower(), QString(met).remove(u'%'));
        }
        return result;
    }

    /// The value of a column in the n-th row: the wanted one in most rows, in others one that is near it.
    static QString value(const ColumnOf& column, const QString* wanted, int n)
    {
        static const QStringList numbers{u"1"_s, u"10"_s, u"0"_s, u"null"_s, u"100"_s, u"-1"_s, u"2"_s};
        static const QSet<QString> whole{u"int"_s, u"bigint"_s, u"smallint"_s, u"tinyint"_s};
        const bool isWhole = whole.contains(column.type);
        if (wanted && (n % 3 != 2 || (column.length == 0 && !isWhole)))
            return u'\'' + *wanted + u'\'';
        if (isWhole)
            return wanted && n % 2 ? *wanted + u'0' : numbers[n % numbers.size()];
        if (column.length > 0) {
            const QStringList near{u"00"_s + (wanted ? *wanted : u"1"_s),
                                   (wanted ? *wanted : u"1"_s) + u"%"_s, u"K%1"_s.arg(n),
                                   QString::number(n % 4)};
            return u'\'' + near[n % near.size()].right(column.length) + u'\'';
        }
        return column.type.startsWith(u"date") ? u"'2026-01-%1'"_s.arg(1 + n) : QString::number(n % 5);
    }

    void fill(const QString& sql)
    {
        const std::map<QString, QString> wanted = values(sql);
        constexpr int rows = 21;
        for (const auto& [table, columns] : tables) {
            if (!sql.contains(
                    QRegularExpression(u"\\b%1\\b"_s.arg(table), QRegularExpression::CaseInsensitiveOption)))
                continue;
            QStringList lines;
            for (int n = 0; n < rows; ++n) {
                QStringList line;
                for (const ColumnOf& column : columns) {
                    const auto given = wanted.find(column.name);
                    line << value(column, given == wanted.end() ? nullptr : &given->second, n);
                }
                lines << u'(' + line.join(u',') + u')';
            }
            connection.Execute(u"delete from "_s + table);
            connection.Execute(u"insert ignore into %1 values %2"_s.arg(table, lines.join(u',')));
        }
    }

    QList<QStringList> rows(const QString& sql, bool byEquality)
    {
        Connection::setCodesByEquality(byEquality);
        Recordset rs;
        rs.Open(sql, connection);
        QList<QStringList> result;
        for (; !rs.Eof(); rs.MoveNext()) {
            result.emplace_back();
            for (qsizetype i = 0; i < qsizetype(rs.columns().size()); ++i)
                result.back() << (rs.Fields(i).isNull() ? QString() : rs.Fields(i).text());
        }
        shown = rs.columns();
        return result;
    }

    /// Of each row, the values of those columns of the order that the result has.
    QList<QStringList> ordered(const QString& sql, const QList<QStringList>& of) const
    {
        static const QRegularExpression order(u"\\border\\s+by\\s+([^']*)$"_s,
                                              QRegularExpression::CaseInsensitiveOption);
        QList<QStringList> result(of.size());
        for (const QString& item : order.match(sql).captured(1).split(u',')) {
            const QString name = item.trimmed().section(u' ', 0, 0).section(u'.', -1);
            for (std::size_t i = 0; i < shown.size(); ++i)
                if (QString::fromUtf8(shown[i].name).compare(name, Qt::CaseInsensitive) == 0)
                    for (qsizetype row = 0; row < of.size(); ++row)
                        result[row] << of[row][qsizetype(i)];
        }
        return result;
    }

    CodeNames codes;
    std::map<QString, std::vector<ColumnOf>> tables;
    std::vector<Column> shown; ///< of the rows read last
};

TEST_F(SentStatements, GiveTheSameRowsInTheSameOrder)
{
    const QStringList all = StatementRecord::all();
    int compared = 0, withRows = 0, otherOrder = 0;
    for (const QString& statement : all) {
        if (comparedByEquality(statement, codes) == statement)
            continue;
        SCOPED_TRACE(statement.toStdString());
        const QString sql = selection(statement);
        ASSERT_TRUE(sql.trimmed().startsWith(u"select"_s, Qt::CaseInsensitive));
        ASSERT_NE(comparedByEquality(sql, codes), sql);
        fill(sql);
        const QList<QStringList> written = rows(sql, false);
        const QList<QStringList> sent = rows(sql, true);
        ++compared;
        withRows += !written.isEmpty();
        if (sent == written)
            continue;
        // Rows that the order leaves equal may follow each other otherwise when an index finds them.
        ++otherOrder;
        EXPECT_EQ(ordered(sql, sent), ordered(sql, written));
        EXPECT_EQ(QSet<QStringList>(sent.begin(), sent.end()),
                  QSet<QStringList>(written.begin(), written.end()));
        EXPECT_EQ(sent.size(), written.size());
    }
    std::cout << all.size() << " statements, " << compared << " of them compared, " << withRows
              << " gave rows, " << otherOrder << " gave rows of equal order in another one\n";
    EXPECT_GT(compared, 0) << "no test program has left a statement: run the others first";
    EXPECT_GE(withRows * 4, compared * 3) << "the rows made for the statements do not meet them";
}

} // namespace
