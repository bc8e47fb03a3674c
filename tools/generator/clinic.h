#pragma once

#include "options.h"
#include "people.h"
#include "random.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

struct Plan
{
    const char* name;
    int discount; ///< hundredths of a percent
};

struct Procedure
{
    const char* name;
    char place; ///< '0' clinic, '1' home
    int reais;
};

struct Product
{
    const char* name;
    const char* unit;
    int group;
    int cost; ///< four decimal places
    bool lots;
};

/// Patients as the agenda knows them.
struct PatientName
{
    std::string name;
    std::string landline; ///< may be empty
    std::string mobile;
    int plan;
};

struct Patient : PatientName
{
    Day registered;
    std::optional<Day> born;
    std::string cpf;
    std::string rg;
    std::string email;
    Address home;
    std::string relative;
    std::string relativePhone;
    std::string allergy; ///< these three are empty where the answer is no
    std::string medication;
    std::string surgery;
    std::string remarks;
};

/// What a position of the staff's pattern of ten does. The staff repeats the pattern.
struct Position
{
    int speciality;
    char place; ///< '0' clinic, '1' home, '2' both
    int reais;
    int slotMinutes;
};

/// One row of working hours: its slots in minutes of the day.
struct Shift
{
    char place;
    std::vector<int> slots;
};

/// A purchase line, the same whenever it is asked for.
struct PurchaseLine
{
    int product;
    std::string lot;           ///< empty without lot control
    std::optional<Day> expiry; ///< absent without lot control
    std::int64_t unitValue;    ///< four decimal places
    int quantity;
};

extern const std::array<Plan, 7> plans;
extern const std::array<const char*, 9> specialities;
extern const std::array<Procedure, 18> procedures;
extern const std::array<const char*, 6> productGroups;
extern const std::array<Product, 36> products;
extern const std::array<const char*, 5> costCentres;
extern const std::array<const char*, 8> subCostCentres;
constexpr int clinicProcedures = 10; ///< they stand first in procedures
constexpr int homeProcedures = 8;

/// The made-up clinic: everything that several tables must agree on. Numbers count from 0; code() makes the
/// server-numbered code of one, in any table.
class Clinic
{
public:
    explicit Clinic(Options options);

    const Options& options() const { return options_; }
    std::int64_t code(std::int64_t number) const { return options_.firstCode + number; }
    std::string productCode(int product) const;
    Random random(Stream stream, std::int64_t index) const;

    /// One professional for every 3,000 patients, at least ten.
    std::int64_t professionals() const { return professionals_; }
    std::int64_t suppliers() const { return 14 + options_.scale; }
    std::int64_t purchases() const { return 15 * options_.scale; }
    std::int64_t payables() const { return 40 * options_.scale; }
    /// Days back from today over which purchases and payables are spread: a year, or more above 20 a day.
    std::int64_t historyDays() const;

    PatientName patientName(std::int64_t patient) const;
    Patient patient(std::int64_t patient) const;
    static const Position& position(std::int64_t professional);
    /// day: weekday, 1 for Sunday.
    static const std::vector<Shift>& shifts(std::int64_t professional, int day);
    /// The slots of a weekday at which the clinic may book, in order of time.
    static const std::vector<int>& clinicSlots(std::int64_t professional, int day);
    /// A professional who visits homes.
    std::int64_t homeProfessional(Random& random) const;

    Day purchaseDay(std::int64_t purchase) const;
    int purchaseLines(std::int64_t purchase) const;
    PurchaseLine purchaseLine(std::int64_t purchase, int line) const;

    /// Stamps of registers saved from their grid, and of statements.
    static std::string registerStamp(const char* user, Moment moment);
    static std::string stamp(const char* user, Moment moment);
    std::uint64_t seed() const { return seed_; }

private:
    Options options_;
    std::uint64_t seed_;
    std::int64_t professionals_;
};

/// A slot as the agenda shows it, 08:30.
std::string slotText(int minutes);
