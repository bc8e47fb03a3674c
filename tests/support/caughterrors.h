#pragma once

#include "platform/forms/application.h"
#include "platform/values/error.h"

#include <QList>
#include <gtest/gtest.h>

/// For as long as it lives, the errors that leave event handlers are counted in the place of failing the
/// test.
class CaughtErrors
{
public:
    CaughtErrors()
    {
        Application::setFailureHandler([this](const std::exception& error) {
            const auto* known = dynamic_cast<const RuntimeError*>(&error);
            numbers_ << (known ? known->number() : 0);
        });
    }
    ~CaughtErrors() { failTheTest(); }
    CaughtErrors(const CaughtErrors&) = delete;
    CaughtErrors& operator=(const CaughtErrors&) = delete;

    /// The RuntimeErrors' numbers, in order; 0 for any other exception.
    const QList<int>& numbers() const { return numbers_; }

    /// What an error does where none is expected.
    static void failTheTest()
    {
        Application::setFailureHandler(
            [](const std::exception& error) { ADD_FAILURE() << "uncaught in a handler: " << error.what(); });
    }

private:
    QList<int> numbers_;
};
