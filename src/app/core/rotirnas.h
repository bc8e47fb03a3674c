#pragma once

#include <QLineEdit>
#include <QString>

/// General routines of the screens.
namespace Rotirnas {

/// Sends a key string, such as "{TAB}", to the control that has the focus; `espera` has the events that it
/// causes handled before the return.
void EnviaTeclas(const QString& teclas, bool espera = false);

/// Typing filter of a date box: digits and the backspace (8) pass, anything else is swallowed by setting
/// the key code to 0; a digit typed with the caret at position 2 or 5 gets a "/" in front of it.
void MascaraData(int& tecla, QLineEdit& caixa);

/// Age in whole years on the clock's day, as text; empty for a text that is no date.
QString CalculaIdade(const QString& nascimento);

} // namespace Rotirnas
