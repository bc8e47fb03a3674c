#include "documents/pdf/linktable.h"

#include "documents/pdf/lines.h"
#include "platform/system/error.h"
#include "platform/values/codepage.h"
#include "platform/values/number.h"

void PDFLinkTable::add(int page, const PDFLinkArea& area)
{
    if (page < 1 || page > MostPages)
        Errors::subscriptOutOfRange();
    std::vector<PDFLinkArea>& areas = pages_[page];
    if (areas.size() >= std::size_t(MostLinks))
        Errors::subscriptOutOfRange();
    areas.push_back(area);
}

const std::vector<PDFLinkArea>& PDFLinkTable::of(int page) const
{
    static const std::vector<PDFLinkArea> none;
    const auto place = pages_.find(page);
    return place == pages_.end() ? none : place->second;
}

QByteArray PDFAnnotations(const std::vector<PDFLinkArea>& areas)
{
    QByteArray text = "/Annots [";
    for (const PDFLinkArea& area : areas) {
        text += "<</Type /Annot /Subtype /Link /Rect [";
        text += plainNumber(area.x).toLatin1() + ' ' + plainNumber(area.y).toLatin1() + ' ';
        text += plainNumber(area.x + area.width).toLatin1() + ' ';
        text += plainNumber(area.y - area.height).toLatin1() + "] /Border [0 0 0] ";
        if (area.target.typeId() != QMetaType::QString || area.target.toString().isEmpty())
            continue; // without an action the dictionary stays open
        text += "/A <</S /URI /URI (";
        PDFAppend(text, PDFEscaped{CodePage::encode(area.target.toString())});
        text += ")>>>>\r\n";
    }
    return text + ']';
}
