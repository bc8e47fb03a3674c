#pragma once

#include "documents/pdf/document.h"
#include "documents/pdf/objectwriter.h"

/// The file of a document: PDF 1.3, an object at a time, each written when it is complete, so that one page
/// is in memory. Object 1 is the information, 2j and 2j + 1 are the content of page j and its length; fonts,
/// page tree, resources, images, pages, outline and catalog follow at the end.
///
/// Every line ends in CR LF, and an empty line follows every object. Marker lines in French frame some of
/// them.
class PDFAssembly
{
public:
    /// Both outlive this object. What is written goes to `output`, which is open by then.
    PDFAssembly(const PDFDocument& document, OutputFile& output) : document_(document), writer_(output) {}

    /// Header, information and the begin of the first page. Throws as OutputFile::writeLine.
    void PDFBeginDoc();
    /// Writes the current page and begins the next one.
    void PDFNewPage();
    /// Writes the current page and all that follows it, and closes the file. Throws RuntimeError 9 for a page
    /// without a size, for a document without bookmarks, and for bookmarks that make no outline (see
    /// PDFLinkBookmarks; a single one makes none and is no error).
    void PDFEndDoc();

    /// The content of the current page.
    QByteArray& page() { return page_; }

    /// The pages of a document that has ended; 1 while it is being made.
    int pages() const { return builtPages_; }

private:
    void PDFPutHeader();
    void PDFPutInfo();
    void PDFBeginContent();
    void PDFEndContent();
    void putContent(QByteArrayView marker);
    void PDFPutFonts();
    void PDFPutPages();
    void PDFPutResources();
    void PDFPutImage(int number);
    void PDFPutPage(int number);
    void PDFPutBookmarks();
    void PDFPutBookmark(const PDFBookmark& bookmark, const PDFOutlineItem& item, int first);
    void PDFPutCatalog();
    void putOpening();
    void putPreferences();
    void PDFPutXref();

    void beginObject();
    void putObject();

    const PDFDocument& document_;
    PDFObjectWriter writer_;
    QByteArray object_; ///< the object being built, or the one written last
    QByteArray page_;
    qsizetype streamStart_ = 0;
    int pageCount_ = 0;
    int builtPages_ = 0;
    std::vector<int> fontObjects_;
    std::vector<int> pageObjects_;
    int pageTree_ = 0;
    int resources_ = 0;
    int outlineRoot_ = 0;
    int catalog_ = 0;
};
