#include "documents/pdf/colour.h"
#include "documents/pdf/messages.h"
#include "documents/pdfprinter.h"
#include "platform/values/error.h"
#include "platform/values/number.h"

#include <cmath>

using namespace Qt::StringLiterals;

void PDFPrinter::PDFSetLayoutMode(qint32 mode)
{
    document_.viewing.layout = mode;
    if (mode >= 0 && mode <= 3)
        return;
    document_.viewing.layout = 0;
    PDFMessages::badArgument(u"Layout Mode - "_s, u"Layout incorrect : "_s, QString::number(mode),
                             u"Le Layout utilisé sera le layout simple."_s);
}

void PDFPrinter::PDFSetUnit(qint32 code)
{
    document_.scale = code == 0 ? 1.0 : code == 1 ? 72 / 25.4 : 72 / 2.54;
    if (code < 0 || code > 2)
        PDFMessages::badArgument(u"Code Unité de Mesure - "_s, u"Code unité de mesure incorrect : "_s,
                                 QString::number(code), u"L'Unité de Mesure utilisée sera le centimètre."_s);
}

QString PDFPrinter::PDFGetUnit() const
{
    return document_.scale == 1.0 ? u"pt"_s : document_.scale == 72 / 25.4 ? u"mm"_s : u"cm"_s;
}

void PDFPrinter::PDFFormatPage(const QVariant& format)
{
    constexpr PDFPageSize Formats[] = {
        {595.28, 841.89}, {841.89, 1190.55}, {420.94, 595.28}, {612, 792}, {612, 1008}};
    PDFPageSize& size = document_.pageSizes.back();
    const int type = format.typeId();
    if (type == QMetaType::QVariantList) {
        const QVariantList sides = format.toList();
        if (sides.size() < 2)
            Errors::subscriptOutOfRange();
        size = {sides[0].value<double>(), sides[1].value<double>()};
        return;
    }
    const bool isCode = type == QMetaType::Int;
    const int code = isCode ? format.toInt() : -1;
    const bool known = code >= 0 && code < int(std::size(Formats));
    size = Formats[known ? code : 0];
    if (!known)
        PDFMessages::badArgument(u"Format de Page - "_s, u"Code format de page incorrect : "_s,
                                 format.toString(),
                                 isCode ? u"Le Format de page utilisé sera le format A4."_s
                                        : u"Le Format de page utilisé sera le format A4"_s);
}

void PDFPrinter::PDFOrientation(qint32 code)
{
    PDFPageSize& size = document_.pageSizes.back();
    size = {double(toInt16(size.width)), double(toInt16(size.height))};
    if (code == 0)
        std::swap(size.width, size.height);
    else if (code != 1)
        PDFMessages::badArgument(u"Type d'Orientation de Page - "_s,
                                 u"Code orientation de page incorrect : "_s, QString::number(code),
                                 u"L'Orientation de la page sera le mode portrait."_s);
}

void PDFPrinter::PDFSetLeftMargin(double margin)
{
    leftMargin_ = toInt16(margin);
}

void PDFPrinter::PDFSetRightMargin(double margin)
{
    rightMargin_ = toInt16(margin);
}

void PDFPrinter::PDFSetTopMargin(double margin)
{
    topMargin_ = toInt16(margin);
}

void PDFPrinter::PDFSetBottomMargin(double margin)
{
    bottomMargin_ = toInt16(margin);
}

void PDFPrinter::PDFSetCellMargin(double margin)
{
    cellMargin_ = toInt16(margin);
}

void PDFPrinter::PDFSetMargins(double left, double top, double right, double bottom)
{
    PDFSetLeftMargin(left);
    PDFSetTopMargin(top);
    PDFSetRightMargin(toInt16(right) == -1 ? left : right);
    PDFSetBottomMargin(toInt16(bottom) == -1 ? top : bottom);
}

qint16 PDFPrinter::PDFGetX() const
{
    return toInt16(x_);
}

qint16 PDFPrinter::PDFGetY() const
{
    return toInt16(y_);
}

void PDFPrinter::PDFSetTextColor(const QVariant& colour)
{
    textColor_ = PDFColorOperator(PDFColor(colour), "rg");
}

void PDFPrinter::PDFSetLineColor(const QVariant& colour)
{
    lineColor_ = PDFColorOperator(PDFColor(colour), "RG");
}

void PDFPrinter::PDFSetDrawColor(const QVariant& colour)
{
    drawColor_ = PDFColorOperator(PDFColor(colour), "rg");
}

void PDFPrinter::PDFSetDrawMode(const QVariant& code)
{
    const QString text = code.toString();
    drawMode_ = text == u"1" ? DrawMode::Fill : text == u"2" ? DrawMode::Both : DrawMode::Border;
    if (drawMode_ == DrawMode::Border && text != u"0")
        PDFMessages::badArgument(u"Objet Rectangle - "_s, u"Code type de traçage incorrect : "_s, text,
                                 u"Le type de traçage utilisé sera bordure et remplissage."_s);
}

void PDFPrinter::PDFSetAlignement(qint32 code)
{
    const char* const Alignments[] = {"C", "L", "R", "FJ"};
    const bool known = code >= 0 && code <= 3;
    alignment_ = Alignments[known ? code : 1];
    if (!known)
        PDFMessages::badArgument(u"Code Alignement de Cellule - "_s, u"Code alignement incorrect : "_s,
                                 QString::number(code),
                                 u"L'alignement utilisé sera l'alignement à gauche."_s);
}

QString PDFPrinter::PDFGetAlignement() const
{
    return alignment_ == "C" ? u"Center"_s : alignment_ == "R" ? u"Right"_s : u"Left"_s;
}

void PDFPrinter::PDFSetBorder(qint32 code)
{
    if (code == 0 || code == 1) {
        border_ = QByteArray::number(code);
        return;
    }
    const QByteArray digits = QByteArray::number(code);
    border_.clear();
    for (const char* edge : {"4L", "5R", "2T", "3B"})
        if (digits.contains(edge[0]))
            border_ += edge[1];
}
