#include "documents/pdf/lines.h"
#include "documents/pdf/messages.h"
#include "documents/pdfprinter.h"
#include "platform/values/codepage.h"
#include "platform/values/number.h"

#include <cmath>

using namespace Qt::StringLiterals;

void PDFPrinter::PDFSetFont(qint32 family, double size, qint32 style)
{
    const QString Families[] = {u"Helvetica"_s, u"Courier"_s, u"Times"_s, u"Symbol"_s, u"ZapfDingbats"_s};
    constexpr qint32 Times = 2;
    const QByteArray digits = QByteArray::number(style);
    const bool italic = digits.contains('1');
    const bool bold = digits.contains('2');
    if (digits.contains('3'))
        underline_ = true;
    fontSize_ = toInt16(size);

    if (family < 0 || family > 4) {
        fontName_ = u"TimesRoman"_s;
        PDFMessages::badArgument(u"Nom de Font - "_s, u"Nom de font incorrecte : "_s, QString::number(family),
                                 u"La font utilisée sera Times New Roman non gras , non italique."_s);
        return;
    }
    fontName_ = Families[family];
    if (family == Times && italic != bold)
        fontName_ += bold ? u"-Bold"_s : u"Italic"_s;
    else if (family == Times)
        fontName_ += bold ? u"-BoldItalic"_s : u"-Roman"_s;
    else if (italic || bold)
        fontName_ += u'-' + (bold ? u"Bold"_s : QString()) + (italic ? u"Oblique"_s : QString());
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
    const auto factor = [](double number) { return PDFNumber(number, 5); };
    return PDFText(factor(c), " ", factor(-s), " ", factor(s), " ", factor(c), " ", across(x), " ", down(y),
                   " Tm");
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
    return PDFText(PDFNumber(x), " ", PDFNumber(y), " ", PDFNumber(width), " ", height, " re f");
}

void PDFPrinter::PDFRotatedText(double x, double y, const QString& text, double degrees)
{
    PDFSetRotation(degrees);
    PDFTextOut(text, x, y);
    PDFSetRotation(0);
}
