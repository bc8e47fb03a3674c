#include "registers/escolha.h"

#include "app/core/variaveis.h"
#include "platform/values/number.h"

#include <utility>

using namespace Variaveis;

std::optional<Escolha> escolhe(Form& dialogo, const Escolha& antes)
{
    RetornoCodigo = antes.codigo;
    RetornoNome = antes.nome;
    dialogo.ShowModal();
    Escolha escolha{std::exchange(RetornoCodigo, {}), std::exchange(RetornoNome, {})};
    if (escolha.codigo.trimmed().isEmpty())
        return {};
    return escolha;
}

std::optional<Escolha> comNumero(const std::optional<Escolha>& escolha)
{
    if (!escolha || !isNumeric(escolha->codigo))
        return {};
    return Escolha{escolha->codigo.trimmed(), escolha->nome.trimmed()};
}
