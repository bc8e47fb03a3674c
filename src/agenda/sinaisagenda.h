#pragma once

#include "agenda/linhaagenda.h"

#include <QPixmap>

class ListBox;
class QLabel;
class QLayout;

/// How the state of a slot is seen at a glance: a sign of its own in front of each line, and a tint.
namespace SinaisAgenda {

/// The list paints its lines' states from now on, and the label with the list's headings stands in line with
/// the text.
void veste(ListBox& lista, QLabel& titulo);

/// Adds the sign and the name of each state to the layout.
void legenda(QLayout& lugar);

} // namespace SinaisAgenda
