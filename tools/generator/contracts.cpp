#include "tables.h"

#include <algorithm>

using std::chrono::days;

namespace {

constexpr const char* user = "ADMIN";

std::int64_t contractCount(const Clinic& clinic)
{
    return std::max<std::int64_t>(8, clinic.options().visits / 75);
}

/// Of eight contracts five are in force, two quotations and one concluded; of the further ones one in twenty
/// is in force, one in ten a quotation and the others concluded, so that old years outweigh the present.
char statusOf(std::int64_t contract)
{
    if (contract < 8)
        return "10112101"[contract];
    return contract % 20 == 0 ? '1' : contract % 10 == 5 ? '0' : '2';
}

/// One procedure of a contract with its visits, every 24 or every 12 hours.
struct Sold
{
    std::int64_t procedure;
    std::int64_t visits;
    int minutes;       ///< time of the first visit
    int intervalHours; ///< 24 or 12
};

struct Contract
{
    std::int64_t number;
    std::string key;
    std::int64_t patient;
    char status;
    Moment opened;
    Day start;
    std::vector<Sold> sold;
};

class Contracts
{
public:
    Contracts(const Clinic& clinic, Output& output);
    void write();

private:
    Contract plan(std::int64_t number, std::int64_t visits) const;
    void writeContract(const Contract& contract);
    void writeSold(const Contract& contract, std::size_t index);
    void writePrescriptions(const Contract& contract, const Sold& sold, Random& draw);
    void writeVisit(const Contract& contract, const Sold& sold, std::int64_t usual, std::int64_t visit);
    void writeRecord(const Contract& contract, const Sold& sold, const std::string& key, Moment moment,
                     std::int64_t professional, bool done, Random& draw);
    void deliver(const Contract& contract, const Sold& sold, const char* visitKey, Day day, Random& draw);

