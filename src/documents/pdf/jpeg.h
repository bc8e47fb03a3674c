#pragma once

#include <QByteArray>
#include <QString>
#include <optional>

/// A JPEG picture as the document takes it in: unchanged, with what its header tells.
struct PDFJpeg
{
    int width = 0; ///< pixels
    int height = 0;
    QByteArray
        colourSpace; ///< "DeviceGray", "DeviceRGB" or "DeviceCMYK"; empty for another number of components
    int bitsPerComponent = 8; ///< with an empty colour space 8 for each component together
    QByteArray data;
};

/// The header of a JPEG file (ITU-T T.81 Annex B, JFIF 1.02), the data left empty: size and components from
/// the last frame header in front of the first scan. Nothing is read outside `file`. Where it cannot be used,
/// nothing, and the reason to tell in `complaint`.
std::optional<PDFJpeg> PDFScanJpeg(QByteArrayView file, QString& complaint);

/// The picture of that file. One that cannot be read or used is told to the user and gives nothing.
std::optional<PDFJpeg> PDFReadJpeg(const QString& path);
