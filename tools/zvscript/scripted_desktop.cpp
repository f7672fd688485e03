#include "scripted_desktop.h"

#include <algorithm>

#include "failure.h"
#include "script_text.h"

namespace zv::script {

void ScriptedDesktop::Set(const std::string& name, const forms::Monitor& monitor) {
    const auto at = std::find_if(named_.begin(), named_.end(),
                                 [&](const auto& named) { return named.first == name; });
    if (at == named_.end())
        named_.emplace_back(name, monitor);
    else
        at->second = monitor;
}

void ScriptedDesktop::Remove(const std::string& name) {
    const auto at = std::find_if(named_.begin(), named_.end(),
                                 [&](const auto& named) { return named.first == name; });
    if (at == named_.end()) throw Failure("there is no monitor " + Quote(name));
    if (named_.size() == 1) throw Failure("the last monitor cannot be unplugged");
    named_.erase(at);
}

forms::Monitors ScriptedDesktop::All() const {
    std::vector<forms::Monitor> monitors;
    for (const auto& named : named_) monitors.push_back(named.second);
    return forms::Monitors(std::move(monitors));
}

std::string ScriptedDesktop::NameAround(const forms::Rect& place) const {
    return IsEmpty() ? std::string() : named_[All().PositionAround(place)].first;
}

}  // namespace zv::script
