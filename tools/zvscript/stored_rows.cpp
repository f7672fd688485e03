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

std::vector<std::string> Differences(const std::string& a, const std::string& b) {
    const auto left = text::Split(a, "\n");
    const auto right = text::Split(b, "\n");
    std::vector<std::string> differences;
    for (std::size_t i = 0; i < std::max(left.size(), right.size()); i++) {
        const bool both = i < left.size() && i < right.size();
        if (both && left[i] == right[i]) continue;
        differences.push_back("expected " + Quote(i < left.size() ? left[i] : "") + " got " +
                              Quote(i < right.size() ? right[i] : ""));
    }
    return differences;
}

}  // namespace zv::script
