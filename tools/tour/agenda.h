#pragma once

class Tour;

/// The reception's day: the agenda in all its states, the booking panel, the search, the closing.
void walkAgenda(Tour& tour);
