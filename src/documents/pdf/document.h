#pragma once

#include "documents/pdf/fontmetrics.h"
#include "documents/pdf/jpeg.h"
#include "documents/pdf/linktable.h"
#include "documents/pdf/outline.h"

#include <QString>
#include <optional>
#include <vector>

/// The information dictionary.
struct PDFInformation
{
    QString producer, author, creator, keywords, subject, title;
};

/// How a viewer is asked to show the document.
struct PDFViewing
{
    std::optional<int> zoom;        ///< 0 whole page, 1 page width, 2 real size, others a percentage
    std::optional<int> layout;      ///< 0 single page, 1 one column, 2 two columns, others nothing
    std::optional<int> preferences; ///< each digit a preference
    bool thumbs = false;
    bool outlines = false;
};

struct PDFPageSize
{
    double width = 595.28; ///< points
    double height = 841.89;
};

/// What is known of a document besides the content of its pages.
struct PDFDocument
{
    PDFInformation information;
    PDFViewing viewing;
    PDFFontMetrics fonts;
    double scale = 0; ///< points in a user unit
    /// One for each page that was ended and one more, the current one.
    std::vector<PDFPageSize> pageSizes;
    PDFLinkTable links;
    std::vector<PDFJpeg> images;
    std::vector<PDFBookmark> bookmarks;
};
