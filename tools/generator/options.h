#pragma once

#include "calendar.h"

#include <cstdint>
#include <string>
#include <vector>

/// What one run of the generator is asked for.
struct Options
{
    std::string tenant;
    std::string folder;
    Day today{};
    std::uint64_t seed = 1;
    /// First number of every server-numbered code, so that two tenants can stand in one database.
    std::int64_t firstCode = 1;
    std::int64_t scale = 1;
    std::int64_t patients = 0;
    std::int64_t appointments = 0;
    std::int64_t visits = 0;
};

/// Reads the program's arguments, without the program's name. Counts that are not given follow from the
/// scale: 300 patients, 1500 appointments and 600 visits a unit. Throws std::invalid_argument with a sentence
/// for the user.
Options readOptions(const std::vector<std::string>& arguments);
