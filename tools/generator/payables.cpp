#include "tables.h"

#include <algorithm>
#include <utility>

using std::chrono::days;

namespace {

constexpr const char* user = "FINANCAS";

struct Instalment
{
    std::string document;
    std::int64_t supplier;
    Day issued;
    std::int64_t costCentre;
    std::int64_t subCentre;
    std::string part; ///< 001/003
    Day due;
    std::int64_t cents;
    char state = 'N';
    std::string receipt = "em aberto";
    std::optional<Day> paid;
    std::int64_t interest = 0;
    std::int64_t discount = 0;

    std::int64_t toPay() const { return cents + interest - discount; }
};

class Payables
{
public:
    Payables(const Clinic& clinic, Output& output);
    void write();

private:
    std::vector<Instalment> document(std::int64_t number);
    void settle(std::vector<Instalment*> items, Random& draw);
    void takeIntoPendingReceipt(Instalment& item);
    void writeInstalment(const Instalment& item);

    const Clinic& clinic_;
    Output& output_;
    Table instalments_;
    Table payments_;
    int receipts_ = 0;
    int pending_ = 0;
};

Payables::Payables(const Clinic& clinic, Output& output)
    : clinic_(clinic),
      output_(output),
      instalments_(output.table(
          "cpagar", "idlic, idlan, nrdoc, refdoc, cdfor, dte, obs, cdcen, cdscen, dtv, vrorig, vrpg, "
                    "vrab, parcela, evcad, pago, nrrec, dtp, vrj, vrd")),
      payments_(output.table("cpagar_recibos", "idlic, nrrec, dtbx, cdmp, obs, valor, evcad"))
{
}

std::vector<Instalment> Payables::document(std::int64_t number)
{
    constexpr std::array counts = {1, 1, 2, 3, 3, 6, 12};
    Random draw = clinic_.random(Stream::Payable, number);
    const std::int64_t span = clinic_.historyDays();
    const int count = draw.pick(counts);
    Instalment item;
    item.document = std::to_string(5000 + number);
    item.supplier = draw.below(clinic_.suppliers());
    item.issued = clinic_.options().today - days(span - number * span / clinic_.payables());
    item.costCentre = draw.below(std::ssize(costCentres));
    item.subCentre = draw.below(std::ssize(subCostCentres));
    item.cents = draw.between(80, 3500) * 100 + draw.below(100);
    const Day first = item.issued + days(draw.between(5, 30));
    const auto three = [](int n) { return std::string(n < 10 ? "00" : "0") + std::to_string(n); };
    std::vector<Instalment> items;
    for (int i = 0; i < count; ++i) {
        item.part = three(i + 1) + "/" + three(count);
        item.due = plusMonths(first, i);
        items.push_back(item);
    }
    return items;
}

void Payables::write()
{
    const Day today = clinic_.options().today;
    for (std::int64_t number = 0; number < clinic_.payables(); number += 2) {
        // Two documents at a time: their instalments of one number share a receipt where both are settled.
        Random draw = clinic_.random(Stream::Payable, -1 - number);
        std::vector<std::vector<Instalment>> documents;
        for (std::int64_t i = number; i < std::min(number + 2, clinic_.payables()); ++i)
            documents.push_back(document(i));
        for (std::size_t i = 0; i < 12; ++i) {
            std::vector<Instalment*> settled;
            for (std::vector<Instalment>& items : documents) {
                if (i >= items.size())
                    continue;
                if (items[i].due < today - days(5) && draw.percent(94))
                    settled.push_back(&items[i]);
                else if (items[i].due <= today + days(20) && pending_ < 3)
                    takeIntoPendingReceipt(items[i]);
            }
            if (!settled.empty())
                settle(std::move(settled), draw);
        }
        for (const std::vector<Instalment>& items : documents)
            for (const Instalment& item : items)
                writeInstalment(item);
    }
    output_.add(instalments_);
    output_.add(payments_);
}

void Payables::settle(std::vector<Instalment*> items, Random& draw)
{
    constexpr std::array modes = {"PIX", "TED", "DIN", "CHE", "DBC"};
    Day day = items.front()->due;
    for (const Instalment* item : items)
        day = std::max(day, item->due);
    day += days(draw.below(4));
    const Moment moment{day, 9 * 3600 + receipts_++ % 28800};
    const std::string receipt = format(moment, "ymdHMS");
    std::int64_t total = 0;
    for (Instalment* item : items) {
        item->state = 'S';
        item->receipt = receipt;
        item->paid = day;
        if (day > item->due)
            item->interest = item->cents * 2 / 100;
        else if (draw.percent(10))
            item->discount = item->cents * 3 / 100;
        total += item->toPay();
    }
    const std::string stamp = Clinic::stamp(user, moment);
    const std::int64_t first = draw.percent(15) ? total / 2 : total;
    payments_.row(clinic_.options().tenant, receipt, day, draw.pick(modes), "", money(first), stamp);
    if (first < total)
        payments_.row(clinic_.options().tenant, receipt, day, "OUT", "COMPLEMENTO", money(total - first),
                      stamp);
}

void Payables::takeIntoPendingReceipt(Instalment& item)
{
    item.state = 'X';
    item.receipt = format(Moment{clinic_.options().today - days(1), 16 * 3600 + 1800}, "ymdHMS");
    item.discount = ++pending_ == 2 ? 1000 : 0;
}

void Payables::writeInstalment(const Instalment& item)
{
    const bool settled = item.state == 'S';
    instalments_.row(clinic_.options().tenant,
                     item.part + "/" + item.document + "/" + std::to_string(clinic_.code(item.supplier)),
                     item.document, "REF " + item.document, clinic_.code(item.supplier), item.issued,
                     std::string("DESPESA COM ") + subCostCentres[static_cast<std::size_t>(item.subCentre)],
                     clinic_.code(item.costCentre), clinic_.code(item.subCentre), item.due, money(item.cents),
                     money(item.state == 'N' ? 0 : item.toPay()), money(settled ? 0 : item.cents), item.part,
                     Clinic::stamp(user, {item.issued, 14 * 3600}), std::string_view(&item.state, 1),
                     item.receipt, item.paid, money(item.interest), money(item.discount));
}

} // namespace

