#include "tables.h"

#include <algorithm>
#include <set>
#include <string_view>
#include <utility>

using std::chrono::days;

namespace {

constexpr int daysAhead = 30;
constexpr int leastDaysBack = 60;

std::int64_t slotsOn(const Clinic& clinic, Day day)
{
    std::int64_t count = 0;
    if (!isHoliday(day))
        for (std::int64_t i = 0; i < clinic.professionals(); ++i)
            count += std::ssize(Clinic::clinicSlots(i, weekday(day)));
    return count;
}

/// The days over which the appointments spread: as many back from today as leave four slots in ten free.
struct Window
{
    Day first;
    std::int64_t slots;
};

Window window(const Clinic& clinic)
{
    const Day today = clinic.options().today;
    Window window{today, 0};
    for (Day day = today; day <= today + days(daysAhead); day += days(1))
        window.slots += slotsOn(clinic, day);
    while (window.first > today - days(leastDaysBack) ||
           window.slots * 6 < clinic.options().appointments * 10) {
        window.first -= days(1);
        window.slots += slotsOn(clinic, window.first);
    }
    return window;
}

struct Appointment
{
    Day day;
    int minutes;
    std::int64_t professional;
    std::int64_t patient;
    PatientName person;
    std::int64_t procedure;
    std::int64_t cents;
};

class Agenda
{
public:
    Agenda(const Clinic& clinic, Output& output);
    void write();

private:
    void writeDay(Day day);
    void book(const Appointment& appointment, std::size_t slot);
    void close(const Appointment& appointment, Random& draw);

