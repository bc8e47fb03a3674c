/// Pictures: what is taken of them, and what is refused.
#include "documents/pdffixture.h"

#include <QImage>

using namespace Qt::StringLiterals;

namespace {

/// A JPEG file of this frame header and nothing else that a reader of pictures would want.
QByteArray framed(int marker, int components, const QByteArray& before = {})
{
    QByteArray frame = QByteArray::fromHex("ff0000110800200040");
    frame[1] = char(marker);
    frame += char(components);
    const QByteArray comment = QByteArray::fromHex("fffe0100") + QByteArray(254, 'x');
    return QByteArray::fromHex("ffd8") + before + comment + frame + QByteArray(9, 0) +
           QByteArray::fromHex("ffd9");
}

/// A JFIF segment with this unit of the resolution.
QByteArray jfif(int unit)
{
    return QByteArray::fromHex("ffe000104a464946000102") + char(unit) + QByteArray::fromHex("004800480000");
}

using PDFImages = PDFTest;

} // namespace

TEST_F(PDFImages, WhatTheHeaderTells)
{
    const QByteArray fill = QByteArray::fromHex("ffffffff"); // fill bytes in front of the comment's marker
    const struct
    {
        QByteArray file;
        std::optional<QByteArray> colours;
        int bits;
    } rows[] = {
        {framed(0xC0, 1), "DeviceGray", 8},
        {framed(0xC2, 3), "DeviceRGB", 8},
        {framed(0xC7, 4), "DeviceCMYK", 8},
        {framed(0xC1, 2), "", 16},
        {framed(0xC0, 3, jfif(2) + fill), "DeviceRGB", 8},
        {framed(0xC4, 3), {}, 0}, // a table
        {framed(0xC9, 3), {}, 0}, // arithmetic coding, which PDF does not have
        // Broken off in the frame header, and in the length of a segment.
        {framed(0xC0, 3).left(266) + QByteArray::fromHex("ffd9"), {}, 0},
        {framed(0xC0, 3, QByteArray::fromHex("ffe1")).left(255) + QByteArray::fromHex("ffd9"), {}, 0},
        // Another header behind a scan: what is said last counts.
        {framed(0xC0, 1, framed(0xC1, 3).sliced(2).chopped(2) + QByteArray::fromHex("ffda0008010100003f00")),
         "DeviceGray", 8},
    };
    for (const auto& [file, colours, bits] : rows) {
        SCOPED_TRACE(file.toHex().toStdString());
        QString complaint;
        const std::optional<PDFJpeg> picture = PDFScanJpeg(file, complaint);
        EXPECT_EQ(picture.has_value(), complaint.isEmpty());
        ASSERT_EQ(picture.has_value(), colours.has_value());
        if (picture) {
            EXPECT_EQ(std::pair(picture->width, picture->height), std::pair(64, 32));
            EXPECT_EQ(std::pair(picture->colourSpace, picture->bitsPerComponent), std::pair(*colours, bits));
        }
    }
}

TEST_F(PDFImages, Refused)
{
    const QByteArray good = framed(0xC0, 3);
    const struct
    {
        QString name;
        QByteArray file;
        QString reason;
    } rows[] = {
        {u"curto.jpg"_s, good.left(247) + QByteArray::fromHex("ffd9"), u"Fichier image non JPEG."_s},
        {u"cortado.jpg"_s, good.left(270), u"Marqueur de début JPEG ou marqueur de fin JPEG non valide."_s},
        {u"unidade.jpg"_s, framed(0xC0, 3, jfif(3)),
         u"Erreur de résolution d'image , l'Opcode est 3\nLes Opcodes valides sont  0, 1, 2."_s},
        {u"foto.png"_s, good,
         u"Seule les images de types JPG sont supportées.\nFormat d'image non supportée."_s}};
    for (const auto& row : rows) {
        put(row.name, row.file);
        dialogs_.expect(u"Impossible d'inclure l'image dans le fichier PDF.\n"_s + row.reason,
                        u"Fichier Image - Vespadoc 4.0"_s, Icon::Critical);
        EXPECT_EQ(PDFPrinter().PDFImageWidth(path(row.name)), 0) << row.name.toStdString();
        dialogs_.verify();
    }
}

