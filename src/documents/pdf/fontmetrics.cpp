#include "documents/pdf/fontmetrics.h"

#include "platform/system/files.h"
#include "platform/values/error.h"
#include "platform/values/number.h"

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

/// The second word of "C 65" or "WX 667".
QByteArray secondWord(const QByteArray& piece)
{
    const QList<QByteArray> words = piece.trimmed().split(' ');
    if (words.size() < 2)
        Errors::subscriptOutOfRange();
    return words[1];
}

} // namespace

void PDFFontMetrics::setFolder(const QString& folder)
{
    folder_ = Files::ownPath(folder);
    widths_.clear();
}

void PDFFontMetrics::load(const QString& folder)
{
    lookedInto_ = Files::ownPath(folder);
    QStringList found;
    for (const QString& file : Files::filesOf(lookedInto_))
        if ((lookedInto_ + u'/' + file).toLower().contains(QLatin1String(".afm")))
            found += file.chopped(std::min<qsizetype>(4, file.size()));
    if (found.isEmpty())
        return;
    names_ = found;
    setFolder(folder);
}

int PDFFontMetrics::indexOf(const QString& font) const
{
    return font.isEmpty() ? 1 : int(names_.indexOf(font)) + 1;
}

double PDFFontMetrics::width(QByteArrayView text, const QString& font, double size)
{
    const Widths& table = widths(font);
    int sum = 0;
    bool hasZero = false;
    for (const char character : text) {
        sum += table[static_cast<unsigned char>(character)];
        hasZero |= character == 0;
    }
    if (hasZero)
        Errors::subscriptOutOfRange();
    return size * sum / 1000;
}

const PDFFontMetrics::Widths& PDFFontMetrics::widths(const QString& font)
{
    auto place = widths_.constFind(font);
    if (place == widths_.constEnd())
        place =
            widths_.insert(font, readWidths((hasFolder() ? folder_ : lookedInto_) + u'/' + font + u".afm"_s));
    return *place;
}

PDFFontMetrics::Widths PDFFontMetrics::readWidths(const QString& path)
{
    const QByteArray content = Files::read(path);
    qsizetype place = content.indexOf("StartCharMetrics");
    const auto nextLine = [&] {
        place = place < 0 ? 0 : content.indexOf('\n', place) + 1;
        if (place == 0 || place == content.size())
            throw RuntimeError(62, u"Entrada após o fim do arquivo: %1"_s.arg(path));
        const qsizetype end = content.indexOf('\n', place);
        return content.sliced(place, (end < 0 ? content.size() : end) - place);
    };
    Widths widths{};
    int bottom = 0;
    int top = 0;
    while (true) {
        const QByteArray line = nextLine();
        // From here on the characters have no code.
        if (line.contains("EndCharMetrics") || line.contains("-1 ;"))
            break;
        const QList<QByteArray> pieces = line.split(';');
        top = secondWord(pieces[0]).toInt();
        if (bottom == 0)
            bottom = top;
        if (top < 1 || top > 255 || pieces.size() < 2)
            Errors::subscriptOutOfRange();
        const double width = leadingNumber(QString::fromLatin1(secondWord(pieces[1])));
        widths[std::size_t(top)] = int(std::trunc(width));
    }
    std::fill_n(widths.begin(), bottom, 0);
    std::fill(widths.begin() + top + 1, widths.end(), 0);
    return widths;
}
