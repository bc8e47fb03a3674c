#pragma once

#include <QColor>
#include <span>

class QString;

/// What a colour of the program is for. Screens and the style sheet name roles and no colours.
///
/// Any ink may stand on any surface (4.5:1 at least), any mark beside any surface (3:1), `Paper` on any solid
/// (4.5:1): the limits of WCAG 2.1 for text and for the parts of a control.
namespace Theme {

enum class Role
{
    // Surfaces
    Ground,    ///< behind the cards
    Card,      ///< what is worked on: cards, boxes, lists
    Band,      ///< the headings of a list or grid, the window's foot
    Off,       ///< boxes that take nothing
    Hover,     ///< under the pointer
    Selection, ///< the chosen line
    Notice,    ///< behind a word of warning
    Alarm,     ///< behind what destroys, under the pointer
               // Inks
    Ink,
    MutedInk, ///< captions, and what stands beside the main thing
    OffInk,   ///< what cannot be used now
    AccentInk,
    DangerInk,
    FreeInk,
    NoticeInk,
    // Marks
    Outline, ///< around a box
    Accent,  ///< the ring of the focus and the main button
    Free,
    Booked,
    Notified,
    Closed,
    Blocked,
    // Solids
    AccentHover,
    AccentPressed,
    Night, ///< behind a hint
    Paper, ///< on a solid
           // Ornaments, which nothing needs to be read from
    Hairline,
    FreePale,
    AccentRing ///< on `Accent`: the ring of the focus on the main button, and bright words (4.5:1)
};

QColor colour(Role role);

std::span<const Role> surfaces();
std::span<const Role> inks();
std::span<const Role> marks();
std::span<const Role> solids();

/// The contrast of two colours as WCAG 2.1 defines it, from 1 to 21.
double contrast(const QColor& one, const QColor& other);

/// The text with each "@Role" replaced by its colour as "#rrggbb".
QString withColours(QString text);

} // namespace Theme
