#pragma once

#include <QByteArray>
#include <QHash>
#include <QStringList>
#include <array>

/// The metrics files of the fonts (.afm, Adobe Font Metrics 4.1, of which the section of the characters is
/// read). A font's name is its file's name without the extension; its number in the document is its place
/// among the files, from 1.
class PDFFontMetrics
{
public:
    /// Where the metrics are read from, without looking into it.
    void setFolder(const QString& folder);
    bool hasFolder() const { return !folder_.isEmpty(); }

    /// Takes the folder's .afm files, in order of their names, and the folder if it has any. Without any
    /// folder, the one that was looked into is where metrics are missed. Throws RuntimeError 76 where it does
    /// not exist.
    void load(const QString& folder);

    const QStringList& names() const { return names_; }

    /// The number of a font: 1 for an empty name, 0 for one that has no metrics file.
    int indexOf(const QString& font) const;

    /// The sum of the characters' widths in points at that size, code page 1252 being read by the font's own
    /// codes: a character that the font's encoding does not have counts 0. The file is read once. Throws
    /// RuntimeError 53 for a font without a file, 62 and 9 for a damaged file, 9 for a character of code 0.
    double width(QByteArrayView text, const QString& font, double size);

private:
    using Widths = std::array<int, 256>; ///< in thousandths of the size, by character code

    const Widths& widths(const QString& font);
    static Widths readWidths(const QString& path);

    QString folder_;
    QString lookedInto_;
    QStringList names_;
    QHash<QString, Widths> widths_;
};
