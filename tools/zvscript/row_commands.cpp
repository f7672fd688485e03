// Rows that the host application brings into its own tables: item, plan, card, staff.
#include <algorithm>
#include <array>
#include <optional>
#include <utility>
#include <vector>

#include "base/number.h"
#include "base/text.h"
#include "cards/card_columns.h"
#include "command.h"
#include "items/fields.h"
#include "plans/plan_row.h"
#include "scenario_stage.h"
#include "staff/staff_columns.h"

namespace zv::script {
namespace {

using store::Column;
using store::ColumnKind;

struct Row {
    /// SQL literals by column, in the order given.
    std::vector<std::pair<std::string_view, std::string>> values;

    bool Has(std::string_view column) const { return Find(column) != nullptr; }
    const std::string* Find(std::string_view column) const {
        const auto at = std::find_if(values.begin(), values.end(),
                                     [&](const auto& value) { return value.first == column; });
        return at == values.end() ? nullptr : &at->second;
    }
    void Default(std::string_view column, std::string literal) {
        if (!Has(column)) values.emplace_back(column, std::move(literal));
    }
};

struct Table {
    std::string_view name;
    std::span<const Column> columns;
    void (*complete)(Row& row, ScenarioStage& stage);
};

std::string Literal(std::string_view text) {
    return '\'' + text::Replace(text, "'", "''") + '\'';
}

std::string Literal(const DateTime& date) {
    return Literal(date.IsoDateTime());
}

void CompleteItem(Row& row, ScenarioStage& stage) {
    row.Default("fType", "0");
    row.Default("tDone", "0");
    row.Default("taskTime", Literal(stage.machine.clock.Now().Date()));
    const std::string date = *row.Find("taskTime");
    row.Default("tDuring1", date);
    row.Default("tDuring2", date);
}

DateTime AYearOn(const DateTime& date) {
    const int year = date.Year() + 1;
    return {year, date.Month(), std::min(date.Day(), DateTime::DaysInMonth(year, date.Month()))};
}

// As the editor proposes a plan, but that its end lies a calendar year ahead and its alert a day.
void CompletePlan(Row& row, ScenarioStage& stage) {
    const DateTime today = stage.machine.clock.Now().Date();
    if (!row.Has("TaskID")) {
        const auto last = number::Parse(stage.host.Rows("select max(TaskID) from tTaskSet"));
        row.Default("TaskID", std::to_string(static_cast<long>(last.value_or(0)) + 1));
    }
    row.Default("tbegin", Literal(today));
    row.Default("tEnd", Literal(AYearOn(today)));
    for (const char* column :
         {"CircleType", "CircleValue", "taskMonth", "taskday", "TaskWeek", "Type", "TypeValue"}) {
        row.Default(column, "1");
    }
}

void CompleteNothing(Row&, ScenarioStage&) {}

constexpr ColumnKind KindOf(items::FieldKind kind) {
    switch (kind) {
        case items::FieldKind::Text:
            return ColumnKind::Text;
        case items::FieldKind::Date:
            return ColumnKind::Date;
        case items::FieldKind::Number:
        case items::FieldKind::ItemKind:
        case items::FieldKind::State:
            return ColumnKind::Number;
    }
    return ColumnKind::Text;
}

// The database numbers the rows; every other column is a field of an item.
constexpr auto kItemColumns = [] {
    std::array<Column, 1 + items::kFields.size()> columns{{{"fID", ColumnKind::Number}}};
    std::transform(items::kFields.begin(), items::kFields.end(), columns.begin() + 1,
                   [](const items::Field& field) {
                       return Column{field.column, KindOf(field.kind)};
                   });
    return columns;
}();

constexpr Table kItems{"tTaskList", kItemColumns, CompleteItem};
constexpr Table kPlans{"tTaskSet", plans::kPlanColumns, CompletePlan};
constexpr Table kCards{"cards", cards::kColumns, CompleteNothing};
constexpr Table kStaff{"tRsBasic", staff::kPersonnelColumns, CompleteNothing};

std::string ToLiteral(const Column& column, const std::string& value) {
    if (column.kind == ColumnKind::Text) return Literal(value);
    if (value.empty()) return "null";
    if (column.kind == ColumnKind::Number) return std::to_string(ToInteger(value));
    const auto date = DateTime::Parse(value);
    if (!date) throw ScriptError("not a date: " + Quote(value));
    return Literal(*date);
}

Row ToRow(const Table& table, Words words) {
    Row row;
    for (std::size_t i = 0; i < words.size(); i++) {
        const std::size_t equals = words[i].find('=');
        if (equals == 0 || equals == std::string::npos) {
            throw ScriptError("not NAME=VALUE: " + Quote(words[i]));
        }
        const std::string name = words[i].substr(0, equals);
        const auto column = std::find_if(
            table.columns.begin(), table.columns.end(),
            [&](const Column& candidate) { return text::EqualsIgnoreCase(candidate.name, name); });
        if (column == table.columns.end()) {
            throw ScriptError(std::string(table.name) + " has no column " + Quote(name));
        }
        if (row.Has(column->name)) throw ScriptError("named twice: " + Quote(name));
        row.values.emplace_back(column->name, ToLiteral(*column, words[i].substr(equals + 1)));
    }
    return row;
}

void Insert(ScenarioStage& stage, const Table& table, const Row& row) {
    std::string names;
    std::string literals;
    for (const auto& [column, literal] : row.values) {
        if (!names.empty()) names += ',';
        names += column;
        if (!literals.empty()) literals += ',';
        literals += literal;
    }
    stage.host.Execute("insert into " + std::string(table.name) + '(' + names + ") values(" +
                       literals + ')');
}

template <const Table& table>
Action AddRow(Words words) {
    return [given = ToRow(table, words)](ScenarioStage& stage) {
        Row row = given;
        table.complete(row, stage);
        Insert(stage, table, row);
    };
}

constexpr std::array kRows = std::to_array<CommandSpec>({
    {"item", 0, CommandSpec::kMany, "NAME=VALUE...", AddRow<kItems>, OpenMenu::Stays},
    {"plan", 0, CommandSpec::kMany, "NAME=VALUE...", AddRow<kPlans>, OpenMenu::Stays},
    {"card", 1, CommandSpec::kMany, "NAME=VALUE...", AddRow<kCards>, OpenMenu::Stays},
    {"staff", 1, CommandSpec::kMany, "NAME=VALUE...", AddRow<kStaff>, OpenMenu::Stays},
});

}  // namespace

std::span<const CommandSpec> RowCommands() {
    return kRows;
}

}  // namespace zv::script
