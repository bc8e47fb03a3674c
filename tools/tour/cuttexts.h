#pragma once

#include <QStringList>

class QWidget;

/// What a user cannot read whole on the window as it stands: texts that are wider or higher than their
/// control, and controls that lie over one another. A line each, the control's name in front. Texts of the
/// user's own, which a box scrolls and a grid shortens, count for their height only.
QStringList cutTexts(const QWidget& window);
