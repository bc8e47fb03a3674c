#include "tour.h"

#include "support/report.h"

#include <QAbstractButton>
#include <QApplication>
#include <QMenu>
#include <QMessageBox>
#include <QPainter>

namespace {

/// The pictures of a walk, a line each.
QString listName()
{
    return QStringLiteral("tour.txt");
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

void Tour::box(const QString& name, const QString& button)
{
    boxes_ << Box{name, button};
}

void Tour::look()
{
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (!box || !box->isVisible())
        return;
    if (boxes_.isEmpty()) {
        Report::fail(QStringLiteral("unexpected box \"%1\"").arg(box->text()));
        return;
    }
    const Box expected = boxes_.takeFirst();
    settle();
    picture(expected.name, box->grab().toImage());
    for (QAbstractButton* button : box->buttons())
        if (button->text().remove(QLatin1Char('&')) == expected.button)
            return button->click();
    Report::fail(QStringLiteral("the box \"%1\" has no button %2").arg(box->text(), expected.button));
}

void Tour::picture(const QString& name, const ScreenDriver& screen)
{
    settle();
    picture(name, screen.picture());
}

void Tour::picture(const QString& name, const QImage& image)
{
    const QString file = QStringLiteral("%1_%2.png").arg(++count_, 2, 10, QLatin1Char('0')).arg(name);
    if (image.isNull() || !image.save(pictures_.filePath(file)))
        Report::fail(QStringLiteral("the picture %1 cannot be kept").arg(pictures_.filePath(file)));
    QFile list(pictures_.filePath(listName()));
    if (!list.open(QIODevice::Append) || list.write(file.toUtf8() + '\n') < 0)
        Report::fail(QStringLiteral("%1 cannot be written").arg(list.fileName()));
}

void Tour::pictureWithMenu(const QString& name, const ScreenDriver& screen, QMenu& menu)
{
    menu.popup(screen.window().mapToGlobal(QPoint(8, 36)));
    settle();
    QImage image = screen.picture();
    QPainter(&image).drawImage(QPoint(8, 36), menu.grab().toImage());
    menu.hide();
    picture(name, image);
}

void Tour::enlarged(const QString& name, ScreenDriver& screen)
{
    const QSize size = screen.window().size();
    for (const double factor : {1.5, 2.0}) {
        screen.window().resize(size * factor);
        picture(QStringLiteral("%1_%2").arg(name).arg(qRound(100 * factor)), screen);
    }
    screen.window().resize(size);
    settle();
}
