#include "documents/pdf/jpeg.h"

#include "documents/pdf/messages.h"
#include "platform/system/files.h"
#include "platform/values/error.h"

using namespace Qt::StringLiterals;

namespace {

const QString NoJpeg = u"Fichier image non JPEG."_s;

/// The bytes of the file, counted from 1.
class Bytes
{
public:
    explicit Bytes(QByteArrayView file) : file_(file) {}

    qsizetype size() const { return file_.size(); }
    bool has(qsizetype position, qsizetype count) const
    {
        return position >= 1 && position + count - 1 <= size();
    }
    int at(qsizetype position) const { return static_cast<unsigned char>(file_[position - 1]); }

    /// Big-endian, as all numbers of the format.
    int PDFWord(qsizetype position) const { return at(position) * 256 + at(position + 1); }

    /// Two bytes in upper-case hexadecimal, such as "FFD8".
    QByteArray PDFHexPair(qsizetype position) const
    {
        return QByteArray::fromRawData(file_.data() + position - 1, 2).toHex().toUpper();
    }

private:
    QByteArrayView file_;
};

/// What a JFIF segment has at this place; empty for a unit that the format knows.
QString badResolution(int unit)
{
    if (unit <= 2) // none, inch, centimetre
        return {};
    return u"Erreur de résolution d'image , l'Opcode est %1\nLes Opcodes valides sont  0, 1, 2."_s.arg(unit);
}

void readFrame(const Bytes& bytes, qsizetype position, PDFJpeg& picture)
{
    picture.height = bytes.PDFWord(position + 5);
    picture.width = bytes.PDFWord(position + 7);
    const int components = bytes.at(position + 9);
    if (components == 1)
        picture.colourSpace = "DeviceGray";
    else if (components == 3)
        picture.colourSpace = "DeviceRGB";
    else if (components == 4)
        picture.colourSpace = "DeviceCMYK";
    else
        picture.bitsPerComponent = components * 8;
}

bool isFrame(const QByteArray& marker)
{
    // FFC4 is a table, and so are the markers above that are left out.
    static const QByteArrayList frames{"FFC0", "FFC1", "FFC2", "FFC3", "FFC5", "FFC6", "FFC7"};
    return frames.contains(marker);
}

} // namespace

std::optional<PDFJpeg> PDFScanJpeg(QByteArrayView file, QString& complaint)
{
    constexpr qsizetype Smallest = 250;
    const Bytes bytes(file);
    complaint = NoJpeg;
    if (bytes.size() < Smallest)
        return std::nullopt;
    if (bytes.PDFHexPair(1) != "FFD8" || bytes.PDFHexPair(bytes.size() - 1) != "FFD9") {
        complaint = u"Marqueur de début JPEG ou marqueur de fin JPEG non valide."_s;
        return std::nullopt;
    }

    PDFJpeg picture;
    for (qsizetype position = 3; position < bytes.size() - 1;) {
        if (bytes.PDFHexPair(position) == "FFFF") // fill bytes in front of a marker
            while (bytes.at(position + 1) == 0xFF)
                ++position;
        if (!bytes.has(position, 4))
            break;
        // The data of a scan are walked through as well. No marker is found in them: behind FF they have 00,
        // or the mark of a restart.
        const QByteArray marker = bytes.PDFHexPair(position);
        if (marker == "FFE0") {
            if (!bytes.has(position, 12))
                return std::nullopt;
            if (const QString bad = badResolution(bytes.at(position + 11)); !bad.isEmpty()) {
                complaint = bad;
                return std::nullopt;
            }
        } else if (isFrame(marker)) {
            if (!bytes.has(position, 10))
                return std::nullopt;
            readFrame(bytes, position, picture);
        }
        position += bytes.PDFWord(position + 2) + 2;
    }
    if (picture.width == 0 || picture.height == 0)
        return std::nullopt;
    complaint.clear();
    return picture;
}

std::optional<PDFJpeg> PDFReadJpeg(const QString& path)
{
    QByteArray data;
    try {
        data = Files::read(Files::ownPath(path));
    } catch (const RuntimeError&) {
        // Told below as a file that holds no picture.
    }
    QString complaint;
    std::optional<PDFJpeg> picture = PDFScanJpeg(data, complaint);
    if (picture)
        picture->data = data;
    else
        PDFMessages::badImage(complaint);
    return picture;
}
