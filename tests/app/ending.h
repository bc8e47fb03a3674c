#pragma once

#include "shell_fixture.h"

#include <QProcess>

/// The program in a process of its own, for what ends it.
class Ending : public Program
{
protected:
    struct Outcome
    {
        int status;
        QStringList boxes; ///< "title|text", and "|critical"
    };

    Outcome run(const QString& scenario, const QStringList& answers = {})
    {
        QProcess process;
        process.start(QString::fromUtf8(SCENARIO_PROGRAM), QStringList{folder.path(), scenario} + answers);
        process.waitForFinished(30000);
        const QString lines = QString::fromUtf8(process.readAllStandardOutput());
        return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
                lines.split(u'\n', Qt::SkipEmptyParts)};
    }
};
