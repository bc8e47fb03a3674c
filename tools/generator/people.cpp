#include "people.h"

#include <algorithm>
#include <array>

namespace {

constexpr std::array women = {"MARIA",   "ANA",      "FRANCISCA", "ANTÔNIA", "ADRIANA", "JULIANA",
                              "MÁRCIA",  "FERNANDA", "PATRÍCIA",  "ALINE",   "SANDRA",  "CAMILA",
                              "AMANDA",  "BRUNA",    "JÉSSICA",   "LETÍCIA", "JÚLIA",   "LUCIANA",
                              "VANESSA", "MARIANA",  "GABRIELA",  "VERA",    "VITÓRIA", "LARISSA",
                              "CLÁUDIA", "BEATRIZ",  "LUANA",     "RITA",    "SÔNIA",   "RENATA"};
constexpr std::array men = {"JOSÉ",     "JOÃO",     "ANTÔNIO", "FRANCISCO", "CARLOS",  "PAULO",
                            "PEDRO",    "LUCAS",    "LUIZ",    "MARCOS",    "LUÍS",    "GABRIEL",
                            "RAFAEL",   "DANIEL",   "MARCELO", "BRUNO",     "EDUARDO", "FELIPE",
                            "RAIMUNDO", "RODRIGO",  "MANOEL",  "MATEUS",    "ANDRÉ",   "FERNANDO",
                            "FÁBIO",    "LEONARDO", "GUSTAVO", "GUILHERME", "TIAGO",   "SEBASTIÃO"};
constexpr std::array womensSecond = {"APARECIDA", "DE FÁTIMA", "CRISTINA", "REGINA", "LÚCIA", "DAS GRAÇAS"};
constexpr std::array mensSecond = {"ROBERTO", "HENRIQUE", "AUGUSTO", "CÉSAR", "EDUARDO", "DE JESUS"};
constexpr std::array surnames = {
    "SILVA",     "SANTOS",    "OLIVEIRA",  "SOUZA",   "RODRIGUES", "FERREIRA", "ALVES",      "PEREIRA",
    "LIMA",      "GOMES",     "COSTA",     "RIBEIRO", "MARTINS",   "CARVALHO", "ALMEIDA",    "LOPES",
    "SOARES",    "FERNANDES", "VIEIRA",    "BARBOSA", "ROCHA",     "DIAS",     "NASCIMENTO", "ANDRADE",
    "MOREIRA",   "NUNES",     "MARQUES",   "MACHADO", "MENDES",    "FREITAS",  "CARDOSO",    "RAMOS",
    "GONÇALVES", "SANTANA",   "TEIXEIRA",  "ARAÚJO",  "CONCEIÇÃO", "BATISTA",  "MORAES",     "CAMPOS",
    "ASSUNÇÃO",  "GUIMARÃES", "MAGALHÃES", "SIMÕES",  "PEIXOTO",   "FONSECA",  "AZEVEDO",    "BRANDÃO",
    "QUEIROZ",   "XAVIER",
};
std::string digits(Random& random, int count)
{
    std::string text;
    for (int i = 0; i < count; ++i)
        text += static_cast<char>('0' + random.below(10));
    return text;
}

std::string padded(std::uint64_t number, std::size_t width)
{
    const std::string text = std::to_string(number);
    return std::string(width - text.size(), '0') + text;
}

/// Modulo-11 digit of both documents: weights run from 2 at the last digit upwards, to highest and again
/// from 2.
char checkDigit(const std::string& number, int highest)
{
    int sum = 0;
    int weight = 2;
    for (auto digit = number.rbegin(); digit != number.rend(); ++digit) {
        sum += (*digit - '0') * weight;
        weight = weight == highest ? 2 : weight + 1;
    }
    const int rest = sum % 11;
    return static_cast<char>(rest < 2 ? '0' : '0' + 11 - rest);
}

std::string withCnpjMask(const std::string& n)
{
    return n.substr(0, 2) + "." + n.substr(2, 3) + "." + n.substr(5, 3) + "/" + n.substr(8, 4) + "-" +
           n.substr(12);
}

} // namespace

std::string surname(Random& random)
{
    return random.pick(surnames);
}

std::string personName(Random& random)
{
    const bool woman = random.percent(52);
    std::string name = woman ? random.pick(women) : random.pick(men);
    if (random.percent(30))
        name.append(" ").append(woman ? random.pick(womensSecond) : random.pick(mensSecond));
    name += " " + surname(random);
    name += (random.percent(15) ? " DE " : " ") + surname(random);
    return name;
}

std::string landline(Random& random)
{
    return "(19) 3" + digits(random, 3) + "-" + digits(random, 4);
}

std::string mobile(Random& random)
{
    return "(19) 9" + digits(random, 4) + "-" + digits(random, 4);
}

std::string identityCard(Random& random)
{
    return digits(random, 2) + "." + digits(random, 3) + "." + digits(random, 3) + "-" + digits(random, 1);
}

std::string cpf(std::uint64_t seed, std::uint64_t index)
{
    // The factor has no common divisor with the modulus, so distinct indexes give distinct numbers.
    std::uint64_t root = (index * 736'338'717U + seed % 1'000'000'000U) % 1'000'000'000U;
    // Nine equal digits pass the sums, but many checks refuse them.
    if (root % 111'111'111U == 0)
        root += 1;
    std::string n = padded(root, 9);
    n += checkDigit(n, 11);
    n += checkDigit(n, 11);
    return n.substr(0, 3) + "." + n.substr(3, 3) + "." + n.substr(6, 3) + "-" + n.substr(9);
}

std::string cnpj(std::uint64_t seed, std::uint64_t index)
{
    std::string n = padded((index * 7'633'387U + seed % 100'000'000U) % 100'000'000U, 8) + "0001";
    n += checkDigit(n, 9);
    n += checkDigit(n, 9);
    return withCnpjMask(n);
}

std::optional<std::string> maskedCnpj(const std::string& digits)
{
    const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
    if (digits.size() != 14 || !std::all_of(digits.begin(), digits.end(), isDigit))
        return std::nullopt;
    std::string n = digits.substr(0, 12);
    n += checkDigit(n, 9);
    n += checkDigit(n, 9);
    return n == digits ? std::optional(withCnpjMask(n)) : std::nullopt;
}

Company company(Random& random, std::uint64_t trade)
{
    constexpr std::array trades = {
        "DISTRIBUIDORA HOSPITALAR", "COMERCIAL", "MEDICAMENTOS",      "PRODUTOS MÉDICOS", "IMOBILIÁRIA",
        "POSTO DE SERVIÇO",         "PAPELARIA", "MANUTENÇÃO PREDIAL"};
    Company company;
    company.tradeName = trades[trade % trades.size()];
    company.tradeName.append(" ").append(surname(random));
    company.name = company.tradeName + " LTDA";
    company.office = address(random);
    return company;
}
