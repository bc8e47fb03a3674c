#include "tables.h"

#include <algorithm>
#include <string>

namespace {

// The entries of the main menu, in its order: each is a right.
constexpr std::array menuEntries = {
    "mnuCad",    "cadConv",   "cadEsp",  "cadFer",     "cadfor",      "cadgru",    "cadHor",     "cadinsi",
    "cadPac",    "cadproc",   "cadProf", "cadUsu",     "cliAG",       "mnumov",    "moventinsu", "movcont",
    "movordsrv", "movfinan",  "mnuctpg", "ctpgcadcen", "ctpgcadscen", "ctpgcad",   "fincpgbx",   "mnurel",
    "finrelcon", "hstcmpins", "mnuti",   "mnupram",    "mnuoff",      "mnuupdate",
};

struct Account
{
    const char* name; ///< the password is the same
    std::vector<std::string> rights;
};

} // namespace

void writeAccounts(const Clinic& clinic, Output& output)
{
    const std::vector<Account> accounts = {
        {"ADMIN", {menuEntries.begin(), menuEntries.end()}},
        {"RECEPCAO",
         {"mnuCad", "cadConv", "cadEsp", "cadFer", "cadfor", "cadgru", "cadHor", "cadinsi", "cadPac",
          "cadproc", "cadProf", "cliAG", "mnuoff", "mnuupdate"}},
        {"FINANCAS",
         {"mnumov", "movfinan", "mnuctpg", "ctpgcadcen", "ctpgcadscen", "ctpgcad", "fincpgbx", "mnurel",
          "finrelcon", "hstcmpins", "mnuoff", "mnuupdate"}},
    };
    const std::string& tenant = clinic.options().tenant;
    const std::string stamp =
        Clinic::registerStamp("ADMIN", {clinic.options().today - std::chrono::days(1600), 8 * 3600 + 1800});
    Table users = output.table("usuarios", "idlic, nmusuario, ususenha, evcad, evup");
    Table profile = output.table("perfilusuario", "idlic, nmusuario, ususenha, campo, valor, evcad");
    for (const Account& account : accounts) {
        users.row(tenant, account.name, account.name, stamp, stamp);
        for (const std::string entry : menuEntries) {
            const bool granted =
                std::find(account.rights.begin(), account.rights.end(), entry) != account.rights.end();
            profile.row(tenant, account.name, account.name, entry + std::string(20 - entry.size(), ' '),
                        granted ? "0" : "1", stamp);
        }
    }
    output.add(users);
    output.add(profile);
}
