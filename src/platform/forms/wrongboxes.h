#pragma once

#include <QWidgetList>

/// Boxes that a message speaks of. They are outlined by the theme, each until its text or its choice changes,
/// by the user or by the program, or until the program hides it, as the unloading of its screen does. The
/// focus stays where it is. To be called just before the message, so that it is read beside the outlines.
void pointAt(const QWidgetList& boxes);

/// The same where a change of one of the boxes may put right what the message says of all of them.
void pointAtAnyOf(const QWidgetList& boxes);

/// Takes the outline from a box, if it has one.
void stopPointingAt(QWidget& box);

/// No box of the screen is outlined any more: it begins anew.
void pointAtNothing(const QWidget& screen);
