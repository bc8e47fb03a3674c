#include "documents/pdf/colour.h"
#include "documents/pdf/messages.h"
#include "documents/pdfprinter.h"
#include "platform/system/error.h"
#include "platform/values/number.h"

#include <cmath>

void PDFPrinter::PDFSetLayoutMode(qint32 mode)
{
    document_.viewing.layout = mode;
    if (mode >= 0 && mode <= 3)
        return;
    document_.viewing.layout = 0;
    PDFMessages::badArgument(QStringLiteral("Layout Mode - "), QStringLiteral("Layout incorrect : "),
                             QString::number(mode),
                             QStringLiteral("Le Layout utilisé sera le layout simple."));
}

void PDFPrinter::PDFSetUnit(qint32 code)
{
    document_.scale = code == 0 ? 1.0 : code == 1 ? 72 / 25.4 : 72 / 2.54;
    if (code < 0 || code > 2)
        PDFMessages::badArgument(QStringLiteral("Code Unité de Mesure - "),
                                 QStringLiteral("Code unité de mesure incorrect : "), QString::number(code),
                                 QStringLiteral("L'Unité de Mesure utilisée sera le centimètre."));
}

QString PDFPrinter::PDFGetUnit() const
{
    return document_.scale == 1.0         ? QStringLiteral("pt")
           : document_.scale == 72 / 25.4 ? QStringLiteral("mm")
                                          : QStringLiteral("cm");
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
    const bool isCode = type == QMetaType::Int || type == QMetaType::LongLong || type == QMetaType::Short;
    const qint64 code = isCode ? format.toLongLong() : -1;
    const bool known = code >= 0 && code < qint64(std::size(Formats));
    size = Formats[known ? code : 0];
    if (!known)
        PDFMessages::badArgument(QStringLiteral("Format de Page - "),
                                 QStringLiteral("Code format de page incorrect : "), format.toString(),
                                 isCode ? QStringLiteral("Le Format de page utilisé sera le format A4.")
                                        : QStringLiteral("Le Format de page utilisé sera le format A4"));
}

void PDFPrinter::PDFOrientation(qint32 code)
{
    PDFPageSize& size = document_.pageSizes.back();
    size = {double(toInt16(size.width)), double(toInt16(size.height))};
    if (code == 0)
        std::swap(size.width, size.height);
    else if (code != 1)
        PDFMessages::badArgument(QStringLiteral("Type d'Orientation de Page - "),
                                 QStringLiteral("Code orientation de page incorrect : "),
                                 QString::number(code),
                                 QStringLiteral("L'Orientation de la page sera le mode portrait."));
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
        PDFMessages::badArgument(QStringLiteral("Objet Rectangle - "),
                                 QStringLiteral("Code type de traçage incorrect : "), text,
                                 QStringLiteral("Le type de traçage utilisé sera bordure et remplissage."));
}

void PDFPrinter::PDFSetAlignement(qint32 code)
{
    const char* const Alignments[] = {"C", "L", "R", "FJ"};
    const bool known = code >= 0 && code <= 3;
    alignment_ = Alignments[known ? code : 1];
    if (!known)
        PDFMessages::badArgument(QStringLiteral("Code Alignement de Cellule - "),
                                 QStringLiteral("Code alignement incorrect : "), QString::number(code),
                                 QStringLiteral("L'alignement utilisé sera l'alignement à gauche."));
}

QString PDFPrinter::PDFGetAlignement() const
{
    return alignment_ == "C"   ? QStringLiteral("Center")
           : alignment_ == "R" ? QStringLiteral("Right")
                               : QStringLiteral("Left");
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
