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

std::string FirstDifference(const std::string& a, const std::string& b) {
    const auto left = text::Split(a, "\n");
    const auto right = text::Split(b, "\n");
    for (std::size_t i = 0; i < std::max(left.size(), right.size()); i++) {
        const std::string one = i < left.size() ? std::string(left[i]) : "";
        const std::string other = i < right.size() ? std::string(right[i]) : "";
        if (one != other) return "expected " + Quote(one) + " got " + Quote(other);
    }
    return "no difference";
}

}  // namespace zv::script
