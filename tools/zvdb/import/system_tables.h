// The tables of the system with the kinds and sizes of their columns, as the schema declares them.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace zv::zvdb {

enum class ColumnKind { Whole16, Whole32, Text, Date };

struct ColumnRule {
    std::string name;
    ColumnKind kind = ColumnKind::Text;
    std::size_t size = 0;  ///< of a text, in UTF-16 units; 0 is any length
    bool isKey = false;
};

struct TableRule {
    std::string name;
    std::vector<ColumnRule> columns;
    bool countsByItself = false;  ///< the database assigns the key of a new row
};

/// In the order of the schema.
const std::vector<TableRule>& SystemTables();

/// What may stand beside them, in the order of its script.
const std::vector<TableRule>& SideTables();

/// Without regard to case; null when there is none.
const TableRule* FindTable(const std::vector<TableRule>& tables, std::string_view name);

}  // namespace zv::zvdb
