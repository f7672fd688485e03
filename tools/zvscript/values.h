// Texts of truth values and of lines, as scenarios write them.
#pragma once

#include <string>
#include <vector>

#include "base/text.h"
#include "doubles/truth_text.h"

namespace zv::script {

using doubles::ToTruth;
using doubles::Truth;

inline std::string JoinLines(const std::vector<std::string>& lines) {
    return text::Join(lines, "\n");
}

/// The lines so far; they are gone afterwards.
inline std::string TakeLines(std::vector<std::string>& lines) {
    std::string result = JoinLines(lines);
    lines.clear();
    return result;
}

}  // namespace zv::script
