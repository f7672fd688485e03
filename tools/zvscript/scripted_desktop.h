// The monitors of a scenario, which it calls by names.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "forms/monitors.h"

namespace zv::script {

class ScriptedDesktop {
 public:
    bool IsEmpty() const { return named_.empty(); }
    /// Adds the monitor, or changes the one of that name. The first one is the primary one.
    void Set(const std::string& name, const forms::Monitor& monitor);
    /// Throws Failure when there is none of that name, or no other.
    void Remove(const std::string& name);
    /// There must be one.
    forms::Monitors All() const;
    /// Of the monitor that has most of the place; empty when the scenario has none of its own.
    std::string NameAround(const forms::Rect& place) const;

 private:
    std::vector<std::pair<std::string, forms::Monitor>> named_;
};

}  // namespace zv::script
