// The rows of the scenario's database, as text to compare.
#pragma once

#include <string>

namespace zv::script {

class ScenarioStage;

/// All rows of all tables. A table that cannot be read is left out.
std::string StoredRows(ScenarioStage& stage);
/// In how many lines two of these texts differ.
int DifferingLines(const std::string& a, const std::string& b);
/// The first line in which two of these texts differ, in words.
std::string FirstDifference(const std::string& a, const std::string& b);

}  // namespace zv::script
