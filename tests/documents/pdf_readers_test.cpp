/// A document as other programs see it: they find pages, sizes, texts and pictures although they have to make
/// the table of the objects anew.
#include "documents/pdffixture.h"

#include <QImage>

namespace {

class PDFReaders : public PDFTest
{
protected:
    /// A page as poppler and as mupdf draw it, as many pixels as points.
    QList<QImage> drawn(int page) const
    {
        const QString number = QString::number(page);
        printed(u"pdftoppm"_qs, {u"-r"_qs, u"72"_qs, u"-png"_qs, u"-singlefile"_qs, u"-f"_qs, number, path(),
                                 path(u"poppler"_qs)});
        printed(u"mutool"_qs,
                {u"draw"_qs, u"-q"_qs, u"-r"_qs, u"72"_qs, u"-o"_qs, path(u"mupdf.png"_qs), path(), number});
        return {QImage(path(u"poppler.png"_qs)), QImage(path(u"mupdf.png"_qs))};
    }
};

} // namespace

TEST_F(PDFReaders, TwoOfThemAgreeOnTextsColoursAndPictures)
{
    QImage photo(60, 40, QImage::Format_RGB32);
    photo.fill(QColor(0, 160, 0));
    ASSERT_TRUE(photo.save(path(u"foto.jpg"_qs)));

    PDFPrinter pdf;
    configure(pdf);
    pdf.PDFUseOutlines(true);
    pdf.PDFTitle(u"Agenda da Clínica"_qs);
    beginDocument(pdf);
    pdf.PDFSetLineColor(0xFF0000);
    pdf.PDFSetLineWidth(12);
    pdf.PDFDrawLine(15, 77, 575, 77);
    pdf.PDFSetFont(0, 9, 0);
    pdf.PDFTextOut(u"08:00 CONCEIÇÃO (retorno) – às 9h"_qs, 20, 90);
    pdf.PDFImage(path(u"foto.jpg"_qs), 300, 300, 120, 80);
    pdf.PDFEndPage();
    pdf.PDFPageWidth(842);
    pdf.PDFPageHeight(595);
    pdf.PDFNewPage();
    pdf.PDFSetDrawMode(1);
    pdf.PDFSetDrawColor(u"#FF0000"_qs);
    pdf.PDFDrawRectangle(100, 100, 200, 100);
    pdf.PDFEndPage();
    pdf.PDFEndDoc();
    expectReadable(2);

    EXPECT_TRUE(printed(u"pdfinfo"_qs, {path()}).contains(u"Agenda da Clínica"));
    EXPECT_TRUE(printed(u"mutool"_qs, {u"show"_qs, path(), u"outline"_qs}).contains(u"dois"));
    for (const QString& text : {printed(u"pdftotext"_qs, {u"-layout"_qs, path(), u"-"_qs}),
                                printed(u"mutool"_qs, {u"draw"_qs, u"-q"_qs, u"-F"_qs, u"txt"_qs, path()})})
        EXPECT_TRUE(text.contains(u"08:00 CONCEIÇÃO (retorno) – às 9h"));
    for (const QImage& page : drawn(1)) {
        EXPECT_EQ(page.size(), QSize(595, 842));
        EXPECT_EQ(page.pixelColor(400, 77), QColor(Qt::blue)); // red comes last in a packed colour
        EXPECT_EQ(page.pixelColor(400, 60), QColor(Qt::white));
        const QColor green = page.pixelColor(360, 340);
        EXPECT_TRUE(green.green() > 150 && green.red() < 10 && green.blue() < 10)
            << green.name().toStdString();
    }
    for (const QImage& page : drawn(2)) {
        EXPECT_EQ(page.size(), QSize(842, 595));
        EXPECT_EQ(page.pixelColor(200, 150), QColor(Qt::red));
        EXPECT_EQ(page.pixelColor(200, 90), QColor(Qt::white));
    }
}
