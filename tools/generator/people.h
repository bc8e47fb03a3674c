#pragma once

#include "addresses.h"
#include "random.h"

#include <cstdint>
#include <optional>
#include <string>

struct Company
{
    std::string name;
    std::string tradeName;
    Address office;
};

/// A made-up full name, in capitals as the program types names.
std::string personName(Random& random);
std::string surname(Random& random);
/// trade: the number of what it deals in.
Company company(Random& random, std::uint64_t trade);
std::string landline(Random& random);
std::string mobile(Random& random);
std::string identityCard(Random& random);

/// A valid CPF with its mask, 000.000.000-00; another one for each index below 1,000,000,000 of a seed.
std::string cpf(std::uint64_t seed, std::uint64_t index);
/// A valid CNPJ with its mask, 00.000.000/0001-00; another one for each index below 100,000,000 of a seed.
std::string cnpj(std::uint64_t seed, std::uint64_t index);
/// 14 digits in their mask; nothing where they are no valid CNPJ.
std::optional<std::string> maskedCnpj(const std::string& digits);
