#include "platform/system/outputfile.h"

#include "platform/values/error.h"

bool OutputFile::create(const QString& path)
{
    file_.close();
    file_.setFileName(path);
    return file_.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Unbuffered);
}

void OutputFile::writeLine(const QByteArray& line)
{
    if (file_.fileName().isEmpty())
        Errors::objectNotSet();
    if (!file_.isOpen())
        Errors::fileAccess(file_.fileName(), file_.errorString());
    line_.truncate(0);
    line_.append(line).append("\r\n");
    if (file_.write(line_) != line_.size()) {
        const QString reason = file_.errorString();
        file_.remove();
        Errors::fileAccess(file_.fileName(), reason);
    }
}
