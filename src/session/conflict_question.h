// What the user is asked when both this user and somebody else changed the same of a row.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "session/session.h"
#include "store/row_merge.h"

namespace zv {

/// Two texts, each short enough for a line. Where they begin alike for long they are shown from
/// shortly before the first difference on; "..." stands for what is left out.
std::pair<std::string, std::string> Excerpts(std::string_view one, std::string_view other);

/// A field in both versions, as the user reads them.
struct ConflictLine {
    std::string caption;
    std::string stored;
    std::string own;
    bool operator==(const ConflictLine&) const = default;
};

/// Shows what belongs together in both versions and asks which one is to be written: nothing when
/// the user calls the save off.
std::optional<store::RowMerge::Version> AskForVersion(const Session& session,
                                                      const std::vector<ConflictLine>& lines);

}  // namespace zv
