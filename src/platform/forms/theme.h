#pragma once

#include <QApplication>
#include <QFont>

/// The look of all windows: one style, one palette, one style sheet, two fonts. Font sizes are never in the
/// style sheet, so that a screen can scale them.
///
/// A push button with the property "role" set to "primary" is the screen's main action, "danger" one that
/// removes. A label with "title" heads a part of the screen, one with "link" can be clicked. A frame with
/// "card" stands out from the ground.
namespace Theme {

void apply(QApplication& application);

/// The paddings and inner lengths of the style sheet as `apply` sets them.
QString openingLengths();

/// The same, `factor` times as large: rules for a screen whose controls have their sizes already, and whose
/// fonts have been scaled by as much.
QString scaledLengths(double factor);

/// For labels, boxes and grids.
QFont font();

/// For lists whose columns line up by their characters.
QFont fixedFont();

} // namespace Theme
