#pragma once

#include <QString>
#include <ostream>

/// So that a failed comparison shows the text and not its character codes.
inline void PrintTo(const QString& text, std::ostream* stream)
{
    *stream << '"' << text.toStdString() << '"';
}
