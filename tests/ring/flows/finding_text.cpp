#include "ring/flows/finding_text.h"

#include <sstream>
#include <stdexcept>

namespace zv::ring {

std::map<std::string, std::string> ReadFinding(const std::string& text,
                                               const std::set<std::string>& names) {
    std::map<std::string, std::string> values;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        if (line.empty() || line.starts_with('#')) continue;
        const std::size_t colon = line.find(": ");
        const std::string name = line.substr(0, colon);
        if (colon == std::string::npos || !names.contains(name)) {
            throw std::runtime_error("no line of such a finding: " + line);
        }
        if (!values.emplace(name, line.substr(colon + 2)).second) {
            throw std::runtime_error("a line of a finding stands twice: " + line);
        }
    }
    if (values.size() != names.size()) throw std::runtime_error("a finding lacks a line");
    return values;
}

}  // namespace zv::ring
