#include "agenda/agenda_fixture.h"
#include "printing/impresso.h"
#include "support/caughterrors.h"
#include "support/openedtargets.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

/// The foot of a document.
const QString vendor =
    u"Tremosilva Sistemas - www.tremosilva.example - \\(00\\) 0000-0000 - 16/03/2026 08:30:15"_s;

/// What a document is made of, in order: "x y (text)", "x y x y" for a line, "" where a page begins; y from
/// the page's bottom, at 842 the top of a portrait page.
QStringList parts(const QByteArray& pdf)
{
    static const QRegularExpression part(
        u"stream\r\n(?!endobj)|(\\d+)\\.\\d* (\\d+)\\.\\d* Td\r\n/F\\d+ \\S+ Tf\r\n(\\(.*\\)) Tj|"
        "(\\d+)\\.\\d* (\\d+)\\.\\d* m\r\n(\\d+)\\.\\d* (\\d+)\\.\\d* l"_s);
    QStringList all;
    for (auto found = part.globalMatch(QString::fromLatin1(pdf)); found.hasNext();)
        all << found.next().capturedTexts().sliced(1).join(u' ').trimmed();
    return all;
}

class Printing : public AgendaTest
{
protected:
    Printing()
    {
        QFile::link(QCoreApplication::applicationDirPath() + u"/fonts"_s, folder.filePath(u"fonts"_s));
    }

    /// What is asked, and answered so.
    void choose(const std::optional<QString>& answer)
    {
        dialogs.expectInput(u"0 - AGENDA DA CLINICA\n1 - AGENDA DO HOME"_s, answer,
                            u"QUAL AGENDA DESEJA IMPRIMIR?"_s);
    }

    /// Prints ANA's day and returns the document.
    QByteArray print()
    {
        choose(u"0"_s);
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
    EXPECT_EQ(all.first(8).join(u'/'),
              u"/15 810 575 810/21 817 (Tremo Silva 1.0 - AGENDA CLINICA)/21 797 (PROFISSIONAL: ANA"_s +
                  QString(42, u' ') +
                  u")/21 787 (AGENDA DO DIA: 16/03/2026)/21 777 (MARIA - 16/03/2026 08:30:15)/"
                  "15 772 575 772/15 765 575 765"_s);
    EXPECT_TRUE(all[8].startsWith(u"21 763 (Horár Paciente  ")) << all[8].toStdString();
    EXPECT_EQ(all.sliced(9, 3).join(u'/'), u"21 752 (08:00)/15 750 575 750/21 742 ("_s +
                                               u"08:30 JOÃO \\(O VELHO\\)"_s.leftJustified(48) +
                                               u" FONE            32 RETORNO           1 - Sim 0   SAÚD)"_s)
        << "to the hundredth character";
    EXPECT_EQ(all.last(4).join(u'/'),
              u"15 710 575 710/15 710 575 710/15 42 575 42/21 32 ("_s + vendor + u')');
    EXPECT_TRUE(pdf.contains("0.000 0.000 1.000 RG\r\n12.00 w S\r\n%FIN_LN/%\r\nq 1.000 1.000 1.000 rg "))
        << "white headings on a blue band";
    EXPECT_TRUE(pdf.contains("0.000 0.000 1.000 RG\r\n2.00 w S")) << "the end of the list";
}

TEST_F(Printing, BeyondThePageEachLineStandsAlone)
{
    QStringList times;
    for (int i = 0; i < 70; ++i)
        times << u"%1:%2"_s.arg(8 + i / 10, 2, 10, QChar(u'0')).arg(i % 10 * 5, 2, 10, QChar(u'0'));
    execute(u"delete from diahr; insert into diahr (idlic,idpro,dia,hr) values ('C1',11,'2','%1')"_s.arg(
        times.join(u'/')));
    const QStringList all = parts(print());
    EXPECT_EQ(all.count(QString()), 3);
    const auto at = [&](int line) {
        return all.indexOf(u"21 %1 (%2)"_s.arg(752 - 10 * line).arg(times[line]));
    };
    EXPECT_EQ(all[at(67) + 2], u"") << "68 lines on the first page";
    EXPECT_EQ(all[at(68) - 1], u"");
    EXPECT_EQ(all[at(68) + 2], u"") << "lower than the page, which is not begun at its top";
}

TEST_F(Printing, TheChoiceIsAskedUntilItIsMade)
{
    for (const std::optional<QString>& answer : {std::optional(u"2"_s), std::optional(u""_s), {}, {u"1"_s}})
        choose(answer);
    const CaughtErrors errors;
    open<frmCli_Agenda>([&](ScreenDriver& agenda) {
        agenda.click(u"Command6"_s);
        EXPECT_EQ(errors.numbers(), QList<int>());
        agenda.click(u"Command6"_s);
        agenda.press(Qt::Key_Escape);
    });
    EXPECT_EQ(errors.numbers(), QList<int>{91}) << "nothing stands behind the agenda of home care";
    EXPECT_FALSE(QFile::exists(folder.filePath(u"temp"_s)));
}

/// As the forms that are carried to a patient's home: across, under a name without the moment.
TEST_F(Printing, ADocumentLiesAcrossAndSaysMoreAtItsFoot)
{
    const QString path = Impresso::novoArquivo(u"PM_7.pdf"_s);
    PDFPrinter pdf;
    Impresso::comeca(pdf, path, u"Prescrição"_s, Impresso::Orientacao::Paisagem);
    Impresso::rodape(pdf, {Impresso::helvetica, 8, Impresso::negrito}, 20, 580, u" - MARIA"_s);
    pdf.PDFEndPage();
    pdf.PDFEndDoc();
    const QByteArray written = Files::read(folder.filePath(u"temp/PM_7.pdf"_s));
    EXPECT_TRUE(written.contains("/MediaBox [ 0 0 842 595]"));
    EXPECT_EQ(written.count("/Title (Prescri\xe7\xe3o)"), 2);
    EXPECT_EQ(parts(written).last(), u"21 15 ("_s + vendor + u" - MARIA)"_s);
}
