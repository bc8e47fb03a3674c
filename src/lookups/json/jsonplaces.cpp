#include "lookups/json/jsonplaces.h"

#include <bit>

namespace {

std::size_t lowestBit(std::size_t number)
{
    return number & (~number + 1);
}

} // namespace

std::size_t JsonPlaces::at(std::size_t position) const
{
    if (givenUp_ == 0)
        return position;
    std::size_t place = 0;
    for (std::size_t step = std::bit_floor(counts_.size()); step > 0; step /= 2)
        if (place + step <= counts_.size() && counts_[place + step - 1] <= position) {
            place += step;
            position -= counts_[place - 1];
        }
    return place;
}

void JsonPlaces::append()
{
    if (givenUp_ == 0)
        return;
    std::uint32_t count = 1;
    const std::size_t number = counts_.size() + 1;
    for (std::size_t step = 1; step < lowestBit(number); step *= 2)
        count += counts_[number - step - 1];
    taken_.push_back(true);
    counts_.push_back(count);
}

void JsonPlaces::giveUp(std::size_t place, std::size_t size)
{
    if (givenUp_++ == 0) {
        taken_.assign(size, true);
        counts_.resize(size);
        for (std::size_t number = 1; number <= size; ++number)
            counts_[number - 1] = std::uint32_t(lowestBit(number));
    }
    taken_[place] = false;
    for (std::size_t number = place + 1; number <= size; number += lowestBit(number))
        --counts_[number - 1];
}
