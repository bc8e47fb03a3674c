#pragma once

#include <QString>

using namespace Qt::StringLiterals;

/// What the writer says of itself, in French; every title ends with the writer's name.
namespace PDFMessages {

inline const QString Writer = u"Vespadoc 4.0"_s;

/// A bad argument that something else stands in for: "<what><value>.", a line break, `fallback`, under the
/// title "<title>Vespadoc 4.0" and with the critical icon.
void badArgument(const QString& title, const QString& what, const QString& value, const QString& fallback);

/// A picture that is left out; `reason` is what follows the first line.
void badImage(const QString& reason);

} // namespace PDFMessages
