#include "tour.h"

#include "cuttexts.h"
#include "support/report.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPainter>
#include <QProcess>
#include <QScreen>
#include <QTest>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

/// The pictures of a walk, a line each.
QString listName()
{
    return u"tour.txt"_s;
}

/// The menus, lists and hints over the windows, as they lie over one another.
QList<QWidget*> hangingOpen()
{
    QList<QWidget*> found;
    for (QWidget* window : QApplication::topLevelWidgets())
        if (window->isVisible() && (window->windowType() == Qt::Popup || window->windowType() == Qt::ToolTip))
            found << window;
    return found;
}

} // namespace

Tour::Tour(const QString& pictures) : pictures_(pictures)
{
    // The pictures of an earlier walk may have had other names; what else lies in the folder is not ours.
    QFile list(pictures_.filePath(listName()));
    if (list.open(QIODevice::ReadOnly))
        for (const QByteArray& old : list.readAll().split('\n'))
            if (!old.isEmpty())
                pictures_.remove(QString::fromUtf8(old));
    list.remove();
    connect(&timer_, &QTimer::timeout, this, &Tour::look);
    timer_.start(20);
}

void Tour::box(const QString& name, const QString& answer)
{
    boxes_ << Box{name, answer};
}

void Tour::look()
{
    auto* box = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (!box || !box->isVisible())
        return;
    if (boxes_.isEmpty()) {
        Report::fail(u"unexpected box \"%1\""_s.arg(box->windowTitle()));
        return;
    }
    const Box expected = boxes_.takeFirst();
    settle();
    if (auto* line = box->findChild<QLineEdit*>(u"answer"_s))
        line->setText(expected.answer);
    keep(expected.name, *box, box->grab().toImage());
    if (auto* message = qobject_cast<QMessageBox*>(box))
        answer(*message, expected.answer);
    else
        box->accept();
}

void Tour::answer(QMessageBox& box, const QString& button)
{
    for (QAbstractButton* one : box.buttons())
        if (one->text().remove(QLatin1Char('&')) == button)
            return one->click();
    Report::fail(u"the box \"%1\" has no button %2"_s.arg(box.text(), button));
}

QString Tour::numbered(const QString& name)
{
    return u"%1_%2"_s.arg(++count_, 3, 10, QLatin1Char('0')).arg(name);
}

void Tour::list(const QString& file)
{
    QFile list(pictures_.filePath(listName()));
    if (!list.open(QIODevice::Append) || list.write(file.toUtf8() + '\n') < 0)
        Report::fail(u"%1 cannot be written"_s.arg(list.fileName()));
}

void Tour::keep(const QString& name, const QWidget& window, const QImage& image)
{
    const QString file = numbered(name) + u".png"_s;
    if (image.isNull() || !image.save(pictures_.filePath(file)))
        Report::fail(u"the picture %1 cannot be kept"_s.arg(pictures_.filePath(file)));
    list(file);
    const QStringList cut = cutTexts(window);
    cut_ += int(cut.size());
    for (const QString& what : cut)
        std::printf("tour: %s: %s\n", qPrintable(file), qPrintable(what));
}

void Tour::picture(const QString& name, const ScreenDriver& screen)
{
    screen.window().activateWindow(); // off the screen nobody gives the focus back when a box is gone
    settle();
    const QList<QWidget*> hanging = hangingOpen();
    QRect whole = screen.window().geometry();
    for (const QWidget* one : hanging)
        whole |= one->geometry();
    QImage image(whole.size() * screen.window().devicePixelRatio(), QImage::Format_RGB32);
    image.setDevicePixelRatio(screen.window().devicePixelRatio());
    image.fill(Qt::gray);
    QPainter painter(&image);
    painter.drawImage(screen.window().geometry().topLeft() - whole.topLeft(), screen.picture());
    for (QWidget* one : hanging)
        painter.drawImage(one->geometry().topLeft() - whole.topLeft(), one->grab().toImage());
    painter.end();
    keep(name, screen.window(), image);
    for (QWidget* one : hanging)
        one->hide();
    settle();
}

void Tour::document(const QString& name, const QString& path)
{
    const QString file = numbered(name);
    const QString copy = file + u".pdf"_s;
    if (!QFile::copy(path, pictures_.filePath(copy)))
        Report::fail(u"there is no document %1"_s.arg(path));
    list(copy);
    if (QProcess::execute(u"pdftoppm"_s, {u"-png"_s, u"-r"_s, u"100"_s, path, pictures_.filePath(file)}) != 0)
        Report::fail(u"the pages of %1 cannot be drawn"_s.arg(path));
    const QStringList pages = pictures_.entryList({file + u"-*.png"_s});
    for (const QString& page : pages)
        list(page);

    // A second reader has to find as many pages.
    QProcess reader;
    reader.start(u"mutool"_s, {u"info"_s, path});
    reader.waitForFinished();
    if (!reader.readAllStandardOutput().contains("Pages: " + QByteArray::number(pages.size()) + '\n'))
        Report::fail(u"the readers do not agree on the pages of %1"_s.arg(path));
}

void Tour::resized(const QString& name, ScreenDriver& screen)
{
    const QSize size = screen.window().size();
    const QSize room = screen.window().screen()->availableSize();
    for (const double factor : {0.75, 1.5, 2.0}) {
        const QSize drawn = (size * factor).boundedTo(room);
        if (drawn == screen.window().size())
            continue;
        screen.window().resize(drawn);
        picture(u"%1_%2"_s.arg(name).arg(qRound(100 * factor)), screen);
    }
    screen.window().resize(size);
    settle();
}

void Tour::refused(const QString& name, ScreenDriver& screen, const QString& button)
{
    box(name, u"OK"_s);
    screen.click(button);
    picture(name + u"_campos"_s, screen);
}

void Tour::altHeld(const QString& name, const ScreenDriver& screen)
{
    QTest::keyPress(&screen.window(), Qt::Key_Alt);
    picture(name, screen);
    QTest::keyRelease(&screen.window(), Qt::Key_Alt);
}

void Tour::contextMenu(const QString& name, const ScreenDriver& screen, const QString& control)
{
    QWidget* target = screen.find(control);
    if (auto* area = qobject_cast<QAbstractScrollArea*>(target))
        target = area->viewport();
    const QPoint place = target->rect().center();
    QContextMenuEvent click(QContextMenuEvent::Mouse, place, target->mapToGlobal(place));
    bool seen = false; // a menu may wait for its answer before the click is through
    QTimer::singleShot(0, this, [&] {
        if (hangingOpen().isEmpty())
            Report::fail(u"%1 has no menu"_s.arg(control));
        picture(name, screen);
        seen = true;
    });
    QApplication::sendEvent(target, &click);
    while (!seen)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

void Tour::openList(const QString& name, const ScreenDriver& screen, const QString& combo)
{
    auto* box = qobject_cast<QComboBox*>(screen.find(combo));
    box->showPopup();
    picture(name, screen);
    box->hidePopup();
}

void Tour::hint(const QString& name, const ScreenDriver& screen, const QString& control, int row, int column)
{
    QWidget* target = screen.find(control);
    QPoint place = target->rect().center();
    if (auto* view = qobject_cast<QAbstractItemView*>(target); view && row >= 0) {
        target = view->viewport();
        place = view->visualRect(view->model()->index(row, column)).center();
    }
    QHelpEvent rest(QEvent::ToolTip, place, target->mapToGlobal(place));
    QApplication::sendEvent(target, &rest);
    picture(name, screen);
}
