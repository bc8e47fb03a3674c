#pragma once

#include <QString>
#include <stdexcept>

/// A failure that no handler of a screen is expected to catch. It reaches the application object, which
/// shows number and description and ends the program.
///
/// Numbers follow the field's usual run-time numbers, so that a support line can look them up:
/// 5 invalid argument, 6 overflow, 9 subscript out of range, 11 division by zero, 13 type mismatch, 53 file
/// not found, 62 input past the end of a file, 70 permission denied, 75 path or file access error, 76 path
/// not found, 91 object not set, 380 invalid property value.
///
/// source() names the class that raised it, where a class tells its failures from those of what it uses;
/// otherwise it is empty.
class RuntimeError : public std::runtime_error
{
public:
    RuntimeError(int number, const QString& description, const QString& source = {});

    int number() const { return number_; }
    const QString& description() const { return description_; }
    const QString& source() const { return source_; }
    /// What the message box shows below the description: empty here, the statement in a database error.
    virtual QString detail() const { return {}; }

private:
    int number_;
    QString description_;
    QString source_;
};

namespace Errors {
[[noreturn]] void invalidArgument();
[[noreturn]] void overflow();
[[noreturn]] void subscriptOutOfRange();
[[noreturn]] void divisionByZero();
[[noreturn]] void typeMismatch(const QString& text);
[[noreturn]] void objectNotSet();
[[noreturn]] void invalidProperty(const QString& control);
[[noreturn]] void fileAccess(const QString& path, const QString& reason);
} // namespace Errors
