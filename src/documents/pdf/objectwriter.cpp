#include "documents/pdf/objectwriter.h"

#include "platform/values/number.h"

void PDFObjectWriter::restart()
{
    last_ = 0;
    running_ = 0;
    offsets_.clear();
}

int PDFObjectWriter::next()
{
    last_ = toInt16(last_ + 1.0);
    return last_;
}

void PDFObjectWriter::PDFRecordOffset(qsizetype length)
{
    running_ = toInt32(double(running_) + double(length));
    offsets_.push_back(running_);
}

void PDFObjectWriter::putObject(const QByteArray& object)
{
    PDFRecordOffset(object.size());
    putLine(object);
}

QByteArray PDFPadOffset(int offset)
{
    return QByteArray::number(offset).rightJustified(10, '0');
}
