#include "documents/pdf/assembly.h"

#include "documents/pdf/lines.h"
#include "platform/system/clock.h"
#include "platform/values/codepage.h"
#include "platform/values/error.h"
#include "platform/values/format.h"
#include "platform/values/number.h"

using namespace Qt::StringLiterals;

namespace {

constexpr char BeginMarker[] = "%DEBUT_OBJ/%";
constexpr char EndMarker[] = "%FIN_OBJ/%";

} // namespace

void PDFAssembly::PDFBeginDoc()
{
    pageCount_ = 1;
    builtPages_ = 1;
    fontObjects_.clear();
    pageObjects_.clear();
    writer_.restart();
    PDFPutHeader();
    PDFPutInfo();
    PDFBeginContent();
}

void PDFAssembly::PDFPutHeader()
{
    const QByteArray header = "%PDF-1.3";
    writer_.putObject(header);
}

void PDFAssembly::PDFPutInfo()
{
    const PDFInformation& information = document_.information;
    beginObject();
    const auto entry = [this](const char* name, const QString& text) {
        PDFWriteLine(object_, name, " (", CodePage::encode(text), ")");
    };
    PDFWriteLine(object_, "<<");
    entry("/Producer", information.producer);
    entry("/Author", information.author);
    entry("/CreationDate", u"D:"_s + Format(Clock::now(), u"yyyymmddhhnnss"));
    entry("/Creator", information.creator);
    entry("/Keywords", information.keywords);
    entry("/Subject", information.subject);
    entry("/Title", information.title);
    entry("/ModDate", {});
    PDFWriteLine(object_, ">>");
    putObject();
}

void PDFAssembly::PDFBeginContent()
{
    beginObject();
    PDFWriteLine(object_, "<< /Length ", writer_.last() + 1, " 0 R");
    PDFWriteLine(object_, " >>");
    streamStart_ = object_.size();
    PDFWriteLine(object_, "stream");
    page_.truncate(0);
}

/// Ends the content object and writes its length object. `marker` stands at the end of both, unless it is
/// empty: in the first it is counted into the length, though it is no content.
void PDFAssembly::putContent(QByteArrayView marker)
{
    object_ += page_;
    page_.truncate(0);
    PDFWriteLine(object_, "endstream");
    PDFWriteLine(object_, "endobj");
    if (!marker.isEmpty())
        PDFWriteLine(object_, marker);
    // "stream", "endstream" and "endobj" without the ends of their lines, which are the first 6 bytes.
    const qsizetype length = object_.size() - streamStart_ - 6 - 6 - 9 - 6;
    writer_.putObject(object_);

    object_.truncate(0);
    if (!marker.isEmpty())
        PDFWriteLine(object_, BeginMarker);
    PDFWriteLine(object_, writer_.next(), " 0 obj");
    PDFWriteLine(object_, length);
    PDFWriteLine(object_, "endobj");
    if (!marker.isEmpty())
        PDFWriteLine(object_, marker);
    writer_.putObject(object_);
}

void PDFAssembly::PDFNewPage()
{
    putContent(EndMarker);
    ++pageCount_;
    PDFBeginContent();
    PDFWriteLine(page_, BeginMarker);
}

void PDFAssembly::PDFEndDoc()
{
    PDFEndContent();
    PDFPutFonts();
    PDFPutPages();
    PDFPutResources();
    for (int i = 1; i <= int(document_.images.size()); ++i)
        PDFPutImage(i);
    for (int i = 1; i <= pageCount_; ++i)
        PDFPutPage(i);
    PDFPutBookmarks();
    PDFPutCatalog();
    PDFPutXref();
    writer_.putLine("%%EOF");
    writer_.close();
}

void PDFAssembly::PDFEndContent()
{
    putContent({});
}

void PDFAssembly::beginObject()
{
    object_.truncate(0);
    PDFWriteLine(object_, writer_.next(), " 0 obj");
}

void PDFAssembly::putObject()
{
    PDFWriteLine(object_, "endobj");
    writer_.putObject(object_);
}

