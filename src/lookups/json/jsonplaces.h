#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

/// Which places of a list are taken. One that is given up stays behind as a gap until the list is closed up,
/// so that the place at a position is found, and given up, in about the same time in a long list as in a
/// short one.
class JsonPlaces
{
public:
    std::size_t givenUp() const { return givenUp_; }
    bool isTaken(std::size_t place) const { return givenUp_ == 0 || taken_[place]; }
    /// The place of the taken ones that has so many in front of it.
    std::size_t at(std::size_t position) const;

    /// One more place behind the others.
    void append();
    /// `size` is that of the list, gaps included.
    void giveUp(std::size_t place, std::size_t size);
    /// Gaps make up more than half of so long a list, and it is worth while to close it up.
    bool isSparse(std::size_t size) const { return givenUp_ > size / 2 + 16; }

    /// Takes the gaps out of lists that have these places; close() then forgets them.
    template <class List>
    void closeUp(List& list) const
    {
        std::size_t kept = 0;
        for (std::size_t place = 0; place < list.size(); ++place)
            if (isTaken(place)) {
                if (kept != place)
                    list[kept] = std::move(list[place]);
                ++kept;
            }
        list.resize(kept);
    }
    void close() { *this = {}; }

private:
    /// All empty until the first place is given up. counts_[i] is how many are taken of the places up to i,
    /// as many of them as the lowest bit of i + 1 tells (a Fenwick tree).
    std::vector<bool> taken_;
    std::vector<std::uint32_t> counts_;
    std::size_t givenUp_ = 0;
};
