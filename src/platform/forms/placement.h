#pragma once

class QWidget;

/// Where a window of the program opens: in the middle of the window that it stands before, or of the screen,
/// whole and with its title bar in sight.
///
/// Called before the window is seen, with its size. What a window system puts around a window is only known
/// a while after it is shown: the place is taken with a guess, and set right once when the frame is there.
/// `owner` may be null.
void placeWindow(QWidget& window, const QWidget* owner);
