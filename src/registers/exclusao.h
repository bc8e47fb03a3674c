#pragma once

class Adodc;

/// Asks whether the current row of the grid's rows shall go; on Yes it is deleted and the grid refreshed.
/// Throws ADODB::Error where there is no current row.
void ExcluiLinha(Adodc& grade);
