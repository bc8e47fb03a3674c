#include "clinic.h"

#include <algorithm>
#include <utility>

const std::array<Plan, 7> plans = {{{"PARTICULAR", 0},
                                    {"AMPARO MÉDICO", 1000},
                                    {"BEM ESTAR FAMÍLIA", 1250},
                                    {"COOPERATIVA DOS SERVIDORES", 2000},
                                    {"VIDA PLENA", 1500},
                                    {"SAÚDE DA TERRA", 500},
                                    {"PROGRAMA SOCIAL", 4000}}};

const std::array<const char*, 9> specialities = {"CLÍNICA GERAL", "CARDIOLOGIA",  "PEDIATRIA",
                                                 "ORTOPEDIA",     "DERMATOLOGIA", "NUTRIÇÃO",
                                                 "ENFERMAGEM",    "FISIOTERAPIA", "FONOAUDIOLOGIA"};

const std::array<Procedure, 18> procedures = {{{"CONSULTA", '0', 200},
                                               {"RETORNO", '0', 0},
                                               {"ELETROCARDIOGRAMA", '0', 120},
                                               {"CURATIVO", '0', 60},
                                               {"AVALIAÇÃO NUTRICIONAL", '0', 150},
                                               {"SESSÃO DE FISIOTERAPIA", '0', 90},
                                               {"AFERIÇÃO DE PRESSÃO", '0', 20},
                                               {"APLICAÇÃO DE INJEÇÃO", '0', 30},
                                               {"RETIRADA DE PONTOS", '0', 50},
                                               {"TESTE ERGOMÉTRICO", '0', 260},
                                               {"VISITA DE ENFERMAGEM", '1', 110},
                                               {"FISIOTERAPIA MOTORA DOMICILIAR", '1', 130},
                                               {"FISIOTERAPIA RESPIRATÓRIA DOMICILIAR", '1', 140},
                                               {"CURATIVO DOMICILIAR", '1', 95},
                                               {"ADMINISTRAÇÃO DE MEDICAMENTO", '1', 80},
                                               {"FONOAUDIOLOGIA DOMICILIAR", '1', 120},
                                               {"VISITA MÉDICA DOMICILIAR", '1', 280},
                                               {"VISITA DE NUTRICIONISTA", '1', 125}}};

const std::array<const char*, 6> productGroups = {
    "CURATIVOS", "DIETAS E NUTRIÇÃO", "HIGIENE", "LUVAS E PROTEÇÃO", "MEDICAMENTOS", "SERINGAS E AGULHAS"};

const std::array<Product, 36> products = {{{"GAZE ESTÉRIL 7,5X7,5 CM", "PCT", 0, 12500, true},
                                           {"ATADURA DE CREPOM 10 CM", "UN", 0, 8900, false},
                                           {"ESPARADRAPO 10 CM X 4,5 M", "RL", 0, 98000, false},
                                           {"CURATIVO DE HIDROCOLOIDE 10X10", "UN", 0, 245000, true},
                                           {"FITA MICROPOROSA 5 CM", "RL", 0, 76500, false},
                                           {"COMPRESSA CIRÚRGICA 45X50", "PCT", 0, 189000, true},
                                           {"COLAGENASE POMADA 30 G", "TB", 4, 223400, true},
                                           {"DIETA ENTERAL PADRÃO 1 L", "UN", 1, 287500, true},
                                           {"DIETA ENTERAL HIPERPROTEICA 1 L", "UN", 1, 349000, true},
                                           {"EQUIPO PARA DIETA ENTERAL", "UN", 1, 15800, true},
                                           {"FRASCO PARA DIETA 300 ML", "UN", 1, 9800, false},
                                           {"ESPESSANTE ALIMENTAR 125 G", "LT", 1, 456000, true},
                                           {"FRALDA GERIÁTRICA G", "UN", 2, 23500, false},
                                           {"FRALDA GERIÁTRICA M", "UN", 2, 21900, false},
                                           {"LENÇO UMEDECIDO", "PCT", 2, 98900, false},
                                           {"SABONETE LÍQUIDO NEUTRO 1 L", "FR", 2, 145000, false},
                                           {"CREME DE BARREIRA 120 G", "TB", 2, 267500, true},
                                           {"LUVA DE PROCEDIMENTO M", "CX", 3, 298000, true},
                                           {"LUVA DE PROCEDIMENTO G", "CX", 3, 298000, true},
                                           {"LUVA ESTÉRIL 7,5", "PAR", 3, 18900, true},
                                           {"MÁSCARA CIRÚRGICA", "CX", 3, 135000, false},
                                           {"AVENTAL DESCARTÁVEL", "PCT", 3, 235000, false},
                                           {"DIPIRONA 500 MG/ML 2 ML", "AMP", 4, 13250, true},
                                           {"SORO FISIOLÓGICO 0,9% 500 ML", "FR", 4, 58900, true},
                                           {"SORO FISIOLÓGICO 0,9% 10 ML", "AMP", 4, 4800, true},
                                           {"CEFTRIAXONA 1 G", "FR", 4, 98700, true},
                                           {"HEPARINA 5.000 UI/0,25 ML", "AMP", 4, 112300, true},
                                           {"INSULINA NPH 100 UI/ML", "FR", 4, 387000, true},
                                           {"OMEPRAZOL 40 MG", "FR", 4, 124500, true},
                                           {"ÁGUA DESTILADA 10 ML", "AMP", 4, 4525, true},
                                           {"SERINGA 5 ML", "UN", 5, 3850, true},
                                           {"SERINGA 10 ML", "UN", 5, 5475, true},
                                           {"SERINGA DE INSULINA 1 ML", "UN", 5, 4990, true},
                                           {"AGULHA 25X7", "UN", 5, 1835, true},
                                           {"CATETER PERIFÉRICO 22", "UN", 5, 14500, true},
                                           {"EQUIPO MACROGOTAS", "UN", 5, 17925, true}}};

