// What the panels of the main window share: what is chosen, and what the user does with it.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "items/item.h"

namespace zv::windows {

/// How the host opened the window.
inline constexpr std::int16_t kAlertMode = 0;
inline constexpr std::int16_t kManagerMode = 1;
inline constexpr std::int16_t kCardMode = 9;

/// Pages of the tab panel.
inline constexpr int kItemTab = 0;
inline constexpr int kFilterTab = 1;
inline constexpr int kCardTab = 2;
inline constexpr int kOptionsTab = 3;

/// What a group of the tree holds: items of a kind, or plans.
enum class NodeKind : std::uint8_t { Task = 0, Guest = 1, Diary = 2, Plan = 3 };

/// Nothing for plans.
constexpr std::optional<items::ItemKind> ItemKindOf(NodeKind kind) {
    return items::KindOf(static_cast<std::int32_t>(kind));
}

/// What the user does with the item shown; the numbers are the levels that the module gate is asked
/// for.
enum class EditMode : std::uint8_t { None = 0, Adding = 1, Changing = 2, Deleting = 3 };

/// An item or a plan by its number, which each of them counts by itself.
struct ItemRef {
    std::int32_t number = 0;  ///< fID of an item, TaskID of a plan; 0 none
    bool plan = false;
    bool operator==(const ItemRef&) const = default;
};

struct MainState {
    std::int16_t startMode = kAlertMode;
    NodeKind currentKind = NodeKind::Task;
    std::int32_t currentId = 0;  ///< fID of the item or TaskID of the plan shown; 0 none
    EditMode editMode = EditMode::None;
    /// The mode that the editor was opened for typing in; none while it is locked. A delete from
    /// the buttons changes the edit mode and leaves this.
    EditMode openedFor = EditMode::None;
    items::ItemKind editedKind = items::ItemKind::Task;
    /// While the start values are set the tree does not follow the filter controls.
    bool starting = false;

    bool ShowsPlans() const { return currentKind == NodeKind::Plan; }
    ItemRef Current() const { return {currentId, ShowsPlans()}; }
    /// The editor holds input that is not stored yet.
    bool Editing() const {
        return openedFor != EditMode::None || editMode == EditMode::Adding ||
               editMode == EditMode::Changing;
    }
};

class MainModel : public MainState {
 public:
    MainModel() = default;
    MainModel(const MainModel&) = delete;
    MainModel& operator=(const MainModel&) = delete;

    /// Calls `listener` whenever the editor was opened for typing, or locked.
    void OnEdit(std::function<void()> listener) { listeners_.push_back(std::move(listener)); }

    void OpenEditor(items::ItemKind kind, EditMode mode) {
        editMode = openedFor = mode;
        editedKind = kind;
        Notify();
    }
    void LockEditor() {
        openedFor = EditMode::None;
        Notify();
    }
    /// Puts back what was remembered, without a word to anybody.
    void Restore(const MainState& state) { static_cast<MainState&>(*this) = state; }

 private:
    void Notify() const {
        for (const auto& listener : listeners_) listener();
    }

    std::vector<std::function<void()>> listeners_;
};

}  // namespace zv::windows