void PDFAssembly::PDFPutFonts()
{
    for (const QString& name : document_.fonts.names()) {
        beginObject();
        fontObjects_.push_back(writer_.last());
        PDFWriteLine(object_, "<< /Type /Font");
        PDFWriteLine(object_, "/Subtype /Type1");
        PDFWriteLine(object_, "/Name /F", fontObjects_.size());
        PDFWriteLine(object_, "/BaseFont /", CodePage::encode(name));
        PDFWriteLine(object_, "/Encoding /WinAnsiEncoding");
        PDFWriteLine(object_, ">>");
        putObject();
    }
}

void PDFAssembly::PDFPutPages()
{
    if (std::size_t(pageCount_) > document_.pageSizes.size())
        Errors::subscriptOutOfRange();
    // The object in front of it stands here once more: its offset is that of the page tree as well.
    pageTree_ = writer_.next();
    PDFWriteLine(object_, BeginMarker);
    PDFWriteLine(object_, pageTree_, " 0 obj");
    PDFWriteLine(object_, "<< /Type /Pages");
    PDFWriteLine(object_, "/Kids [");
    for (int i = 1; i <= pageCount_; ++i)
        PDFWriteLine(object_, pageTree_ + 1 + int(document_.images.size()) + i, " 0 R");
    PDFWriteLine(object_, "]");
    PDFWriteLine(object_, "/Count ", pageCount_);
    PDFWriteLine(object_, ">>");
    putObject();
    builtPages_ = pageCount_;
}

void PDFAssembly::PDFPutResources()
{
    beginObject();
    resources_ = writer_.last();
    PDFWriteLine(object_, "<< /ProcSet [ /PDF /Text /ImageC]");
    PDFWriteLine(object_, "/XObject << ");
    for (int i = 1; i <= int(document_.images.size()); ++i)
        PDFWriteLine(object_, "/ImgJPEG", i, " ", resources_ + i, " 0 R");
    PDFWriteLine(object_, ">>");
    PDFWriteLine(object_, "/Font << ");
    for (std::size_t i = 0; i < fontObjects_.size(); ++i)
        PDFWriteLine(object_, "/F", i + 1, " ", fontObjects_[i], " 0 R ");
    PDFWriteLine(object_, ">>");
    PDFWriteLine(object_, ">>");
    putObject();
}

void PDFAssembly::PDFPutImage(int number)
{
    const PDFJpeg& image = document_.images[std::size_t(number - 1)];
    beginObject();
    PDFWriteLine(object_, "<</Type /XObject");
    PDFWriteLine(object_, "/Subtype /Image");
    PDFWriteLine(object_, "/Filter [/DCTDecode ]");
    PDFWriteLine(object_, "/Width ", image.width);
    PDFWriteLine(object_, "/Height ", image.height);
    PDFWriteLine(object_, "/ColorSpace /", image.colourSpace);
    PDFWriteLine(object_, "/BitsPerComponent ", image.bitsPerComponent);
    PDFWriteLine(object_, "/Length ", image.data.size());
    PDFWriteLine(object_, "/Name /ImgJPEG", number, ">>");
    PDFWriteLine(object_, "stream");
    PDFWriteLine(object_, image.data);
    PDFWriteLine(object_, "endstream");
    putObject();
}

void PDFAssembly::PDFPutPage(int number)
{
    const PDFPageSize& size = document_.pageSizes[std::size_t(number - 1)];
    beginObject();
    pageObjects_.push_back(writer_.last());
    PDFWriteLine(object_, "<< /Type /Page");
    PDFWriteLine(object_, "/Parent ", pageTree_, " 0 R");
    PDFWriteLine(object_, "/MediaBox [ 0 0 ", plainNumber(size.width).toLatin1(), " ",
                 plainNumber(size.height).toLatin1(), "]");
    PDFWriteLine(object_, "/Resources ", resources_, " 0 R");
    if (const auto& areas = document_.links.of(number); !areas.empty())
        PDFWriteLine(object_, PDFAnnotations(areas));
    PDFWriteLine(object_, "/Contents ", 2 * number, " 0 R");
    PDFWriteLine(object_, ">>");
    PDFWriteLine(object_, "endobj");
    PDFWriteLine(object_, EndMarker);
    writer_.putObject(object_);
}
