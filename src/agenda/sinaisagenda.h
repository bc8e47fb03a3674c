#pragma once

#include "agenda/linhaagenda.h"

class ListBox;
class ListHeading;
class QGridLayout;

/// How the state of a slot is seen at a glance: a sign of its own in front of each line, and a bar.
namespace SinaisAgenda {

/// The list shows its lines' states from now on, below its headings.
void veste(ListBox& lista, ListHeading& titulo);

/// Adds the sign and the name of each state, a row each.
void legenda(QGridLayout& lugar);

} // namespace SinaisAgenda
