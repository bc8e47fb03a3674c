#include "documents/pdf/colour.h"

#include "documents/pdf/lines.h"
#include "documents/pdf/messages.h"
#include "platform/values/error.h"
#include "platform/values/number.h"

#include <cmath>

using namespace Qt::StringLiterals;

PDFRgb PDFHtmlToRgb(const QString& html)
{
    const QString digits = (u"000000"_s + html).right(6);
    const auto pair = [&](qsizetype place) { return double(digits.mid(place, 2).toUInt(nullptr, 16)); };
    return {pair(0), pair(2), pair(4)};
}

PDFRgb PDFLongToRgb(double packed)
{
    const double blue = std::trunc(packed / 65536);
    const double green = std::trunc((packed - blue * 65536) / 256);
    return {packed - blue * 65536 - green * 256, green, blue};
}

PDFRgb PDFColor(const QVariant& colour)
{
    if (colour.typeId() == QMetaType::QVariantList) {
        const QVariantList parts = colour.toList();
        if (parts.size() < 3)
            Errors::subscriptOutOfRange();
        const auto part = [&](qsizetype i) { return double(toInt16(parts[i].value<double>())); };
        return {part(0), part(1), part(2)};
    }
    if (colour.typeId() != QMetaType::QString)
        return PDFLongToRgb(colour.value<double>());
    if (colour.toString().startsWith(u'#'))
        return PDFHtmlToRgb(colour.toString());
    PDFMessages::badArgument(u"Couleur HTMl - "_s, u"Code couleur HTMl invalide "_s, colour.toString(),
                             u"La couleur utilisée sera le noir."_s);
    return {};
}

QByteArray PDFColorOperator(const PDFRgb& colour, const char* operatorName)
{
    const auto part = [](double component) { return PDFNumber(component / 255, 3); };
    return PDFText(part(colour.red), " ", part(colour.green), " ", part(colour.blue), " ",
                   QByteArrayView(operatorName));
}

QByteArray PDFFillOperator(QByteArray lineColour)
{
    const bool threeComponents = lineColour.endsWith("RG");
    lineColour.chop(threeComponents ? 2 : 1);
    return lineColour + (threeComponents ? "rg" : "g");
}
