#pragma once

class Tour;

/// The registers and the search dialogs, each with rows of the demonstration clinic in it.
void walkRegisters(Tour& tour);
