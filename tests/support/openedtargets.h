#pragma once

#include <QStringList>

/// Takes note of what the program hands to the workstation to open, in the place of opening it.
class OpenedTargets
{
public:
    OpenedTargets();
    ~OpenedTargets();
    OpenedTargets(const OpenedTargets&) = delete;
    OpenedTargets& operator=(const OpenedTargets&) = delete;

    /// Files and addresses, in order.
    const QStringList& list() const { return targets_; }

private:
    QStringList targets_;
};
