#include "support/print.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

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
        {u"message, input and file boxes go through Dialogs"_s,
         QRegularExpression(u"\\bQ(MessageBox|InputDialog|FileDialog|ErrorMessage)\\b"_s),
         u"platform/forms/"_s},
        {u"the clock is Clock"_s,
         QRegularExpression(u"\\bcurrent(Date|DateTime|Time|MSecs|Secs)\\w*\\s*\\("_s),
         u"platform/system/clock.cpp"_s},
        {u"programs and documents open through Shell"_s,
         QRegularExpression(u"\\bQ(Process|DesktopServices)\\b"_s), u"platform/system/shell.cpp"_s},
        {u"the network is Http"_s, QRegularExpression(u"\\bQ(Network|Tcp|Udp|Ssl|Http)\\w+"_s),
         u"platform/system/http.cpp"_s},
        {u"ODBC stays in its room"_s,
         QRegularExpression(u"#include\\s*<(sql|sqlext|sqltypes|odbcinst)\\.h>"_s), u"platform/data/odbc"_s},
        {u"values enter a statement through aspas"_s,
         QRegularExpression(u"'\"\\s*\\+|\\+\\s*\"'|'\"_s\\s*\\+|\\+\\s*u\"'"_s),
         {}},
        {u"connections are checked by the compiler"_s, QRegularExpression(u"\\b(SIGNAL|SLOT)\\s*\\("_s), {}},
        {u"masks and numbers are read and written by the values room"_s,
         QRegularExpression(
             u"\\b(toDouble|toFloat|QLocale::\\w*toString|QDate::fromString|QDateTime::fromString)\\s*\\("_s),
         u"platform/"_s},
        {u"colours and sizes of letters belong to the theme"_s,
         QRegularExpression(u"QColor\\((0x|\"#)|\\bsetStyleSheet\\(u\"|name=\"(styleSheet|font|palette)\""_s),
         u"platform/forms/"_s},
        {u"lengths between controls are 4, 8, 12 and 16"_s,
         QRegularExpression(u"name=\"(spacing|\\w+Spacing|\\w+Margin)\"><number>(?!(0|4|8|12|16)<)"_s),
         {}},
    };
    return list;
}

/// A room: a folder below src, and the rooms that it may include beside itself.
struct Room
{
    QString folder;
    QStringList below;
};

/// The longest folder that holds a file is its room.
const QList<Room>& rooms()
{
    static const QList<Room> list = [] {
        const QStringList values = {u"platform/values/"_s};
        const QStringList platform =
            values + QStringList{u"platform/system/"_s, u"platform/data/"_s, u"platform/forms/"_s};
        const QStringList core = platform + QStringList{u"app/core/"_s};
        const QStringList printing = core + QStringList{u"documents/"_s};
        const QStringList registers = core + QStringList{u"layout/"_s, u"lookups/"_s, u"lookups/json/"_s};
        const QStringList all = registers + QStringList{u"documents/"_s, u"printing/"_s, u"registers/"_s};
        const QStringList screens = {u"agenda/"_s, u"contracts/"_s, u"purchasing/"_s, u"payables/"_s};
        QList<Room> rooms = {{u"platform/values/"_s, {}},
                             {u"platform/system/"_s, values},
                             {u"platform/data/"_s, values},
                             {u"platform/forms/"_s, platform},
                             {u"app/core/"_s, platform},
                             {u"layout/"_s, platform},
                             {u"documents/"_s, core},
                             {u"lookups/json/"_s, values},
                             {u"lookups/"_s, core + QStringList{u"lookups/json/"_s}},
                             {u"printing/"_s, printing},
                             {u"registers/"_s, registers},
                             {u"app/"_s, all + screens}};
        for (const QString& folder : screens)
            rooms.append({folder, all});
        return rooms;
    }();
    return list;
}

/// The room of a file below src; null for one that stands in none.
const Room* roomOf(const QString& path)
{
    const Room* found = nullptr;
    for (const Room& room : rooms())
        if (path.startsWith(room.folder) && (!found || room.folder.size() > found->folder.size()))
            found = &room;
    return found;
}

