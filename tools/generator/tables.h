#pragma once

#include "clinic.h"
#include "output.h"

/// Each writes the files of its tables and adds them to the output.
void writeAccounts(const Clinic& clinic, Output& output);
void writeRegisters(const Clinic& clinic, Output& output);
void writeAgenda(const Clinic& clinic, Output& output);
void writeContracts(const Clinic& clinic, Output& output);
void writePurchases(const Clinic& clinic, Output& output);
void writePayables(const Clinic& clinic, Output& output);
void writeReceivables(const Clinic& clinic, Output& output);
