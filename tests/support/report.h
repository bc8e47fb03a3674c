#pragma once

#include <QString>
#include <functional>

/// Where the drivers tell that something is not as expected: a failed test, or a failed step of the tour.
namespace Report {

void fail(const QString& what);

/// Must be set before the first driver is used.
void setHandler(std::function<void(const QString&)> handler);

} // namespace Report
