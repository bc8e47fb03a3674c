/// Whole documents, byte for byte.
#include "documents/pdf/outline.h"
#include "documents/pdffixture.h"

#include "platform/system/shell.h"

#include <QImage>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::HasSubstr;

namespace {

QByteArray withLineEnds(QByteArray text)
{
    return text.replace("\n", "\r\n");
}

/// The file of these objects, which have line feeds unless their line ends are there already: every object is
/// followed by one more line end, which the offsets leave out, and the last one is the catalog.
std::string fileOf(const QByteArrayList& objects)
{
    QByteArray file = "%PDF-1.3\r\n";
    QByteArray table = "0000000000 65535 f\n";
    qsizetype offset = 8;
    for (QByteArray object : objects) {
        if (!object.contains("\r\n"))
            object = withLineEnds(object);
        table += QByteArray::number(offset).rightJustified(10, '0') + " 00000 n\n";
        file += object + "\r\n";
        offset += object.size();
    }
    const QByteArray count = QByteArray::number(objects.size());
    const QByteArray size = QByteArray::number(objects.size() + 1);
    file += withLineEnds("xref\n0 " + size + '\n' + table + "trailer\n<< /Size " + size + "\n/Root " + count +
                         " 0 R\n/Info 1 0 R\n>>\nstartxref\n" + QByteArray::number(offset) + "\n\n%%EOF\n");
    return file.toStdString();
}

QByteArray information(const QByteArray& documentTitle = {})
{
    return "1 0 obj\n<<\n/Producer ()\n/Author ()\n/CreationDate (D:20260316080910)\n/Creator ()\n/Keywords "
           "()\n"
           "/Subject ()\n/Title (" +
           documentTitle + ")\n/ModDate ()\n>>\nendobj\n";
}

QByteArray helvetica(const QByteArray& number)
{
    return number + " 0 obj\n<< /Type /Font\n/Subtype /Type1\n/Name /F1\n/BaseFont /Helvetica\n"
                    "/Encoding /WinAnsiEncoding\n>>\nendobj\n";
}

using PDFFile = PDFTest;

} // namespace

TEST_F(PDFFile, OnePageWithTheWishesOfTheReports)
{
    PDFPrinter pdf;
    pdf.PDFFileName(path()); // no fonts, so that the length of the page stands twice
    pdf.PDFConfirm(true);
    pdf.PDFView(true);
    pdf.PDFSetViewerPreferences(6);
    pdf.PDFSetZoomMode(1);
    pdf.PDFSetLayoutMode(3);
    pdf.PDFUseOutlines(true);
    pdf.PDFUseThumbs(true);
    pdf.PDFTitle(u"Atenção (1)"_s);
    pdf.PDFSetUnit(0);
    beginDocument(pdf);
    pdf.PDFDrawLine(10, 20, 30, 40);
    pdf.PDFEndPage();
    QString opened;
    Shell::setHandler([&](const QString& target) { opened = target; });
    dialogs_.expect(u"Fichier PDF généré."_s, u"Génération du Fichier PDF - Vespadoc 4.0"_s, Icon::None);
    pdf.PDFEndDoc();
    Shell::setHandler({});

    EXPECT_EQ(opened, path());
    const QByteArray length = "3 0 obj\n73\nendobj\n";
    EXPECT_EQ(
        bytes().toStdString(),
        fileOf({information("Aten\xE7\xE3o (1)"),
                "2 0 obj\n<< /Length 3 0 R\n >>\nstream\n%DEBUT_LN/%\n\n10.00 821.89 m\n30.00 801.89 l\n0 "
                "G\n0.57 w S\n%FIN_LN/%\nendstream\nendobj\n",
                length,
                length + "%DEBUT_OBJ/%\n4 0 obj\n<< /Type /Pages\n/Kids [\n6 0 R\n]\n/Count 1\n>>\nendobj\n",
                "5 0 obj\n<< /ProcSet [ /PDF /Text /ImageC]\n/XObject << \n>>\n/Font << \n>>\n>>\nendobj\n",
                "6 0 obj\n<< /Type /Page\n/Parent 4 0 R\n/MediaBox [ 0 0 595.28 841.89]\n/Resources 5 0 "
                "R\n/Contents 2 0 R\n>>\nendobj\n%FIN_OBJ/%\n",
                "7 0 obj\n<</Title (um)\n/Parent 9 0 R\n/First 8 0 R\n/Last 8 0 R\n/Dest [6 0 R /XYZ 0 "
                "801.89 null]\n/Count 0>>\nendobj\n",
                "8 0 obj\n<</Title (dois)\n/Parent 7 0 R\n/Dest [6 0 R /XYZ 0 781.89 null]\n/Count "
                "0>>\nendobj\n",
                "9 0 obj\n<</Type /Outlines /First 7 0 R\n/Last 8 0 R>>\nendobj\n",
                "10 0 obj\n<<\n/Type /Catalog\n/Pages 4 0 R\n/OpenAction [3 0 R /FitH null]\n/PageMode "
                "/UseThumbs\n/Outlines 9 0 R\n/PageMode /UseOutlines\n/ViewerPreferences<<\n/DisplayDocTitle "
                "true\n>>\n>>\nendobj\n"}));
    expectReadable(1);
}

