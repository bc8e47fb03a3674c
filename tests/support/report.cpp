#include "support/report.h"

namespace Report {

namespace {
std::function<void(const QString&)>& handler()
{
    static std::function<void(const QString&)> instance;
    return instance;
}
} // namespace

void fail(const QString& what)
{
    handler()(what);
}

void setHandler(std::function<void(const QString&)> newHandler)
{
    handler() = std::move(newHandler);
}

} // namespace Report
