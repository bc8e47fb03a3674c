/// A document as other programs see it: they find pages, sizes, texts and pictures although they have to make
/// the table of the objects anew.
#include "documents/pdffixture.h"

#include <QImage>

namespace {

class PDFReaders : public PDFTest
{
protected:
    /// A page drawn by a reader, as many pixels as points.
    QImage drawnByPoppler(int page) const
    {
        const QString number = QString::number(page);
        printed(QStringLiteral("pdftoppm"),
                {QStringLiteral("-r"), QStringLiteral("72"), QStringLiteral("-png"),
                 QStringLiteral("-singlefile"), QStringLiteral("-f"), number, path(),
                 path(QStringLiteral("poppler"))});
        return QImage(path(QStringLiteral("poppler.png")));
    }
    QImage drawnByMupdf(int page) const
    {
        printed(QStringLiteral("mutool"),
                {QStringLiteral("draw"), QStringLiteral("-q"), QStringLiteral("-r"), QStringLiteral("72"),
                 QStringLiteral("-o"), path(QStringLiteral("mupdf.png")), path(), QString::number(page)});
        return QImage(path(QStringLiteral("mupdf.png")));
    }
};

} // namespace

TEST_F(PDFReaders, TwoOfThemAgreeOnAnAgenda)
{
    QImage photo(60, 40, QImage::Format_RGB32);
    photo.fill(QColor(0, 160, 0));
    ASSERT_TRUE(photo.save(path(QStringLiteral("foto.jpg"))));

    PDFPrinter pdf;
    configure(pdf);
    pdf.PDFSetViewerPreferences(6);
    pdf.PDFSetZoomMode(1);
    pdf.PDFSetLayoutMode(3);
    pdf.PDFUseOutlines(true);
    pdf.PDFUseThumbs(true);
    pdf.PDFTitle(QStringLiteral("Agenda da Clínica"));
    pdf.PDFBeginDoc();
    pdf.PDFSetLineStyle(0);
    pdf.PDFSetLineWidth(0.5);
    pdf.PDFSetBookmark(QStringLiteral("Agenda Clinica"), 0, 40);
    pdf.PDFSetBookmark(QStringLiteral("Agenda Clinica"), 1, 60);
    pdf.PDFSetFont(0, 12, 2);
    pdf.PDFTextOut(QStringLiteral("Tremo Silva 1.0 - AGENDA CLINICA"), 20, 25);
    pdf.PDFSetLineColor(0xFF0000);
    pdf.PDFSetLineWidth(12);
    pdf.PDFDrawLine(15, 77, 575, 77);
    pdf.PDFSetFont(0, 9, 0);
    pdf.PDFTextOut(QStringLiteral("08:00 CONCEIÇÃO (retorno) – às 9h"), 20, 90);
    pdf.PDFImage(path(QStringLiteral("foto.jpg")), 300, 300, 120, 80,
                 QStringLiteral("https://exemplo.com.br/"));
    pdf.PDFEndPage();
    pdf.PDFPageWidth(842);
    pdf.PDFPageHeight(595);
    pdf.PDFNewPage();
    pdf.PDFSetDrawMode(1);
    pdf.PDFSetDrawColor(QStringLiteral("#FF0000"));
    pdf.PDFDrawRectangle(100, 100, 200, 100);
    pdf.PDFEndPage();
    pdf.PDFEndDoc();
    expectReadable(2);

    const QString about =
        printed(QStringLiteral("pdfinfo"), {QStringLiteral("-f"), QStringLiteral("1"), QStringLiteral("-l"),
                                            QStringLiteral("2"), path()});
    for (const char* line : {"PDF version:     1.3", "Page    1 size:  595 x 842 pts (A4)",
                             "Page    2 size:  842 x 595 pts", "Title:           Agenda da Clínica"})
        EXPECT_TRUE(about.contains(QString::fromUtf8(line))) << line << about.toStdString();
    const QStringList texts = {
        printed(QStringLiteral("pdftotext"), {QStringLiteral("-layout"), path(), QStringLiteral("-")}),
        printed(QStringLiteral("mutool"), {QStringLiteral("draw"), QStringLiteral("-q"), QStringLiteral("-F"),
                                           QStringLiteral("txt"), path()})};
    for (const QString& text : texts) {
        EXPECT_TRUE(text.contains(QStringLiteral("Tremo Silva 1.0 - AGENDA CLINICA")));
        EXPECT_TRUE(text.contains(QStringLiteral("08:00 CONCEIÇÃO (retorno) – às 9h")));
    }
    EXPECT_TRUE(printed(QStringLiteral("mutool"), {QStringLiteral("show"), path(), QStringLiteral("outline")})
                    .contains(QStringLiteral("Agenda Clinica")));

    for (const QImage& page : {drawnByPoppler(1), drawnByMupdf(1)}) {
        EXPECT_EQ(page.size(), QSize(595, 842));
        EXPECT_EQ(page.pixelColor(400, 77), QColor(0, 0, 255)); // the band: red comes last in a packed colour
        EXPECT_EQ(page.pixelColor(400, 60), QColor(Qt::white));
        const QColor green = page.pixelColor(360, 340);
        EXPECT_TRUE(green.green() > 150 && green.red() < 10 && green.blue() < 10)
            << green.name().toStdString();
    }
    for (const QImage& page : {drawnByPoppler(2), drawnByMupdf(2)}) {
        EXPECT_EQ(page.size(), QSize(842, 595));
        EXPECT_EQ(page.pixelColor(200, 150), QColor(Qt::red));
        EXPECT_EQ(page.pixelColor(200, 90), QColor(Qt::white));
    }
}
