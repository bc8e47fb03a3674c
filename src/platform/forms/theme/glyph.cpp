#include "platform/forms/theme/glyph.h"

#include <QBuffer>
#include <QFile>
#include <QIconEngine>
#include <QImageReader>
#include <QPainter>
#include <QPixmapCache>

using namespace Qt::StringLiterals;

namespace Theme {

namespace {

class GlyphEngine : public QIconEngine
{
public:
    GlyphEngine(QString name, Role ink) : name_(std::move(name)), ink_(ink) {}

    QIconEngine* clone() const override { return new GlyphEngine(name_, ink_); }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State) override
    {
        const QString colour = Theme::colour(mode == QIcon::Disabled ? Role::OffInk : ink_).name();
        const QString key = u"glyph %1 %2 %3"_s.arg(name_, colour).arg(size.width());
        QPixmap drawn;
        if (QPixmapCache::find(key, &drawn))
            return drawn;
        QFile file(u":/theme/glyphs/%1.svg"_s.arg(name_));
        if (!file.open(QIODevice::ReadOnly))
            qFatal("no glyph %s", qPrintable(name_));
        QByteArray lines = file.readAll().replace("#000000", colour.toLatin1());
        QBuffer buffer(&lines);
        QImageReader reader(&buffer, "svg");
        // Smaller than its square, and at the left: the air parts it from the caption.
        const int side = size.height() * 7 / 8;
        reader.setScaledSize(QSize(side, side));
        drawn = QPixmap(size);
        drawn.fill(Qt::transparent);
        QPainter(&drawn).drawImage(0, (size.height() - side) / 2, reader.read());
        QPixmapCache::insert(key, drawn);
        return drawn;
    }

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override
    {
        painter->drawPixmap(rect, pixmap(rect.size() * painter->device()->devicePixelRatio(), mode, state));
    }

private:
    QString name_;
    Role ink_;
};

} // namespace

QIcon glyph(const QString& name, Role ink)
{
    return QIcon(new GlyphEngine(name, ink));
}

} // namespace Theme
