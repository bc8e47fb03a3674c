#pragma once

#include "shell_fixture.h"

#include <QProcess>
#include <gmock/gmock.h>

/// The program in a process of its own, for what ends it.
class Ending : public Program
{
protected:
    /// The boxes until it ends with the status: "title|text", and "|critical".
    std::vector<std::string> boxes(const QString& scenario, int status, const QStringList& answers = {})
    {
        QProcess process;
        process.start(QString::fromUtf8(SCENARIO_PROGRAM), QStringList{folder.path(), scenario} + answers);
        process.waitForFinished(30000);
        EXPECT_EQ(process.exitStatus(), QProcess::NormalExit) << scenario.toStdString();
        EXPECT_EQ(process.exitCode(), status) << scenario.toStdString();
        std::vector<std::string> lines;
        for (const QByteArray& line : process.readAllStandardOutput().split('\n'))
            if (!line.isEmpty())
                lines.push_back(line.toStdString());
        return lines;
    }
};
