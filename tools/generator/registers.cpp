#include "tables.h"

#include <string_view>

using std::chrono::days;

namespace {

constexpr std::array weekdayTexts = {"",
                                     "1 - DOMINGO",
                                     "2 - SEGUNDA-FEIRA",
                                     "3 - TERÇA-FEIRA",
                                     "4 - QUARTA-FEIRA",
                                     "5 - QUINTA-FEIRA",
                                     "6 - SEXTA-FEIRA",
                                     "7 - SÁBADO"};

/// The registers were filled on one morning, long before the first appointment.
std::string setUp(const Clinic& clinic)
{
    return Clinic::registerStamp("ADMIN", {clinic.options().today - days(1600), 9 * 3600});
}

void writeCodes(const Clinic& clinic, Output& output)
{
    const std::string& tenant = clinic.options().tenant;
    const std::string stamp = setUp(clinic);
    const auto named = [&](Table table, const auto& names) {
        for (std::int64_t i = 0; i < std::ssize(names); ++i)
            table.row(clinic.code(i), tenant, names[static_cast<std::size_t>(i)], stamp);
        output.add(table);
    };
    named(output.table("especialidades", "idesp, idlic, nmesp, evcad"), specialities);
    named(output.table("grupoestoque", "cdgrupo, idlic, dsgrupo, evcad"), productGroups);
    named(output.table("centrocusto", "cdcen, idlic, nmcen, evcad"), costCentres);
    named(output.table("subcentrocusto", "cdscen, idlic, nmscen, evcad"), subCostCentres);

    Table convenios = output.table("convenios", "idconv, idlic, nmconv, pdesc, evcad, evup");
    for (std::size_t i = 0; i < plans.size(); ++i)
        convenios.row(clinic.code(static_cast<std::int64_t>(i)), tenant, plans[i].name,
                      money(plans[i].discount), stamp, stamp);
    output.add(convenios);

    Table procedimentos = output.table("procedimentos", "idproc, idlic, nmproc, ondeatd, evcad, evup");
    for (std::size_t i = 0; i < procedures.size(); ++i)
        procedimentos.row(clinic.code(static_cast<std::int64_t>(i)), tenant, procedures[i].name,
                          std::string_view(&procedures[i].place, 1), stamp, stamp);
    output.add(procedimentos);

    Table feriados = output.table("feriados", "idlic, dia, Mes, nMes, obs, evcad, evup");
    for (const Holiday& holiday : holidays)
        feriados.row(tenant, holiday.day, holiday.month, monthNames[holiday.month - 1], holiday.name, stamp,
                     stamp);
    output.add(feriados);

    Table produtos = output.table(
        "produtos", "cdpro, idlic, dspro, un, cdgrupo, vcusto, dtucmp, qmin, caplote, obs, evcad, evup");
    for (std::size_t i = 0; i < products.size(); ++i)
        produtos.row(clinic.productCode(static_cast<int>(i)), tenant, products[i].name, products[i].unit,
                     clinic.code(products[i].group), fine(products[i].cost), "SR", fine(100'000),
                     products[i].lots ? "0" : "1", "", stamp, stamp);
    output.add(produtos);
}

void writePatients(const Clinic& clinic, Output& output)
{
    const auto flag = [](const std::string& description) { return description.empty() ? "0" : "1"; };
    Table table = output.table(
        "pacientes", "idpac, idlic, dtcad, cpf, rg, dtnasc, nmPac, fonepac, fonecel, eMail, cep, rua, "
                     "nrrua, bairro, cidade, uf, nmresp, foneresp, idconv, taler, dsaler, tmed, "
                     "dsmed, tcir, dscir, obs, evup");
    for (std::int64_t i = 0; i < clinic.options().patients; ++i) {
        const Patient p = clinic.patient(i);
        table.row(clinic.code(i), clinic.options().tenant, p.registered, p.cpf, p.rg, p.born, p.name,
                  p.landline, p.mobile, p.email, p.home.postalCode, p.home.street, p.home.number,
                  p.home.district, p.home.town, p.home.state, p.relative, p.relativePhone,
                  clinic.code(p.plan), flag(p.allergy), p.allergy, flag(p.medication), p.medication,
                  flag(p.surgery), p.surgery, p.remarks,
                  Clinic::registerStamp("RECEPCAO", {p.registered, 10 * 3600}));
    }
    output.add(table);
}

void writeProfessionals(const Clinic& clinic, Output& output)
{
    constexpr std::array councils = {"CRM", "CRM", "CRM", "CRM", "CRM", "CRN", "COREN", "CREFITO", "CRFA"};
    const std::string stamp = setUp(clinic);
    Table table = output.table("profissionais",
                               "idpro, idlic, dtcad, cpf, rg, dtnasc, nmpro, fonefixo, fonecel, eMail, cep, "
                               "rua, nrrua, bairro, cidade, uf, idesp, nrcon, valor, ondeatd, obs, evup");
    for (std::int64_t i = 0; i < clinic.professionals(); ++i) {
        Random draw = clinic.random(Stream::Professional, i);
        const Position& position = Clinic::position(i);
        const std::string name = personName(draw);
        const Address home = address(draw);
        const Day born = clinic.options().today - days(draw.between(9500, 24000));
        const std::string council = std::string(councils[static_cast<std::size_t>(position.speciality)]) +
                                    "-SP " + std::to_string(draw.between(10000, 199999));
        // Patients' numbers stay below the offset, so no professional shares a patient's CPF.
        table.row(clinic.code(i), clinic.options().tenant, clinic.options().today - days(1600),
                  cpf(clinic.seed(), 900'000'000U + static_cast<std::uint64_t>(i)), identityCard(draw), born,
                  name, landline(draw), mobile(draw),
                  "PROFISSIONAL" + std::to_string(clinic.code(i)) + "@EXAMPLE.COM", home.postalCode,
                  home.street, home.number, home.district, home.town, home.state,
                  clinic.code(position.speciality), council, money(position.reais * 100),
                  std::string_view(&position.place, 1), "", stamp);
    }
    output.add(table);
}

std::string slotList(const std::vector<int>& slots)
{
    std::string list;
    for (const int slot : slots)
        list.append(list.empty() ? "" : "/").append(slotText(slot));
    return list;
}

void writeWorkingHours(const Clinic& clinic, Output& output)
{
    const std::string created = setUp(clinic);
    // This screen writes its second stamp with another separator.
    const std::string changed = "ADMIN- " + created.substr(std::string_view("ADMIN - ").size());
    Table table = output.table("diahr", "idlic, idpro, dia, hr, ondeatd, idesp, evcad, evup");
    const std::string& tenant = clinic.options().tenant;
    for (int day = 1; day <= 7; ++day) {
        const char* text = weekdayTexts[static_cast<std::size_t>(day)];
        for (std::int64_t i = 0; i < clinic.professionals(); ++i)
            for (const Shift& shift : Clinic::shifts(i, day))
                table.row(tenant, clinic.code(i), text, slotList(shift.slots),
                          std::string_view(&shift.place, 1), clinic.code(Clinic::position(i).speciality),
                          created, changed);
        // The row that all home care shares.
        table.row(tenant, 0, text, "08:00/10:00/14:00/16:00", "1", 0, created, changed);
    }
    output.add(table);
}

void writeSuppliers(const Clinic& clinic, Output& output)
{
    const std::string stamp = Clinic::stamp("FINANCAS", {clinic.options().today - days(1500), 11 * 3600});
    Table table = output.table("fornecedores",
                               "cdfor, idlic, nmfor, nmfant, cpf, rg, fonefixo, fonecel, email, rua, nrcasa, "
                               "bairro, cidade, uf, obs, cep, evcad, upev");
    for (std::int64_t i = 0; i < clinic.suppliers(); ++i) {
        Random draw = clinic.random(Stream::Supplier, i);
        const Company c = company(draw, static_cast<std::uint64_t>(i));
        table.row(clinic.code(i), clinic.options().tenant, c.name, c.tradeName,
                  cnpj(clinic.seed(), static_cast<std::uint64_t>(i)), "ISENTO", landline(draw), mobile(draw),
                  "FORNECEDOR" + std::to_string(clinic.code(i)) + "@EXAMPLE.COM", c.office.street,
                  c.office.number, c.office.district, c.office.town, c.office.state, "", c.office.postalCode,
                  stamp, stamp);
    }
    output.add(table);
}

} // namespace

void writeRegisters(const Clinic& clinic, Output& output)
{
    writeCodes(clinic, output);
    writePatients(clinic, output);
    writeProfessionals(clinic, output);
    writeWorkingHours(clinic, output);
    writeSuppliers(clinic, output);
}
