#include "zvdb/import/system_tables.h"

#include <algorithm>
#include <charconv>

#include "base/text.h"
#include "store/engines/engines.h"
#include "store/sqlite/database_file.h"
#include "zvdb/engine.h"

namespace zv::zvdb {
namespace {

ColumnRule RuleOf(const std::string& name, const std::string& type) {
    ColumnRule rule;
    rule.name = name;
    if (type == "smallint") {
        rule.kind = ColumnKind::Whole16;
    } else if (type == "integer") {
        rule.kind = ColumnKind::Whole32;
    } else if (type == "datetime") {
        rule.kind = ColumnKind::Date;
    } else if (const auto open = type.find('('); open != std::string::npos) {
        std::from_chars(type.data() + open + 1, type.data() + type.size(), rule.size);
    }
    return rule;
}

/// The tables that a script makes.
std::vector<TableRule> ReadScript(Engine& engine, std::string_view script) {
    const std::int64_t before = engine.Number("select coalesce(max(rowid),0) from sqlite_master");
    engine.Run(std::string(script));
    std::vector<TableRule> tables;
    Statement names(engine,
                    "select name,sql like '%autoincrement%' from sqlite_master where type='table' "
                    "and name not like 'sqlite%' and rowid>? order by rowid");
    names.Bind(before);
    while (names.Step()) {
        TableRule& table = tables.emplace_back();
        table.name = names.Text(0);
        table.countsByItself = names.Number(1) != 0;
        Statement columns(engine, "select name,lower(type),pk from pragma_table_info(?)");
        columns.Bind(table.name);
        while (columns.Step()) {
            table.columns.push_back(RuleOf(columns.Text(0), columns.Text(1)));
            table.columns.back().isKey = columns.Number(2) != 0;
        }
    }
    return tables;
}

struct Tables {
    std::vector<TableRule> system;
    std::vector<TableRule> side;
};

const Tables& BothKinds() {
    static const Tables kTables = [] {
        Engine engine(":memory:");
        Tables tables;
        tables.system = ReadScript(engine, store::sqlite::EmbeddedEngine().schema);
        tables.side = ReadScript(engine, store::sqlite::EmbeddedEngine().sideTables);
        return tables;
    }();
    return kTables;
}

}  // namespace

const std::vector<TableRule>& SystemTables() {
    return BothKinds().system;
}

const std::vector<TableRule>& SideTables() {
    return BothKinds().side;
}

const TableRule* FindTable(const std::vector<TableRule>& tables, std::string_view name) {
    const auto found = std::find_if(tables.begin(), tables.end(), [&](const TableRule& table) {
        return text::EqualsIgnoreCase(table.name, name);
    });
    return found == tables.end() ? nullptr : &*found;
}

}  // namespace zv::zvdb
