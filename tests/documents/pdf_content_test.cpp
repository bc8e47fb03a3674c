/// What the operations leave in the content of a page and how they leave the position. Positions are worked
/// out for A4 of 595 x 842 points with margins of 1.
#include "documents/pdffixture.h"

#include "documents/pdf/lines.h"
#include "platform/values/format.h"
#include "support/texttable.h"

#include <QRandomGenerator>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::HasSubstr;

namespace {

class PDFContent : public PDFTest
{
protected:
    void expectContent(const std::function<void(PDFPrinter&)>& draw, const std::string& expected)
    {
        EXPECT_EQ(content(draw).toStdString(), expected);
    }
    static void expectAt(const PDFPrinter& pdf, int x, int y)
    {
        EXPECT_EQ(std::pair(int(pdf.PDFGetX()), int(pdf.PDFGetY())), std::pair(x, y));
    }

    /// The lines that end in one of these, with blanks between them.
    std::string linesOf(const std::function<void(PDFPrinter&)>& draw, const QByteArrayList& ends)
    {
        QByteArrayList found;
        for (const QByteArray& line : content(draw).split('\n'))
            if (std::any_of(ends.begin(), ends.end(), [&](auto& end) { return line.endsWith(end); }))
                found += line;
        return found.join(' ').toStdString();
    }
};

/// A piece of content that writes this text in Helvetica, black.
std::string text(const std::string& place, const std::string& shown, const std::string& font = "/F8 10.00",
                 const std::string& colour = "0 g")
{
    return "q " + colour + " \n%DEBUT_TEXT/%\nBT\n" + place + "\n" + font + " Tf\n(" + shown +
           ") Tj\nET\nQ\n%FIN_TEXT/%\n";
}

} // namespace

