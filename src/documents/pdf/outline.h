#pragma once

#include <QString>
#include <optional>
#include <vector>

struct PDFBookmark
{
    QString title;
    int level = 0; ///< 0 for the outermost
    double y = 0;  ///< user units from the top of the page
    int page = 0;  ///< from 1
};

/// The places of a bookmark's neighbours in the list of bookmarks, from 0.
struct PDFOutlineItem
{
    int parent = 0; ///< The number of bookmarks stands for the root.
    std::optional<int> previous;
    std::optional<int> next;
    std::optional<int> first;
    std::optional<int> last;
};

struct PDFOutline
{
    std::vector<PDFOutlineItem> items; ///< one for each bookmark
    int lastOfRoot = 0;                ///< the item that the root calls its last
};

/// The tree of the bookmarks by their levels. The second bookmark has no previous one, whatever its level,
/// and the root's last item is the latest one of level 1. Throws RuntimeError 9 where there is none: the last
/// bookmark stands on level 0, a level is left out, or the first one is not on level 0.
PDFOutline PDFLinkBookmarks(const std::vector<PDFBookmark>& bookmarks);
