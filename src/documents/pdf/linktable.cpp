#include "documents/pdf/linktable.h"

#include "documents/pdf/lines.h"
#include "platform/values/codepage.h"
#include "platform/values/error.h"
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
        const auto plain = [](double number) { return plainNumber(number).toLatin1(); };
        PDFAppend(text, "<</Type /Annot /Subtype /Link /Rect [", plain(area.x), " ", plain(area.y), " ",
                  plain(area.x + area.width), " ", plain(area.y - area.height), "] /Border [0 0 0] ");
        if (area.target.typeId() != QMetaType::QString || area.target.toString().isEmpty())
            continue; // without an action the dictionary stays open
        const QByteArray target = CodePage::encode(area.target.toString());
        PDFAppend(text, "/A <</S /URI /URI (", PDFEscaped{target}, ")>>>>\r\n");
    }
    return text + ']';
}
