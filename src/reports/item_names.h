// What the windows call the fields, kinds and states of an item, wherever they show them.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "session/session.h"

namespace zv::reports {

inline constexpr int kOtherFields = 6;  ///< fOther0 and on

/// The caption, in the control's language, that a field of tTaskList has where the database gives
/// it none. Compared without regard to case; empty for a field that the windows do not show.
std::string DesignCaption(const Session& session, std::string_view field);
/// The fields that have such a caption, in the order in which lists show them.
std::vector<std::string> CaptionedFields();

/// Names of the kinds 0, 1 and 2 of an item.
std::vector<std::string> KindNames(const Session& session);
/// Names of the states 0, 1 and 2 of an item.
std::vector<std::string> StateNames(const Session& session);

}  // namespace zv::reports
