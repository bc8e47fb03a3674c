#pragma once

#include "documents/pdf/assembly.h"
#include "documents/pdf/document.h"
#include "documents/pdf/lines.h"
#include "platform/system/outputfile.h"

#include <QList>
#include <QString>
#include <QVariant>

/// Writes one PDF document, in this order: the file's name, the fonts and the options; PDFBeginDoc; at least
/// two bookmarks, the last one on level 1 or deeper; drawing, with PDFEndPage and PDFNewPage between two
/// pages; PDFEndPage and PDFEndDoc. An object makes one document.
///
/// Lengths are in user units (PDFSetUnit), Y counts from the top of the page. An argument that is kept in 16
/// bits is rounded to the nearest whole number, a half to the even one; RuntimeError 6 beyond them. A bad
/// code is told to the user in French and something else stands in for it, as said below. Failures of the
/// metrics files (RuntimeError 53, 62, 9) and of the output file (75, 91) go to the caller.
class PDFPrinter
{
public:
    PDFPrinter();
    PDFPrinter(const PDFPrinter&) = delete;
    PDFPrinter& operator=(const PDFPrinter&) = delete;

    /// Back to the defaults, of which the fonts beside the executable are part unless a folder is set.
    void PDFInit();

    // ---- The file and what it says of itself ----

    /// Creates the file; both kinds of separator are understood. Where a file of that name cannot be replaced
    /// the user is asked to close it, and it is tried once more. A failure shows at PDFBeginDoc, as
    /// RuntimeError 75.
    void PDFFileName(const QString& path);
    /// The path as it was given.
    QString PDFGetFileName() const { return fileName_; }
    // The information is not escaped, and written by PDFBeginDoc.
    void PDFProducer(const QString& text) { document_.information.producer = text; }
    void PDFSubject(const QString& text) { document_.information.subject = text; }
    void PDFKeywords(const QString& text) { document_.information.keywords = text; }
    void PDFCreator(const QString& text) { document_.information.creator = text; }
    void PDFAuthor(const QString& text) { document_.information.author = text; }
    void PDFTitle(const QString& text) { document_.information.title = text; }

    // ---- Viewing ----

    /// PDFEndDoc tells that the document is there.
    void PDFConfirm(bool confirm) { confirm_ = confirm; }
    /// PDFEndDoc opens the document.
    void PDFView(bool view) { view_ = view; }
    /// Each digit of the code is a wish: 1 no toolbar, 2 no menu bar, 3 no window controls, 4 fit the window,
    /// 5 centre the window, 6 show the title.
    void PDFSetViewerPreferences(qint32 code) { document_.viewing.preferences = code; }
    /// 0 whole page, 1 page width, 2 real size, other numbers a percentage.
    void PDFSetZoomMode(qint32 mode) { document_.viewing.zoom = mode; }
    std::optional<qint32> PDFGetZoomMode() const { return document_.viewing.zoom; }
    /// 0 single page, 1 one column, 2 two columns, 3 none; a bad one is 0.
    void PDFSetLayoutMode(qint32 mode);
    std::optional<qint32> PDFGetLayoutMode() const { return document_.viewing.layout; }
    void PDFUseThumbs(bool use) { document_.viewing.thumbs = use; }
    void PDFUseOutlines(bool use) { document_.viewing.outlines = use; }

    // ---- The page ----

    /// 0 point, 1 millimetre, 2 centimetre (to begin with, and for a bad code). Margins are not rescaled.
    void PDFSetUnit(qint32 code);
    /// "pt", "mm" or "cm".
    QString PDFGetUnit() const;
    /// 0 A4, 1 A3, 2 A5, 3 Letter, 4 Legal, or a list of width and height in points; anything else is A4.
    void PDFFormatPage(const QVariant& format);
    /// 0 landscape, 1 portrait (and for a bad code). Comes behind the format, whose sides it rounds to 16
    /// bits and exchanges for landscape: A4 becomes 595 x 842.
    void PDFOrientation(qint32 code);
    /// Size of the current page in points; behind PDFEndPage it is that of the next one.
    void PDFPageHeight(double height) { document_.pageSizes.back().height = height; }
    void PDFPageWidth(double width) { document_.pageSizes.back().width = width; }
    double PDFGetPageHeight() const { return document_.pageSizes.back().height; }
    double PDFGetPageWidth() const { return document_.pageSizes.back().width; }
    void PDFSetLeftMargin(double margin);
    void PDFSetRightMargin(double margin);
    void PDFSetTopMargin(double margin);
    void PDFSetBottomMargin(double margin);
    void PDFSetCellMargin(double margin);
    double PDFGetLeftMargin() const { return leftMargin_; }
    double PDFGetRightMargin() const { return rightMargin_; }
    double PDFGetTopMargin() const { return topMargin_; }
    double PDFGetBottomMargin() const { return bottomMargin_; }
    double PDFGetCellMargin() const { return cellMargin_; }
    /// Right -1 takes left, bottom -1 takes top.
    void PDFSetMargins(double left, double top, double right = -1, double bottom = -1);
    qint16 PDFGetX() const;
    qint16 PDFGetY() const;

