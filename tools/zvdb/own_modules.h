// The modules of the host suite that the windows ask the module gate for. A database to start with
// has them registered, without passwords; the rights at their positions say who may use them.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zv::zvdb {

/// A statement for each module. `textPrefix` stands in front of a literal in all scripts.
std::vector<std::string> RegisterOwnModules(std::string_view textPrefix = {});

inline constexpr char kModuleTable[] = "tSysFunc";

/// A condition on that table: rows as RegisterOwnModules writes them. What is imported takes their
/// place.
std::string IsOwnModule();

}  // namespace zv::zvdb
