#include "documents/pdf/assembly.h"
#include "documents/pdf/lines.h"
#include "platform/values/codepage.h"
#include "platform/values/error.h"

void PDFAssembly::PDFPutBookmarks()
{
    const std::vector<PDFBookmark>& bookmarks = document_.bookmarks;
    if (bookmarks.empty())
        Errors::subscriptOutOfRange();
    outlineRoot_ = int(bookmarks.size());
    if (bookmarks.size() == 1)
        return;

    const PDFOutline outline = PDFLinkBookmarks(bookmarks);
    const int first = writer_.last() + 1;
    for (std::size_t i = 0; i < bookmarks.size(); ++i)
        PDFPutBookmark(bookmarks[i], outline.items[i], first);
    beginObject();
    outlineRoot_ = writer_.last();
    PDFWriteLine(object_, "<</Type /Outlines /First ", first, " 0 R");
    PDFWriteLine(object_, "/Last ", first + outline.lastOfRoot, " 0 R>>");
    putObject();
}

/// `first` is the object of the first bookmark.
void PDFAssembly::PDFPutBookmark(const PDFBookmark& bookmark, const PDFOutlineItem& item, int first)
{
    const auto neighbour = [&](const char* name, std::optional<int> place) {
        if (place)
            PDFWriteLine(object_, name, " ", first + *place, " 0 R");
    };
    if (bookmark.page < 1 || bookmark.page > int(pageObjects_.size()))
        Errors::subscriptOutOfRange();
    const double y = document_.pageSizes.back().height - bookmark.y * document_.scale;

    beginObject();
    PDFWriteLine(object_, "<</Title (", CodePage::encode(bookmark.title), ")");
    neighbour("/Parent", item.parent);
    neighbour("/Prev", item.previous);
    neighbour("/Next", item.next);
    neighbour("/First", item.first);
    neighbour("/Last", item.last);
    PDFWriteLine(object_, "/Dest [", pageObjects_[std::size_t(bookmark.page - 1)], " 0 R /XYZ 0 ",
                 PDFNumber(y), " null]");
    PDFWriteLine(object_, "/Count 0>>");
    putObject();
}

void PDFAssembly::PDFPutCatalog()
{
    const PDFViewing& viewing = document_.viewing;
    beginObject();
    catalog_ = writer_.last();
    PDFWriteLine(object_, "<<");
    PDFWriteLine(object_, "/Type /Catalog");
    PDFWriteLine(object_, "/Pages ", pageTree_, " 0 R");
    putOpening();
    if (viewing.thumbs)
        PDFWriteLine(object_, "/PageMode /UseThumbs");
    if (viewing.outlines) {
        PDFWriteLine(object_, "/Outlines ", outlineRoot_, " 0 R");
        PDFWriteLine(object_, "/PageMode /UseOutlines");
    }
    putPreferences();
    PDFWriteLine(object_, ">>");
    putObject();
}

void PDFAssembly::putOpening()
{
    // Object 3 is the length of the first page's content, and no page: viewers open the first page.
    const int zoom = document_.viewing.zoom.value_or(0);
    if (zoom == 0)
        PDFWriteLine(object_, "/OpenAction [3 0 R /Fit]");
    else if (zoom == 1)
        PDFWriteLine(object_, "/OpenAction [3 0 R /FitH null]");
    else if (zoom == 2)
        PDFWriteLine(object_, "/OpenAction [3 0 R /XYZ null null 1]");
    else
        PDFWriteLine(object_, "/OpenAction [3 0 R /XYZ null null ", PDFNumber(zoom / 100.0), "]");

    const int layout = document_.viewing.layout.value_or(0);
    if (layout == 0)
        PDFWriteLine(object_, "/PageLayout /SinglePage");
    else if (layout == 1)
        PDFWriteLine(object_, "/PageLayout /OneColumn");
    else if (layout == 2)
        PDFWriteLine(object_, "/PageLayout /TwoColumnLeft");
}

void PDFAssembly::putPreferences()
{
    struct Preference
    {
        char digit;
        const char* line;
    };
    constexpr Preference Preferences[] = {
        {'2', "/HideMenubar true"},     {'1', "/HideToolbar true"},  {'3', "/HideWindowUI true"},
        {'6', "/DisplayDocTitle true"}, {'5', "/CenterWindow true"}, {'4', "/FitWindow true"},
    };
    if (!document_.viewing.preferences)
        return;
    const QByteArray digits = QByteArray::number(*document_.viewing.preferences);
    PDFWriteLine(object_, "/ViewerPreferences<<");
    for (const Preference& preference : Preferences)
        if (digits.contains(preference.digit))
            PDFWriteLine(object_, preference.line);
    PDFWriteLine(object_, ">>");
}

void PDFAssembly::PDFPutXref()
{
    const int size = writer_.last() + 1;
    object_.truncate(0);
    PDFWriteLine(object_, "xref");
    PDFWriteLine(object_, "0 ", size);
    PDFWriteLine(object_, "0000000000 65535 f");
    for (int i = 1; i < size; ++i)
        PDFWriteLine(object_, PDFPadOffset(writer_.offset(i)), " 00000 n");
    PDFWriteLine(object_, "trailer");
    PDFWriteLine(object_, "<< /Size ", size);
    PDFWriteLine(object_, "/Root ", catalog_, " 0 R");
    PDFWriteLine(object_, "/Info 1 0 R");
    PDFWriteLine(object_, ">>");
    PDFWriteLine(object_, "startxref");
    PDFWriteLine(object_, writer_.offset(size));
    writer_.putLine(object_);
}