    const Clinic& clinic_;
    Output& output_;
    const std::string& tenant_;
    Table contracts_;
    Table procedures_;
    Table visits_;
    Table records_;
    Table prescriptions_;
    Table supplies_;
    Table deliveries_;
};

Contracts::Contracts(const Clinic& clinic, Output& output)
    : clinic_(clinic),
      output_(output),
      tenant_(clinic.options().tenant),
      contracts_(output.table(
          "contrato", "idlic, idcontrato, dtc, cdpac, nmresp, foneresp, cidade, status, evcad, upev, cpf, "
                      "rg, obs, rua, nrcasa, email, bairro, cep, uf, fonepac, idconv, dsaler, dsmed, "
                      "dscir, taler, tmed, tcir, diagno, medresp")),
      procedures_(output.table("contrato_procedimentos",
                               "idlic, idcontrato, idlan, idproc, qtde, valor, complemento, evcad")),
      visits_(output.table("contrato_agenda",
                           "idlic, idcontrato, idlan, idproc, data, hora, idpac, idprof, status")),
      records_(output.table(
          "contrato_atendimento",
          "idlic, idcontrato, idlan, idproc, data, hora, idprof, idpac, dsev, evcad, upev, status")),
      prescriptions_(
          output.table("contrato_prescricao",
                       "idlic, idcontrato, idproc, idreceita, dspresc, DtPresc, dsfreq, evcad, upev")),
      supplies_(output.table("contrato_insumos", "idlic, idcontrato, idproc, dtpresc, cdpro, qtde, evcad")),
      deliveries_(output.table("contrato_entregue",
                               "idlic, idcontrato, idproc, dtatend, cdpro, qtde, evcad, idatend, tipo, "
                               "lote, dtv, custo"))
{
}

void Contracts::write()
{
    const std::int64_t count = contractCount(clinic_);
    std::int64_t withVisits = 0;
    for (std::int64_t number = 0; number < count; ++number)
        withVisits += statusOf(number) != '0' ? 1 : 0;
    std::int64_t rank = 0;
    for (std::int64_t number = 0; number < count; ++number) {
        std::int64_t visits = 0;
        if (statusOf(number) != '0') {
            const std::int64_t all = clinic_.options().visits;
            visits = all * (rank + 1) / withVisits - all * rank / withVisits;
            ++rank;
        }
        writeContract(plan(number, visits));
    }
    for (Table* table :
         {&contracts_, &procedures_, &visits_, &records_, &prescriptions_, &supplies_, &deliveries_})
        output_.add(*table);
}

Contract Contracts::plan(std::int64_t number, std::int64_t visits) const
{
    Random draw = clinic_.random(Stream::Contract, number);
    const Day today = clinic_.options().today;
    const std::int64_t patients = clinic_.options().patients;
    const std::int64_t count = contractCount(clinic_);
    Contract contract{
        number, {}, count <= patients ? number * patients / count : number % patients, statusOf(number), {},
        {},     {}};
    const std::int64_t kinds = 1 + number % 3;
    std::int64_t longest = 1;
    for (std::int64_t i = 0; i < kinds; ++i) {
        // Steps of three through the eight home procedures never meet within a contract. The times differ
        // between neighbouring contracts: a visit's key is its procedure and moment alone.
        Sold sold{clinicProcedures + (number + i * 3) % homeProcedures,
                  visits * (i + 1) / kinds - visits * i / kinds,
                  420 + static_cast<int>((number * 7 + i * 97) % 600), draw.percent(25) ? 12 : 24};
        longest = std::max(longest, sold.visits * sold.intervalHours / 24 + 1);
        contract.sold.push_back(sold);
    }
    switch (contract.status) {
    case '0':
        contract.start = today - days(draw.between(1, 20));
        break;
    case '1':
        contract.start = today - days(longest * 6 / 10);
        break;
    default:
        contract.start = today - days(longest + 1 + draw.between(0, 1000));
    }
    contract.opened = {contract.start - days(3), 8 * 3600 + static_cast<int>(number * 61 % 28800)};
    contract.key = format(contract.opened, "ymdHMS") + std::to_string(clinic_.code(contract.patient));
    return contract;
}

void Contracts::writeContract(const Contract& contract)
{
    constexpr std::array diagnoses = {"SEQUELA DE ACIDENTE VASCULAR CEREBRAL",
                                      "DOENÇA DE PARKINSON",
                                      "DOENÇA PULMONAR OBSTRUTIVA CRÔNICA",
                                      "ÚLCERA POR PRESSÃO GRAU III",
                                      "PÓS-OPERATÓRIO DE FÊMUR",
                                      "DIABETES COM COMPLICAÇÕES"};
    const auto flag = [](const std::string& description) { return description.empty() ? "0" : "1"; };
    Random draw = clinic_.random(Stream::Contract, -1 - contract.number);
    const Patient p = clinic_.patient(contract.patient);
    const std::string stamp = Clinic::stamp(user, contract.opened);
    const std::string relative = p.relative.empty() ? personName(draw) : p.relative;
    const std::string phone = p.relativePhone.empty() ? p.mobile : p.relativePhone;
    const std::string doctor = personName(draw);
    contracts_.row(tenant_, contract.key, contract.opened.day, clinic_.code(contract.patient), relative,
                   phone, p.home.town, std::string_view(&contract.status, 1), stamp, stamp, p.cpf, p.rg,
                   p.remarks, p.home.street, p.home.number, p.email, p.home.district, p.home.postalCode,
                   p.home.state, p.landline, clinic_.code(p.plan), p.allergy, p.medication, p.surgery,
                   flag(p.allergy), flag(p.medication), flag(p.surgery), draw.pick(diagnoses),
                   "DR. " + doctor);
    for (std::size_t i = 0; i < contract.sold.size(); ++i)
        writeSold(contract, i);
    if (contract.number % 4 == 0)
        deliver(contract, contract.sold.front(), nullptr, contract.start, draw);
}

void Contracts::writeSold(const Contract& contract, std::size_t index)
{
    const Sold& sold = contract.sold[index];
    Random draw = clinic_.random(Stream::Contract,
                                 contract.number * 8 + static_cast<std::int64_t>(index) + (1LL << 40));
    const Moment entered{contract.opened.day, contract.opened.second + 60 * static_cast<int>(index + 1)};
    const int reais = procedures[static_cast<std::size_t>(sold.procedure)].reais;
    const std::int64_t quantity = contract.status == '0' ? 30 : std::max<std::int64_t>(1, sold.visits);
    procedures_.row(tenant_, contract.key, format(entered, "dmyHMS"), clinic_.code(sold.procedure),
                    fine(quantity * 10000), fine(reais * 10000),
                    sold.intervalHours == 12 ? "DUAS VEZES AO DIA" : "UMA VEZ AO DIA",
                    Clinic::stamp(user, entered));
    writePrescriptions(contract, sold, draw);
    const std::int64_t usual = clinic_.homeProfessional(draw);
    for (std::int64_t visit = 0; visit < sold.visits; ++visit)
        writeVisit(contract, sold, usual, visit);
}

void Contracts::writePrescriptions(const Contract& contract, const Sold& sold, Random& draw)
{
    constexpr std::array texts = {
        "TROCAR O CURATIVO COM SORO FISIOLÓGICO E COBRIR COM GAZE ESTÉRIL, OBSERVAR SINAIS DE INFECÇÃO",
        "DIPIRONA 500 MG/ML ENDOVENOSA EM CASO DE DOR OU TEMPERATURA ACIMA DE 37,8",
        "EXERCÍCIOS PASSIVOS DOS MEMBROS INFERIORES",
        "DIETA ENTERAL EM BOMBA A 60 ML/H COM ÁGUA NOS INTERVALOS, CABECEIRA ELEVADA A 45 GRAUS"};
    constexpr std::array frequencies = {"1X AO DIA", "6/6 H", "8/8 H", "12/12 H", "SE NECESSÁRIO"};
    const std::int64_t procedure = clinic_.code(sold.procedure);
    for (int again = 0; again <= (contract.status == '1' ? 1 : 0); ++again) {
        const Day day = contract.start + days(15 * again);
        const std::string stamp = Clinic::stamp(user, {day, 10 * 3600});
        prescriptions_.row(tenant_, contract.key, procedure, format(day, "Ymd"), draw.pick(texts), day,
                           draw.pick(frequencies), stamp, stamp);
    }
    const std::int64_t first = draw.below(std::ssize(products));
    const std::int64_t count = draw.between(2, 4);
    for (std::int64_t i = 0; i < count; ++i)
        supplies_.row(tenant_, contract.key, procedure, contract.start,
                      clinic_.productCode(static_cast<int>((first + i * 5) % std::ssize(products))),
                      fine(draw.between(1, 30) * 10000),
                      Clinic::stamp(user, {contract.start, 10 * 3600 + 600}));
}

void Contracts::writeVisit(const Contract& contract, const Sold& sold, std::int64_t usual, std::int64_t visit)
{
    Random draw = clinic_.random(Stream::Visit, (contract.number * 4096 + sold.procedure) * 65536 + visit);
    const std::int64_t minutes = sold.minutes + visit * sold.intervalHours * 60;
    const Moment moment{contract.start + days(minutes / 1440), static_cast<int>(minutes % 1440) * 60};
    const std::string key = std::to_string(clinic_.code(sold.procedure)) + "_" + format(moment, "ymdHM");
    const Day today = clinic_.options().today;
    const std::int64_t chance = draw.below(100);
    bool assigned = true;
    bool done = false;
    if (contract.status == '2')
        done = true;
    else if (moment.day < today) {
        done = chance < 90;
        assigned = chance < 96;
    } else
        assigned = moment.day <= today + days(7) && chance < 80;

    const std::int64_t professional = draw.percent(85) ? usual : clinic_.homeProfessional(draw);
    visits_.row(tenant_, contract.key, key, clinic_.code(sold.procedure), moment.day, format(moment, "H:M"),
                clinic_.code(contract.patient), assigned ? clinic_.code(professional) : 0, done ? "1" : "0");
    if (done || (assigned && moment.day < today && draw.percent(30)))
        writeRecord(contract, sold, key, moment, professional, done, draw);
}

void Contracts::writeRecord(const Contract& contract, const Sold& sold, const std::string& key, Moment moment,
                            std::int64_t professional, bool done, Random& draw)
{
    constexpr std::array notes = {
        "PACIENTE CONSCIENTE E ORIENTADO, SINAIS VITAIS ESTÁVEIS. PROCEDIMENTO SEM INTERCORRÊNCIAS.",
        "PACIENTE REFERE DOR LEVE. LESÃO COM BOM ASPECTO, SEM SECREÇÃO.\nORIENTADO O CUIDADOR.",
        "BOA ACEITAÇÃO DA DIETA. PELE ÍNTEGRA. MANTIDA A CONDUTA.",
        "REALIZADOS EXERCÍCIOS RESPIRATÓRIOS, SATURAÇÃO 96% EM AR AMBIENTE."};
    const std::string stamp =
        Clinic::stamp(user, {moment.day, moment.second + static_cast<int>(draw.between(1800, 5400))});
    records_.row(tenant_, contract.key, key, clinic_.code(sold.procedure), format(moment.day, "Y/m/d"),
                 format(moment, "H:M"), clinic_.code(professional), clinic_.code(contract.patient),
                 draw.pick(notes), stamp, stamp, done ? "S" : "N");
    if (draw.percent(40))
        for (std::int64_t count = draw.between(1, 2); count > 0; --count)
            deliver(contract, sold, key.c_str(), moment.day, draw);
}

void Contracts::deliver(const Contract& contract, const Sold& sold, const char* visitKey, Day day,
                        Random& draw)
{
    // A purchase that had come by then, where there is one.
    const std::int64_t age = (clinic_.options().today - day).count();
    const std::int64_t come = (clinic_.historyDays() - age) * clinic_.purchases() / clinic_.historyDays();
    const std::int64_t purchase = draw.below(std::clamp<std::int64_t>(come, 1, clinic_.purchases()));
    const PurchaseLine line =
        clinic_.purchaseLine(purchase, static_cast<int>(draw.below(clinic_.purchaseLines(purchase))));
    const Product& product = products[static_cast<std::size_t>(line.product)];
    deliveries_.row(tenant_, contract.key, clinic_.code(sold.procedure), day,
                    clinic_.productCode(line.product), fine(draw.between(1, 4) * 10000),
                    Clinic::stamp(user, {day, 18 * 3600}), visitKey ? visitKey : "0", visitKey ? "0" : "1",
                    line.lot, line.expiry ? format(*line.expiry, "d/m/Y") : "", fine(product.cost));
}

} // namespace

void writeContracts(const Clinic& clinic, Output& output)
{
    Contracts(clinic, output).write();
}
