#include "documents/pdf/lines.h"
#include "documents/pdf/messages.h"
#include "documents/pdfprinter.h"
#include "platform/values/codepage.h"
#include "platform/values/number.h"

#include <cmath>

void PDFPrinter::PDFSetFont(qint32 family, double size, qint32 style)
{
    const QString Families[] = {QStringLiteral("Helvetica"), QStringLiteral("Courier"),
                                QStringLiteral("Times"), QStringLiteral("Symbol"),
                                QStringLiteral("ZapfDingbats")};
    constexpr qint32 Times = 2;
    const QByteArray digits = QByteArray::number(style);
    const bool italic = digits.contains('1');
    const bool bold = digits.contains('2');
    if (digits.contains('3'))
        underline_ = true;
    fontSize_ = toInt16(size);

    if (family < 0 || family > 4) {
        fontName_ = QStringLiteral("TimesRoman");
        PDFMessages::badArgument(
            QStringLiteral("Nom de Font - "), QStringLiteral("Nom de font incorrecte : "),
            QString::number(family),
            QStringLiteral("La font utilisée sera Times New Roman non gras , non italique."));
        return;
    }
    fontName_ = Families[family];
    if (family == Times && italic != bold)
        fontName_ += bold ? QStringLiteral("-Bold") : QStringLiteral("Italic");
    else if (family == Times)
        fontName_ += bold ? QStringLiteral("-BoldItalic") : QStringLiteral("-Roman");
    else if (italic || bold)
        fontName_ += u'-' + (bold ? QStringLiteral("Bold") : QString()) +
                     (italic ? QStringLiteral("Oblique") : QString());
}

double PDFPrinter::PDFGetStringWidth(const QString& text, const QString& font, double size)
{
    return document_.fonts.width(CodePage::encode(text), font.isEmpty() ? fontName_ : font, toInt16(size));
}

void PDFPrinter::PDFTextOut(const QString& text, double x, double y)
{
    const QByteArray bytes = CodePage::encode(text);
    if (x == 0)
        x = x_;
    if (y == 0)
        y = y_;
    const QByteArray underline =
        underline_ ? PDFUnderline(false, bytes, x * document_.scale, y * document_.scale) : QByteArray();

    PDFWriteLine(page(), "q ", textColor_, " ");
    PDFWriteLine(page(), "%DEBUT_TEXT/%");
    PDFWriteLine(page(), "BT");
    if (rotation_ != 0)
        PDFWriteLine(page(), PDFTextMatrix(x, y));
    else
        PDFWriteLine(page(), across(leftMargin_ + x), " ", down(y), " Td");
    rotation_ = 0;
    PDFWriteLine(page(), "/F", document_.fonts.indexOf(fontName_), " ", PDFNumber(fontSize()), " Tf");
    PDFWriteLine(page(), "(", PDFEscaped{bytes}, ") Tj");
    PDFWriteLine(page(), "ET");
    if (underline_)
        PDFWriteLine(page(), underline);
    PDFWriteLine(page(), "Q");
    PDFWriteLine(page(), "%FIN_TEXT/%");
    underline_ = false;
    x_ = x + widthOf(bytes);
    y_ = y + fontSize();
}

QByteArray PDFPrinter::PDFTextMatrix(double x, double y) const
{
    const double radians = rotation_ * 3.1416 / 180;
    const double c = std::cos(radians);
    const double s = std::sin(radians);
    QByteArray text;
    for (const double factor : {c, -s, s, c}) {
        PDFAppend(text, PDFNumber(factor, 5));
        text += ' ';
    }
    return text + across(x).text() + ' ' + down(y).text() + " Tm";
}

/// The operator of a thin rectangle below the text; x and y in points, inside a cell from the lower edge of
/// the page, outside from the upper one.
QByteArray PDFPrinter::PDFUnderline(bool inCell, QByteArrayView text, double x, double y)
{
    constexpr double Thickness = -2.0 / 1000;
    const auto blanks = double(std::count(text.begin(), text.end(), ' '));
    double width = blanks * widthOf(" ") + widthOf(text) + blanks * wordSpacing_;
    if (wordSpacing_ != 0)
        width -= (blanks + 1) * cellMargin_;
    const PDFNumber height(width * Thickness);
    if (inCell) {
        width -= cellMargin_;
        y -= 3;
    } else {
        // The word itself is measured, as if its width were the font's distance of the line.
        const double up = toInt16(widthOf("up"));
        x = toInt16(leftMargin_ * document_.scale + x);
        y = PDFGetPageHeight() - (y - up / 1000 * fontSize()) - 2;
    }
    QByteArray line;
    for (const PDFNumber& number : {PDFNumber(x), PDFNumber(y), PDFNumber(width), height}) {
        PDFAppend(line, number);
        line += ' ';
    }
    return line + "re f";
}

void PDFPrinter::PDFRotatedText(double x, double y, const QString& text, double degrees)
{
    PDFSetRotation(degrees);
    PDFTextOut(text, x, y);
    PDFSetRotation(0);
}
