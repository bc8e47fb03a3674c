#include "platform/data/rowstore.h"

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

} // namespace ADODB
