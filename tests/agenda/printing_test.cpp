#include "agenda/agenda_fixture.h"
#include "support/caughterrors.h"
#include "support/openedtargets.h"

#include <QProcess>
#include <QRegularExpression>

namespace {

const QString choice = u"0 - AGENDA DA CLINICA\n1 - AGENDA DO HOME"_qs;
const QString title = u"QUAL AGENDA DESEJA IMPRIMIR?"_qs;

/// What a document is made of, in order: "x y text" for a text and "x1 y1 x2 y2" for a line, y from the
/// page's top, and "page" where one begins.
QStringList parts(const QByteArray& pdf)
{
    static const QRegularExpression part(
        u"stream\r\n(?!endobj)|([\\d.]+) ([\\d.]+) Td\r\n/F\\d+ ([\\d.]+) Tf\r\n\\((.*)\\) Tj|"
        "([\\d.]+) ([\\d.]+) m\r\n([\\d.]+) ([\\d.]+) l"_qs);
    const auto number = [](double value) { return QString::number(value); };
    QStringList all;
    auto found = part.globalMatch(QString::fromLatin1(pdf));
    while (found.hasNext()) {
        const auto one = found.next();
        const auto value = [&](int group) { return one.captured(group).toDouble(); };
        if (!one.captured(4).isNull())
            all << u"%1 %2 %3"_qs.arg(number(value(1)), number(842 - value(2)), one.captured(4));
        else if (!one.captured(5).isNull())
            all << u"%1 %2 %3 %4"_qs.arg(number(value(5)), number(842 - value(6)), number(value(7)),
                                         number(842 - value(8)));
        else if (one.captured().startsWith(u"stream"))
            all << u"page"_qs;
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
        QFile::link(QCoreApplication::applicationDirPath() + u"/fonts"_qs, folder.filePath(u"fonts"_qs));
    }

    /// Prints ANA's day and returns the document.
    QByteArray print()
    {
        dialogs.expectInput(choice, u"0"_qs, title);
        on<frmCli_Agenda>([&](ScreenDriver& agenda) { agenda.press(Qt::Key_F3); });
        const QString path = folder.filePath(u"temp/cli_agenda_260316083015.pdf"_qs);
        EXPECT_EQ(Variaveis::ArquivoPDF, path);
        EXPECT_EQ(opened_.list(), QStringList{path});
        return Files::read(path);
    }

    const OpenedTargets opened_;
};

} // namespace

TEST_F(Printing, ADay)
{
    book(u"K1"_qs, 11, 21, u"JOÃO (O VELHO)"_qs, u"2026-03-16"_qs, u"08:30"_qs);
    const QByteArray pdf = print();
    const QStringList all = parts(pdf);
    const QString booked = u"08:30 JOÃO \\(O VELHO\\)"_qs.leftJustified(48) +
                           u" FONE            32 RETORNO           1 - Sim 0   SAÚD"_qs;
    const QStringList expected = {u"page"_qs,
                                  u"15 32 575 32"_qs,
                                  u"21 25 Tremo Silva 1.0 - AGENDA CLINICA"_qs,
                                  u"21 45 PROFISSIONAL: "_qs + u"ANA"_qs.leftJustified(45),
                                  u"21 55 AGENDA DO DIA: 16/03/2026"_qs,
                                  u"21 65 MARIA - 16/03/2026 08:30:15"_qs,
                                  u"15 70 575 70"_qs,
                                  u"15 77 575 77"_qs};
    EXPECT_EQ(all.first(8), expected);
    EXPECT_TRUE(all[8].startsWith(u"21 79 Horár Paciente  ")) << all[8].toStdString();
    EXPECT_EQ(all[9], u"21 90 08:00");
    EXPECT_EQ(all[10], u"15 92 575 92");
    EXPECT_EQ(all[11], u"21 100 "_qs + booked) << "to the hundredth character";
    EXPECT_EQ(
        all.sliced(all.size() - 4),
        (QStringList{
            u"15 132 575 132"_qs, u"15 132 575 132"_qs, u"15 800 575 800"_qs,
            u"21 810 Tremosilva Sistemas - www.tremosilva.example - \\(00\\) 0000-0000 - 16/03/2026 08:30:15"_qs}));
    EXPECT_TRUE(pdf.contains("0.000 0.000 1.000 RG\r\n12.00 w S\r\n%FIN_LN/%\r\nq 1.000 1.000 1.000 rg "))
        << "white headings on a blue band";
    EXPECT_TRUE(pdf.contains("0.000 0.000 1.000 RG\r\n2.00 w S")) << "the end of the list";
    const QString text = printed(u"pdftotext"_qs, {u"-layout"_qs, Variaveis::ArquivoPDF, u"-"_qs});
    EXPECT_TRUE(text.contains(u"JOÃO (O VELHO)"));
    EXPECT_FALSE(text.contains(u"OBSERVAÇÃO")) << "beyond the hundredth character";
}

TEST_F(Printing, BeyondThePageEachLineStandsAlone)
{
    QStringList times;
    for (int i = 0; i < 70; ++i)
        times << u"%1:%2"_qs.arg(8 + i / 10, 2, 10, QChar(u'0')).arg(i % 10 * 5, 2, 10, QChar(u'0'));
    execute(u"delete from diahr; insert into diahr (idlic,idpro,dia,hr) values ('C1',11,'2','%1')"_qs.arg(
        times.join(u'/')));
    const QStringList all = parts(print());
    EXPECT_EQ(all.count(u"page"_qs), 3);
    const auto at = [&](int line) {
        return all.indexOf(u"21 %1 %2"_qs.arg(90 + 10 * line).arg(times[line]));
    };
    EXPECT_EQ(all[at(67) + 2], u"page") << "68 lines on the first page";
    EXPECT_EQ(all[at(68) - 1], u"page");
    EXPECT_EQ(all[at(68) + 2], u"page") << "lower than the page, which is not begun at its top";
    const QRegularExpression three(u"Pages:\\s+3\\b"_qs);
    EXPECT_TRUE(printed(u"pdfinfo"_qs, {Variaveis::ArquivoPDF}).contains(three));
}

TEST_F(Printing, TheChoiceIsAskedUntilItIsMade)
{
    dialogs.expectInput(choice, u"2"_qs, title);
    dialogs.expectInput(choice, u""_qs, title);
    dialogs.expectInput(choice, {}, title);
    dialogs.expectInput(choice, u"1"_qs, title);
    const CaughtErrors errors;
    on<frmCli_Agenda>([&](ScreenDriver& agenda) {
        agenda.click(u"Command6"_qs);
        EXPECT_FALSE(QFile::exists(folder.filePath(u"temp"_qs)));
        agenda.click(u"Command6"_qs);
    });
    EXPECT_EQ(errors.numbers(), QList<int>{91}) << "nothing stands behind the agenda of home care";
    EXPECT_FALSE(QFile::exists(folder.filePath(u"temp"_qs)));
    EXPECT_EQ(opened_.list(), QStringList{});
}
