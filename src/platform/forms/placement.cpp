#include "platform/forms/placement.h"

#include <QScreen>
#include <QTimer>
#include <QWidget>
#include <QWindow>

namespace {

/// A usual frame's width and height in all, title bar included.
constexpr QSize guess(8, 40);

/// Makes the window small enough for the screen and puts it in its place.
void place(QWidget& window, QSize frame, const QRect& around)
{
    const QRect room = window.screen()->availableGeometry();
    window.resize(window.size().boundedTo(room.size() - frame));
    QRect all(QPoint(), window.size() + frame);
    all.moveCenter(around.center());
    window.move(qBound(room.left(), all.left(), qMax(room.left(), room.right() + 1 - all.width())),
                qBound(room.top(), all.top(), qMax(room.top(), room.bottom() + 1 - all.height())));
}

/// Looks for the frame, which no event announces, for a second at most: some window systems have none.
class FrameWatch : public QObject
{
public:
    FrameWatch(QWidget& window, const QRect& around)
        : QObject(&window), window_(window), size_(window.size()), around_(around)
    {
        connect(&timer_, &QTimer::timeout, this, &FrameWatch::look);
        timer_.start(20);
    }

private:
    void look()
    {
        const QMargins frame = window_.windowHandle() ? window_.windowHandle()->frameMargins() : QMargins();
        const bool known = !frame.isNull() && window_.isVisible();
        // Who has changed the size meanwhile has taken the window in hand.
        if (known && window_.size() == size_)
            place(window_, {frame.left() + frame.right(), frame.top() + frame.bottom()}, around_);
        if (known || ++looks_ == 50)
            deleteLater();
    }

    QWidget& window_;
    QSize size_;
    QRect around_;
    QTimer timer_;
    int looks_ = 0;
};

} // namespace

void placeWindow(QWidget& window, const QWidget* owner)
{
    const QRect around = owner ? owner->frameGeometry() : window.screen()->availableGeometry();
    place(window, guess, around);
    new FrameWatch(window, around);
}
