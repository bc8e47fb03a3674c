#include "documents/pdf/outline.h"

#include "platform/values/error.h"

namespace {

/// The latest item of each level down to the current one.
class LatestByLevel
{
public:
    int at(int level) const
    {
        if (level < 0 || level >= int(items_.size()))
            Errors::subscriptOutOfRange();
        return items_[std::size_t(level)];
    }
    /// Deeper levels are forgotten.
    void set(int level, int item)
    {
        if (level < 0)
            Errors::subscriptOutOfRange();
        items_.resize(std::size_t(level) + 1);
        items_.back() = item;
    }

private:
    std::vector<int> items_;
};

} // namespace

PDFOutline PDFLinkBookmarks(const std::vector<PDFBookmark>& bookmarks)
{
    PDFOutline outline;
    outline.items.resize(bookmarks.size());
    LatestByLevel latest;
    int before = 0;
    for (int i = 0; i < int(bookmarks.size()); ++i) {
        const int level = bookmarks[std::size_t(i)].level;
        PDFOutlineItem& item = outline.items[std::size_t(i)];
        item.parent = int(bookmarks.size());
        if (level > 0) {
            item.parent = latest.at(level - 1);
            PDFOutlineItem& parent = outline.items[std::size_t(item.parent)];
            parent.last = i;
            if (level > before)
                parent.first = i;
        }
        if (level <= before && i > 1) {
            item.previous = latest.at(level);
            outline.items[std::size_t(*item.previous)].next = i;
        }
        latest.set(level, i);
        before = level;
    }
    outline.lastOfRoot = latest.at(1);
    return outline;
}
