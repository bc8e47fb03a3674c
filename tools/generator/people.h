#pragma once

#include "random.h"

#include <cstdint>
#include <string>

struct Address
{
    std::string street;
    std::string number;
    std::string district;
    std::string town;
    std::string state;
    std::string postalCode;
};

/// A made-up full name, in capitals as the program types names.
std::string personName(Random& random);
std::string surname(Random& random);
Address address(Random& random);
std::string landline(Random& random);
std::string mobile(Random& random);
std::string identityCard(Random& random);

/// A valid CPF with its mask, 000.000.000-00; another one for each index below 1,000,000,000 of a seed.
std::string cpf(std::uint64_t seed, std::uint64_t index);
/// A valid CNPJ with its mask, 00.000.000/0001-00; another one for each index below 100,000,000 of a seed.
std::string cnpj(std::uint64_t seed, std::uint64_t index);
