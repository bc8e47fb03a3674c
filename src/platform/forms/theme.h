#pragma once

#include "platform/forms/theme/roles.h"

#include <QApplication>
#include <QFont>

/// The look of all windows: one style, one palette, one style sheet, one family of letters in three sizes and
/// one of fixed pitch for text lists. Font sizes are never in the style sheet, so that a screen can scale
/// them.
///
/// What a control of a screen is for it says in dynamic properties, and the theme does the rest:
/// - "role" of a push button: "primary" the screen's main action, "danger" one that removes, "sign" a large
///   word that cannot be missed;
/// - "glyph" of a push button: the name of a line drawing in front of its caption, see glyph();
/// - "role" of a label: none for a caption, "above" for one that heads a box below it in a grid, "value" for
/// a text that is read, "strong" for one that is read
///   first, "title" for the one headline, "heading" for that of a part, "link" for what can be clicked,
///   "chip" and "notice" for a word on a ground of its own;
/// - "role" of a frame: "card" stands out from the ground, "panel" before the cards, "hairline" parts groups,
/// "brand" is the program's own;
/// - "role" of a list or grid: "inner" stands in a card, which has the border;
/// - "columns" of a box: as wide as so many digits, which is what it holds;
/// - "wrong" of a box: a message speaks of it.
namespace Theme {

enum class Type
{
    Body,
    Caption,
    Headline
};

void apply(QApplication& application);

/// Gives the controls of a screen, whose properties stand, their letters, widths and drawings.
void dress(QWidget& screen);

/// The paddings and inner lengths of the style sheet as `apply` sets them.
QString openingLengths();

/// The same, `factor` times as large: rules for a screen whose controls have their sizes already, and whose
/// fonts have been scaled by as much.
QString scaledLengths(double factor);

QFont font(Type type = Type::Body);

/// For lists whose columns line up by their characters.
QFont fixedFont(Type type = Type::Body);

} // namespace Theme
