#pragma once

#include "platform/system/clock.h"

/// The clock stands still at one moment for as long as the object lives.
class FixedClock
{
public:
    explicit FixedClock(const QDateTime& moment) { set(moment); }
    ~FixedClock() { Clock::setSource({}); }
    FixedClock(const FixedClock&) = delete;
    FixedClock& operator=(const FixedClock&) = delete;

    void set(const QDateTime& moment)
    {
        Clock::setSource([moment] { return moment; });
    }
    void advance(int seconds) { set(Clock::now().addSecs(seconds)); }
};
