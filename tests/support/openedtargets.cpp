#include "support/openedtargets.h"

#include "platform/system/shell.h"

OpenedTargets::OpenedTargets()
{
    Shell::setHandler([this](const QString& target) { targets_ << target; });
}

OpenedTargets::~OpenedTargets()
{
    Shell::setHandler({});
}
