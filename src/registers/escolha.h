#pragma once

#include "platform/forms/form.h"

#include <optional>

/// What a search dialog hands back.
struct Escolha
{
    QString codigo;
    QString nome;
};

/// Shows the dialog modally; nothing where the user gave up. RetornoCodigo and RetornoNome hold `antes` when
/// it is shown, for the few dialogs that read them or leave one as it was, and nothing behind it.
std::optional<Escolha> escolhe(Form& dialogo, const Escolha& antes = {});

template <class Dialogo>
std::optional<Escolha> escolhe(const Escolha& antes = {})
{
    return escolhe(Form::of<Dialogo>(), antes);
}

/// Where only a number will do: nothing for another code. Code and name come without blanks around them.
std::optional<Escolha> comNumero(const std::optional<Escolha>& escolha);

template <class Dialogo>
std::optional<Escolha> escolheNumero(const Escolha& antes = {})
{
    return comNumero(escolhe<Dialogo>(antes));
}
