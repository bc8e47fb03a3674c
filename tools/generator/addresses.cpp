#include "addresses.h"

#include <algorithm>
#include <array>
#include <cctype>

namespace {

constexpr std::array streets = {
    "RUA DAS FLORES",        "RUA QUINZE DE NOVEMBRO",  "AVENIDA BRASIL",
    "RUA SETE DE SETEMBRO",  "RUA DOM PEDRO II",        "AVENIDA GETÚLIO VARGAS",
    "RUA TIRADENTES",        "RUA MARECHAL DEODORO",    "RUA SÃO JOSÉ",
    "AVENIDA SANTOS DUMONT", "RUA RUI BARBOSA",         "RUA CASTRO ALVES",
    "TRAVESSA DA PAZ",       "RUA JOAQUIM NABUCO",      "AVENIDA INDEPENDÊNCIA",
    "RUA PADRE ANCHIETA",    "RUA BARÃO DO RIO BRANCO", "ALAMEDA DAS ACÁCIAS",
    "RUA MACHADO DE ASSIS",  "RUA SANTA CRUZ",
};
constexpr std::array districts = {"CENTRO",     "JARDIM AMÉRICA", "VILA NOVA",       "SANTA LUZIA",
                                  "SÃO JOSÉ",   "BOA VISTA",      "JARDIM PAULISTA", "VILA MARIANA",
                                  "INDUSTRIAL", "BELA VISTA",     "SANTO ANTÔNIO",   "PARQUE DAS ÁRVORES"};

struct Town
{
    const char* name;
    const char* state;
    const char* prefix; ///< of its postal codes
    const char* municipality;
};
// The clinic's own town stands several times: most people live in it.
constexpr std::array towns = {
    Town{"CAMPINAS", "SP", "1301", "3509502"},  Town{"CAMPINAS", "SP", "1303", "3509502"},
    Town{"CAMPINAS", "SP", "1306", "3509502"},  Town{"CAMPINAS", "SP", "1308", "3509502"},
    Town{"VALINHOS", "SP", "1327", "3556206"},  Town{"JUNDIAÍ", "SP", "1320", "3525904"},
    Town{"SUMARÉ", "SP", "1317", "3552403"},    Town{"HORTOLÂNDIA", "SP", "1318", "3519071"},
    Town{"SÃO PAULO", "SP", "0131", "3550308"},
};
/// By the first digit, which tells the part of the country.
constexpr std::array capitals = {
    Town{"SÃO PAULO", "SP", "0", "3550308"},      Town{"RIBEIRÃO PRETO", "SP", "1", "3543402"},
    Town{"RIO DE JANEIRO", "RJ", "2", "3304557"}, Town{"BELO HORIZONTE", "MG", "3", "3106200"},
    Town{"SALVADOR", "BA", "4", "2927408"},       Town{"RECIFE", "PE", "5", "2611606"},
    Town{"FORTALEZA", "CE", "6", "2304400"},      Town{"BRASÍLIA", "DF", "7", "5300108"},
    Town{"CURITIBA", "PR", "8", "4106902"},       Town{"PORTO ALEGRE", "RS", "9", "4314902"},
};

/// The last four digits, beyond a multiple of it, are the number of a street and a district.
constexpr std::int64_t places = static_cast<std::int64_t>(streets.size() * districts.size());

} // namespace

Address address(Random& random)
{
    const Town& town = random.pick(towns);
    const std::int64_t ending = random.below(10'000);
    const std::string number = std::to_string(random.between(1, 2999));
    const std::string last = std::to_string(10'000 + ending).substr(1);
    Address address = *addressOf(town.prefix + last);
    address.number = number;
    return address;
}

std::optional<Address> addressOf(std::string_view postalCode)
{
    const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
    if (postalCode.size() != 8 || !std::all_of(postalCode.begin(), postalCode.end(), isDigit) ||
        postalCode < "01000000")
        return std::nullopt;
    const auto* known = std::find_if(
        towns.begin(), towns.end(), [&](const Town& town) { return postalCode.substr(0, 4) == town.prefix; });
    const Town& town =
        known != towns.end() ? *known : capitals[static_cast<std::size_t>(postalCode[0] - '0')];
    const auto place = static_cast<std::size_t>(std::stoll(std::string(postalCode.substr(4))) % places);
    const std::string code(postalCode);
    return Address{streets[place / districts.size()],
                   "",
                   districts[place % districts.size()],
                   town.name,
                   town.state,
                   code.substr(0, 5) + "-" + code.substr(5),
                   town.municipality};
}
