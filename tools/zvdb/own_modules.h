// The modules of the host suite that the windows ask the module gate for. A database to start with
// has them registered, without passwords; whoever has the rights at their positions may use them.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace zv::zvdb {

struct OwnModule {
    /// First of the module's flags in the rights string; the flags behind it are its operations.
    int serial;
    const char* key;
    const char* simplified;
    const char* traditional;
};

inline constexpr std::array<OwnModule, 4> kOwnModules = {{
    {11, "mnuCardLimited", "查看全部客户", "檢視全部客戶"},
    {21, "mnuCardPlan", "客户计划", "客戶計劃"},
    {31, "mnuToolTask", "任务管理", "任務管理"},
    {41, "mnuZjComp", "客户跟进", "客戶跟進"},
}};

/// A statement for each. `textPrefix` stands in front of a literal in all scripts.
std::vector<std::string> RegisterOwnModules(std::string_view textPrefix = {});

inline constexpr char kModuleTable[] = "tSysFunc";

/// A condition on that table: rows as RegisterOwnModules writes them. What is imported takes their
/// place.
std::string IsOwnModule();

}  // namespace zv::zvdb