const std::array<const char*, 5> costCentres = {"ADMINISTRAÇÃO", "ATENDIMENTO DOMICILIAR", "CLÍNICA",
                                                "MANUTENÇÃO", "RECURSOS HUMANOS"};
const std::array<const char*, 8> subCostCentres = {"ALUGUEL",
                                                   "COMBUSTÍVEL",
                                                   "ENERGIA ELÉTRICA",
                                                   "IMPOSTOS",
                                                   "INSUMOS",
                                                   "MATERIAL DE ESCRITÓRIO",
                                                   "SERVIÇOS DE TERCEIROS",
                                                   "TELEFONE"};

namespace {

constexpr std::array<Position, 10> positions = {{{0, '0', 200, 30},
                                                 {1, '0', 350, 30},
                                                 {2, '0', 240, 20},
                                                 {3, '0', 300, 20},
                                                 {4, '0', 320, 30},
                                                 {5, '0', 180, 40},
                                                 {6, '1', 110, 120},
                                                 {7, '1', 130, 120},
                                                 {7, '2', 120, 30},
                                                 {8, '2', 140, 40}}};
// How many of the pattern visit homes, and where they begin: the last four.
constexpr int homePositions = 4;
constexpr int firstHomePosition = 6;

void addSlots(Shift& shift, int from, int to, int step)
{
    for (int minutes = from; minutes < to; minutes += step)
        shift.slots.push_back(minutes);
}

/// Clinic mornings and afternoons; who does both visits homes in the afternoon; every third works on
/// Saturdays.
std::vector<Shift> shiftsOf(const Position& position, std::size_t number, int day)
{
    const bool saturday = day == 7 && number % 3 == 0 && position.place == '0';
    if (day == 1 || (day == 7 && !saturday))
        return {};
    Shift morning{position.place == '1' ? '1' : '0', {}};
    addSlots(morning, 8 * 60, 12 * 60, position.slotMinutes);
    if (saturday)
        return {morning};
    Shift afternoon{position.place == '0' ? '0' : '1', {}};
    addSlots(afternoon, 13 * 60 + 30, 17 * 60 + 30, position.place == '0' ? position.slotMinutes : 120);
    return {morning, afternoon};
}

struct Week
{
    std::array<std::vector<Shift>, 8> shifts;
    std::array<std::vector<int>, 8> clinicSlots;
};

const Week& week(std::int64_t professional)
{
    static const auto weeks = [] {
        std::array<Week, positions.size()> all;
        for (std::size_t number = 0; number < positions.size(); ++number) {
            for (std::size_t day = 1; day <= 7; ++day) {
                all[number].shifts[day] = shiftsOf(positions[number], number, static_cast<int>(day));
                for (const Shift& shift : all[number].shifts[day]) {
                    auto& slots = all[number].clinicSlots[day];
                    if (shift.place == '0')
                        slots.insert(slots.end(), shift.slots.begin(), shift.slots.end());
                }
            }
        }
        return all;
    }();
    return weeks[static_cast<std::size_t>(professional) % weeks.size()];
}

} // namespace

Clinic::Clinic(Options options)
    : options_(std::move(options)),
      seed_(options_.seed),
      professionals_(std::max<std::int64_t>(10, options_.patients / 3000))
{
    // Two tenants of one seed are different clinics (FNV-1a).
    for (const char c : options_.tenant)
        seed_ = (seed_ ^ static_cast<unsigned char>(c)) * 0x100000001B3U;
}

std::string Clinic::productCode(int product) const
{
    // Products are joined without the tenant: codes of two tenants must not meet.
    const std::string digits = std::to_string(code(product));
    std::string padded(digits.size() < 4 ? 4 - digits.size() : 0, '0');
    return padded.append(digits);
}

