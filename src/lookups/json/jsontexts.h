#pragma once

#include <QStringView>
#include <memory>
#include <vector>

/// Keeps the texts of a document that is read close together, which takes a fraction of the time that a text
/// of its own for each value would take. They go when the last bag of the document has gone.
class JsonTexts
{
public:
    JsonTexts() = default;
    JsonTexts(const JsonTexts&) = delete;
    JsonTexts& operator=(const JsonTexts&) = delete;

    /// A copy of the text that lives as long as this object.
    QStringView keep(QStringView text);

private:
    std::vector<std::unique_ptr<char16_t[]>> blocks_;
    char16_t* free_ = nullptr;
    qsizetype left_ = 0;
    qsizetype blockSize_ = 128;
};
