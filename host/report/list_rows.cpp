#include "report/list_rows.h"

#include <utility>

#include "report/row_reader.h"

namespace zv::report {

std::string ListStatement(const std::string& filter, const std::string& order) {
    std::string sql = "select * from tTaskList a ";
    if (!filter.empty()) sql += "where " + filter + " ";
    if (!order.empty()) sql += "Order By " + order;
    return sql;
}

Table ReadRows(store::Recordset& rows, const std::vector<Heading>& columns, DateTime today,
               std::int16_t language) {
    Table table;
    std::vector<int> sources;
    std::vector<std::string> fields;
    if (columns.empty()) {
        for (int i = 0; i < rows.FieldCount(); i++) {
            sources.push_back(i);
            fields.push_back(rows.FieldName(i));
            table.columns.push_back({fields.back()});
        }
    }
    for (const Heading& column : columns) {
        sources.push_back(rows.FieldIndex(column.key));
        fields.push_back(column.key);
        table.columns.push_back({column.caption});
    }
    RowReader reader(table, std::move(fields), today, language);
    std::vector<store::Value> values;
    for (; !rows.Eof(); rows.MoveNext()) {
        values.clear();
        for (const int source : sources) values.push_back(rows.Field(source));
        reader.Add(values);
    }
    return table;
}

}  // namespace zv::report
