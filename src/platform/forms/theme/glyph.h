#pragma once

#include "platform/forms/theme/roles.h"

#include <QIcon>

namespace Theme {

/// A line drawing for a button: "search", "print", "save", "delete", "new" or "leave". Drawn in the ink, and
/// in the ink of what cannot be used where the button is disabled, at any size.
QIcon glyph(const QString& name, Role ink);

} // namespace Theme
