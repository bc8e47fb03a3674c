#pragma once

#include "random.h"

#include <optional>
#include <string>
#include <string_view>

struct Address
{
    std::string street;
    std::string number; ///< empty for the address of a postal code
    std::string district;
    std::string town;
    std::string state;
    std::string postalCode;   ///< 00000-000
    std::string municipality; ///< the town's code of 7 digits
};

/// A made-up address, most often in the clinic's own town.
Address address(Random& random);

/// What lies behind a postal code of 8 digits, the same for each call: what address() gives for the code, and
/// a made-up street of the state's capital for every other. No town has a code below 01000000.
std::optional<Address> addressOf(std::string_view postalCode);
