#include "tables.h"

#include <exception>
#include <iostream>
#include <stdexcept>

namespace {

constexpr const char* usage = R"(tremosilva-generator fills a tenant with a made-up clinic.

  --tenant KEY         the tenant (required)
  --out FOLDER         where the files go (required)
  --today YYYY-MM-DD   the day around which everything happens (required)
  --scale N            size in units of 300 patients, 1500 appointments, 600 visits (1)
  --patients N, --appointments N, --visits N
                       these counts on their own
  --seed N             another number, another clinic (1)
  --first-code N       first of all numbered codes, for a further tenant in one database (1)

Load the result with: cd FOLDER && mariadb --local-infile=1 ... DATABASE < load.sql
)";

} // namespace

int main(int argc, char* argv[])
{
    try {
        const Clinic clinic(readOptions({argv + 1, argv + argc}));
        Output output(clinic.options().folder);
        writeAccounts(clinic, output);
        writeRegisters(clinic, output);
        writeAgenda(clinic, output);
        writeContracts(clinic, output);
        writePurchases(clinic, output);
        writePayables(clinic, output);
        writeReceivables(clinic, output);
        output.finish();
        return 0;
    } catch (const std::invalid_argument& wrong) {
        std::cerr << "tremosilva-generator: " << wrong.what() << "\n\n" << usage;
        return 2;
    } catch (const std::exception& failure) {
        std::cerr << "tremosilva-generator: " << failure.what() << '\n';
        return 1;
    }
}
