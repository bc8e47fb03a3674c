#include "documents/pdf/lines.h"
#include "documents/pdf/messages.h"
#include "documents/pdfprinter.h"

#include <cmath>

using namespace Qt::StringLiterals;

std::optional<PDFJpeg> PDFPrinter::readImage(const QString& path)
{
    if (!path.contains(u'.')) {
        PDFMessages::badImage(u"Le fichier image %1 ne possède pas d'extension."_s.arg(path));
        return std::nullopt;
    }
    if (!path.endsWith(u"jpg") && !path.endsWith(u"jpeg")) {
        PDFMessages::badImage(u"Seule les images de types JPG sont supportées.\n"
                              "Format d'image non supportée."_s);
        return std::nullopt;
    }
    return PDFReadJpeg(path);
}

double PDFPrinter::PDFImageWidth(const QString& path)
{
    const std::optional<PDFJpeg> image = readImage(path);
    return image ? image->width : 0;
}

double PDFPrinter::PDFImageHeight(const QString& path)
{
    const std::optional<PDFJpeg> image = readImage(path);
    return image ? image->height : 0;
}

void PDFPrinter::PDFImage(const QString& path, double x, double y, double width, double height,
                          const QVariant& link)
{
    std::optional<PDFJpeg> image = readImage(path);
    if (!image)
        return;
    if (width == 0 && height == 0) {
        width = image->width / document_.scale;
        height = image->height / document_.scale;
    } else if (width == 0) {
        width = height * image->width / image->height;
    } else if (height == 0) {
        height = width * image->height / image->width;
    }
    // The same picture on every page is in memory once.
    for (const PDFJpeg& known : document_.images)
        if (known.data == image->data)
            image->data = known.data;
    document_.images.push_back(*image);

    PDFWriteLine(page(), "q");
    PDFWriteLine(page(), scaled(width), " 0 0 ", scaled(height), " ", across(x), " ", down(y + height),
                 " cm /ImgJPEG", document_.images.size(), " Do Q");
    imageWidth_ = width;
    imageHeight_ = height;
    PDFObjectLink(link, LinkKind::Image, x, y);
    x_ = (x + width) * document_.scale;
    y_ = (y + height) * document_.scale;
}

void PDFPrinter::PDFObjectLink(const QVariant& link, LinkKind kind, double x, double y)
{
    const auto tell = [&](const QString& object, const QString& what, const QString& where) {
        PDFMessages::badArgument(u"Lien URL %1 - "_s.arg(object), u"URL objet %1 non valide : "_s.arg(what),
                                 link.toString(), u"Impossible d'inclure le lien dans %1."_s.arg(where));
    };
    if (link.typeId() != QMetaType::QString) {
        if (kind == LinkKind::Cell)
            tell(u"Objet Cellule"_s, u"cellule"_s, u"la cellule"_s);
        else if (kind == LinkKind::Image)
            tell(u"Fichier Image"_s, u"image"_s, u"l'image"_s);
        else if (kind == LinkKind::Ellipse)
            tell(u"Objet Ellipse"_s, u"ellipse"_s, u"l'ellipse"_s);
        return;
    }
    imageLink_ = kind == LinkKind::Image;
    if (!link.toString().isEmpty())
        PDFLink(x, y, link.toString());
    linkText_.clear();
    imageLink_ = false;
}

void PDFPrinter::PDFLink(double x, double y, const QString& url, const QVariant& shown)
{
    wordSpacing_ = 0;
    PDFWriteLine(page(), "%DEBUT_LINK/%");
    underline_ = true;
    if (imageLink_)
        PDFSetTextColor(0xFF0000);
    const double width = linkWidth(url);
    const double height = imageLink_ ? std::trunc(imageHeight_) : fontSize();
    PDFTextOut(imageLink_ || linkKind_ != LinkKind::None ? QString() : url, x, y);
    imageLink_ = false;
    underline_ = false;
    linkKind_ = LinkKind::None;
    const bool unnamed = shown.typeId() == QMetaType::QString && shown.toString().isEmpty();
    PDFAddLink(x, y, width, height, unnamed ? QVariant(url) : shown);
    PDFWriteLine(page(), "%FIN_LINK/%");
}

/// The width of the area that leads to the address.
double PDFPrinter::linkWidth(const QString& url)
{
    if (imageLink_)
        return std::trunc(imageWidth_);
    if (linkKind_ == LinkKind::Rectangle)
        return linkWidth_;
    return std::trunc(PDFGetStringWidth(linkKind_ == LinkKind::None ? url : linkText_, {}, fontSize()));
}

void PDFPrinter::PDFAddLink(double x, double y, double width, double height, const QVariant& target)
{
    const double scale = document_.scale;
    document_.links.add(pageCount_,
                        {x * scale, PDFGetPageHeight() - y * scale, width * scale, height * scale, target});
}
