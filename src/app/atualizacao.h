#pragma once

/// What the program fetches from its vendor: its own update, and the tool for remote support.
namespace Atualizacao {

/// Downloads the updater over "\adm_atu.exe" in the program folder, starts it and ends the program, whose
/// files it can then replace; the next start removes it. There is no comparison of versions. An answer other
/// than 200 is told and the program goes on; every other failure throws as Http, Files and Shell do, and
/// leaves what stood under the name as it was.
void Baixa();

/// Starts "\suporte.exe" of the program folder. Where it is not installed that is told, and the system's
/// browser gets the address of its download.
void AbreSuporte();

} // namespace Atualizacao
