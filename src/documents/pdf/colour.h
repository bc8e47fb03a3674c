#pragma once

#include <QByteArray>
#include <QVariant>

/// Components from 0 to 255; others are written as they come.
struct PDFRgb
{
    double red = 0;
    double green = 0;
    double blue = 0;
};

/// Six hexadecimal digits behind a "#"; missing ones in front count as zeros, a pair that is none is 0.
PDFRgb PDFHtmlToRgb(const QString& html);

/// Blue x 65536 + green x 256 + red.
PDFRgb PDFLongToRgb(double packed);

/// A list of three numbers (red, green, blue, each rounded to 16 bits), a text "#rrggbb" or a packed number.
/// A text of another kind is told to the user and gives black. Throws RuntimeError 9 for a shorter list.
PDFRgb PDFColor(const QVariant& colour);

/// The components from 0 to 1 with three decimals, then "rg" (to fill, and for text) or "RG" (for lines).
QByteArray PDFColorOperator(const PDFRgb& colour, const char* operatorName);

/// The operator text of a line colour made one that fills: "0 G" -> "0 g", "... RG" -> "... rg".
QByteArray PDFFillOperator(QByteArray lineColour);