TEST_F(PDFImages, SizesPositionAndLink)
{
    QImage picture(40, 30, QImage::Format_RGB32);
    picture.fill(Qt::blue);
    const QString file = path(u"foto.jpeg"_s);
    ASSERT_TRUE(picture.save(file));
    PDFPrinter pdf;
    configure(pdf);
    EXPECT_EQ(pdf.PDFImageWidth(file), 40);
    EXPECT_EQ(pdf.PDFImageHeight(file), 30);
    pdf.PDFSetUnit(2);
    beginDocument(pdf);
    pdf.PDFSetFont(0, 10, 0);
    pdf.PDFImage(file, 2.54, 2.54, 0, 0);
    EXPECT_EQ(pdf.PDFGetX(), 112); // points, though the unit is the centimetre
    pdf.PDFImage(file, 0, 0, 0, 2.54);
    pdf.PDFImage(file, 0, 0, 2.54, 0, u"x"_s);
    pdf.PDFEndDoc();
    expectReadable(1);
    const QByteArray all = bytes();
    for (const char* line :
         {"40.00 0 0 30.00 72.00 740.00 cm /ImgJPEG1 Do Q", "96.00 0 0 72.00 0.00 770.00 cm /ImgJPEG2 Do Q",
          "72.00 0 0 54.00 0.00 788.00 cm /ImgJPEG3 Do Q", "/ImgJPEG3 22 0 R",
          // Two by one whole centimetres of the picture's 2.54 by 1.905.
          "/Rect [0 842 56.6929133858268 813.653543307087]"})
        EXPECT_TRUE(all.contains(line)) << line;
}

/// Other programs find text, colours and pictures although they have to make the table of the objects anew.
TEST_F(PDFImages, TwoReadersAgreeOnThePage)
{
    QImage photo(60, 40, QImage::Format_RGB32);
    photo.fill(QColor(0, 160, 0));
    ASSERT_TRUE(photo.save(path(u"foto.jpg"_s)));
    content([this](PDFPrinter& pdf) {
        pdf.PDFSetLineColor(0xFF0000);
        pdf.PDFSetLineWidth(12);
        pdf.PDFDrawLine(15, 77, 575, 77);
        pdf.PDFTextOut(u"08:00 CONCEIÇÃO (retorno) – às 9h"_s, 20, 90);
        pdf.PDFImage(path(u"foto.jpg"_s), 300, 300, 120, 80);
    });
    EXPECT_TRUE(bytes().contains("/OpenAction [3 0 R /Fit]\r\n/PageLayout /SinglePage\r\n")) << "no wishes";
    for (const QString& text : {printed(u"pdftotext"_s, {u"-layout"_s, path(), u"-"_s}),
                                printed(u"mutool"_s, {u"draw"_s, u"-q"_s, u"-F"_s, u"txt"_s, path()})})
        EXPECT_TRUE(text.contains(u"08:00 CONCEIÇÃO (retorno) – às 9h"));
    // As many pixels as points
    printed(u"pdftoppm"_s, {u"-r"_s, u"72"_s, u"-png"_s, u"-singlefile"_s, path(), path(u"poppler"_s)});
    printed(u"mutool"_s, {u"draw"_s, u"-q"_s, u"-o"_s, path(u"mupdf.png"_s), u"-r"_s, u"72"_s, path()});
    for (const QString& picture : {u"poppler.png"_s, u"mupdf.png"_s}) {
        const QImage page(path(picture));
        EXPECT_EQ(page.pixelColor(400, 77), QColor(Qt::blue)); // red comes last in a packed colour
        EXPECT_EQ(page.pixelColor(400, 60), QColor(Qt::white));
        const QRgb green = page.pixel(360, 340);
        EXPECT_TRUE(qGreen(green) > 150 && qRed(green) < 10 && qBlue(green) < 10) << green;
    }
}
