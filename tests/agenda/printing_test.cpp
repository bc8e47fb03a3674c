#include "agenda/agenda_fixture.h"
#include "support/caughterrors.h"
#include "support/openedtargets.h"

#include <QProcess>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

const QString choice = u"0 - AGENDA DA CLINICA\n1 - AGENDA DO HOME"_s;
const QString title = u"QUAL AGENDA DESEJA IMPRIMIR?"_s;

/// What a document is made of, in order: "x y text" for a text and "x1 y1 x2 y2" for a line, y from the
/// page's top, and "page" where one begins.
QStringList parts(const QByteArray& pdf)
{
    static const QRegularExpression part(
        u"stream\r\n(?!endobj)|([\\d.]+) ([\\d.]+) Td\r\n/F\\d+ ([\\d.]+) Tf\r\n\\((.*)\\) Tj|"
        "([\\d.]+) ([\\d.]+) m\r\n([\\d.]+) ([\\d.]+) l"_s);
    const auto number = [](double value) { return QString::number(value); };
    QStringList all;
    auto found = part.globalMatch(QString::fromLatin1(pdf));
    while (found.hasNext()) {
        const auto one = found.next();
        const auto value = [&](int group) { return one.captured(group).toDouble(); };
        if (!one.captured(4).isNull())
            all << u"%1 %2 %3"_s.arg(number(value(1)), number(842 - value(2)), one.captured(4));
        else if (!one.captured(5).isNull())
            all << u"%1 %2 %3 %4"_s.arg(number(value(5)), number(842 - value(6)), number(value(7)),
                                        number(842 - value(8)));
        else if (one.captured().startsWith(u"stream"))
            all << u"page"_s;
    }
    return all;
}

QString printed(const QString& program, const QStringList& arguments)
{
    QProcess process;
    process.start(program, arguments);
    EXPECT_TRUE(process.waitForFinished());
    return QString::fromUtf8(process.readAllStandardOutput());
}

class Printing : public AgendaTest
{
protected:
    Printing()
    {
        QFile::link(QCoreApplication::applicationDirPath() + u"/fonts"_s, folder.filePath(u"fonts"_s));
    }

    /// Prints ANA's day and returns the document.
    QByteArray print()
    {
        dialogs.expectInput(choice, u"0"_s, title);
        open<frmCli_Agenda>([&](ScreenDriver& agenda) {
            agenda.press(Qt::Key_F3);
            agenda.press(Qt::Key_Escape);
        });
        const QString path = folder.filePath(u"temp/cli_agenda_260316083015.pdf"_s);
        EXPECT_EQ(Variaveis::ArquivoPDF, path);
        EXPECT_EQ(opened_.list(), QStringList{path});
        return Files::read(path);
    }

    const OpenedTargets opened_;
};

} // namespace

TEST_F(Printing, ADay)
{
    book(u"K1"_s, 11, 21, u"JOÃO (O VELHO)"_s, u"2026-03-16"_s, u"08:30"_s);
    const QByteArray pdf = print();
    const QStringList all = parts(pdf);
    const QString booked = u"08:30 JOÃO \\(O VELHO\\)"_s.leftJustified(48) +
                           u" FONE            32 RETORNO           1 - Sim 0   SAÚD"_s;
    const QStringList expected = {u"page"_s,
                                  u"15 32 575 32"_s,
                                  u"21 25 Tremo Silva 1.0 - AGENDA CLINICA"_s,
                                  u"21 45 PROFISSIONAL: "_s + u"ANA"_s.leftJustified(45),
                                  u"21 55 AGENDA DO DIA: 16/03/2026"_s,
                                  u"21 65 MARIA - 16/03/2026 08:30:15"_s,
                                  u"15 70 575 70"_s,
                                  u"15 77 575 77"_s};
    EXPECT_EQ(all.first(8), expected);
    EXPECT_TRUE(all[8].startsWith(u"21 79 Horár Paciente  ")) << all[8].toStdString();
    EXPECT_EQ(all[9], u"21 90 08:00");
    EXPECT_EQ(all[10], u"15 92 575 92");
    EXPECT_EQ(all[11], u"21 100 "_s + booked) << "to the hundredth character";
    EXPECT_EQ(
        all.sliced(all.size() - 4),
        (QStringList{
            u"15 132 575 132"_s, u"15 132 575 132"_s, u"15 800 575 800"_s,
            u"21 810 Tremosilva Sistemas - www.tremosilva.example - \\(00\\) 0000-0000 - 16/03/2026 08:30:15"_s}));
    EXPECT_TRUE(pdf.contains("0.000 0.000 1.000 RG\r\n12.00 w S\r\n%FIN_LN/%\r\nq 1.000 1.000 1.000 rg "))
        << "white headings on a blue band";
    EXPECT_TRUE(pdf.contains("0.000 0.000 1.000 RG\r\n2.00 w S")) << "the end of the list";
    const QString text = printed(u"pdftotext"_s, {u"-layout"_s, Variaveis::ArquivoPDF, u"-"_s});
    EXPECT_TRUE(text.contains(u"JOÃO (O VELHO)"));
    EXPECT_FALSE(text.contains(u"OBSERVAÇÃO")) << "beyond the hundredth character";
}

TEST_F(Printing, BeyondThePageEachLineStandsAlone)
{
    QStringList times;
    for (int i = 0; i < 70; ++i)
        times << u"%1:%2"_s.arg(8 + i / 10, 2, 10, QChar(u'0')).arg(i % 10 * 5, 2, 10, QChar(u'0'));
    execute(u"delete from diahr; insert into diahr (idlic,idpro,dia,hr) values ('C1',11,'2','%1')"_s.arg(
        times.join(u'/')));
    const QStringList all = parts(print());
    EXPECT_EQ(all.count(u"page"_s), 3);
    const auto at = [&](int line) { return all.indexOf(u"21 %1 %2"_s.arg(90 + 10 * line).arg(times[line])); };
    EXPECT_EQ(all[at(67) + 2], u"page") << "68 lines on the first page";
    EXPECT_EQ(all[at(68) - 1], u"page");
    EXPECT_EQ(all[at(68) + 2], u"page") << "lower than the page, which is not begun at its top";
    const QRegularExpression three(u"Pages:\\s+3\\b"_s);
    EXPECT_TRUE(printed(u"pdfinfo"_s, {Variaveis::ArquivoPDF}).contains(three));
    EXPECT_TRUE(printed(u"mutool"_s, {u"info"_s, Variaveis::ArquivoPDF}).contains(three));
}

TEST_F(Printing, TheChoiceIsAskedUntilItIsMade)
{
    dialogs.expectInput(choice, u"2"_s, title);
    dialogs.expectInput(choice, u""_s, title);
    dialogs.expectInput(choice, {}, title);
    dialogs.expectInput(choice, u"1"_s, title);
    const CaughtErrors errors;
    open<frmCli_Agenda>([&](ScreenDriver& agenda) {
        agenda.click(u"Command6"_s);
        EXPECT_FALSE(QFile::exists(folder.filePath(u"temp"_s)));
        agenda.click(u"Command6"_s);
        agenda.press(Qt::Key_Escape);
    });
    EXPECT_EQ(errors.numbers(), QList<int>{91}) << "nothing stands behind the agenda of home care";
    EXPECT_FALSE(QFile::exists(folder.filePath(u"temp"_s)));
    EXPECT_EQ(opened_.list(), QStringList{});
}