TEST_F(PDFFile, TwoPagesOfDifferentSizeWithAPictureALinkAndThreeBookmarks)
{
    QImage picture(40, 30, QImage::Format_RGB32);
    picture.fill(Qt::red);
    ASSERT_TRUE(picture.save(path(u"foto.jpg"_s)));
    const QByteArray data = bytes(u"foto.jpg"_s);
    PDFPrinter pdf;
    configure(pdf, oneFont());
    pdf.PDFSetZoomMode(2);
    pdf.PDFSetLayoutMode(1);
    beginDocument(pdf);
    pdf.PDFSetBookmark(u"tr\u00EAs"_s, 1, 80.25);
    pdf.PDFDrawLine(10, 20, 30, 40);
    pdf.PDFEndPage();
    pdf.PDFPageWidth(400.5);
    pdf.PDFPageHeight(300);
    EXPECT_EQ(bytes().count("endobj"), 1); // the page is not written before the next one begins
    pdf.PDFNewPage();
    EXPECT_EQ(bytes().count("endobj"), 3);
    EXPECT_EQ(pdf.PDFPageNumber(), 2);
    pdf.PDFSetFont(0, 9, 0);
    pdf.PDFImage(path(u"foto.jpg"_s), 100, 200, 80, 0, u"https://exemplo.com.br/a(b)"_s);
    pdf.PDFEndDoc();

    // The line is 73 bytes with its line ends; the first page's length is 12 more, the second page's content
    // begins with a marker of 14.
    const QByteArray font = helvetica("6");
    EXPECT_EQ(
        bytes().toStdString(),
        fileOf(
            {information(),
             "2 0 obj\n<< /Length 3 0 R\n >>\nstream\n%DEBUT_LN/%\n\n10.00 822.00 m\n"
             "30.00 802.00 l\n0 G\n0.57 w S\n%FIN_LN/%\nendstream\nendobj\n%FIN_OBJ/%\n",
             "%DEBUT_OBJ/%\n3 0 obj\n85\nendobj\n%FIN_OBJ/%\n",
             "4 0 obj\n<< /Length 5 0 R\n >>\nstream\n%DEBUT_OBJ/%\nq\n80.00 0 0 60.00 100.00 40.00 cm "
             "/ImgJPEG1 Do Q\n"
             "%DEBUT_LINK/%\nq 0.000 0.000 1.000 rg \n%DEBUT_TEXT/%\nBT\n101.00 100.00 Td\n/F1 9.00 Tf\n() "
             "Tj\n"
             "ET\n101.00 98.00 0.00 0.00 re f\nQ\n%FIN_TEXT/%\n%FIN_LINK/%\nendstream\nendobj\n",
             "5 0 obj\n224\nendobj\n", font,
             font +
                 "%DEBUT_OBJ/%\n7 0 obj\n<< /Type /Pages\n/Kids [\n10 0 R\n11 0 R\n]\n/Count 2\n>>\nendobj\n",
             "8 0 obj\n<< /ProcSet [ /PDF /Text /ImageC]\n/XObject << \n/ImgJPEG1 9 0 R\n>>\n/Font << \n"
             "/F1 6 0 R \n>>\n>>\nendobj\n",
             withLineEnds("9 0 obj\n<</Type /XObject\n/Subtype /Image\n/Filter [/DCTDecode ]\n/Width 40\n"
                          "/Height 30\n/ColorSpace /DeviceRGB\n/BitsPerComponent 8\n/Length " +
                          QByteArray::number(data.size()) + "\n/Name /ImgJPEG1>>\nstream\n") +
                 data + withLineEnds("\nendstream\nendobj\n"),
             "10 0 obj\n<< /Type /Page\n/Parent 7 0 R\n/MediaBox [ 0 0 595 842]\n"
             "/Resources 8 0 R\n/Contents 2 0 R\n>>\nendobj\n%FIN_OBJ/%\n",
             withLineEnds(
                 "11 0 obj\n<< /Type /Page\n/Parent 7 0 R\n/MediaBox [ 0 0 400.5 300]\n/Resources 8 0 R\n"
                 "/Annots [<</Type /Annot /Subtype /Link /Rect [100 100 180 40] /Border [0 0 0] "
                 "/A <</S /URI /URI (https://exemplo.com.br/a\\(b\\))>>>>\n]\n/Contents 4 0 R\n>>\n"
                 "endobj\n%FIN_OBJ/%\n"),
             // the outline's heights are taken from the latest page
             "12 0 obj\n<</Title (um)\n/Parent 15 0 R\n/First 13 0 R\n/Last 14 0 R\n"
             "/Dest [10 0 R /XYZ 0 260.00 null]\n/Count 0>>\nendobj\n",
             "13 0 obj\n<</Title (dois)\n/Parent 12 0 R\n/Next 14 0 R\n/Dest [10 0 R /XYZ 0 240.00 null]\n"
             "/Count 0>>\nendobj\n",
             "14 0 obj\n<</Title (tr\xEAs)\n/Parent 12 0 R\n/Prev 13 0 R\n/Dest [10 0 R /XYZ 0 219.75 null]\n"
             "/Count 0>>\nendobj\n",
             "15 0 obj\n<</Type /Outlines /First 12 0 R\n/Last 14 0 R>>\nendobj\n",
             "16 0 obj\n<<\n/Type /Catalog\n/Pages 7 0 R\n/OpenAction [3 0 R /XYZ null null 1]\n"
             "/PageLayout /OneColumn\n>>\nendobj\n"}));
    expectReadable(2);
}

