#pragma once

#include <QEvent>
#include <QList>
#include <QString>

class QFrame;
class QGridLayout;
class QLabel;

/// A line of a screen's help sheet.
struct HelpLine
{
    QString keys;
    QString what;
};

struct HelpSection
{
    QString title;
    QList<HelpLine> lines;
};

namespace Help {

/// What the blank key does in a list whose lines this event of the mouse takes.
QString blankKey(QEvent::Type mouse);

/// A card with a grid for the rows of a sheet.
struct Card
{
    QFrame* frame;
    QGridLayout* grid;
};
Card card();

/// A plain text of a sheet, in the letters and colour that the theme has for the role.
QLabel* label(const QString& text, const QString& role);

} // namespace Help
