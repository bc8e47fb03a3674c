#pragma once

#include "platform/values/error.h"

/// The number of the RuntimeError that the call throws, 0 if it throws none.
template <class Call>
int errorOf(Call call)
{
    try {
        call();
    } catch (const RuntimeError& error) {
        return error.number();
    }
    return 0;
}
