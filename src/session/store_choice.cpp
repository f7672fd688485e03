#include "session/store_choice.h"

#include <utility>

namespace zv {

void HostSetsPath(ControlState& state, store::ConnectionText path) {
    StoreChoice& choice = state.storeChoice;
    if (choice.path && choice.hostPath.value_or(state.UserPath) == path) return;
    choice.path.reset();
    choice.hostPath.reset();
    state.UserPath = std::move(path);
}

void HostSetsKind(ControlState& state, std::int16_t kind) {
    if (state.storeChoice.kind && state.hostSQLData == kind) return;
    state.storeChoice.kind.reset();
    state.SQLData = state.hostSQLData = kind;
}

void ChoosePath(ControlState& state, const store::ConnectionText& path) {
    state.storeChoice.path = path;
    if (path.IsEmpty())
        RestoreHostPath(state);
    else
        ReplacePath(state, path);
}

void ChooseKind(ControlState& state, std::int16_t kind) {
    state.storeChoice.kind = kind;
    state.SQLData = kind;
}

void ForgetChoices(ControlState& state) {
    StoreChoice& choice = state.storeChoice;
    if (choice.path) {
        choice.path.reset();
        RestoreHostPath(state);
    }
    if (!choice.kind) return;
    choice.kind.reset();
    state.SQLData = state.hostSQLData;
    RestoreHostPath(state);
}

void ReplacePath(ControlState& state, const store::ConnectionText& path) {
    if (!state.storeChoice.hostPath) state.storeChoice.hostPath = state.UserPath;
    state.UserPath = path;
}

void RestoreHostPath(ControlState& state) {
    if (state.storeChoice.hostPath) state.UserPath = *state.storeChoice.hostPath;
    state.storeChoice.hostPath.reset();
}

TentativeChoice::TentativeChoice(ControlState& state)
    : state_(state), path_(state.UserPath), kind_(state.SQLData), choice_(state.storeChoice) {}

TentativeChoice::~TentativeChoice() {
    if (kept_) return;
    state_.UserPath = std::move(path_);
    state_.SQLData = kind_;
    state_.storeChoice = std::move(choice_);
}

}  // namespace zv
