#include "documents/pdf/colour.h"
#include "documents/pdf/lines.h"
#include "documents/pdf/messages.h"
#include "documents/pdfprinter.h"
#include "platform/values/error.h"
#include "platform/values/number.h"

#include <algorithm>
#include <cmath>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

/// The operator of a line style; the lengths of its pieces are whole points.
QByteArray PDFDashOperator(qint32 code, double scale)
{
    static const std::vector<int> styles[] = {{}, {16, 8}, {8, 7, 2, 7}, {8, 4, 2, 4, 2, 4}};
    QByteArray text = "[";
    for (const int piece : styles[code])
        text += QByteArray::number(int(std::trunc(piece * scale))) + ' ';
    return text + "] 0 d";
}

} // namespace

void PDFPrinter::PDFSetLineStyle(qint32 code)
{
    const bool known = code >= 0 && code <= 3;
    lineStyle_ = PDFDashOperator(known ? code : 0, document_.scale);
    if (!known)
        PDFMessages::badArgument(u"Style de Ligne - "_s, u"Code style de ligne incorrect : "_s,
                                 QString::number(code), u"Le style de ligne utilisé sera pSolid."_s);
}

void PDFPrinter::PDFDrawLine(double x1, double y1, double x2, double y2)
{
    PDFWriteLine(page(), "%DEBUT_LN/%");
    PDFWriteLine(page(), lineStyle_);
    PDFWriteLine(page(), across(x1), " ", down(y1), " m");
    PDFWriteLine(page(), across(x2), " ", down(y2), " l");
    PDFWriteLine(page(), lineColor_);
    PDFWriteLine(page(), scaled(lineWidth_), " w S");
    PDFWriteLine(page(), "%FIN_LN/%");
    x_ = std::max(x1, x2);
    y_ = std::max(y1, y2);
}

void PDFPrinter::PDFDrawLineHor(double x, double y, double length)
{
    drawColor_ = PDFFillOperator(lineColor_);
    PDFWriteLine(page(), "%DEBUT_LNH/%");
    PDFWriteLine(page(), lineStyle_);
    PDFWriteLine(page(), across(x), " ", down(y), " m");
    PDFWriteLine(page(), across(x + length), " ", down(y), " l");
    PDFWriteLine(page(), lineColor_);
    PDFWriteLine(page(), scaled(lineWidth_), " w S");
    PDFWriteLine(page(), "%FIN_LNH/%");
    x_ = x + length;
    y_ = y;
}

void PDFPrinter::PDFDrawLineVer(double x, double y, double length)
{
    drawColor_ = PDFFillOperator(lineColor_);
    PDFWriteLine(page(), "%DEBUT_LNV/%");
    PDFWriteLine(page(), lineStyle_);
    PDFWriteLine(page(), across(x), " ", down(y), " m");
    PDFWriteLine(page(), across(x), " ", down(y + length), " l");
    PDFWriteLine(page(), lineColor_);
    PDFWriteLine(page(), scaled(lineWidth_), " w S");
    PDFWriteLine(page(), "%FIN_LNV/%");
    x_ = x;
    y_ = y + length;
}

/// Writes the colours that the draw mode takes, and gives the operator that paints.
const char* PDFPrinter::putPaintColors(const char* fillOperator)
{
    if (drawMode_ != DrawMode::Border)
        PDFWriteLine(page(), drawColor_);
    if (drawMode_ != DrawMode::Fill)
        PDFWriteLine(page(), lineColor_);
    return drawMode_ == DrawMode::Fill ? fillOperator : drawMode_ == DrawMode::Both ? "B" : "s";
}

void PDFPrinter::PDFDrawRectangle(double x, double y, double width, double height, const QVariant& link)
{
    constexpr double LinkIndent = 5;
    PDFWriteLine(page(), "%DEBUT_RECT/%");
    const char* const paint = putPaintColors("f");
    PDFWriteLine(page(), lineStyle_);
    PDFWriteLine(page(), across(x), " ", down(y), " ", scaled(width), " ", scaled(-height), " re ", paint);
    PDFWriteLine(page(), scaled(lineWidth_), " w S");
    PDFSetTextColor(0xFFFFFF);
    linkKind_ = LinkKind::Rectangle;
    linkWidth_ = toInt16(width);
    PDFObjectLink(link, LinkKind::Rectangle, std::trunc(x + LinkIndent), std::trunc(y + height / 2));
    PDFWriteLine(page(), "%FIN_RECT/%");
    x_ = x;
    y_ = y + height;
}

void PDFPrinter::PDFDrawEllipse(double x, double y, double width, double height, const QVariant& link)
{
    if (height == 0)
        height = width;
    // How far the control points of a quarter of a circle stand from its ends, as a part of the radius.
    constexpr double Bend = 11.0 / 20;
    const double cx = x + width / 2;
    const double cy = y + height / 2;
    const double ox = width / 2 * Bend;
    const double oy = height / 2 * Bend;

    const char* const paint = putPaintColors("h f");
    PDFWriteLine(page(), lineStyle_);
    PDFWriteLine(page(), across(x), " ", down(cy), " m");
    PDFCurveOperator(x, cy - oy, cx - ox, y, cx, y);
    PDFCurveOperator(cx + ox, y, x + width, cy - oy, x + width, cy);
    PDFCurveOperator(x + width, cy + oy, cx + ox, y + height, cx, y + height);
    PDFCurveOperator(cx - ox, y + height, x, cy + oy, x, cy);
    PDFWriteLine(page(), scaled(lineWidth_), " w ", paint);
    PDFSetTextColor(0xFFFFFF);
    linkText_ = u"LINK"_s;
    linkKind_ = LinkKind::Ellipse;
    PDFObjectLink(link, LinkKind::Ellipse, x, cy);
    x_ = x;
    y_ = cy;
}

void PDFPrinter::PDFCurveOperator(double x1, double y1, double x2, double y2, double x3, double y3)
{
    PDFWriteLine(page(), across(x1), " ", down(y1), " ", across(x2), " ", down(y2), " ", across(x3), " ",
                 down(y3), " c");
}

void PDFPrinter::PDFDrawPolygon(const QList<QList<double>>& points)
{
    if (points.isEmpty())
        Errors::subscriptOutOfRange();
    const QList<double>& coordinates = points.first();
    const qsizetype count = toInt16(double(coordinates.size()) / 2);
    if (count < 1 || count * 2 > coordinates.size())
        Errors::subscriptOutOfRange();
    const auto put = [&](qsizetype i, const char* name) {
        PDFWriteLine(page(), across(coordinates[i * 2]), " ", down(coordinates[i * 2 + 1]), name);
    };

    const char* const paint = putPaintColors("h f");
    PDFWriteLine(page(), "%DEBUT_POLY/%");
    PDFWriteLine(page(), lineStyle_);
    put(0, " m");
    for (qsizetype i = 1; i < count; ++i)
        put(i, " l");
    put(0, " l");
    PDFWriteLine(page(), scaled(lineWidth_), " w ", paint);
    PDFWriteLine(page(), "%FIN_POLY/%");
}
