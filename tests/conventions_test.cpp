#include "support/print.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <gtest/gtest.h>

namespace {

struct Rule
{
    QString name;
    QRegularExpression pattern;
    QString allowedIn; ///< a folder or file below src, "" for nowhere
};

const QList<Rule>& rules()
{
    static const QList<Rule> list = {
        {u"message, input and file boxes go through Dialogs"_qs,
         QRegularExpression(u"\\bQ(MessageBox|InputDialog|FileDialog|ErrorMessage)\\b"_qs),
         u"platform/forms/"_qs},
        {u"the clock is Clock"_qs,
         QRegularExpression(u"\\bcurrent(Date|DateTime|Time|MSecs|Secs)\\w*\\s*\\("_qs),
         u"platform/system/clock.cpp"_qs},
        {u"programs and documents open through Shell"_qs,
         QRegularExpression(u"\\bQ(Process|DesktopServices)\\b"_qs), u"platform/system/shell.cpp"_qs},
        {u"the network is Http"_qs, QRegularExpression(u"\\bQ(Network|Tcp|Udp|Ssl|Http)\\w+"_qs),
         u"platform/system/http.cpp"_qs},
        {u"ODBC stays in its room"_qs,
         QRegularExpression(u"#include\\s*<(sql|sqlext|sqltypes|odbcinst)\\.h>"_qs),
         u"platform/data/odbc"_qs},
        {u"values enter a statement through aspas"_qs,
         QRegularExpression(
             u"'\"\\s*\\+|\\+\\s*\"'|'\"_qs\\s*\\+|\\+\\s*u\"'|\\+\\s*QStringLiteral\\(\"'|'\"\\)\\s*\\+"_qs),
         {}},
        {u"connections are checked by the compiler"_qs,
         QRegularExpression(u"\\b(SIGNAL|SLOT)\\s*\\("_qs),
         {}},
        {u"masks and numbers are read and written by the values room"_qs,
         QRegularExpression(
             u"\\b(toDouble|toFloat|QLocale::\\w*toString|QDate::fromString|QDateTime::fromString)\\s*\\("_qs),
         u"platform/"_qs},
    };
    return list;
}

/// The floor that a folder below src stands on; folders of one floor do not know each other.
int floorOf(const QString& path)
{
    const QList<QPair<QString, int>> floors = {
        {u"platform/"_qs, 1},   {u"app/core/"_qs, 2},  {u"layout/"_qs, 2},      {u"documents/"_qs, 3},
        {u"lookups/"_qs, 3},    {u"registers/"_qs, 4}, {u"agenda/"_qs, 5},      {u"contracts/"_qs, 5},
        {u"purchasing/"_qs, 5}, {u"payables/"_qs, 5},  {u"app/main.cpp"_qs, 7}, {u"app/"_qs, 6}};
    for (const auto& [folder, floor] : floors)
        if (path.startsWith(folder))
            return floor;
    return 0;
}

QString folderOf(const QString& path)
{
    return path.startsWith(u"app/core/"_qs) ? u"app/core"_qs : path.section(u'/', 0, 0);
}

/// What a line of the file `path` (below src) breaks; empty for nothing.
QString broken(const QString& path, const QString& line)
{
    const QString code = line.section(u"//"_qs, 0, 0);
    for (const Rule& rule : rules())
        if (rule.pattern.match(code).hasMatch() &&
            (rule.allowedIn.isEmpty() || !path.startsWith(rule.allowedIn)))
            return rule.name;
    static const QRegularExpression include(u"^\\s*#include\\s*\"([^\"]+)\""_qs);
    const QString included = include.match(line).captured(1);
    const int from = floorOf(path);
    const int to = floorOf(included);
    if (to > from || (to == from && from > 0 && folderOf(included) != folderOf(path)))
        return u"no include of a floor above or beside"_qs;
    return {};
}

} // namespace

TEST(Conventions, EachRuleIsAbleToFail)
{
    const struct
    {
        QString path, line;
        bool breaks;
    } rows[] = {
        {u"app/a.cpp"_qs, u"    QMessageBox::warning(this, x);"_qs, true},
        {u"platform/forms/dialogs.cpp"_qs, u"    QMessageBox window(owner);"_qs, false},
        {u"app/a.cpp"_qs, u"    auto d = QDate::currentDate();"_qs, true},
        {u"app/a.cpp"_qs, u"    // QDate::currentDate() would not do"_qs, false},
        {u"app/a.cpp"_qs, u"    QProcess::startDetached(x);"_qs, true},
        {u"lookups/a.cpp"_qs, u"    QNetworkAccessManager m;"_qs, true},
        {u"app/core/a.cpp"_qs, u"#include <sql.h>"_qs, true},
        {u"app/a.cpp"_qs, uR"(rs.Open("where idlic = '" + idlic + "'", c);)"_qs, true},
        {u"app/a.cpp"_qs, uR"(rs.Open("where idlic = " + aspas(idlic) + " and x = 'N'", c);)"_qs, false},
        {u"app/a.cpp"_qs, uR"(sql = QStringLiteral("idlic = '") + idlic;)"_qs, true},
        {u"app/a.cpp"_qs, u"connect(a, SIGNAL(clicked()), b, c);"_qs, true},
        {u"agenda/a.cpp"_qs, u"    x = text.toDouble();"_qs, true},
        {u"platform/a.h"_qs, u"#include \"app/core/menu.h\""_qs, true},
        {u"app/core/a.h"_qs, u"#include \"layout/autoresize.h\""_qs, true},
        {u"agenda/a.h"_qs, u"#include \"contracts/frmOs_MNT.h\""_qs, true},
        {u"registers/a.h"_qs, u"#include \"app/frmprincipal.h\""_qs, true},
        {u"agenda/a.h"_qs, u"#include \"registers/busca.h\""_qs, false},
        {u"app/frmconfig.cpp"_qs, u"#include \"app/core/menu.h\""_qs, false},
    };
    for (const auto& row : rows)
        EXPECT_EQ(!broken(row.path, row.line).isEmpty(), row.breaks) << row.line.toStdString();
}

TEST(Conventions, TheSourcesKeepThem)
{
    const QDir source(QStringLiteral(SOURCE_DIR));
    int files = 0;
    QDirIterator walk(source.path(), {u"*.cpp"_qs, u"*.h"_qs}, QDir::Files, QDirIterator::Subdirectories);
    while (walk.hasNext()) {
        QFile file(walk.next());
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        const QString path = source.relativeFilePath(file.fileName());
        ++files;
        EXPECT_GT(floorOf(path), 0) << path.toStdString() << " stands on no floor";
        const QStringList lines = QString::fromUtf8(file.readAll()).split(u'\n');
        for (qsizetype i = 0; i < lines.size(); ++i)
            if (const QString rule = broken(path, lines[i]); !rule.isEmpty())
                ADD_FAILURE() << path.toStdString() << ':' << i + 1 << ": " << rule.toStdString();
    }
    EXPECT_GT(files, 50) << "the sources were not found";
}