void writePayables(const Clinic& clinic, Output& output)
{
    Payables(clinic, output).write();
}

void writeReceivables(const Clinic& clinic, Output& output)
{
    constexpr int customers = 12;
    const Day today = clinic.options().today;
    Table clientes = output.table("clientes", "cdcli, nmcli, idlic");
    Table open =
        output.table("creceber", "cdcli, nrdoc, dte, dtv, vrorig, juros, descontos, vrpg, vrab, pago");
    Table settled = output.table(
        "creceber_recibos", "cdcli, nrdoc, nrrec, dtbx, dtv, vrab, vrpg, juros, descontos, status, idlic");
    for (std::int64_t customer = 0; customer < customers; ++customer) {
        Random draw = clinic.random(Stream::Receivable, customer);
        const std::int64_t code = clinic.code(customer);
        clientes.row(code, personName(draw), clinic.options().tenant);
        for (int i = 0; i < 4; ++i) {
            const std::int64_t cents = draw.between(100, 2500) * 100;
            const Day due = today + days(draw.between(0, 30) - (i < 2 ? 40 : 0));
            const std::string document = "R" + std::to_string(code * 10 + i);
            if (i >= 2) {
                open.row(code, document, due - days(30), due, money(cents), money(0), money(0), money(0),
                         money(cents), "N");
                continue;
            }
            const bool pending = customer < 2 && i == 1;
            settled.row(code, document,
                        format(Moment{due, 10 * 3600 + static_cast<int>(customer) * 60 + i}, "ymdHMS"), due,
                        due, money(pending ? cents : 0), money(cents), money(0), money(0),
                        pending ? "X" : "S", clinic.options().tenant);
        }
    }
    output.add(clientes);
    output.add(open);
    output.add(settled);
}
