#include "platform/forms/placement.h"

#include <QPointer>
#include <QScreen>
#include <QTimer>
#include <QWidget>
#include <QWindow>

namespace {

/// A usual frame's width and height in all, title bar included.
constexpr QSize guess(8, 40);

/// Makes the window small enough for the screen and puts it in its place.
void place(QWidget& window, QSize frame, const QWidget* owner)
{
    const QRect room = window.screen()->availableGeometry();
    QRect around = owner ? owner->geometry() : room;
    if (owner == &window)
        around = window.frameGeometry(); // or it would sink by its title bar
    window.resize(window.size().boundedTo(room.size() - frame));
    QRect all(QPoint(), window.size() + frame);
    all.moveCenter(around.center());
    window.move(qBound(room.left(), all.left(), qMax(room.left(), room.right() + 1 - all.width())),
                qBound(room.top(), all.top(), qMax(room.top(), room.bottom() + 1 - all.height())));
}

QSize sizeOf(const QMargins& frame)
{
    return {frame.left() + frame.right(), frame.top() + frame.bottom()};
}

/// Looks for the frame, which no event announces, for a second at most: some window systems have none. While
/// it is being put around the window its measures are nonsense: they count once they stand still.
class FrameWatch : public QObject
{
public:
    FrameWatch(QWidget& window, const QWidget* owner)
        : QObject(&window), window_(window), size_(window.size()), owner_(owner)
    {
        connect(&timer_, &QTimer::timeout, this, &FrameWatch::look);
        timer_.start(20);
    }

private:
    void look()
    {
        const QMargins before = frame_;
        if (window_.isVisible() && window_.windowHandle())
            frame_ = window_.windowHandle()->frameMargins();
        const bool known =
            frame_ == before && !frame_.isNull() &&
            qMin(qMin(frame_.left(), frame_.right()), qMin(frame_.top(), frame_.bottom())) >= 0;
        // Who has changed the size meanwhile has taken the window in hand.
        if (known && window_.size() == size_)
            place(window_, sizeOf(frame_), owner_);
        if (known || ++looks_ == 50)
            deleteLater();
    }

    QWidget& window_;
    QSize size_;
    QPointer<const QWidget> owner_;
    QTimer timer_;
    QMargins frame_;
    int looks_ = 0;
};

} // namespace

void placeWindow(QWidget& window, const QWidget* owner)
{
    place(window, guess, owner);
    new FrameWatch(window, owner);
}

void keepInSight(QWidget& window)
{
    const auto move = [&window] {
        if (window.windowHandle() && !(window.windowState() & (Qt::WindowMaximized | Qt::WindowMinimized)))
            place(window, sizeOf(window.windowHandle()->frameMargins()), &window);
    };
    QTimer::singleShot(200, &window, move); // the new size comes behind the new state
}
