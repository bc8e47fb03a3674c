#include "platform/forms/hourglass.h"

#include <QGuiApplication>
#include <QList>

namespace {

/// How many wait at each level; every PlainPointer begins a new one.
QList<int>& waiting()
{
    static QList<int> levels = {0};
    return levels;
}

void show()
{
    static bool shown = false;
    const bool waits = waiting().constLast() > 0;
    if (waits == shown)
        return;
    shown = waits;
    if (waits)
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    else
        QGuiApplication::restoreOverrideCursor();
}

} // namespace

Hourglass::Hourglass() : level_(waiting().size() - 1)
{
    ++waiting()[level_];
    show();
}

Hourglass::~Hourglass()
{
    // One that outlived its level is counted on a lower one.
    qsizetype level = qMin(level_, waiting().size() - 1);
    while (level > 0 && waiting()[level] == 0)
        --level;
    --waiting()[level];
    show();
}

PlainPointer::PlainPointer()
{
    waiting().append(0);
    show();
}

PlainPointer::~PlainPointer()
{
    const int left = waiting().takeLast(); // by a window that outlives the box it was made behind
    waiting().last() += left;
    show();
}
