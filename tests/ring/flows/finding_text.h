// The lines of a finding: "name: value" each, and comments that begin with "#".
#pragma once

#include <map>
#include <set>
#include <string>

namespace zv::ring {

/// The value of each of the names. Throws std::runtime_error for a line of another form or name,
/// for a name that stands twice and for one that is missing.
std::map<std::string, std::string> ReadFinding(const std::string& text,
                                               const std::set<std::string>& names);

}  // namespace zv::ring