    // ---- Course of the document ----

    void PDFBeginDoc();
    void PDFEndPage();
    void PDFNewPage();
    /// Completes and closes the file; see PDFAssembly for what it takes.
    void PDFEndDoc();
    /// The page being drawn, from 1.
    qint16 PDFPageNumber() const { return pageCount_; }
    /// The number of pages, known behind PDFEndDoc; 1 before.
    qint16 PDFNbPage() const { return qint16(assembly_.pages()); }

    // ---- Fonts ----

    /// Where metrics are read from, without looking for fonts there.
    void PDFPathConfiguration(const QString& path) { document_.fonts.setFolder(path); }
    /// Takes the fonts of a folder; RuntimeError 76 where it does not exist.
    void PDFLoadAfm(const QString& folder) { document_.fonts.load(folder); }
    /// Family 0 Arial (Helvetica), 1 Courier, 2 Times, 3 Symbol, 4 ZapfDingbats; each digit of the style a
    /// property: 1 italic, 2 bold, 3 underlined until the next text. Size 0 is 10. Italic Times, italic or
    /// bold Symbol and ZapfDingbats and a bad family have no metrics file: their text is written with font 0,
    /// and then its width fails.
    void PDFSetFont(qint32 family, double size, qint32 style);
    double PDFTextHeight() const { return fontSize() * document_.scale; }
    /// In points, whatever the unit. An empty font name is the current font. See PDFFontMetrics::width.
    double PDFGetStringWidth(const QString& text, const QString& font, double size);

    // ---- Colours, lines, filling ----

    // See PDFColor. The line colour draws lines, the draw colour fills.
    void PDFSetTextColor(const QVariant& colour);
    void PDFSetLineColor(const QVariant& colour);
    void PDFSetDrawColor(const QVariant& colour);
    /// The operator texts, such as "0.000 0.000 1.000 rg".
    QString PDFGetTextColor() const { return QString::fromLatin1(textColor_); }
    QString PDFGetLineColor() const { return QString::fromLatin1(lineColor_); }
    QString PDFGetDrawColor() const { return QString::fromLatin1(drawColor_); }
    /// 0 solid (and for a bad code), 1 dashed, 2 dash and dot, 3 dash and two dots.
    void PDFSetLineStyle(qint32 code);
    void PDFSetLineWidth(double width) { lineWidth_ = width; }
    /// 0 border (and for a bad code), 1 filling, 2 both; compared as text.
    void PDFSetDrawMode(const QVariant& code);

    // ---- Drawing; each sets X and Y to where it ends ----

    /// Writes at x + left margin, unless it is rotated; 0 stands for the current X or Y.
    void PDFTextOut(const QString& text, double x, double y);
    /// In degrees, for the next text.
    void PDFSetRotation(double degrees) { rotation_ = -degrees; }
    void PDFDrawLine(double x1, double y1, double x2, double y2);
    /// Make the draw colour that of the line.
    void PDFDrawLineHor(double x, double y, double length);
    void PDFDrawLineVer(double x, double y, double length);
    /// Leave the text colour white. A link that is no text is told to the user for the ellipse.
    void PDFDrawRectangle(double x, double y, double width, double height, const QVariant& link = QString());
    void PDFDrawEllipse(double x, double y, double width, double height, const QVariant& link = QString());
    /// x and y of each corner one behind the other, in the first list.
    void PDFDrawPolygon(const QList<QList<double>>& points);

    // ---- Cells ----

    /// 0 centred, 1 left (and for a bad code), 2 right, 3 justified.
    void PDFSetAlignement(qint32 code);
    /// "Center", "Right", "Left" otherwise.
    QString PDFGetAlignement() const;
    /// 0 none, 1 whole, 2 top, 3 bottom, 4 left, 5 right; the digits of another number together. For the next
    /// cell, which draws only the last of its edges in the order left, top, right, bottom.
    void PDFSetBorder(qint32 code);
    void PDFSetFill(bool fill) { fill_ = fill; }
    /// The text in lines that are broken at blanks, or anywhere in a word longer than a line; each is
    /// `height` high.
    void PDFCell(const QString& text, double x, double y, double width, double height,
                 const QVariant& link = QString());

