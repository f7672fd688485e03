// What the parts of the main window share beside its controls.
#pragma once

#include <cstdint>

#include "base/date_time.h"

namespace zv::mainwindow {

/// How the host opened the window.
inline constexpr std::int16_t kAlertMode = 0;
inline constexpr std::int16_t kManagerMode = 1;
inline constexpr std::int16_t kCardMode = 9;

/// Item kinds as stored; the last stands for "the tree shows plans".
inline constexpr std::uint8_t kTask = 0;
inline constexpr std::uint8_t kGuest = 1;
inline constexpr std::uint8_t kDiary = 2;
inline constexpr std::uint8_t kPlan = 3;
inline constexpr int kItemKinds = 3;

/// Completion states as stored, which are also the rows of the state lists.
inline constexpr int kNotDone = 0;
inline constexpr int kDone = 1;
inline constexpr int kInHand = 2;
inline constexpr int kAllStates = 3;   ///< the filter's row for all
inline constexpr int kNotYetDone = 4;  ///< the filter's row for what is not done or in hand

/// Pages of the tab panel.
inline constexpr int kItemTab = 0;
inline constexpr int kFilterTab = 1;
inline constexpr int kCardTab = 2;
inline constexpr int kOptionsTab = 3;

/// What the user does with the item shown; also the levels that the module gate is asked for.
inline constexpr std::uint8_t kNoEdit = 0;
inline constexpr std::uint8_t kAdding = 1;
inline constexpr std::uint8_t kChanging = 2;
inline constexpr std::uint8_t kDeleting = 3;

struct MainState {
    std::int16_t startMode = kAlertMode;
    std::uint8_t currentType = kTask;
    std::int32_t currentItemId = 0;  ///< fID of the item or TaskID of the plan shown; 0 none
    std::uint8_t editMode = kNoEdit;
    /// The mode that the editor was opened for typing in; none while it is locked. A delete from
    /// the buttons changes the edit mode and leaves this.
    std::uint8_t openedFor = kNoEdit;
    std::uint8_t editedKind = kTask;
    DateTime lastRead;
    /// While the start values are set the tree does not follow the filter controls.
    bool starting = false;

    /// The editor holds input that is not stored yet.
    bool Editing() const {
        return openedFor != kNoEdit || editMode == kAdding || editMode == kChanging;
    }
};

}  // namespace zv::mainwindow
