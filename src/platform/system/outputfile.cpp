#include "platform/system/outputfile.h"

#include "platform/system/error.h"

bool OutputFile::create(const QString& path)
{
    file_.close();
    file_.setFileName(path);
    return file_.open(QIODevice::WriteOnly | QIODevice::Truncate);
}

void OutputFile::writeLine(const QByteArray& line)
{
    if (file_.fileName().isEmpty())
        Errors::objectNotSet();
    if (!file_.isOpen())
        Errors::fileAccess(file_.fileName(), file_.errorString());
    if (file_.write(line) != line.size() || file_.write("\r\n", 2) != 2 || !file_.flush())
        Errors::fileAccess(file_.fileName(), file_.errorString());
}