TEST(PDFNumber, AgreesWithTheMaskForAllNumbers)
{
    const auto byMask = [](double value, int decimals) {
        return Format(value, u"###0."_s + QString(decimals, u'0')).replace(u',', u'.').toStdString();
    };
    QRandomGenerator random(7);
    for (int i = 0; i < 20'000; ++i) {
        const int decimals = 1 + i % 5;
        // Among them many with a five right behind the last decimal.
        const double value =
            i % 2 ? random.bounded(4000.0) - 2000 : (random.bounded(400'000) - 200'000) / 2000.0;
        ASSERT_EQ(PDFText(PDFNumber(value, decimals)).toStdString(), byMask(value, decimals)) << value;
    }
    for (const double value : {-0.001, 1.005, -2.675, 0.99999999, 999'999'999.995, 1e12 + 0.25, 1e300})
        EXPECT_EQ(PDFText(PDFNumber(value)).toStdString(), byMask(value, 2)) << value;
    EXPECT_EQ(errorOf([] { PDFText(PDFNumber(1 / 0.0)); }), 6);
}

TEST_F(PDFContent, Texts)
{
    // "AA A" of 50 is 33.35 x 3 + 13.9 wide, and the blank counts twice; "up" is 55.6, rounded 56, of which
    // 1000ths of the size are added: 842 - (40 - 2.8) - 2.
    std::string underlined = text("31.00 802.00 Td", "AA A", "/F8 50.00");
    underlined.insert(underlined.find("Q\n%FIN"), "31.00 802.80 127.85 -0.26 re f\n");
    expectContent(
        [](PDFPrinter& pdf) {
            // Where X stands is 1 here, and the margin is added again.
            pdf.PDFTextOut(u"AA"_s, 0, 0);
            expectAt(pdf, 14, 11); // 1 + 13.34
            pdf.PDFTextOut(u"Ação (1) a\\b"_s, 30, 40);
            // The rotation and the underline are used up by one text; a rotated one has no margin.
            pdf.PDFSetRotation(810); // so that the rounded pi shows
            pdf.PDFTextOut(u"A"_s, 30, 40);
            pdf.PDFSetFont(0, 50, 3);
            pdf.PDFTextOut(u"AA A"_s, 30, 40);
            pdf.PDFTextOut(u"A"_s, 30, 40);
            pdf.PDFSetTextColor(QVariantList{255, 192.5, 300});
            pdf.PDFSetFont(2, 0, 2);
            EXPECT_EQ(pdf.PDFTextHeight(), 10);
            pdf.PDFTextOut(u"a"_s, 5, 5);
        },
        text("2.00 841.00 Td", "AA") + text("31.00 802.00 Td", "A\xE7\xE3o \\(1\\) a\\\\\\\\b") +
            text("-0.00003 1.00000 -1.00000 -0.00003 30.00 802.00 Tm", "A") + underlined +
            text("31.00 802.00 Td", "A", "/F8 50.00") +
            text("6.00 837.00 Td", "a", "/F10 10.00", "1.000 0.753 1.176 rg"));
}

TEST_F(PDFContent, Watermark)
{
    // Bold Helvetica of 50: "AA" is 72.2 wide. (595 - 72.2 x 0.5253) / 2.75 and (72.2 x 0.8509 + 842) / 2.15
    // from the top; sine and cosine of 45 degrees with pi taken as 3.1416.
    expectContent(
        [](PDFPrinter& pdf) {
            pdf.PDFFiligran(u"AA"_s);
            pdf.PDFEndPage();
        },
        text("0.70711 0.70711 -0.70711 0.70711 202.57 421.80 Tm", "AA", "/F5 50.00", "1.000 0.753 0.796 rg"));
}

TEST_F(PDFContent, Lines)
{
    const auto draw = [](PDFPrinter& pdf) {
        pdf.PDFSetLineStyle(1);
        pdf.PDFSetLineColor(u"#FF0080"_s);
        pdf.PDFDrawLine(10, 20.555, 5, 40);
        expectAt(pdf, 10, 40);
        pdf.PDFSetLineStyle(2);
        pdf.PDFDrawLineHor(10, 20, 30);
        EXPECT_EQ(pdf.PDFGetDrawColor(), u"1.000 0.000 0.502 rg");
        expectAt(pdf, 40, 20);
        pdf.PDFSetLineStyle(3);
        pdf.PDFSetLineColor(0x010000);
        pdf.PDFDrawLineVer(10, 20, 30);
        expectAt(pdf, 10, 50);
    };
    EXPECT_EQ(linesOf(draw, {" d", " m", " l", " RG"}),
              "[16 8 ] 0 d 10.00 821.45 m 5.00 802.00 l 1.000 0.000 0.502 RG "
              "[8 7 2 7 ] 0 d 10.00 822.00 m 40.00 822.00 l 1.000 0.000 0.502 RG "
              "[8 4 2 4 2 4 ] 0 d 10.00 822.00 m 10.00 792.00 l 0.000 0.000 0.004 RG");
}

TEST_F(PDFContent, MarginsThatAreNotGivenAreTheirOpposites)
{
    PDFPrinter pdf;
    pdf.PDFSetMargins(10, 2.5);
    EXPECT_EQ(pdf.PDFGetRightMargin(), 10);
    EXPECT_EQ(pdf.PDFGetBottomMargin(), 2) << "whole numbers, halves to the even one";
    EXPECT_EQ(errorOf([&] { pdf.PDFSetLeftMargin(40'000); }), 6);
}

TEST_F(PDFContent, UnitsScaleLengthsButNeitherMarginsNorWidths)
{
    const auto draw = [](PDFPrinter& pdf) {
        pdf.PDFSetUnit(1);
        pdf.PDFSetBookmark(u"tr\u00EAs"_s, 1, -1); // where Y is at the time
        pdf.PDFSetLineStyle(1);
        pdf.PDFSetLineWidth(1);
        pdf.PDFDrawLine(0, 0, 25.4, 25.4);
        pdf.PDFTextOut(u"A"_s, 25.4, 25.4);
    };
    EXPECT_EQ(linesOf(draw, {" d", " m", " l", " w S", " Td"}),
              "[45 22 ] 0 d 0.00 842.00 m 72.00 770.00 l 2.83 w S 74.83 770.00 Td");
    EXPECT_TRUE(bytes().contains("/XYZ 0 728.61 null]")); // 40 mm from the top
    EXPECT_TRUE(bytes().contains("/XYZ 0 839.17 null]"));
}

TEST_F(PDFContent, RectanglesEllipsesPolygons)
{
    const auto figures = [](const QVariant& mode) {
        return [mode](PDFPrinter& pdf) {
            pdf.PDFSetDrawMode(mode);
            pdf.PDFSetDrawColor(0x0000FF);
            pdf.PDFDrawRectangle(10, 20, 30, 40);
            expectAt(pdf, 10, 60);
            pdf.PDFDrawEllipse(100, 200, 40, 0);
            expectAt(pdf, 100, 220);
            EXPECT_EQ(pdf.PDFGetTextColor(), u"1.000 1.000 1.000 rg");
            pdf.PDFDrawPolygon({{1, 2, 3, 4, 5, 6}});
        };
    };
    const std::string colours = "1.000 0.000 0.000 rg\n0 G\n";
    expectContent(
        figures(2),
        "%DEBUT_RECT/%\n" + colours + "[] 0 d\n10.00 822.00 30.00 -40.00 re B\n0.50 w S\n%FIN_RECT/%\n" +
            colours +
            "[] 0 d\n100.00 622.00 m\n"
            "100.00 633.00 109.00 642.00 120.00 642.00 c\n131.00 642.00 140.00 633.00 140.00 622.00 c\n"
            "140.00 611.00 131.00 602.00 120.00 602.00 c\n109.00 602.00 100.00 611.00 100.00 622.00 c\n"
            "0.50 w B\n" +
            colours +
            "%DEBUT_POLY/%\n[] 0 d\n1.00 840.00 m\n3.00 838.00 l\n5.00 836.00 l\n1.00 840.00 l\n0.50 w B\n"
            "%FIN_POLY/%\n");
    const QByteArrayList painting{" re s", " re f", " w s", " w h f", " G", " rg"};
    EXPECT_EQ(linesOf(figures(0), painting), "0 G 10.00 822.00 30.00 -40.00 re s 0 G 0.50 w s 0 G 0.50 w s");
    EXPECT_EQ(linesOf(figures(u"1"_s), painting),
              "1.000 0.000 0.000 rg 10.00 822.00 30.00 -40.00 re f 1.000 0.000 0.000 rg 0.50 w h f "
              "1.000 0.000 0.000 rg 0.50 w h f");
}

TEST_F(PDFContent, CellsBreakTextAtBlanksOrInLongWordsAndAlignIt)
{
    // 40 less two margins of 3 leave 34; at 10 "a" and a blank count 6 and 3, rounded as they are summed up.
    // A character wider than the cell stands alone. "A A" is 16.12 wide.
    for (const QStringList& row :
         textTable(u"aaa aaa a=10=1=103.00 633.00 Td (aaa) Tj 103.00 621.00 Td (aaa a) Tj|"
                   "aaaaaaaa=10=1=106.00 633.00 Td (aaaaa) Tj 103.00 621.00 Td (aaa) Tj|"
                   "=10=1=103.00 633.00 Td () Tj|a\r\n=10=1=103.00 633.00 Td (a\r) Tj|"
                   "aa=100=1=106.00 606.00 Td (a) Tj 106.00 594.00 Td (a) Tj 103.00 582.00 Td () Tj|"
                   "A A=5=1=103.00 634.50 Td (A A) Tj|A A=10=2=117.88 633.00 Td (A A) Tj|"
                   "A A=10=0=109.00 633.00 Td (A A) Tj")) {
        const auto draw = [&](PDFPrinter& pdf) {
            pdf.PDFSetFont(0, row[1].toInt(), 0);
            pdf.PDFSetAlignement(row[2].toInt());
            pdf.PDFCell(row[0], 100, 200, 40, 12);
        };
        EXPECT_EQ(linesOf(draw, {" Tj", " Td"}), row[3].toStdString());
    }
    expectContent(
        [&](PDFPrinter& pdf) {
            pdf.PDFSetAlignement(3);
            pdf.PDFCell(u"A A"_s, 103, 200, 60, 12);
            expectAt(pdf, 160, 212);
        },
        "%DEBUT_CELL/%\n0 G\n0 g\n0.50 w\n37.880 Tw\nq 0 g \nBT\n/F8 10 Tf\n106.00 633.00 Td\n"
        "(A A) Tj\nET\nQ\n0 Tw\n%FIN_CELL/%\n");
}

TEST_F(PDFContent, CellsDrawTheLastOfTheirEdges)
{
    // Of two lines of a cell at (103, 200), 40 x 12 each
    for (const QStringList& row :
         textTable(u"0=0=|0=1=100.00 642.00 40.00 -12.00 re f\r 100.00 630.00 40.00 -12.00 re f\r|"
                   "1=1=140.00 642.00 m 140.00 630.00 l S \r 100.00 618.00 m 140.00 618.00 l S \r|"
                   "2=0=100.00 642.00 m 140.00 642.00 l S \r|3=0=100.00 618.00 m 140.00 618.00 l S \r|"
                   "43=0=100.00 642.00 m 100.00 630.00 l S\r 100.00 618.00 m 140.00 618.00 l S \r|"
                   "5=0=140.00 642.00 m 140.00 630.00 l S \r 140.00 630.00 m 140.00 618.00 l S \r")) {
        const auto draw = [&](PDFPrinter& pdf) {
            pdf.PDFSetBorder(row[0].toInt());
            pdf.PDFSetFill(row[1] == u"1");
            pdf.PDFCell(u"aaa aaa a"_s, 103, 200, 40, 12);
        };
        EXPECT_EQ(linesOf(draw, {" re f\r", " l S\r", " l S \r"}), row[2].toStdString())
            << row[0].toStdString();
    }
}

TEST_F(PDFContent, Links)
{
    const auto expectLinks = [this](const std::function<void(PDFPrinter&)>& draw,
                                    const std::string& annotations) {
        std::string drawn = content(draw).toStdString();
        EXPECT_THAT(bytes().toStdString(), HasSubstr("/Annots [" + annotations + "]\r\n/Contents"));
        return drawn;
    };
    const auto area = [](const std::string& rectangle,
                         const std::string& action = "/A <</S /URI /URI (AA)>>>>\r\n") {
        return "<</Type /Annot /Subtype /Link /Rect [" + rectangle + "] /Border [0 0 0] " + action;
    };
    const QString url = u"AA"_s;
    // An address of its own: 13.34 wide, the area 13 x 10.
    EXPECT_EQ(expectLinks([&](PDFPrinter& pdf) { pdf.PDFLink(30.5, 40, url); }, area("30.5 802 43.5 792")),
              "%DEBUT_LINK/%\nq 0 g \n%DEBUT_TEXT/%\nBT\n31.50 802.00 Td\n/F8 10.00 Tf\n(AA) Tj\nET\n"
              "32.00 800.11 13.34 -0.03 re f\nQ\n%FIN_TEXT/%\n%FIN_LINK/%\n");
    expectLinks(
        [&](PDFPrinter& pdf) {
            pdf.PDFLink(30, 40, url, u"B(\\"_s);
            pdf.PDFDrawRectangle(10, 20, 30.5, 41, url);
            pdf.PDFDrawEllipse(10, 20, 30, 40, url); // as wide as "LINK"
            // A figure without a link leaves its kind, and no text to be as wide as, to the next one.
            pdf.PDFDrawEllipse(10, 20, 30, 40);
            pdf.PDFLink(30, 40, url);
            pdf.PDFLink(30, 60, url);
        },
        area("30 802 43 792", "/A <</S /URI /URI (B\\(\\\\\\\\)>>>>\r\n") + area("15 802 45 792") +
            area("10 802 32 792") + area("30 802 30 792") + area("30 782 43 772"));
    // A cell's text is a link, and so is what stands under the same address at its corner.
    // The blank of the justified text is 60 - 2 x 3 - 16.12 wider, of which the line leaves out 2 x 3 again,
    // and at its end 3 more.
    const auto cell = [&](PDFPrinter& pdf) {
        pdf.PDFSetAlignement(3);
        pdf.PDFCell(u"A A"_s, 3, 200, 60, 12, url);
    };
    EXPECT_THAT(expectLinks(cell, area("6 641 66 631") + area("0 642 16 632")),
                HasSubstr("6.00 630.00 47.78 -0.10 re f\n"));
}

TEST_F(PDFContent, NamesAndWidthsOfFonts)
{
    std::string known;
    const auto draw = [&](PDFPrinter& pdf) {
        for (const auto& [family, style] :
             {std::pair(0, 0), {0, 12}, {0, 31}, {1, 0}, {1, 2}, {2, 0}, {2, 1}, {2, 21}, {3, 0}, {3, 2}}) {
            pdf.PDFSetFont(family, 10, style);
            known += errorOf([&] { pdf.PDFTextOut(u"A"_s, 1, 1); }) == 53 ? '-' : '+';
        }
    };
    EXPECT_EQ(linesOf(draw, {" Tf"}),
              "/F8 10.00 Tf /F6 10.00 Tf /F7 10.00 Tf /F4 10.00 Tf /F1 10.00 Tf /F13 10.00 Tf /F0 10.00 Tf "
              "/F11 10.00 Tf /F9 10.00 Tf /F0 10.00 Tf");
    EXPECT_EQ(known, "++++++-++-");

    PDFPrinter pdf;
    configure(pdf);
    const auto width = [&](const QString& text, const QString& font, double size) {
        return pdf.PDFGetStringWidth(text, font, size);
    };
    const QString helvetica = u"Helvetica"_s;
    EXPECT_DOUBLE_EQ(width(u"Ab 1"_s, helvetica, 9), 9 * (667 + 556 + 278 + 556) / 1000.0);
    EXPECT_DOUBLE_EQ(width(u"A"_s, helvetica, 2.5), 2 * 0.667); // the size is a whole number
    // Codes are the font's own: 0xC0 has no character there, 0xE3 is its "ª", and nothing lies above 251.
    EXPECT_DOUBLE_EQ(width(u"Àãü"_s, helvetica, 1000), 370);

    PDFPrinter fontless;
    QDir(path(QString())).mkdir(u"empty"_s);
    fontless.PDFLoadAfm(path(u"empty"_s));
    EXPECT_THAT([&] { fontless.PDFGetStringWidth(u"A"_s, helvetica, 9); },
                testing::ThrowsMessage<RuntimeError>(
                    testing::HasSubstr(path(u"empty/Helvetica.afm"_s).toStdString())));

    pdf.PDFLoadAfm(oneFont());
    EXPECT_DOUBLE_EQ(width(u"Ana"_s, helvetica, 10), 18);
    EXPECT_EQ(errorOf([&] { pdf.PDFLoadAfm(path(u"nada"_s)); }), 76);
    pdf.PDFLoadAfm(path(QString())); // no fonts there: the ones before stay
    EXPECT_DOUBLE_EQ(width(u"Ana"_s, helvetica, 10), 18);
    put(u"one/Helvetica.afm"_s, "StartCharMetrics\r\nC 65 ; WX 1 ;\r\n");
    pdf.PDFPathConfiguration(path(u"one"_s));
    EXPECT_EQ(errorOf([&] { width(u"A"_s, helvetica, 9); }), 62) << "broken off";
}

TEST_F(PDFContent, BadArgumentsAreToldAndReplaced)
{
    PDFPrinter pdf;
    configure(pdf);
    pdf.PDFBeginDoc();
    pdf.PDFSetFont(0, 9, 0);
    dialogs_.expect(u"URL objet cellule non valide : 5.\nImpossible d'inclure le lien dans la cellule."_s,
                    u"Lien URL Objet Cellule - Vespadoc 4.0"_s, Icon::Critical);
    pdf.PDFCell(u"A"_s, 1, 1, 50, 10, 5);
    dialogs_.expect(u"Nom de font incorrecte : 5.\n"
                    "La font utilisée sera Times New Roman non gras , non italique."_s,
                    u"Nom de Font - Vespadoc 4.0"_s, Icon::Critical);
    pdf.PDFSetFont(5, 9, 12);
    EXPECT_EQ(errorOf([&] { pdf.PDFTextOut(u"A"_s, 1, 1); }), 53);
    EXPECT_EQ(errorOf([&] { pdf.PDFDrawPolygon({{1, 2, 3, 4, 5, 6, 7}}); }), 9);
}
