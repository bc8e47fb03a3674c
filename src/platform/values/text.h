#pragma once

#include <QString>

/// The text on exactly `width` characters: cut, or filled with blanks on the right. A width is not negative.
QString fixedWidth(QStringView text, qsizetype width);

/// The text at the right end of exactly `width` characters; a longer one loses its end.
QString alignRight(QStringView text, qsizetype width);
