#pragma once

#include <QVariant>
#include <map>
#include <vector>

/// The area of a page that leads to a target, in points from the page's lower left corner; (x, y) is its
/// upper left one.
struct PDFLinkArea
{
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;
    QVariant target; ///< A text is an address. Anything else is kept and written without an action.
};

/// The links of all pages: at most 1000 on each of the first 1000 pages.
class PDFLinkTable
{
public:
    static constexpr int MostPages = 1000;
    static constexpr int MostLinks = 1000;

    /// Throws RuntimeError 9 beyond the limits. Pages count from 1.
    void add(int page, const PDFLinkArea& area);

    /// The page's links in the order they came.
    const std::vector<PDFLinkArea>& of(int page) const;

private:
    std::map<int, std::vector<PDFLinkArea>> pages_;
};

/// The annotations of a page, without a line's end: "/Annots [", one dictionary for each area, "]".
QByteArray PDFAnnotations(const std::vector<PDFLinkArea>& areas);
