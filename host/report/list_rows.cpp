#include "report/list_rows.h"

#include "report/item_values.h"

namespace zv::report {

std::string ListStatement(const std::string& filter, const std::string& order) {
    std::string sql = "select * from tTaskList a ";
    if (!filter.empty()) sql += "where " + filter + " ";
    if (!order.empty()) sql += "Order By " + order;
    return sql;
}

Table ReadRows(store::Recordset& rows, const std::vector<Heading>& columns, std::int16_t language) {
    Table table;
    std::vector<int> sources;
    if (columns.empty()) {
        for (int i = 0; i < rows.FieldCount(); i++) {
            sources.push_back(i);
            table.columns.push_back({rows.FieldName(i)});
        }
    }
    for (const Heading& column : columns) {
        sources.push_back(rows.FieldIndex(column.key));
        table.columns.push_back({column.caption});
    }
    for (; !rows.Eof(); rows.MoveNext()) {
        std::vector<std::string>& cells = table.rows.emplace_back();
        for (const int source : sources) {
            cells.push_back(PrintedValue(rows.FieldName(source), rows.Field(source), language));
        }
    }
    return table;
}

}  // namespace zv::report
