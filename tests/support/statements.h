#pragma once

#include "platform/data/connection.h"

/// Sees the statements of all connections, besides the record that the test programs keep, as long as it
/// lives.
class StatementWatch
{
public:
    explicit StatementWatch(std::function<void(const ADODB::StatementEvent&)> see);
    ~StatementWatch();
    StatementWatch(const StatementWatch&) = delete;
    StatementWatch& operator=(const StatementWatch&) = delete;
};

/// The statements with `like` that test programs have sent, each once. A test program that works on the
/// server leaves its own in a file of the build folder, in place of those of its last run.
///
/// Statements with question marks are not kept: the bound rows' statements have them, and the first page of
/// the same rows has the same conditions without.
namespace StatementRecord {

void start();
void write();
/// What the other programs have left; throws std::runtime_error for a file that cannot be read.
QStringList all();

} // namespace StatementRecord
