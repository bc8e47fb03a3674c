#include "tables.h"

using std::chrono::days;

void writePurchases(const Clinic& clinic, Output& output)
{
    Table table = output.table(
        "insumos_cmp", "idlic, idlan, cdfor, serie, nfiscal, modelo, dte, dtc, cdpro, vfinal, vfrete, "
                       "qtde, status, evcad, lote, dtv");
    Day last{};
    int ofDay = 0;
    for (std::int64_t purchase = 0; purchase < clinic.purchases(); ++purchase) {
        Random draw = clinic.random(Stream::Purchase, -1 - purchase);
        const Day day = clinic.purchaseDay(purchase);
        ofDay = day == last ? ofDay + 1 : 0;
        last = day;
        const std::int64_t supplier = draw.below(clinic.suppliers());
        const Day issued = day - days(draw.between(1, 6));
        const std::int64_t freightPermille = draw.percent(60) ? draw.between(10, 60) : 0;
        const bool open = purchase + 2 >= clinic.purchases();
        const int lines = clinic.purchaseLines(purchase);
        for (int number = 0; number < lines; ++number) {
            const PurchaseLine line = clinic.purchaseLine(purchase, number);
            // The key is the second of entry: a purchase has 15 minutes, a line 60 seconds.
            const Moment entered{day,
                                 8 * 3600 + ofDay * 900 + number * 60 + static_cast<int>(draw.below(60))};
            table.row(clinic.options().tenant, format(entered, "ymdHMS"), clinic.code(supplier), 1,
                      1000 + purchase * 7, 55, issued, day, clinic.productCode(line.product),
                      fine(line.unitValue), fine(line.unitValue * freightPermille / 1000),
                      fine(line.quantity * 10000LL), open ? "N" : "S",
                      // This screen stores no user's name.
                      " " + format(entered, "d/m/Y H:M:S"), line.lot, line.expiry);
        }
    }
    output.add(table);
}