    const Clinic& clinic_;
    Output& output_;
    Window window_;
    Table bookings_;
    Table attendances_;
    Table payments_;
    std::int64_t slotsLeft_;
    std::int64_t wanted_;
    std::int64_t written_ = 0;
};

Agenda::Agenda(const Clinic& clinic, Output& output)
    : clinic_(clinic),
      output_(output),
      window_(window(clinic)),
      bookings_(output.table("agenda_clinica",
                             "idlic, idagenda, fone, idpro, idesp, idconv, idpac, nmpac, dia, hr, obs, "
                             "idproc, valor, status, evcad, evup, mobesp, ondeatd")),
      attendances_(output.table("atendimentos",
                                "idlan, idlic, ondeatd, idprof, idproc, dt, hr, qtde, valor, cf, "
                                "idatendimento, idconv, evcad, idpac")),
      payments_(output.table("atendimento_finan", "idlic, idatend, mp, obs, valor, cf, evcad")),
      slotsLeft_(window_.slots),
      wanted_(clinic.options().appointments)
{
}

void Agenda::write()
{
    for (Day day = window_.first; day <= clinic_.options().today + days(daysAhead); day += days(1))
        if (!isHoliday(day))
            writeDay(day);
    output_.add(bookings_);
    output_.add(attendances_);
    output_.add(payments_);
}

void Agenda::writeDay(Day day)
{
    // One appointment a day for each patient: the screen refuses two at one time, and the key of a closing is
    // the patient and the second.
    std::set<std::int64_t> patientsOfDay;
    for (std::int64_t professional = 0; professional < clinic_.professionals(); ++professional) {
        const std::vector<int>& slots = Clinic::clinicSlots(professional, weekday(day));
        for (std::size_t slot = 0; slot < slots.size(); ++slot) {
            Random draw = clinic_.random(Stream::Appointment, slotsLeft_);
            // Selection sampling: of the slots left each is as likely, and the count comes out exactly.
            if (draw.below(slotsLeft_--) >= wanted_ - written_)
                continue;
            ++written_;
            std::int64_t patient = draw.below(clinic_.options().patients);
            while (!patientsOfDay.insert(patient).second)
                patient = (patient + 1) % clinic_.options().patients;
            Appointment appointment{day, slots[slot], professional, patient, clinic_.patientName(patient), 0,
                                    0};
            appointment.procedure = draw.percent(60) ? 0 : draw.below(clinicProcedures);
            const Plan& plan = plans[static_cast<std::size_t>(appointment.person.plan)];
            // The price is whole reais and the discount a multiple of half a percent: no cent is lost.
            appointment.cents = Clinic::position(professional).reais * (10000 - plan.discount) / 100;
            book(appointment, slot);
        }
    }
}

void Agenda::book(const Appointment& appointment, std::size_t slot)
{
    const Options& options = clinic_.options();
    const auto number = static_cast<int>(slot);
    Random draw = clinic_.random(Stream::Appointment, -written_);
    const bool future = appointment.day > options.today;

    // The key is the booking's second, the user and the professional. Each slot of a day has a 20-minute span
    // of its own in which it is booked and a lead in days of its own, and future days take the odd seconds:
    // so no professional is booked twice in one second. 31 days and more keep the booking of a future day in
    // the past.
    const int lead = 1 + (number * 7 + static_cast<int>(appointment.professional % 100) * 3) % 21 +
                     (future ? daysAhead : 0);
    const Moment booked{appointment.day - days(lead),
                        8 * 3600 + number * 1200 + static_cast<int>(draw.below(600)) * 2 + (future ? 1 : 0)};
    const std::string key =
        format(booked, "ymdHMS") + "RECEPCAO" + std::to_string(clinic_.code(appointment.professional));

    const std::int64_t chance = draw.below(100);
    const char* status = "0";
    if (appointment.day < options.today)
        status = chance < 92 ? "2" : chance < 96 ? "1" : "0";
    else if (appointment.day < options.today + days(4))
        status = chance < 60 ? "1" : "0";
    const std::string stamp = Clinic::stamp("RECEPCAO", booked);
    bookings_.row(
        options.tenant, key, appointment.person.mobile + " " + appointment.person.landline,
        clinic_.code(appointment.professional),
        clinic_.code(Clinic::position(appointment.professional).speciality),
        clinic_.code(appointment.person.plan), clinic_.code(appointment.patient), appointment.person.name,
        appointment.day, slotText(appointment.minutes), draw.percent(10) ? "TRAZER EXAMES ANTERIORES" : "",
        clinic_.code(appointment.procedure), money(appointment.cents), status, stamp,
        *status == '1'
            ? Clinic::stamp("RECEPCAO", {std::min(appointment.day - days(1), options.today), 15 * 3600})
            : stamp,
        draw.percent(6) ? "1 - Sim" : "0 - Não", "0");
    if (*status == '2')
        close(appointment, draw);
}

void Agenda::close(const Appointment& appointment, Random& draw)
{
    constexpr std::array kinds = {"DINHEIRO", "CHEQUE", "PIX", "CREDITO CARTAO", "DÉBITO CARTAO", "CONVENIO"};
    const std::string& tenant = clinic_.options().tenant;
    const Moment closed{appointment.day,
                        appointment.minutes * 60 + static_cast<int>(draw.between(900, 3600))};
    const std::string patient = std::to_string(clinic_.code(appointment.patient));
    const std::string key = "0" + patient + format(closed, "dmYHMS");
    const std::string time = format(Moment{appointment.day, appointment.minutes * 60}, "HM");
    const std::string stamp = Clinic::stamp("RECEPCAO", closed);

    const auto charge = [&](std::int64_t procedure, std::int64_t quantity, std::int64_t cents) {
        const std::string line = tenant + "0" + format(appointment.day, "dmy") + time + patient +
                                 std::to_string(clinic_.code(procedure)) +
                                 std::to_string(clinic_.code(appointment.professional));
        attendances_.row(line, tenant, "0", clinic_.code(appointment.professional), clinic_.code(procedure),
                         appointment.day, time, fine(quantity * 10000), fine(cents * 100), "N", key,
                         clinic_.code(appointment.person.plan), stamp, clinic_.code(appointment.patient));
        return quantity * cents;
    };
    std::int64_t total = charge(appointment.procedure, 1, appointment.cents);
    if (draw.percent(20)) {
        const std::int64_t extra = draw.between(2, clinicProcedures - 1);
        total += charge(extra, draw.between(1, 2), procedures[static_cast<std::size_t>(extra)].reais * 100);
    }

    const auto pay = [&](std::string_view kind, std::int64_t cents) {
        payments_.row(tenant, key, kind, "", fine(cents * 100), "N", stamp);
    };
    const char* kind = appointment.person.plan != 0 && draw.percent(70) ? "CONVENIO" : draw.pick(kinds);
    const std::int64_t first = draw.percent(10) ? total / 2 : total;
    pay(kind, first);
    if (first < total)
        pay("PIX", total - first);
}

} // namespace

void writeAgenda(const Clinic& clinic, Output& output)
{
    Agenda(clinic, output).write();
}
