#include "stored_rows.h"

#include <algorithm>
#include <array>

#include "base/text.h"
#include "scenario_stage.h"
#include "script_text.h"

namespace zv::script {

std::string StoredRows(ScenarioStage& stage) {
    constexpr std::array kTables = {"tTaskList order by fID",
                                    "tTaskSet order by TaskID",
                                    "cards order by fID",
                                    "tRsBasic",
                                    "Employees",
                                    "rptListDetail",
                                    "tSysFunc"};
    std::string rows;
    for (const char* table : kTables) {
        rows += std::string("-- ") + table + '\n';
        try {
            rows += stage.host.Rows(std::string("select * from ") + table) + '\n';
        } catch (const RuntimeError&) {
            // A scenario may have no database, or lack a table, on purpose.
        }
    }
    return rows;
}

namespace {

/// Gives `take` each pair of lines that are not the same.
template <typename Take>
void ForEachDifference(const std::string& a, const std::string& b, const Take& take) {
    const auto left = text::Split(a, "\n");
    const auto right = text::Split(b, "\n");
    for (std::size_t i = 0; i < std::max(left.size(), right.size()); i++) {
        const std::string one = i < left.size() ? left[i] : "";
        const std::string other = i < right.size() ? right[i] : "";
        if (one != other) take(one, other);
    }
}

}  // namespace

int DifferingLines(const std::string& a, const std::string& b) {
    int lines = 0;
    ForEachDifference(a, b, [&](const std::string&, const std::string&) { lines++; });
    return lines;
}

std::string FirstDifference(const std::string& a, const std::string& b) {
    std::string first;
    ForEachDifference(a, b, [&](const std::string& one, const std::string& other) {
        if (first.empty()) first = "expected " + Quote(one) + " got " + Quote(other);
    });
    return first.empty() ? "no difference" : first;
}

}  // namespace zv::script
