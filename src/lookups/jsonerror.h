#pragma once

#include "platform/system/error.h"

namespace JsonError {

/// Throws the RuntimeError with JsonBag as its source.
[[noreturn]] inline void fail(int number, const QString& description)
{
    throw RuntimeError(number, description, QStringLiteral("JsonBag"));
}

[[noreturn]] inline void fail(int number, const char* description)
{
    fail(number, QString::fromLatin1(description));
}

} // namespace JsonError
