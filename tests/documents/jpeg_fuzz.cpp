/// The reading of JPEG headers on files damaged in many ways; a build with the address sanitizer sees every
/// byte read outside of one. The damage follows from a seed, so that a failure comes again.
#include "documents/pdf/jpeg.h"

#include <QBuffer>
#include <QImage>
#include <QImageWriter>
#include <QRandomGenerator>
#include <algorithm>
#include <gtest/gtest.h>
#include <memory>

namespace {

QByteArray jpegOf(const QImage& image, bool progressive)
{
    QByteArray file;
    QBuffer buffer(&file);
    QImageWriter writer(&buffer, "jpeg");
    writer.setProgressiveScanWrite(progressive);
    EXPECT_TRUE(writer.write(image));
    return file;
}

/// Pictures of each kind that the library writes.
QByteArrayList seeds()
{
    QImage colours(64, 48, QImage::Format_RGB32);
    for (int y = 0; y < colours.height(); ++y)
        for (int x = 0; x < colours.width(); ++x)
            colours.setPixel(x, y, qRgb(x * 4, y * 5, x ^ y));
    const QImage grey = colours.convertToFormat(QImage::Format_Grayscale8);
    return {jpegOf(colours, false), jpegOf(colours, true), jpegOf(grey, false),
            jpegOf(grey.copy(0, 0, 8, 8), false)};
}

/// One of the ways a file gets damaged; the markers at both ends are often put right again, or no damage
/// behind them would ever be reached.
void damage(QByteArray& file, QRandomGenerator& random)
{
    const auto place = [&] { return random.bounded(int(file.size())); };
    const auto header = [&] { return random.bounded(std::min(int(file.size()), 700)); };
    const char markers[] = {'\xC0', '\xC2', '\xC4', '\xD8', '\xDA', '\xE0', '\xE1', '\xFF', '\x00'};
    switch (random.bounded(6)) {
    case 0:
        file[place()] = char(random.bounded(256));
        break;
    case 1:
        file[header()] = char(random.bounded(256));
        break;
    case 2: // a marker where none belongs
        if (const int at = header(); at + 1 < file.size()) {
            file[at] = '\xFF';
            file[at + 1] = markers[random.bounded(int(std::size(markers)))];
        }
        break;
    case 3:
        file.truncate(place() + 1);
        break;
    case 4:
        file.remove(place(), random.bounded(40));
        break;
    default:
        file.insert(place(), QByteArray(random.bounded(1, 40), random.bounded(2) ? '\xFF' : '\x00'));
        break;
    }
    if (file.size() > 4 && random.bounded(8) != 0) {
        file.replace(0, 2, "\xFF\xD8");
        file.replace(file.size() - 2, 2, "\xFF\xD9");
    }
}

/// The file in memory of exactly its size.
std::optional<PDFJpeg> scan(const QByteArray& file, QString& complaint)
{
    const auto exact = std::make_unique<char[]>(std::size_t(file.size()));
    std::copy(file.begin(), file.end(), exact.get());
    return PDFScanJpeg(QByteArrayView(exact.get(), file.size()), complaint);
}

} // namespace

TEST(JpegFuzz, EveryDamagedFileIsReadOrRefused)
{
    constexpr int Rounds = 60'000;
    const QByteArrayList originals = seeds();
    int read = 0;
    for (int round = 0; round < Rounds; ++round) {
        QRandomGenerator random{quint32(round)};
        QByteArray file = originals[round % originals.size()];
        for (int times = random.bounded(1, 6); times > 0 && file.size() > 1; --times)
            damage(file, random);
        QString complaint;
        const std::optional<PDFJpeg> picture = scan(file, complaint);
        ASSERT_EQ(picture.has_value(), complaint.isEmpty()) << "round " << round;
        if (picture) {
            ++read;
            ASSERT_TRUE(picture->width > 0 && picture->width < 65536 && picture->height > 0 &&
                        picture->height < 65536);
        }
    }
    // Neither all nor none, or the damage is not what it should be.
    EXPECT_GT(read, Rounds / 10);
    EXPECT_LT(read, Rounds * 9 / 10);
}

TEST(JpegFuzz, EveryLengthOfAFile)
{
    for (const QByteArray& original : seeds()) {
        QString complaint;
        ASSERT_TRUE(scan(original, complaint).has_value());
        for (qsizetype size = 0; size < original.size(); ++size) {
            QByteArray file = original.left(size);
            EXPECT_FALSE(scan(file, complaint).has_value()) << size; // the end of the picture is missing
            file += "\xFF\xD9";
            const bool read = scan(file, complaint).has_value();
            EXPECT_EQ(read, complaint.isEmpty()) << size;
        }
    }
}
