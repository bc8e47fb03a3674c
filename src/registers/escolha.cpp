#include "registers/escolha.h"

#include "app/core/variaveis.h"

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
