#pragma once

#include <cstddef>
#include <cstdint>
#include <iterator>

/// One stream of draws per thing that is made up.
enum class Stream : std::uint64_t
{
    PatientName = 1,
    PatientDetails,
    Professional,
    Supplier,
    Purchase,
    PurchaseLine,
    Appointment,
    Contract,
    Visit,
    Payable,
    Receivable
};

/// Repeatable draws (the splitmix64 sequence, Steele, Lea and Flood 2014). A row's draws depend on the seed,
/// its stream and its number alone, so any row can be made again without keeping it.
class Random
{
public:
    Random(std::uint64_t seed, Stream stream, std::uint64_t index)
        : state_(mix(mix(seed + static_cast<std::uint64_t>(stream) * 0x9E3779B97F4A7C15U) + index))
    {
    }

    std::uint64_t next()
    {
        state_ += 0x9E3779B97F4A7C15U;
        return mix(state_);
    }
    /// From 0 to n - 1; n above 0.
    std::int64_t below(std::int64_t n)
    {
        return static_cast<std::int64_t>(next() % static_cast<std::uint64_t>(n));
    }
    std::int64_t between(std::int64_t least, std::int64_t most) { return least + below(most - least + 1); }
    bool percent(int share) { return below(100) < share; }
    /// Any element of an array or vector.
    template <class List>
    const auto& pick(const List& list)
    {
        return list[static_cast<std::size_t>(below(static_cast<std::int64_t>(std::size(list))))];
    }

private:
    static std::uint64_t mix(std::uint64_t z)
    {
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9U;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EBU;
        return z ^ (z >> 31);
    }

    std::uint64_t state_;
};