TEST_F(PDFFile, WishesForTheViewer)
{
    PDFPrinter pdf;
    configure(pdf, oneFont());
    pdf.PDFSetZoomMode(150);
    pdf.PDFSetLayoutMode(2);
    pdf.PDFSetViewerPreferences(-12345);
    beginDocument(pdf);
    pdf.PDFEndDoc();
    EXPECT_THAT(
        bytes().replace("\r\n", "\n").toStdString(),
        HasSubstr("/Pages 5 0 R\n/OpenAction [3 0 R /XYZ null null 1.50]\n/PageLayout /TwoColumnLeft\n"
                  "/ViewerPreferences<<\n/HideMenubar true\n/HideToolbar true\n/HideWindowUI true\n"
                  "/CenterWindow true\n/FitWindow true\n>>\n>>\nendobj\n\nxref\n"));
}

TEST_F(PDFFile, Outlines)
{
    // The neighbours of each bookmark
    const auto neighbours = [](const QList<int>& levels) {
        std::vector<PDFBookmark> bookmarks;
        for (const int level : levels)
            bookmarks.push_back({u"x"_s, level, 40, 1});
        std::string found;
        const PDFOutline outline = PDFLinkBookmarks(bookmarks);
        for (const PDFOutlineItem& item : outline.items) {
            found += "in " + std::to_string(item.parent);
            for (const auto& [name, place] : {std::pair(" after ", item.previous),
                                              {" before ", item.next},
                                              {" from ", item.first},
                                              {" to ", item.last}})
                found += place ? name + std::to_string(*place) : "";
            found += "|";
        }
        return found + std::to_string(outline.lastOfRoot);
    };
    // The second is not linked to the first; an item is linked to the one before the deeper ones.
    EXPECT_EQ(neighbours({0, 0, 0, 1}), "in 4|in 4 before 2|in 4 after 1 from 3 to 3|in 2|3");
    EXPECT_EQ(neighbours({0, 1, 2, 1}), "in 4 from 1 to 3|in 0 before 3 from 2 to 2|in 1|in 0 after 1|3");
    for (const QList<int>& faulty : {QList{0, 0}, {0, 2}, {0, -1, 1}})
        EXPECT_EQ(errorOf([&] { neighbours(faulty); }), 9);
}

TEST_F(PDFFile, TheOutputFile)
{
    const auto begin = [this](const QString& name) {
        PDFPrinter pdf;
        pdf.PDFFileName(path(name));
        return errorOf([&] { pdf.PDFBeginDoc(); });
    };
    const QDir folder(path(QString()));
    put(u"antigo.pdf"_s, QByteArray(5000, 'x'));
    EXPECT_EQ(begin(u"antigo.pdf"_s), 0);
    EXPECT_TRUE(bytes(u"antigo.pdf"_s).startsWith("%PDF-1.3\r\n1 0 obj\r\n"));
    EXPECT_LT(bytes(u"antigo.pdf"_s).size(), 5000);
    EXPECT_EQ(begin(u"sem\\pasta.pdf"_s), 75);

    // What stands there cannot be replaced: the user is told once, and has a chance.
    folder.mkdir(u"preso.pdf"_s);
    for (const int error : {75, 0}) {
        if (error == 0)
            dialogs_.setWatcher([&](const MessageBox&) { folder.rmdir(u"preso.pdf"_s); });
        dialogs_.expect(u"Le fichier preso.pdf ne peut pas être remplacé.\n"
                        "S'il est ouvert, fermez-le avant de continuer."_s,
                        u"Fichier PDF - Vespadoc 4.0"_s, Icon::Critical);
        EXPECT_EQ(begin(u"preso.pdf"_s), error);
    }
}
