#pragma once

/// Binds each entry of the main menu to the screen that it opens.
void ligaMenu();
