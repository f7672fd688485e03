// A thread whose awareness of resolutions is a variable.
#pragma once

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

#include "forms/dpi_awareness.h"

namespace zv::doubles {

inline constexpr std::array<char, 4> kContexts{};
inline constexpr forms::DpiContext kUnaware = &kContexts[0];
inline constexpr forms::DpiContext kSystem = &kContexts[1];
inline constexpr forms::DpiContext kMonitor = &kContexts[2];
inline constexpr forms::DpiContext kMonitorV2 = &kContexts[3];

class ScriptedDpi final : public forms::ThreadDpi {
 public:
    /// The contexts that the system knows; one that knows none has no function for them.
    explicit ScriptedDpi(std::vector<forms::DpiContext> known) : known_(std::move(known)) {}
    forms::DpiContext Set(forms::DpiContext context) noexcept override {
        calls++;
        if (std::find(known_.begin(), known_.end(), context) == known_.end()) return nullptr;
        return std::exchange(now, context);
    }
    std::span<const forms::DpiContext> Wanted() const noexcept override { return wanted_; }

    forms::DpiContext now = kUnaware;
    int calls = 0;

 private:
    std::vector<forms::DpiContext> known_;
    std::array<forms::DpiContext, 2> wanted_{kMonitorV2, kMonitor};
};

}  // namespace zv::doubles
