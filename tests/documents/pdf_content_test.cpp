/// What the operations leave in the content of a page and how they leave the position. Positions are worked
/// out for A4 of 595 x 842 points with margins of 1.
#include "documents/pdffixture.h"

#include "documents/pdf/colour.h"
#include "platform/values/format.h"

#include <QRandomGenerator>
#include <climits>

namespace {

class PDFContent : public PDFTest
{
protected:
    void expectContent(const std::function<void(PDFPrinter&)>& draw, const std::string& expected)
    {
        EXPECT_EQ(content(draw).toStdString(), expected);
    }
};

/// A piece of content that writes this text in Helvetica, black.
std::string text(const std::string& place, const std::string& shown, const std::string& font = "/F8 10.00")
{
    return "q 0 g \n%DEBUT_TEXT/%\nBT\n" + place + "\n" + font + " Tf\n(" + shown +
           ") Tj\nET\nQ\n%FIN_TEXT/%\n";
}

} // namespace

TEST(PDFNumber, AgreesWithTheMaskForAllNumbers)
{
    const auto byMask = [](double value, int decimals) {
        return Format(value, u"###0."_qs + QString(decimals, u'0')).replace(u',', u'.').toStdString();
    };
    QRandomGenerator random(7);
    for (int i = 0; i < 20'000; ++i) {
        const int decimals = 1 + i % 5;
        // Among them many with a five right behind the last decimal.
        const double value =
            i % 2 ? random.bounded(4000.0) - 2000 : (random.bounded(400'000) - 200'000) / 2000.0;
        ASSERT_EQ(PDFNumber(value, decimals).text().toStdString(), byMask(value, decimals)) << value;
    }
    for (const double value :
         {0.0, -0.001, 0.005, 1.005, -2.675, 0.99999999, 999'999'999.995, 1e12 + 0.25, 1e300})
        EXPECT_EQ(PDFNumber(value).text().toStdString(), byMask(value, 2)) << value;
}

TEST_F(PDFContent, Text)
{
    expectContent([](PDFPrinter& pdf) { pdf.PDFTextOut(QStringLiteral("Ação (1) a\\b"), 30, 40); },
                  text("31.00 802.00 Td", "A\xE7\xE3o \\(1\\) a\\\\\\\\b"));
    expectContent(
        [](PDFPrinter& pdf) {
            // Where X stands is 1 here, and the margin is added again.
            pdf.PDFTextOut(QStringLiteral("AA"), 0, 0);
            EXPECT_EQ(pdf.PDFGetX(), 14); // 1 + 13.34
            EXPECT_EQ(pdf.PDFGetY(), 11);
            pdf.PDFTextOut({}, 0, 100);
            EXPECT_EQ(pdf.PDFGetX(), 14);
        },
        text("2.00 841.00 Td", "AA") + text("15.34 742.00 Td", ""));
    expectContent(
        [](PDFPrinter& pdf) {
            pdf.PDFSetTextColor(QVariantList{255, 192.5, 300});
            pdf.PDFSetFont(2, 0, 2);
            EXPECT_EQ(pdf.PDFTextHeight(), 10);
            pdf.PDFTextOut(QStringLiteral("a"), 5, 5);
        },
        "q 1.000 0.753 1.176 rg \n%DEBUT_TEXT/%\nBT\n6.00 837.00 Td\n/F10 10.00 Tf\n(a) "
        "Tj\nET\nQ\n%FIN_TEXT/%\n");
}

TEST_F(PDFContent, RotatedAndUnderlinedText)
{
    // The rotation and the underline are used up by one text; a rotated one has no margin.
    expectContent(
        [](PDFPrinter& pdf) {
            pdf.PDFSetRotation(90);
            pdf.PDFTextOut(QStringLiteral("A"), 30, 40);
            pdf.PDFTextOut(QStringLiteral("A"), 30, 40);
        },
        text("0.00000 1.00000 -1.00000 0.00000 30.00 802.00 Tm", "A") + text("31.00 802.00 Td", "A"));
    // "AA A" is 6.67 x 3 + 2.78 wide, and the blank counts twice; "up" is 11.12, rounded 11, of which 1000ths
    // of the size are added: 842 - (40 - 0.11) - 2.
    const std::string line = "31.00 800.11 25.57 -0.05 re f\n";
    std::string expected = text("31.00 802.00 Td", "AA A");
    expected.insert(expected.find("Q\n%FIN"), line);
    expectContent(
        [](PDFPrinter& pdf) {
            pdf.PDFSetFont(0, 10, 3);
            pdf.PDFTextOut(QStringLiteral("AA A"), 30, 40);
            pdf.PDFTextOut(QStringLiteral("A"), 30, 40);
        },
        expected + text("31.00 802.00 Td", "A"));
}

TEST_F(PDFContent, Watermark)
{
    // Bold Helvetica of 50: "AA" is 72.2 wide. (595 - 72.2 x 0.5253) / 2.75 and (72.2 x 0.8509 + 842) / 2.15
    // from the top; sine and cosine of 45 degrees with pi taken as 3.1416.
    const std::string mark =
        "q 1.000 0.753 0.796 rg \n%DEBUT_TEXT/%\nBT\n"
        "0.70711 0.70711 -0.70711 0.70711 202.57 421.80 Tm\n/F5 50.00 Tf\n(AA) Tj\nET\nQ\n"
        "%FIN_TEXT/%\n";
    PDFPrinter pdf;
    configure(pdf);
    pdf.PDFFiligran(QStringLiteral("AA"));
    pdf.PDFBeginDoc();
    pdf.PDFSetBookmark(QStringLiteral("um"), 0, 40);
    pdf.PDFSetBookmark(QStringLiteral("dois"), 1, 60);
    pdf.PDFEndPage();
    pdf.PDFNewPage();
    pdf.PDFEndDoc();
    const std::string file = bytes().replace("\r\n", "\n").toStdString();
    EXPECT_NE(file.find("2 0 obj\n<< /Length 3 0 R\n >>\nstream\n" + mark + "endstream"), std::string::npos)
        << file;
    EXPECT_NE(file.find("stream\n%DEBUT_OBJ/%\n" + mark + "endstream"), std::string::npos);
    expectReadable(2);
}

TEST_F(PDFContent, Lines)
{
    expectContent(
        [](PDFPrinter& pdf) {
            pdf.PDFSetLineStyle(1);
            pdf.PDFSetLineColor(QStringLiteral("#FF0080"));
            pdf.PDFDrawLine(10, 20.555, 5, 40);
            EXPECT_EQ(pdf.PDFGetX(), 10);
            EXPECT_EQ(pdf.PDFGetY(), 40);
        },
        "%DEBUT_LN/%\n[16 8 ] 0 d\n10.00 821.45 m\n5.00 802.00 l\n1.000 0.000 0.502 RG\n0.50 w "
        "S\n%FIN_LN/%\n");
    expectContent(
        [](PDFPrinter& pdf) {
            pdf.PDFSetLineStyle(2);
            pdf.PDFSetDrawColor(255);
            pdf.PDFDrawLineHor(10, 20, 30);
            EXPECT_EQ(pdf.PDFGetDrawColor(), u"0 g");
            EXPECT_EQ(pdf.PDFGetX(), 40);
            EXPECT_EQ(pdf.PDFGetY(), 20);
            pdf.PDFSetLineStyle(3);
            pdf.PDFSetLineColor(0x010000);
            pdf.PDFDrawLineVer(10, 20, 30);
            EXPECT_EQ(pdf.PDFGetDrawColor(), u"0.000 0.000 0.004 rg");
            EXPECT_EQ(pdf.PDFGetX(), 10);
            EXPECT_EQ(pdf.PDFGetY(), 50);
        },
        "%DEBUT_LNH/%\n[8 7 2 7 ] 0 d\n10.00 822.00 m\n40.00 822.00 l\n0 G\n0.50 w S\n%FIN_LNH/%\n"
        "%DEBUT_LNV/%\n[8 4 2 4 2 4 ] 0 d\n10.00 822.00 m\n10.00 792.00 l\n0.000 0.000 0.004 RG\n0.50 w S\n"
        "%FIN_LNV/%\n");
}

TEST_F(PDFContent, UnitsScaleLengthsButNeitherMarginsNorWidths)
{
    PDFPrinter pdf;
    configure(pdf);
    EXPECT_EQ(pdf.PDFGetUnit(), u"pt");
    pdf.PDFSetUnit(1);
    EXPECT_EQ(pdf.PDFGetUnit(), u"mm");
    pdf.PDFBeginDoc();
    pdf.PDFSetBookmark(QStringLiteral("um"), 0, 10);
    pdf.PDFSetBookmark(QStringLiteral("dois"), 1, -1);
    pdf.PDFSetLineStyle(1);
    pdf.PDFSetLineWidth(1);
    pdf.PDFSetFont(0, 10, 0);
    EXPECT_DOUBLE_EQ(pdf.PDFGetStringWidth(QStringLiteral("A"), {}, 10), 6.67);
    EXPECT_NEAR(pdf.PDFTextHeight(), 28.346, 0.001);
    pdf.PDFDrawLine(0, 0, 25.4, 25.4);
    pdf.PDFTextOut(QStringLiteral("A"), 25.4, 25.4);
    pdf.PDFEndDoc();
    const QByteArray file = bytes().replace("\r\n", "\n");
    EXPECT_TRUE(file.contains("[45 22 ] 0 d\n0.00 842.00 m\n72.00 770.00 l\n0 G\n2.83 w S\n"));
    EXPECT_TRUE(file.contains("BT\n74.83 770.00 Td\n"));
    EXPECT_TRUE(file.contains("/XYZ 0 813.65 null]"));
    EXPECT_TRUE(file.contains("/XYZ 0 839.17 null]")); // the Y at the time
    expectReadable(1);
}

TEST_F(PDFContent, RectanglesEllipsesPolygons)
{
    const auto inMode = [this](const QVariant& mode) {
        return content([&](PDFPrinter& pdf) {
                   pdf.PDFSetDrawMode(mode);
                   pdf.PDFSetDrawColor(0x0000FF);
                   pdf.PDFDrawRectangle(10, 20, 30, 40);
                   EXPECT_EQ(pdf.PDFGetTextColor(), u"1.000 1.000 1.000 rg");
                   EXPECT_EQ(pdf.PDFGetX(), 10);
                   EXPECT_EQ(pdf.PDFGetY(), 60);
                   pdf.PDFDrawEllipse(100, 200, 40, 0);
                   EXPECT_EQ(pdf.PDFGetY(), 220);
                   pdf.PDFDrawPolygon({{1, 2, 3, 4, 5, 6}});
               })
            .toStdString();
    };
    const auto expected = [](const std::string& colours, const std::string& rectangle,
                             const std::string& figure) {
        return "%DEBUT_RECT/%\n" + colours + "[] 0 d\n10.00 822.00 30.00 -40.00 re " + rectangle +
               "\n0.50 w S\n%FIN_RECT/%\n" + colours +
               "[] 0 d\n100.00 622.00 m\n"
               "100.00 633.00 109.00 642.00 120.00 642.00 c\n131.00 642.00 140.00 633.00 140.00 622.00 c\n"
               "140.00 611.00 131.00 602.00 120.00 602.00 c\n109.00 602.00 100.00 611.00 100.00 622.00 "
               "c\n0.50 w " +
               figure + "\n" + colours +
               "%DEBUT_POLY/%\n[] 0 d\n1.00 840.00 m\n3.00 838.00 l\n5.00 836.00 l\n" +
               "1.00 840.00 l\n0.50 w " + figure + "\n%FIN_POLY/%\n";
    };
    EXPECT_EQ(inMode(0), expected("0 G\n", "s", "s"));
    EXPECT_EQ(inMode(QStringLiteral("1")), expected("1.000 0.000 0.000 rg\n", "f", "h f"));
    EXPECT_EQ(inMode(2), expected("1.000 0.000 0.000 rg\n0 G\n", "B", "B"));
}

TEST_F(PDFContent, CellsBreakTextAtBlanksOrInLongWords)
{
    // 40 less two margins of 3 leave 34; at 10 "a" and a blank count 6 and 3, rounded as they are summed up.
    const auto lines = [this](const QString& shown, double size) {
        QByteArrayList found;
        const QByteArray all = content([&](PDFPrinter& pdf) {
            pdf.PDFSetFont(0, size, 0);
            pdf.PDFCell(shown, 100, 200, 40, 12);
        });
        for (const QByteArray& line : all.split('\n'))
            if (line.endsWith(" Tj") || line.endsWith(" Td"))
                found += line;
        return found.join(' ').toStdString();
    };
    EXPECT_EQ(lines(QStringLiteral("aaa aaa a"), 10),
              "103.00 633.00 Td (aaa) Tj 103.00 621.00 Td (aaa a) Tj");
    EXPECT_EQ(lines(QStringLiteral("aaaaaaaa"), 10), "106.00 633.00 Td (aaaaa) Tj 103.00 621.00 Td (aaa) Tj");
    EXPECT_EQ(lines(QStringLiteral("aaa aaa a"), 5), "103.00 634.50 Td (aaa aaa a) Tj");
    EXPECT_EQ(lines({}, 10), "103.00 633.00 Td () Tj");
    EXPECT_EQ(lines(QStringLiteral("a\r\n"), 10), "103.00 633.00 Td (a\r) Tj");
    // A character wider than the cell stands alone.
    EXPECT_EQ(lines(QStringLiteral("aa"), 100),
              "106.00 606.00 Td (a) Tj 106.00 594.00 Td (a) Tj 103.00 582.00 Td () Tj");
}

TEST_F(PDFContent, CellsAlignTheirText)
{
    const auto cell = [this](qint32 alignment) {
        return content([&](PDFPrinter& pdf) {
                   pdf.PDFSetBorder(0);
                   pdf.PDFSetAlignement(alignment);
                   pdf.PDFCell(QStringLiteral("A A"), 103, 200, 60, 12);
                   EXPECT_EQ(pdf.PDFGetX(), 160);
                   EXPECT_EQ(pdf.PDFGetY(), 212);
               })
            .toStdString();
    };
    const auto expected = [](const std::string& spacing, const std::string& x, const std::string& end) {
        return "%DEBUT_CELL/%\n0 G\n0 g\n0.50 w\n" + spacing + "q 0 g \nBT\n/F8 10 Tf\n" + x +
               " 633.00 Td\n(A A) Tj\nET\nQ\n" + end + "%FIN_CELL/%\n";
    };
    // 60 wide from 100, the text 16.12.
    EXPECT_EQ(cell(1), expected("", "106.00", ""));
    EXPECT_EQ(cell(2), expected("", "140.88", ""));
    EXPECT_EQ(cell(0), expected("", "122.00", ""));
    EXPECT_EQ(cell(3), expected("37.880 Tw\n", "106.00", "0 Tw\n"));
}

TEST_F(PDFContent, CellsDrawTheLastOfTheirEdges)
{
    // Two lines of a cell at (103, 200), 40 x 12 each.
    const auto frames = [this](qint32 border, bool fill) {
        QByteArrayList found;
        const QByteArray all = content([&](PDFPrinter& pdf) {
            pdf.PDFSetBorder(border);
            pdf.PDFSetFill(fill);
            pdf.PDFCell(QStringLiteral("aaa aaa a"), 103, 200, 40, 12);
        });
        for (const QByteArray& line : all.split('\n'))
            if (line.contains(" re ") || line.contains(" l S"))
                found += line;
        return found.join('|').toStdString();
    };
    EXPECT_EQ(frames(0, false), "");
    EXPECT_EQ(frames(0, true), "100.00 642.00 40.00 -12.00 re f\r|100.00 630.00 40.00 -12.00 re f\r");
    EXPECT_EQ(frames(1, true), "140.00 642.00 m 140.00 630.00 l S \r|100.00 618.00 m 140.00 618.00 l S \r");
    EXPECT_EQ(frames(2, false), "100.00 642.00 m 140.00 642.00 l S \r");
    EXPECT_EQ(frames(3, false), "100.00 618.00 m 140.00 618.00 l S \r");
    EXPECT_EQ(frames(43, false), "100.00 642.00 m 100.00 630.00 l S\r|100.00 618.00 m 140.00 618.00 l S \r");
    EXPECT_EQ(frames(5, false), "140.00 642.00 m 140.00 630.00 l S \r|140.00 630.00 m 140.00 618.00 l S \r");
}

TEST_F(PDFContent, Links)
{
    std::string annotations;
    const auto draw = [&](const std::function<void(PDFPrinter&)>& link) {
        const QByteArray drawn = content(link);
        const QByteArray file = bytes();
        const qsizetype begin = file.indexOf("/Annots [");
        EXPECT_GE(begin, 0);
        annotations = file.sliced(begin + 9, file.indexOf("\r\n/Contents") - begin - 9).toStdString();
        return drawn.toStdString();
    };
    const auto area = [](const std::string& rectangle, const std::string& action) {
        return "<</Type /Annot /Subtype /Link /Rect [" + rectangle + "] /Border [0 0 0] " + action;
    };
    const std::string action = "/A <</S /URI /URI (AA)>>>>\r\n";
    const QString url = QStringLiteral("AA");

    // An address of its own: 13.34 wide, the area 13 x 10.
    EXPECT_EQ(draw([&](PDFPrinter& pdf) { pdf.PDFLink(30.5, 40, url); }),
              "%DEBUT_LINK/%\nq 0 g \n%DEBUT_TEXT/%\nBT\n31.50 802.00 Td\n/F8 10.00 Tf\n(AA) Tj\nET\n"
              "32.00 800.11 13.34 -0.03 re f\nQ\n%FIN_TEXT/%\n%FIN_LINK/%\n");
    EXPECT_EQ(annotations, area("30.5 802 43.5 792", action) + "]");
    // A target that is no text leaves its dictionary open.
    draw([&](PDFPrinter& pdf) { pdf.PDFLink(30, 40, url, 7); });
    EXPECT_EQ(annotations, area("30 802 43 792", "") + "]");
    draw([&](PDFPrinter& pdf) { pdf.PDFLink(30, 40, url, QStringLiteral("B(\\")); });
    EXPECT_EQ(annotations, area("30 802 43 792", "/A <</S /URI /URI (B\\(\\\\\\\\)>>>>\r\n") + "]");

    draw([&](PDFPrinter& pdf) { pdf.PDFDrawRectangle(10, 20, 30.5, 41, url); });
    EXPECT_EQ(annotations, area("15 802 45 792", action) + "]");
    draw([&](PDFPrinter& pdf) { pdf.PDFDrawEllipse(10, 20, 30, 40, url); });
    EXPECT_EQ(annotations, area("10 802 32 792", action) + "]"); // as wide as "LINK"
    // A cell's text is a link, and so is what stands under the same address at its corner.
    EXPECT_EQ(
        draw([&](PDFPrinter& pdf) {
            pdf.PDFSetBorder(0);
            pdf.PDFCell(QStringLiteral("A"), 103, 200, 60, 12, url);
        }),
        "%DEBUT_CELL/%\n0 G\n0 g\n0.50 w\nq 0 g \n106.00 630.00 3.67 -0.01 re f\nBT\n/F8 10 Tf\n"
        "106.00 633.00 Td\n(A) Tj\nET\nQ\n%DEBUT_LINK/%\nq 0 g \n%DEBUT_TEXT/%\nBT\n101.00 642.00 Td\n"
        "/F8 10.00 Tf\n() Tj\nET\n101.00 640.11 0.00 0.00 re f\nQ\n%FIN_TEXT/%\n%FIN_LINK/%\n%FIN_CELL/%\n");
    EXPECT_EQ(annotations, area("106 641 166 631", action) + area("100 642 106 632", action) + "]");
}

TEST_F(PDFContent, AtMostAThousandLinksOnAPage)
{
    PDFPrinter pdf;
    configure(pdf);
    pdf.PDFSetFont(0, 10, 0);
    EXPECT_EQ(errorOf([&] { pdf.PDFLink(1, 1, QStringLiteral("A")); }), 9); // no page yet
    pdf.PDFBeginDoc();
    for (int i = 0; i < 1000; ++i)
        pdf.PDFLink(1, 1, QStringLiteral("A"));
    EXPECT_EQ(errorOf([&] { pdf.PDFLink(1, 1, QStringLiteral("A")); }), 9);
    for (int i = 1; i < 1000; ++i)
        pdf.PDFNewPage();
    EXPECT_EQ(errorOf([&] { pdf.PDFLink(1, 1, QStringLiteral("A")); }), 0);
    pdf.PDFNewPage();
    EXPECT_EQ(errorOf([&] { pdf.PDFLink(1, 1, QStringLiteral("A")); }), 9);
}

TEST_F(PDFContent, NamesAndWidthsOfFonts)
{
    PDFPrinter pdf;
    configure(pdf);
    pdf.PDFBeginDoc();
    const struct
    {
        qint32 family, style;
        QByteArray number;
        int error;
    } rows[] = {
        {0, 0, "/F8 ", 0}, {0, 12, "/F6 ", 0}, {0, 31, "/F7 ", 0}, {0, 4, "/F8 ", 0},  {1, 0, "/F4 ", 0},
        {1, 2, "/F1 ", 0}, {2, 0, "/F13 ", 0}, {2, 1, "/F0 ", 53}, {2, 2, "/F10 ", 0}, {2, 21, "/F11 ", 0},
        {3, 0, "/F9 ", 0}, {3, 2, "/F0 ", 53}, {4, 0, "/F14 ", 0}, {4, 1, "/F0 ", 53},
    };
    for (const auto& row : rows) {
        const QByteArray text = QByteArray::number(row.family) + '/' + QByteArray::number(row.style);
        pdf.PDFSetFont(row.family, 10, row.style);
        EXPECT_EQ(errorOf([&] { pdf.PDFTextOut(QString::fromLatin1(text), 1, 1); }), row.error)
            << text.toStdString();
    }
    pdf.PDFNewPage();
    const QByteArray file = bytes();
    for (const auto& row : rows) {
        const QByteArray text = QByteArray::number(row.family) + '/' + QByteArray::number(row.style);
        // An underlined font without metrics fails before anything is written.
        EXPECT_TRUE(file.contains(row.number + "10.00 Tf\r\n(" + text + ") Tj")) << text.toStdString();
    }

    const auto width = [&](const QString& text, const QString& font, double size) {
        return pdf.PDFGetStringWidth(text, font, size);
    };
    const QString helvetica = QStringLiteral("Helvetica");
    EXPECT_DOUBLE_EQ(width(QStringLiteral("Ab 1"), helvetica, 9), 9 * (667 + 556 + 278 + 556) / 1000.0);
    EXPECT_DOUBLE_EQ(width(QStringLiteral("A"), helvetica, 2.5), 2 * 0.667); // the size is a whole number
    // Codes are the font's own: 0xC0 has no character there, 0xE3 is its "ª", and nothing lies above 251.
    EXPECT_DOUBLE_EQ(width(QStringLiteral("Àãü"), helvetica, 1000), 370);
    EXPECT_EQ(width({}, helvetica, 9), 0);
    EXPECT_EQ(errorOf([&] { width({}, QStringLiteral("TimesRoman"), 9); }), 53);
    EXPECT_EQ(errorOf([&] { width(QString(QChar(0)), helvetica, 9); }), 9);

    pdf.PDFLoadAfm(oneFont());
    EXPECT_DOUBLE_EQ(width(QStringLiteral("Ana"), helvetica, 10), 18);
    EXPECT_EQ(errorOf([&] { pdf.PDFLoadAfm(path(QStringLiteral("nada"))); }), 76);
    pdf.PDFLoadAfm(path(QString())); // no fonts there: the ones before stay
    EXPECT_DOUBLE_EQ(width(QStringLiteral("Ana"), helvetica, 10), 18);
    for (const auto& [bad, error] : {std::pair("StartCharMetrics\r\nC 65 ; WX 1 ;\r\n", 62),
                                     {"C 65 ; WX 1 ;", 62},
                                     {"StartCharMetrics\nC 300 ; WX 1 ;\nEndCharMetrics\n", 9},
                                     {"StartCharMetrics\nC\nEndCharMetrics\n", 9}}) {
        put(QStringLiteral("one/Helvetica.afm"), bad);
        pdf.PDFPathConfiguration(path(QStringLiteral("one")));
        EXPECT_EQ(errorOf([&] { width(QStringLiteral("A"), helvetica, 9); }), error) << bad;
    }
}

TEST_F(PDFContent, MarginsAndPageSizes)
{
    PDFPrinter pdf;
    EXPECT_EQ(pdf.PDFGetUnit(), u"cm");
    EXPECT_EQ(pdf.PDFGetLeftMargin(), 1);
    EXPECT_EQ(pdf.PDFGetCellMargin(), 3);
    pdf.PDFSetMargins(10, 20);
    EXPECT_EQ(pdf.PDFGetRightMargin(), 10);
    EXPECT_EQ(pdf.PDFGetBottomMargin(), 20);
    for (const auto& [given, kept] : {std::pair(2.5, 2), {3.5, 4}, {-0.5, 0}, {2.51, 3}}) {
        pdf.PDFSetTopMargin(given);
        EXPECT_EQ(pdf.PDFGetTopMargin(), kept) << given;
    }
    EXPECT_EQ(errorOf([&] { pdf.PDFSetLeftMargin(40'000); }), 6);

    const struct
    {
        QVariant format;
        qint32 orientation;
        double width, height;
    } rows[] = {
        {0, 1, 595, 842},
        {0, 0, 842, 595},
        {1, 1, 842, 1191},
        {2, 1, 421, 595},
        {3, 1, 612, 792},
        {4, 0, 1008, 612},
        {QVariantList{100.5, 200.5}, 1, 100, 200},
    };
    for (const auto& row : rows) {
        pdf.PDFFormatPage(row.format);
        pdf.PDFOrientation(row.orientation);
        EXPECT_EQ(pdf.PDFGetPageWidth(), row.width);
        EXPECT_EQ(pdf.PDFGetPageHeight(), row.height);
    }
    EXPECT_EQ(errorOf([&] { pdf.PDFFormatPage(QVariantList{100.0}); }), 9);
}

TEST_F(PDFContent, Colours)
{
    const auto written = [](const QVariant& colour) {
        return PDFColorOperator(PDFColor(colour), "rg").toStdString();
    };
    EXPECT_EQ(written(QStringLiteral("#3366FF")), "0.200 0.400 1.000 rg");
    EXPECT_EQ(written(QStringLiteral("#")), "0.000 0.000 0.000 rg");
    EXPECT_EQ(written(0x336699), "0.600 0.400 0.200 rg");
    EXPECT_EQ(written(QVariantList{0.5, 1.5, 255}), "0.000 0.008 1.000 rg");
    EXPECT_EQ(errorOf([&] { written(QVariantList{1, 2}); }), 9);
    dialogs_.expect(QStringLiteral("Code couleur HTMl invalide FF0000.\nLa couleur utilisée sera le noir."),
                    QStringLiteral("Couleur HTMl - Vespadoc 4.0"), Icon::Critical);
    EXPECT_EQ(written(QStringLiteral("FF0000")), "0.000 0.000 0.000 rg");
}

TEST_F(PDFContent, BadArgumentsAreToldAndReplaced)
{
    PDFPrinter pdf;
    configure(pdf);
    pdf.PDFBeginDoc();
    const auto expect = [this](const QString& title, const QString& text) {
        dialogs_.expect(text, title + QStringLiteral(" - Vespadoc 4.0"), Icon::Critical);
    };
    expect(QStringLiteral("Layout Mode"),
           QStringLiteral("Layout incorrect : 4.\nLe Layout utilisé sera le layout simple."));
    pdf.PDFSetLayoutMode(4);
    EXPECT_EQ(pdf.PDFGetLayoutMode(), 0);
    expect(QStringLiteral("Code Unité de Mesure"),
           QStringLiteral(
               "Code unité de mesure incorrect : -1.\nL'Unité de Mesure utilisée sera le centimètre."));
    pdf.PDFSetUnit(-1);
    EXPECT_EQ(pdf.PDFGetUnit(), u"cm");
    pdf.PDFSetUnit(0);
    expect(QStringLiteral("Type d'Orientation de Page"),
           QStringLiteral(
               "Code orientation de page incorrect : 2.\nL'Orientation de la page sera le mode portrait."));
    pdf.PDFOrientation(2);
    EXPECT_EQ(pdf.PDFGetPageHeight(), 842);
    expect(
        QStringLiteral("Format de Page"),
        QStringLiteral("Code format de page incorrect : 5.\nLe Format de page utilisé sera le format A4."));
    pdf.PDFFormatPage(5);
    expect(
        QStringLiteral("Format de Page"),
        QStringLiteral("Code format de page incorrect : A4.\nLe Format de page utilisé sera le format A4"));
    pdf.PDFFormatPage(QStringLiteral("A4"));
    EXPECT_EQ(pdf.PDFGetPageWidth(), 595.28);
    expect(QStringLiteral("Nom de Font"),
           QStringLiteral("Nom de font incorrecte : 5.\n"
                          "La font utilisée sera Times New Roman non gras , non italique."));
    pdf.PDFSetFont(5, 9, 12);
    EXPECT_EQ(errorOf([&] { pdf.PDFTextOut(QStringLiteral("A"), 1, 1); }), 53);
    expect(QStringLiteral("Objet Rectangle"),
           QStringLiteral("Code type de traçage incorrect : D.\n"
                          "Le type de traçage utilisé sera bordure et remplissage."));
    pdf.PDFSetDrawMode(QStringLiteral("D"));
    expect(QStringLiteral("Style de Ligne"),
           QStringLiteral("Code style de ligne incorrect : 4.\nLe style de ligne utilisé sera pSolid."));
    pdf.PDFSetLineStyle(4);
    expect(
        QStringLiteral("Code Alignement de Cellule"),
        QStringLiteral("Code alignement incorrect : 4.\nL'alignement utilisé sera l'alignement à gauche."));
    pdf.PDFSetAlignement(2);
    EXPECT_EQ(pdf.PDFGetAlignement(), u"Right");
    pdf.PDFSetAlignement(4);
    EXPECT_EQ(pdf.PDFGetAlignement(), u"Left");

    pdf.PDFSetFont(0, 9, 0);
    pdf.PDFDrawRectangle(1, 1, 1, 1, 5); // says nothing
    expect(QStringLiteral("Lien URL Objet Ellipse"),
           QStringLiteral("URL objet ellipse non valide : 5.\nImpossible d'inclure le lien dans l'ellipse."));
    pdf.PDFDrawEllipse(1, 1, 1, 1, 5);
    expect(
        QStringLiteral("Lien URL Objet Cellule"),
        QStringLiteral("URL objet cellule non valide : 5.\nImpossible d'inclure le lien dans la cellule."));
    pdf.PDFCell(QStringLiteral("A"), 1, 1, 50, 10, 5);
    pdf.PDFNewPage();
    EXPECT_TRUE(bytes().contains("/F0 9.00 Tf\r\n(A) Tj"));
    EXPECT_TRUE(bytes().contains("0 G\r\n[] 0 d\r\n1.00 840.89 1.00 -1.00 re s\r\n"));
    for (const QList<QList<double>>& points : {QList<QList<double>>{}, {{}}, {{1, 2, 3, 4, 5, 6, 7}}})
        EXPECT_EQ(errorOf([&] { pdf.PDFDrawPolygon(points); }), 9);
}
