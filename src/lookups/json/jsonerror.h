#pragma once

#include "platform/values/error.h"

using namespace Qt::StringLiterals;

namespace JsonError {

/// Throws the RuntimeError with JsonBag as its source.
[[noreturn]] inline void fail(int number, const QString& description)
{
    throw RuntimeError(number, description, u"JsonBag"_s);
}

[[noreturn]] inline void fail(int number, const char* description)
{
    fail(number, QString::fromLatin1(description));
}

} // namespace JsonError
