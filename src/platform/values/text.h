#pragma once

#include <QString>

/// The text on exactly `width` characters: cut, or filled with blanks on the right. A width is not negative.
QString fixedWidth(QStringView text, qsizetype width);
