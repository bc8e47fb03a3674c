#pragma once

#include <QDir>
#include <QSize>
#include <QTemporaryDir>
#include <QTemporaryFile>

using namespace Qt::StringLiterals;

/// Windows are drawn in memory, on a screen of this size in pixels, of which a user who reads badly has asked
/// for everything at so many per cent. What is remembered of them goes to a folder that nobody else uses; a
/// program that this one starts shares it. Has to stand before the application is made.
class OffScreen
{
public:
    explicit OffScreen(QSize size = {1920, 1080}, int percent = 100)
    {
        if (!screens_.open())
            qFatal("the description of the screen cannot be written");
        screens_.write(uR"({"screens": [{"name": "screen", "x": 0, "y": 0, "width": %1,
            "height": %2, "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})"_s.arg(size.width())
                           .arg(size.height())
                           .toUtf8());
        screens_.flush();
        if (!qEnvironmentVariable("XDG_CONFIG_HOME").startsWith(QDir::tempPath()))
            qputenv("XDG_CONFIG_HOME", settings_.path().toUtf8());
        if (percent != 100)
            qputenv("QT_SCALE_FACTOR", QByteArray::number(percent / 100.0));
        qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + screens_.fileName().toUtf8());
    }

private:
    QTemporaryFile screens_;
    QTemporaryDir settings_;
};
