#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>

/// A file that is written from its start, a line at a time; every line is with the system before the call
/// returns. Lines end in CR LF. What is written stays when the object goes, but a line that cannot be
/// written, as on a full disk, takes the file with it: none is left that is spoilt.
class OutputFile
{
public:
    /// Creates or replaces the file; false where it cannot be. The file written before is closed.
    bool create(const QString& path);

    /// The bytes and the end of the line. Throws RuntimeError 91 where create was never called, 75 where no
    /// file is open or the line cannot be written.
    void writeLine(const QByteArray& line);

    void close() { file_.close(); }

private:
    QFile file_;
    QByteArray line_; ///< with its end, so that a line is one write
};
