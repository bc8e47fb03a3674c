#include "tour.h"

#include "support/report.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPainter>
#include <QProcess>

using namespace Qt::StringLiterals;

namespace {

/// The pictures of a walk, a line each.
QString listName()
{
    return u"tour.txt"_s;
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
    picture(expected.name, box->grab().toImage());
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
    return u"%1_%2"_s.arg(++count_, 2, 10, QLatin1Char('0')).arg(name);
}

void Tour::list(const QString& file)
{
    QFile list(pictures_.filePath(listName()));
    if (!list.open(QIODevice::Append) || list.write(file.toUtf8() + '\n') < 0)
        Report::fail(u"%1 cannot be written"_s.arg(list.fileName()));
}

void Tour::picture(const QString& name, const ScreenDriver& screen)
{
    settle();
    picture(name, screen.picture());
}

void Tour::picture(const QString& name, const QImage& image)
{
    const QString file = numbered(name) + u".png"_s;
    if (image.isNull() || !image.save(pictures_.filePath(file)))
        Report::fail(u"the picture %1 cannot be kept"_s.arg(pictures_.filePath(file)));
    list(file);
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

void Tour::pictureWithMenu(const QString& name, const ScreenDriver& screen, QMenu& menu)
{
    menu.popup(screen.window().mapToGlobal(QPoint(8, 36)));
    settle();
    QImage image = screen.picture();
    QPainter(&image).drawImage(QPoint(8, 36), menu.grab().toImage());
    menu.hide();
    picture(name, image);
}

void Tour::resized(const QString& name, ScreenDriver& screen)
{
    const QSize size = screen.window().size();
    for (const double factor : {0.75, 1.5, 2.0}) {
        screen.window().resize(size * factor);
        picture(u"%1_%2"_s.arg(name).arg(qRound(100 * factor)), screen);
    }
    screen.window().resize(size);
    settle();
}