/// What a line of the file `path` (below src) breaks; empty for nothing.
QString broken(const QString& path, const QString& line)
{
    const QString code = line.section(u"//"_s, 0, 0);
    for (const Rule& rule : rules())
        if (rule.pattern.match(code).hasMatch() &&
            (rule.allowedIn.isEmpty() || !path.startsWith(rule.allowedIn)))
            return rule.name;
    static const QRegularExpression include(u"^\\s*#include\\s*\"([^\"]+)\""_s);
    const QString included = include.match(line).captured(1);
    const Room* from = roomOf(path);
    const Room* to = roomOf(included);
    if (from && to && to != from && !from->below.contains(to->folder))
        return u"no include of a room above or beside"_s;
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
        {u"app/a.cpp"_s, u"    QMessageBox::warning(this, x);"_s, true},
        {u"platform/forms/dialogs.cpp"_s, u"    QMessageBox window(owner);"_s, false},
        {u"app/a.cpp"_s, u"    auto d = QDate::currentDate();"_s, true},
        {u"app/a.cpp"_s, u"    // QDate::currentDate() would not do"_s, false},
        {u"app/a.cpp"_s, u"    QProcess::startDetached(x);"_s, true},
        {u"lookups/a.cpp"_s, u"    QNetworkAccessManager m;"_s, true},
        {u"app/core/a.cpp"_s, u"#include <sql.h>"_s, true},
        {u"app/a.cpp"_s, uR"(rs.Open("where idlic = '" + idlic + "'", c);)"_s, true},
        {u"app/a.cpp"_s, uR"(rs.Open("where idlic = " + aspas(idlic) + " and x = 'N'", c);)"_s, false},
        {u"app/a.cpp"_s, uR"(sql = u"idlic = '"_s + idlic;)"_s, true},
        {u"app/a.cpp"_s, u"connect(a, SIGNAL(clicked()), b, c);"_s, true},
        {u"agenda/a.cpp"_s, u"    x = text.toDouble();"_s, true},
        {u"platform/forms/a.h"_s, u"#include \"app/core/menu.h\""_s, true},
        {u"platform/forms/a.h"_s, u"#include \"platform/data/adodc.h\""_s, false},
        {u"platform/values/a.h"_s, u"#include \"platform/system/clock.h\""_s, true},
        {u"lookups/json/a.h"_s, u"#include \"lookups/validadocumento.h\""_s, true},
        {u"agenda/a.h"_s, u"#include \"contracts/frmOs_MNT.h\""_s, true},
        {u"registers/a.h"_s, u"#include \"app/frmprincipal.h\""_s, true},
        {u"agenda/a.h"_s, u"#include \"printing/impresso.h\""_s, false},
        {u"app/a.cpp"_s, u"    brush = QColor(0xfd, 0xe9, 0xc2);"_s, true},
        {u"app/a.ui"_s, u"<property name=\"styleSheet\"><string>color: red;</string></property>"_s, true},
        {u"app/a.ui"_s, u"<property name=\"leftMargin\"><number>10</number></property>"_s, true},
        {u"app/a.ui"_s, u"<property name=\"leftMargin\"><number>12</number></property>"_s, false},
    };
    for (const auto& row : rows)
        EXPECT_EQ(!broken(row.path, row.line).isEmpty(), row.breaks) << row.line.toStdString();
}

TEST(Conventions, TheSourcesKeepThem)
{
    const QDir source(QString::fromUtf8(SOURCE_DIR));
    int files = 0;
    QDirIterator walk(source.path(), {u"*.cpp"_s, u"*.h"_s, u"*.ui"_s}, QDir::Files,
                      QDirIterator::Subdirectories);
    while (walk.hasNext()) {
        QFile file(walk.next());
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        const QString path = source.relativeFilePath(file.fileName());
        ++files;
        EXPECT_TRUE(roomOf(path)) << path.toStdString() << " stands in no room";
        const QStringList lines = QString::fromUtf8(file.readAll()).split(u'\n');
        for (qsizetype i = 0; i < lines.size(); ++i)
            if (const QString rule = broken(path, lines[i]); !rule.isEmpty())
                ADD_FAILURE() << path.toStdString() << ':' << i + 1 << ": " << rule.toStdString();
    }
    EXPECT_GT(files, 50) << "the sources were not found";
}
