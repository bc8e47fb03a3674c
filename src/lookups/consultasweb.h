#pragma once

#include <QString>
#include <chrono>

/// Look-ups at the two web services, whose hosts are installation values. They wait for the whole answer as
/// long as they are told; the windows are painted meanwhile but take no input.
namespace Funcoes {

inline constexpr std::chrono::milliseconds esperaDaConsulta = std::chrono::seconds(5);

/// The address of a postal code of 8 digits, as "<address>|<district>|<town>|<state>|<municipality code>" in
/// upper case. The address is kind of street, blank, street; where the service does not tell the kind it
/// begins with the blank. A code that the service does not know gives the pieces without text.
///
/// Read from the answer to /ws/<cep>/xml/, children of the root: "tipo_logradouro", "logradouro", "bairro",
/// "localidade" or "cidade" (the later one counts), "uf", "ibge".
///
/// A failure shows the box "Atenção" with its number and description, and gives "". The numbers are those of
/// Http::get, the status of an answer that is not 200, and 91 for an answer that is no XML document or holds
/// one of these elements without a content.
QString BuscaCep(const QString& cep, std::chrono::milliseconds espera = esperaDaConsulta);

/// The postal service's answer to /ws/<cep>/json/, whatever its status. Throws RuntimeError as Http::get
/// does.
QString BuscaCepJson(const QString& cep, std::chrono::milliseconds espera = esperaDaConsulta);

/// The company service's answer to /v1/cnpj/<cnpj>, the number as it is given; "404 Error" where it does not
/// know the company. An answer of any other status counts as one. Throws RuntimeError as Http::get does.
QString BuscaCnpj(const QString& cnpj, std::chrono::milliseconds espera = esperaDaConsulta);

/// The text of a field in an answer such as {"nome": "X", "uf": "SP"}: what lies from the fourth character
/// behind the first occurrence of the name up to the next quotation mark. The text is not parsed: the name
/// may be found in a longer one, a value without quotation marks comes out wrong, and for an absent field the
/// text is taken from the character at the name's length + 4. Throws RuntimeError 5 where no quotation mark
/// follows.
QString ValorJson(const QString& resposta, const QString& campo);

} // namespace Funcoes