    // ---- Pictures, links, outline, watermark ----

    /// The size of a JPEG picture in pixels; 0 for a file that is none, which is told to the user.
    double PDFImageWidth(const QString& path);
    double PDFImageHeight(const QString& path);
    /// A file of the extension "jpg" or "jpeg", in lower case; another one is told to the user. A side of 0
    /// follows the other one, or both the pixels as points. Leaves X and Y in points.
    void PDFImage(const QString& path, double x, double y, double width, double height,
                  const QVariant& link = QString());
    /// Writes the address underlined and makes it a link to `shown` (to itself if that is empty).
    /// RuntimeError 9 for the 1001st link of a page and for page 1001.
    void PDFLink(double x, double y, const QString& url, const QVariant& shown = QString());
    /// A line of the outline, leading to that height of the current page; y -1 is the current Y.
    void PDFSetBookmark(const QString& title, double level, double y);
    /// A text across each page, drawn by PDFEndPage and at the begin of each page but the first.
    void PDFFiligran(const QString& text) { filigran_ = text; }

private:
    enum class DrawMode
    {
        Border,
        Fill,
        Both
    };
    enum class LinkKind
    {
        None,
        Cell,
        Image,
        Rectangle,
        Ellipse
    };

    PDFNumber across(double x) const { return PDFNumber(x * document_.scale); }
    PDFNumber down(double y) const { return PDFNumber(PDFGetPageHeight() - y * document_.scale); }
    PDFNumber scaled(double length) const { return PDFNumber(length * document_.scale); }
    QByteArray& page() { return assembly_.page(); }
    double fontSize() const { return fontSize_ == 0 ? 10 : fontSize_; }
    double widthOf(QByteArrayView text) { return document_.fonts.width(text, fontName_, fontSize()); }

    QByteArray PDFTextMatrix(double x, double y) const;
    QByteArray PDFUnderline(bool inCell, QByteArrayView text, double x, double y);
    void PDFRotatedText(double x, double y, const QString& text, double degrees);
    void PDFDrawFiligran();
    const char* putPaintColors(const char* fillOperator);
    void PDFCurveOperator(double x1, double y1, double x2, double y2, double x3, double y3);
    void PDFCellLine(const QByteArray& text, double x, double y, double width, double height,
                     const QVariant& link);
    QByteArray cellFrame(double x, double y, double width, double height);
    double alignedOffset(QByteArrayView text, double width);
    std::optional<PDFJpeg> readImage(const QString& path);
    void PDFObjectLink(const QVariant& link, LinkKind kind, double x, double y);
    double linkWidth(const QString& url);
    void PDFAddLink(double x, double y, double width, double height, const QVariant& target);

    PDFDocument document_;
    OutputFile output_;
    PDFAssembly assembly_{document_, output_};
    QString fileName_;
    bool confirm_ = false;
    bool view_ = false;
    std::optional<QString> filigran_;

    qint16 pageCount_ = 0;
    double x_ = 0;
    double y_ = 0;
    qint16 leftMargin_ = 0;
    qint16 topMargin_ = 0;
    qint16 rightMargin_ = 0;
    qint16 bottomMargin_ = 0;
    qint16 cellMargin_ = 0;

    QString fontName_;
    qint16 fontSize_ = 0;
    bool underline_ = false;
    double rotation_ = 0; ///< degrees, sign inverted; 0 for none
    double wordSpacing_ = 0;

    // Operator texts.
    QByteArray textColor_;
    QByteArray lineColor_;
    QByteArray drawColor_;
    QByteArray lineStyle_;
    double lineWidth_ = 0;
    DrawMode drawMode_ = DrawMode::Border;

    QByteArray alignment_; ///< "C", "L", "R", "FJ", or empty for "L"
    QByteArray border_;    ///< "0", "1", or letters of "LRTB"
    bool fill_ = false;

    // What the next link belongs to. A figure drawn without a link keeps its kind until there is one.
    bool imageLink_ = false;
    LinkKind linkKind_ = LinkKind::None;
    QString linkText_;
    double linkWidth_ = 0;
    double imageWidth_ = 0;
    double imageHeight_ = 0;
};
