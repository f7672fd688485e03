// Which store the control works with: what the host set, and what stands in its place meanwhile.
#pragma once

#include <cstdint>
#include <optional>

#include "session/control_state.h"

namespace zv {

/// The host sets the data path or the kind. What the user chose for it on the options page stays
/// while the host only repeats what it set last.
void HostSetsPath(ControlState& state, store::ConnectionText path);
void HostSetsKind(ControlState& state, std::int16_t kind);

/// The user's choices count as the properties until they are forgotten. An empty path stands for
/// the host's.
void ChoosePath(ControlState& state, const store::ConnectionText& path);
void ChooseKind(ControlState& state, std::int16_t kind);
/// The properties are the host's again.
void ForgetChoices(ControlState& state);

/// Puts a path in the place of the host's.
void ReplacePath(ControlState& state, const store::ConnectionText& path);
void RestoreHostPath(ControlState& state);

/// Takes the choices made in its lifetime back unless they are kept.
class TentativeChoice {
 public:
    explicit TentativeChoice(ControlState& state);
    ~TentativeChoice();
    TentativeChoice(const TentativeChoice&) = delete;
    TentativeChoice& operator=(const TentativeChoice&) = delete;
    void Keep() { kept_ = true; }

 private:
    ControlState& state_;
    store::ConnectionText path_;
    std::int16_t kind_;
    StoreChoice choice_;
    bool kept_ = false;
};

}  // namespace zv
