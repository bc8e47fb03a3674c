#include "lookups/json/jsontexts.h"

#include <algorithm>

QStringView JsonTexts::keep(QStringView text)
{
    constexpr qsizetype largestBlock = 32 * 1024;
    if (text.size() > left_) {
        blockSize_ = std::min(2 * blockSize_, largestBlock);
        left_ = std::max(blockSize_, text.size());
        blocks_.push_back(std::make_unique_for_overwrite<char16_t[]>(std::size_t(left_)));
        free_ = blocks_.back().get();
    }
    const QStringView kept(free_, text.size());
    free_ = std::copy_n(text.utf16(), text.size(), free_);
    left_ -= text.size();
    return kept;
}
