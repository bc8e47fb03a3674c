#pragma once

#include <QtGlobal>

/// The wait pointer for as long as the object lives.
class Hourglass
{
public:
    Hourglass();
    ~Hourglass();
    Q_DISABLE_COPY_MOVE(Hourglass)

private:
    qsizetype level_;
};

/// The plain pointer for as long as a box or a modal screen waits for the user, whatever waits behind it. An
/// Hourglass made meanwhile is seen.
class PlainPointer
{
public:
    PlainPointer();
    ~PlainPointer();
    Q_DISABLE_COPY_MOVE(PlainPointer)
};
