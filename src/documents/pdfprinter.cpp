#include "documents/pdfprinter.h"

#include "documents/pdf/lines.h"
#include "documents/pdf/messages.h"
#include "platform/forms/dialogs.h"
#include "platform/system/files.h"
#include "platform/system/shell.h"
#include "platform/values/codepage.h"
#include "platform/values/number.h"

#include <cmath>

using namespace Qt::StringLiterals;

PDFPrinter::PDFPrinter()
{
    PDFInit();
}

void PDFPrinter::PDFInit()
{
    constexpr double Centimetre = 72 / 2.54;
    constexpr double PointsOfMargin = 28.35;
    if (!document_.fonts.hasFolder())
        PDFLoadAfm(Files::programFolder());
    document_.scale = Centimetre;
    document_.information = {};
    document_.pageSizes.assign(1, {});
    page().clear();
    underline_ = false;
    const qint16 margin = toInt16(Centimetre / PointsOfMargin);
    PDFSetMargins(margin, margin);
    PDFSetCellMargin(margin / 10.0 * Centimetre);
    x_ = leftMargin_;
    y_ = topMargin_;
    lineWidth_ = 0.567;
    lineColor_ = "0 G";
    drawColor_ = "0 g";
    textColor_ = "0 g";
}

void PDFPrinter::PDFFileName(const QString& path)
{
    fileName_ = path;
    const QString own = Files::ownPath(path);
    if (output_.create(own) || !Files::exists(own))
        return;
    // Most likely it is still open in the viewer.
    MsgBox(u"Le fichier %1 ne peut pas être remplacé.\nS'il est ouvert, fermez-le avant de continuer."_s.arg(
               own.section(u'/', -1)),
           u"Fichier PDF - "_s + PDFMessages::Writer, Icon::Critical);
    output_.create(own);
}

void PDFPrinter::PDFBeginDoc()
{
    pageCount_ = 1;
    document_.images.clear();
    assembly_.PDFBeginDoc();
}

void PDFPrinter::PDFEndPage()
{
    document_.pageSizes.push_back(document_.pageSizes.back());
    PDFDrawFiligran();
}

void PDFPrinter::PDFNewPage()
{
    x_ = leftMargin_;
    y_ = topMargin_;
    pageCount_ = toInt16(pageCount_ + 1.0);
    assembly_.PDFNewPage();
    PDFDrawFiligran();
}

void PDFPrinter::PDFEndDoc()
{
    assembly_.PDFEndDoc();
    if (confirm_)
        MsgBox(u"Fichier PDF généré."_s, u"Génération du Fichier PDF - "_s + PDFMessages::Writer);
    if (view_)
        Shell::open(Files::ownPath(fileName_));
}

void PDFPrinter::PDFDrawFiligran()
{
    constexpr qint16 Size = 50;
    constexpr double Angle = 45;
    if (!filigran_)
        return;
    PDFSetFont(0, Size, 2);
    PDFSetTextColor(QVariantList{255, 192, 203});
    const double width = PDFGetStringWidth(*filigran_, {}, Size);
    // The angle is taken as radians here: the text stands off the middle, and as every document has it.
    const double x = (PDFGetPageWidth() - width * std::cos(Angle)) / 2.75;
    const double y = (width * std::sin(Angle) + PDFGetPageHeight()) / 2.15;
    PDFRotatedText(x, y, *filigran_, Angle);
}

void PDFPrinter::PDFSetBookmark(const QString& title, double level, double y)
{
    document_.bookmarks.push_back({title, toInt16(level), y == -1 ? y_ : y, pageCount_});
}
