// How a scenario names windows, controls and what can be seen of them.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "script_text.h"

namespace zv::forms {
class Control;
class Form;
class MenuItem;
class WindowSystem;
}  // namespace zv::forms

namespace zv::script {

/// "W.C" or "W.C(i)".
struct Target {
    std::string window;
    std::string control;
    int index = -1;
    std::string Text() const;
};

/// "W.C.property", "W.C(i).property(a,b)", or "W.caption" and "W.modal" (no control then).
struct PropertyPath {
    Target target;
    std::string property;
    std::vector<int> arguments;
};

bool IsWindowName(std::string_view word);

/// These throw ScriptError for a word of another form, an unknown window or an unknown property.
Target ParseTarget(const std::string& word);
PropertyPath ParsePropertyPath(const std::string& word);
/// Throws ScriptError when there is no window of that name in the system.
std::string ParseWindow(const std::string& word);

/// The window, which must exist: throws Failure otherwise.
forms::Form& FindForm(const forms::WindowSystem& windows, const std::string& name);
/// Throw Failure when the window does not exist, ScriptError when it has no such control or entry.
forms::Control& FindControl(const forms::WindowSystem& windows, const Target& target);
forms::MenuItem& FindMenu(const forms::WindowSystem& windows, const Target& target);

}  // namespace zv::script
