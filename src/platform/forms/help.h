#pragma once

#include <QEvent>
#include <QList>
#include <QString>

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

} // namespace Help
