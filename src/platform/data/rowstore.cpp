#include "platform/data/rowstore.h"

#include "platform/data/criteria.h"
#include "platform/data/odbc/odbc.h"

namespace ADODB {

std::vector<Row> allRows(Odbc::Statement& statement)
{
    std::vector<Row> rows;
    std::vector<QByteArrayView> cells(statement.columns().size());
    while (const qsizetype count = statement.fetchBlock()) {
        for (qsizetype row = 0; row < count; ++row) {
            for (std::size_t column = 0; column < cells.size(); ++column)
                cells[column] = statement.cell(row, qsizetype(column));
            rows.emplace_back(cells);
        }
    }
    return rows;
}

std::optional<qsizetype> RowStore::find(const Criteria& criteria)
{
    for (qsizetype place = first(); place < first() + count(); ++place)
        if (const Row* candidate = row(place); candidate && criteria.matches(*candidate))
            return place;
    return std::nullopt;
}

std::optional<qsizetype> RowStore::placeOf(const RowMark& mark)
{
    const bool isHeld = mark.place >= 0 && mark.place < count() && row(mark.place);
    return isHeld ? std::optional(mark.place) : std::nullopt;
}

} // namespace ADODB
