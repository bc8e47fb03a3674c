#include "documents/pdf/lines.h"
#include "documents/pdfprinter.h"
#include "platform/values/codepage.h"
#include "platform/values/number.h"

#include <algorithm>

namespace {

bool isEmpty(const QVariant& link)
{
    return !link.isValid() || (link.typeId() == QMetaType::QString && link.toString().isEmpty());
}

} // namespace

void PDFPrinter::PDFCell(const QString& text, double x, double y, double width, double height,
                         const QVariant& link)
{
    constexpr double MeasuredSize = 10; // the room is brought to the size at which characters are measured
    const QByteArray bytes = CodePage::encode(text);
    qsizetype end = bytes.size();
    if (end > 0 && bytes.right(end - 1) == "\r\n")
        --end;
    const double room = (width - 2 * cellMargin_) * 10 / fontSize();

    const bool whole = border_ == "1" || border_ == "LRTB";
    const QByteArray sides =
        whole ? "LR" : (border_.contains('L') ? QByteArray("L") : "") + (border_.contains('R') ? "R" : "");
    const QByteArray top = whole || border_.contains('T') ? "T" : "";
    const QByteArray bottom = whole || border_.contains('B') ? "B" : "";

    PDFWriteLine(page(), "%DEBUT_CELL/%");
    bool first = true;
    qsizetype start = 0;
    qsizetype blank = -1;
    qint16 used = 0;
    const auto put = [&](qsizetype lineEnd, double left, const QByteArray& lowerEdge) {
        border_ = sides + (first ? top : QByteArray()) + lowerEdge;
        PDFCellLine(bytes.sliced(start, lineEnd - start), left, y, width, height, link);
        y = y_;
        first = false;
        blank = -1;
        used = 0;
    };
    for (qsizetype i = 0; i < end;) {
        if (bytes[i] == ' ')
            blank = i;
        used = toInt16(used + document_.fonts.width(bytes.sliced(i, 1), fontName_, MeasuredSize));
        if (used <= room) {
            ++i;
            continue;
        }
        if (blank < 0) {
            i = std::max(i, start + 1); // at least one character
            put(i, x, {});
        } else {
            i = blank + 1;
            put(blank, x - cellMargin_, {});
        }
        start = i;
    }
    put(end, x - cellMargin_, bottom);

    underline_ = false;
    if (alignment_ == "FJ") {
        PDFWriteLine(page(), "0 Tw");
        wordSpacing_ = 0;
    }
    PDFWriteLine(page(), "%FIN_CELL/%");
}

void PDFPrinter::PDFCellLine(const QByteArray& text, double x, double y, double width, double height,
                             const QVariant& link)
{
    const double scale = document_.scale;
    PDFWriteLine(page(), lineColor_);
    PDFWriteLine(page(), drawColor_);
    const QByteArray frame = cellFrame(x, y, width, height);
    const double dx = alignedOffset(text, width);
    if (!frame.isEmpty())
        PDFWriteLine(page(), frame);

    const double textX = x * scale + dx;
    const double textY = PDFGetPageHeight() - (height * 0.5 * scale + y * scale + fontSize() * 0.3);
    QByteArray underline;
    if (!isEmpty(link)) {
        underline_ = true;
        PDFAddLink(x + dx, y + height / 2 - fontSize() / 2, toInt16(width), fontSize(), link);
        underline = PDFUnderline(true, text, textX, textY);
    }
    PDFWriteLine(page(), "q ", textColor_, " ");
    if (!underline.isEmpty())
        PDFWriteLine(page(), underline);
    PDFWriteLine(page(), "BT");
    PDFWriteLine(page(), "/F", document_.fonts.indexOf(fontName_), " ", int(fontSize()), " Tf");
    PDFWriteLine(page(), PDFNumber(textX), " ", PDFNumber(textY), " Td");
    PDFWriteLine(page(), "(", PDFEscaped{text}, ") Tj");
    PDFWriteLine(page(), "ET");
    PDFWriteLine(page(), "Q");

    linkText_ = CodePage::decode(text);
    linkKind_ = LinkKind::Cell;
    PDFObjectLink(link, LinkKind::Cell, x, y);
    linkKind_ = LinkKind::None;
    x_ = x + width;
    y_ = y + height;
}

/// What frames or fills the line of a cell. Each edge takes the place of what came before it, so that the
/// last one remains; the border is used up by it.
QByteArray PDFPrinter::cellFrame(double x, double y, double width, double height)
{
    QByteArray frame;
    if (border_ == "1" || fill_)
        frame = across(x).text() + ' ' + down(y).text() + ' ' + scaled(width).text() + ' ' +
                scaled(-height).text() + " re " +
                (!fill_           ? "S"
                 : border_ == "1" ? "B"
                                  : "f") +
                '\r';
    if (border_ == "0" || border_ == "1")
        return frame;

    PDFWriteLine(page(), scaled(lineWidth_), " w");
    const auto edge = [&](char letter, double x1, double y1, double x2, double y2, const char* stroke) {
        if (border_.contains(letter))
            frame = across(x1).text() + ' ' + down(y1).text() + " m " + across(x2).text() + ' ' +
                    down(y2).text() + stroke + '\r';
    };
    edge('L', x, y, x, y + height, " l S");
    edge('T', x, y, x + width, y, " l S ");
    edge('R', x + width, y, x + width, y + height, " l S ");
    edge('B', x, y + height, x + width, y + height, " l S ");
    border_ = "0";
    return frame;
}

/// How far the text of a line stands from the cell's left edge, in points; sets the word spacing of a
/// justified one.
double PDFPrinter::alignedOffset(QByteArrayView text, double width)
{
    const double room = width * document_.scale;
    const double used = widthOf(text);
    if (alignment_ == "R")
        return leadingNumber(QString::fromLatin1(PDFNumber(room - cellMargin_ - used).text()));
    if (alignment_ == "C")
        return toInt16((room - used) / 2);
    if (alignment_ == "FJ") {
        const auto blanks = double(std::count(text.begin(), text.end(), ' '));
        wordSpacing_ = (room - (blanks + 1) * cellMargin_ - used) / std::max(blanks, 1.0);
        PDFWriteLine(page(), PDFNumber(wordSpacing_ * document_.scale, 3), " Tw");
    }
    return 2 * cellMargin_;
}
