#include "platform/system/clock.h"

namespace Clock {

namespace {
std::function<QDateTime()>& source()
{
    static std::function<QDateTime()> instance;
    return instance;
}
} // namespace

QDateTime now()
{
    return source() ? source()() : QDateTime::currentDateTime();
}

QDate today()
{
    return now().date();
}

void setSource(std::function<QDateTime()> newSource)
{
    source() = std::move(newSource);
}

} // namespace Clock
