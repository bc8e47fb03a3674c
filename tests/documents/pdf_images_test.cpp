/// Pictures: what is taken of them, and what is refused.
#include "documents/pdffixture.h"

#include <QBuffer>
#include <QImage>
#include <QImageWriter>

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

class PDFImages : public PDFTest
{
protected:
    void expectRefused(const QString& name, const QString& reason)
    {
        dialogs_.expect(QStringLiteral("Impossible d'inclure l'image dans le fichier PDF.\n") + reason,
                        QStringLiteral("Fichier Image - Vespadoc 4.0"), Icon::Critical);
        PDFPrinter pdf;
        EXPECT_EQ(pdf.PDFImageWidth(path(name)), 0) << name.toStdString();
        dialogs_.verify();
    }
};

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
        {framed(0xC0, 3, jfif(0) + fill), "DeviceRGB", 8},
        {framed(0xC0, 3, jfif(2)), "DeviceRGB", 8},
        {framed(0xC0, 3, jfif(3)), {}, 0},
        {framed(0xC4, 3), {}, 0}, // a table
        {framed(0xC9, 3), {}, 0}, // arithmetic coding, which PDF does not have
        {framed(0xC0, 3).replace(QByteArray::fromHex("00200040"), QByteArray(4, 0)), {}, 0},
        // Broken off in the frame header, and in the length of a segment.
        {framed(0xC0, 3).left(266) + QByteArray::fromHex("ffd9"), {}, 0},
        {framed(0xC0, 3, QByteArray::fromHex("ffe1")).left(255) + QByteArray::fromHex("ffd9"), {}, 0},
        // Header of a scan in front of the frame
        {framed(0xC0, 3, QByteArray::fromHex("ffda0008010100003f00")), {}, 0},
    };
    int row = 0;
    for (const auto& [file, colours, bits] : rows) {
        QString complaint;
        const std::optional<PDFJpeg> picture = PDFScanJpeg(file, complaint);
        ASSERT_EQ(picture.has_value(), colours.has_value()) << row;
        EXPECT_EQ(picture.has_value(), complaint.isEmpty()) << row;
        if (picture) {
            EXPECT_EQ(picture->width, 64) << row;
            EXPECT_EQ(picture->height, 32) << row;
            EXPECT_EQ(picture->colourSpace, *colours) << row;
            EXPECT_EQ(picture->bitsPerComponent, bits) << row;
        }
        ++row;
    }
}

TEST_F(PDFImages, Refused)
{
    const QByteArray good = framed(0xC0, 3);
    const QString markers = QStringLiteral("Marqueur de début JPEG ou marqueur de fin JPEG non valide.");
    const QString noJpeg = QStringLiteral("Fichier image non JPEG.");
    const QString kind =
        QStringLiteral("Seule les images de types JPG sont supportées.\nFormat d'image non supportée.");
    put(QStringLiteral("curto.jpg"), good.left(247) + QByteArray::fromHex("ffd9"));
    put(QStringLiteral("cortado.jpg"), good.left(270));
    put(QStringLiteral("outro.jpg"), QByteArray("GIF89a") + QByteArray(300, 'x'));
    put(QStringLiteral("unidade.jpg"), framed(0xC0, 3, jfif(7)));
    put(QStringLiteral("foto.JPG"), good);
    put(QStringLiteral("foto.png"), good);
    expectRefused(QStringLiteral("curto.jpg"), noJpeg);
    expectRefused(QStringLiteral("falta.jpg"), noJpeg);
    expectRefused(QStringLiteral("cortado.jpg"), markers);
    expectRefused(QStringLiteral("outro.jpg"), markers);
    expectRefused(QStringLiteral("unidade.jpg"),
                  QStringLiteral("Erreur de résolution d'image , l'Opcode est 7\n"
                                 "Les Opcodes valides sont  0, 1, 2."));
    expectRefused(QStringLiteral("foto.JPG"), kind);
    expectRefused(QStringLiteral("foto.png"), kind);
    dialogs_.expect(QStringLiteral("Impossible d'inclure l'image dans le fichier PDF.\n"
                                   "Le fichier image foto ne possède pas d'extension."));
    content([](PDFPrinter& pdf) { pdf.PDFImage(QStringLiteral("foto"), 1, 1, 0, 0); });
    EXPECT_TRUE(bytes().contains("/XObject << \r\n>>"));
}

TEST_F(PDFImages, SizesPositionAndLink)
{
    QImage picture(40, 30, QImage::Format_RGB32);
    picture.fill(Qt::blue);
    const QString file = path(QStringLiteral("foto.jpeg"));
    ASSERT_TRUE(picture.save(file));
    PDFPrinter pdf;
    configure(pdf);
    EXPECT_EQ(pdf.PDFImageWidth(file), 40);
    EXPECT_EQ(pdf.PDFImageHeight(file), 30);
    pdf.PDFSetUnit(2);
    pdf.PDFBeginDoc();
    pdf.PDFSetBookmark(QStringLiteral("um"), 0, 40);
    pdf.PDFSetBookmark(QStringLiteral("dois"), 1, 60);
    pdf.PDFSetFont(0, 10, 0);
    pdf.PDFImage(file, 2.54, 2.54, 0, 0);
    EXPECT_EQ(pdf.PDFGetX(), 112); // points, though the unit is the centimetre
    EXPECT_EQ(pdf.PDFGetY(), 102);
    pdf.PDFImage(file, 0, 0, 0, 2.54);
    pdf.PDFImage(file, 0, 0, 2.54, 0, QStringLiteral("x"));
    EXPECT_EQ(pdf.PDFGetTextColor(), u"0.000 0.000 1.000 rg");
    dialogs_.expect(
        QStringLiteral("URL objet image non valide : 3.\nImpossible d'inclure le lien dans l'image."),
        QStringLiteral("Lien URL Fichier Image - Vespadoc 4.0"), Icon::Critical);
    pdf.PDFImage(file, 0, 0, 2.54, 2.54, 3);
    pdf.PDFEndDoc();
    expectReadable(1);
    const QByteArray all = bytes();
    for (const char* line :
         {"40.00 0 0 30.00 72.00 740.00 cm /ImgJPEG1 Do Q", "96.00 0 0 72.00 0.00 770.00 cm /ImgJPEG2 Do Q",
          "72.00 0 0 54.00 0.00 788.00 cm /ImgJPEG3 Do Q", "72.00 0 0 72.00 0.00 770.00 cm /ImgJPEG4 Do Q",
          "/ImgJPEG4 23 0 R"})
        EXPECT_TRUE(all.contains(line)) << line;
    // Two by one whole centimetres of the picture's 2.54 by 1.905.
    EXPECT_TRUE(all.contains("/Rect [0 842 56.6929133858268 813.653543307087]"));
}