Random Clinic::random(Stream stream, std::int64_t index) const
{
    return Random(seed_, stream, static_cast<std::uint64_t>(index));
}

std::int64_t Clinic::historyDays() const
{
    return std::max<std::int64_t>(365, std::max(purchases(), payables()) / 20);
}

PatientName Clinic::patientName(std::int64_t patient) const
{
    Random draw = random(Stream::PatientName, patient);
    PatientName person;
    person.name = personName(draw);
    if (draw.percent(60))
        person.landline = landline(draw);
    person.mobile = mobile(draw);
    person.plan = draw.percent(35) ? 0 : static_cast<int>(draw.below(std::ssize(plans)));
    return person;
}

Patient Clinic::patient(std::int64_t number) const
{
    constexpr std::array allergies = {"DIPIRONA", "PENICILINA", "LÁTEX", "FRUTOS DO MAR", "IODO"};
    constexpr std::array medications = {"LOSARTANA 50 MG", "METFORMINA 850 MG", "CLONAZEPAM 2 MG",
                                        "LEVOTIROXINA 50 MCG"};
    constexpr std::array surgeries = {"APENDICECTOMIA EM 2012", "CESÁREA", "PRÓTESE DE QUADRIL",
                                      "REVASCULARIZAÇÃO EM 2019"};

    Random draw = random(Stream::PatientDetails, number);
    Patient person{patientName(number), {}, {}, {}, {}, {}, {}, {}, {}, {}, {}, {}, {}};
    const std::int64_t age = draw.between(200, 33000);
    if (!draw.percent(4))
        person.born = options_.today - std::chrono::days(age);
    person.registered = options_.today - std::chrono::days(draw.between(1, 1500));
    person.cpf = cpf(seed_, static_cast<std::uint64_t>(number));
    person.rg = identityCard(draw);
    if (draw.percent(50))
        person.email = "PACIENTE" + std::to_string(code(number)) + "@EXAMPLE.COM";
    person.home = address(draw);
    if (age < 18 * 365 || age > 65 * 365 || draw.percent(20)) {
        person.relative = personName(draw);
        person.relativePhone = mobile(draw);
    }
    if (draw.percent(12))
        person.allergy = draw.pick(allergies);
    if (draw.percent(20))
        person.medication = draw.pick(medications);
    if (draw.percent(15))
        person.surgery = draw.pick(surgeries);
    if (draw.percent(8))
        person.remarks = "PREFERE ATENDIMENTO PELA MANHÃ.\nAVISAR O RESPONSÁVEL SOBRE REMARCAÇÕES.";
    return person;
}

const Position& Clinic::position(std::int64_t professional)
{
    return positions[static_cast<std::size_t>(professional) % positions.size()];
}

const std::vector<Shift>& Clinic::shifts(std::int64_t professional, int day)
{
    return week(professional).shifts[static_cast<std::size_t>(day)];
}

const std::vector<int>& Clinic::clinicSlots(std::int64_t professional, int day)
{
    return week(professional).clinicSlots[static_cast<std::size_t>(day)];
}

std::int64_t Clinic::homeProfessional(Random& draw) const
{
    const std::int64_t wholePatterns = professionals_ / std::ssize(positions);
    return draw.below(wholePatterns) * std::ssize(positions) + firstHomePosition + draw.below(homePositions);
}

Day Clinic::purchaseDay(std::int64_t purchase) const
{
    const std::int64_t span = historyDays();
    return options_.today - std::chrono::days(span - purchase * span / purchases());
}

int Clinic::purchaseLines(std::int64_t purchase) const
{
    return static_cast<int>(random(Stream::Purchase, purchase).between(3, 6));
}

PurchaseLine Clinic::purchaseLine(std::int64_t purchase, int line) const
{
    Random draw = random(Stream::PurchaseLine, purchase * 8 + line);
    PurchaseLine bought{static_cast<int>(draw.below(std::ssize(products))), {}, {}, 0, 0};
    const Product& product = products[static_cast<std::size_t>(bought.product)];
    bought.unitValue = product.cost * draw.between(92, 108) / 100;
    bought.quantity = static_cast<int>(draw.between(1, 40) * 5);
    if (product.lots) {
        const Day day = purchaseDay(purchase);
        bought.lot = "L" + format(day, "ym") + std::to_string(draw.between(1000, 9999));
        bought.expiry = day + std::chrono::days(draw.between(400, 900));
    }
    return bought;
}

std::string Clinic::registerStamp(const char* user, Moment moment)
{
    return std::string(user) + " - " + format(moment, "d/m/Y H:M:S");
}

std::string Clinic::stamp(const char* user, Moment moment)
{
    return std::string(user) + " " + format(moment, "d/m/Y H:M:S");
}

std::string slotText(int minutes)
{
    return format(Moment{Day{}, minutes * 60}, "H:M");
}
