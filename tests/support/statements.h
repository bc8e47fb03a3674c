#pragma once

#include "platform/data/connection.h"

/// Sees the statements of all connections as long as it lives.
class StatementWatch
{
public:
    explicit StatementWatch(std::function<void(const ADODB::StatementEvent&)> see)
    {
        ADODB::Connection::setObserver(std::move(see));
    }
    ~StatementWatch() { ADODB::Connection::setObserver({}); }
    StatementWatch(const StatementWatch&) = delete;
    StatementWatch& operator=(const StatementWatch&) = delete;
};
