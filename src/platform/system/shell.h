#pragma once

#include <QString>
#include <functional>

/// What the workstation does with a document, an address or a program.
namespace Shell {

/// The system's "open" action: a program is started, a document is shown by its program, an address by the
/// browser. Does not wait. Throws RuntimeError 53 where a file is named that does not exist, 75 where a
/// program does not start. A document or address that nothing on the workstation opens is known only later:
/// it goes to the failure handler.
void open(const QString& target);

/// Who is told, from the event loop, what could not be opened: an address, or the full path of a document.
void setFailureHandler(std::function<void(const QString& target)> handler);

/// Puts another action in the place of the workstation's; an empty one gives it back.
void setHandler(std::function<void(const QString& target)> handler);

} // namespace Shell
