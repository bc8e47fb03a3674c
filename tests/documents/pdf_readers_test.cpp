/// A document as other programs see it: they find pages, sizes, texts and pictures although they have to make
/// the table of the objects anew.
#include "documents/pdffixture.h"

#include <QImage>

using namespace Qt::StringLiterals;

namespace {

using PDFReaders = PDFTest;

} // namespace

TEST_F(PDFReaders, TwoOfThemAgreeOnTextsColoursAndPictures)
{
    QImage photo(60, 40, QImage::Format_RGB32);
    photo.fill(QColor(0, 160, 0));
    ASSERT_TRUE(photo.save(path(u"foto.jpg"_s)));

    PDFPrinter pdf;
    configure(pdf);
    pdf.PDFUseOutlines(true);
    pdf.PDFTitle(u"Agenda da Clínica"_s);
    beginDocument(pdf);
    pdf.PDFSetLineColor(0xFF0000);
    pdf.PDFSetLineWidth(12);
    pdf.PDFDrawLine(15, 77, 575, 77);
    pdf.PDFSetFont(0, 9, 0);
    pdf.PDFTextOut(u"08:00 CONCEIÇÃO (retorno) – às 9h"_s, 20, 90);
    pdf.PDFImage(path(u"foto.jpg"_s), 300, 300, 120, 80);
    pdf.PDFEndDoc();
    expectReadable(1);
    EXPECT_TRUE(bytes().contains("/OpenAction [3 0 R /Fit]\r\n/PageLayout /SinglePage\r\n")) << "no wishes";

    EXPECT_TRUE(printed(u"pdfinfo"_s, {path()}).contains(u"Agenda da Clínica"));
    EXPECT_TRUE(printed(u"mutool"_s, {u"show"_s, path(), u"outline"_s}).contains(u"dois"));
    for (const QString& text : {printed(u"pdftotext"_s, {u"-layout"_s, path(), u"-"_s}),
                                printed(u"mutool"_s, {u"draw"_s, u"-q"_s, u"-F"_s, u"txt"_s, path()})})
        EXPECT_TRUE(text.contains(u"08:00 CONCEIÇÃO (retorno) – às 9h"));
    // As many pixels as points
    const QStringList size{u"-r"_s, u"72"_s};
    printed(u"pdftoppm"_s, size + QStringList{u"-png"_s, u"-singlefile"_s, path(), path(u"poppler"_s)});
    printed(u"mutool"_s,
            QStringList{u"draw"_s, u"-q"_s, u"-o"_s, path(u"mupdf.png"_s)} + size + QStringList{path()});
    for (const QString& picture : {u"poppler.png"_s, u"mupdf.png"_s}) {
        const QImage page(path(picture));
        EXPECT_EQ(page.size(), QSize(595, 842));
        EXPECT_EQ(page.pixelColor(400, 77), QColor(Qt::blue)); // red comes last in a packed colour
        EXPECT_EQ(page.pixelColor(400, 60), QColor(Qt::white));
        const QRgb green = page.pixel(360, 340);
        EXPECT_TRUE(qGreen(green) > 150 && qRed(green) < 10 && qBlue(green) < 10) << green;
    }
}
