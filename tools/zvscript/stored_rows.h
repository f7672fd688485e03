// The rows of the scenario's database, as text to compare.
#pragma once

#include <string>
#include <vector>

namespace zv::script {

class ScenarioStage;

/// All rows of all tables. A table that cannot be read is left out.
std::string StoredRows(ScenarioStage& stage);
/// The lines in which two of these texts differ, in words; none when the texts are equal.
std::vector<std::string> Differences(const std::string& a, const std::string& b);

}  // namespace zv::script
