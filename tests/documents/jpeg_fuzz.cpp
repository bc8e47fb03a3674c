/// The reading of JPEG headers on files damaged in many ways; a build with the address sanitizer sees every
/// byte read outside of one. The damage follows from a seed, so that a failure comes again.
#include "documents/pdf/jpeg.h"

#include <QBuffer>
#include <QImage>
#include <QImageWriter>
#include <QRandomGenerator>
#include <algorithm>
#include <gtest/gtest.h>
#include <vector>

namespace {

/// Pictures of each kind that the library writes.
QByteArrayList seeds()
{
    QImage picture(64, 48, QImage::Format_RGB32);
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            picture.setPixel(x, y, qRgb(x * 4, y * 5, x ^ y));
    QByteArrayList files;
    for (const auto format : {QImage::Format_RGB32, QImage::Format_Grayscale8})
        for (const bool progressive : {false, true}) {
            QBuffer buffer(&files.emplaceBack());
            QImageWriter writer(&buffer, "jpeg");
            writer.setProgressiveScanWrite(progressive);
            EXPECT_TRUE(writer.write(picture.convertToFormat(format)));
        }
    return files;
}

/// One of the ways a file gets damaged; the markers at both ends are often put right again, or no damage
/// behind them would ever be reached.
void damage(QByteArray& file, QRandomGenerator& random)
{
    const int header = random.bounded(std::min(int(file.size()), 700));
    const int from = random.bounded(int(file.size()));
    const int how = random.bounded(4);
    if (how == 0)
        file[header] = char(random.bounded(256));
    else if (how == 1) // a marker where none belongs
        file.replace(header, 2, QByteArray("\xFF") + "\xC0\xC2\xC4\xD8\xDA\xE0\xE1\xFF"[random.bounded(9)]);
    else if (how == 2)
        file.truncate(from + 1);
    else
        file.replace(from, random.bounded(40),
                     QByteArray(random.bounded(40), random.bounded(2) ? '\xFF' : '\x00'));
    if (file.size() > 4 && random.bounded(8) != 0) {
        file.replace(0, 2, "\xFF\xD8");
        file.replace(file.size() - 2, 2, "\xFF\xD9");
    }
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
        // In memory of exactly its size
        const std::vector<char> exact(file.begin(), file.end());
        const auto picture = PDFScanJpeg(QByteArrayView(exact.data(), file.size()), complaint);
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
