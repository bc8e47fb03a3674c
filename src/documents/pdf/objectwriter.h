#pragma once

#include "platform/system/outputfile.h"

#include <QByteArray>
#include <vector>

/// The objects of the file in the order they are written, with their numbers and offsets. The offsets are
/// sums of the objects' lengths and leave out the two bytes that end each of them in the file: readers find
/// the objects by themselves.
class PDFObjectWriter
{
public:
    explicit PDFObjectWriter(OutputFile& output) : output_(output) {}

    /// Back to number and offset 0.
    void restart();

    /// The next object's number; throws RuntimeError 6 above 32767.
    int next();
    int last() const { return last_; }

    /// Counts so many bytes in; the sum is the offset of what comes next. Throws RuntimeError 6 above 2^31
    /// - 1.
    void PDFRecordOffset(qsizetype length);
    /// What stood recorded in front of object `number`, from 1.
    int offset(int number) const { return offsets_.at(std::size_t(number - 1)); }

    /// Records the object's length and writes it.
    void putObject(const QByteArray& object);
    /// Writes without recording. Throws as OutputFile::writeLine.
    void putLine(const QByteArray& text) { output_.writeLine(text); }

    void close() { output_.close(); }

private:
    OutputFile& output_;
    int last_ = 0;
    int running_ = 0;
    std::vector<int> offsets_;
};

/// An offset of the cross-reference table: ten digits.
QByteArray PDFPadOffset(int offset);
