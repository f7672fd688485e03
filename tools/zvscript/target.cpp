#include "target.h"

#include <algorithm>
#include <array>

#include "failure.h"
#include "forms/form.h"
#include "forms/menu.h"
#include "forms/window_system.h"

namespace zv::script {
namespace {

constexpr auto kWindows = std::to_array<std::string_view>({
    "frmTaskMain",
    "frmTaskSet",
    "frmTaskDone",
    "frmList",
    "frmHistory",
    "frmRemind",
    "frmAsk",
    "frmSeek",
    "frmItemSet",
    "frmProgress",
});

struct PropertyName {
    std::string_view name;
    std::size_t arguments;
};
constexpr std::array<PropertyName, 25> kReadProperties = {
    {{"signs", 0},   {"text", 0},     {"caption", 0}, {"value", 0},     {"enabled", 0},
     {"visible", 0}, {"index", 0},    {"count", 0},   {"list", 1},      {"tag", 0},
     {"date", 0},    {"tab", 0},      {"locked", 0},  {"maxlength", 0}, {"focus", 0},
     {"nodes", 0},   {"selected", 0}, {"rows", 0},    {"cell", 2},      {"selection", 0},
     {"sort", 0},    {"width", 1},    {"tooltip", 0}, {"shortcut", 0},  {"accesskey", 0}}};

/// One part of a path: a name and the numbers in parentheses behind it.
struct Part {
    std::string name;
    std::vector<int> numbers;
    bool parenthesis = false;
};

class PathReader {
 public:
    explicit PathReader(const std::string& word) : word_(word) {}

    std::vector<Part> Parts() {
        std::vector<Part> parts;
        for (;;) {
            parts.push_back(ReadPart());
            if (at_ == word_.size()) return parts;
            if (word_[at_++] != '.') Refuse();
        }
    }

 private:
    [[noreturn]] void Refuse() const { throw ScriptError("not a name: " + Quote(word_)); }

    Part ReadPart() {
        Part part;
        const std::size_t end = word_.find_first_of(".()", at_);
        part.name = word_.substr(at_, end == std::string::npos ? end : end - at_);
        if (part.name.empty()) Refuse();
        at_ = end == std::string::npos ? word_.size() : end;
        if (at_ == word_.size() || word_[at_] != '(') return part;
        part.parenthesis = true;
        const std::size_t close = word_.find(')', at_);
        if (close == std::string::npos) Refuse();
        std::size_t from = at_ + 1;
        for (;;) {
            const std::size_t comma = std::min(word_.find(',', from), close);
            part.numbers.push_back(ToInteger(word_.substr(from, comma - from)));
            if (comma == close) break;
            from = comma + 1;
        }
        at_ = close + 1;
        return part;
    }

    const std::string& word_;
    std::size_t at_ = 0;
};

std::string WindowOf(const Part& part) {
    if (part.parenthesis) throw ScriptError("a window has no index: " + Quote(part.name));
    return ParseWindow(part.name);
}

Target TargetOf(const Part& window, const Part& control) {
    Target target{WindowOf(window), control.name, -1};
    if (!control.parenthesis) return target;
    if (control.numbers.size() != 1 || control.numbers[0] < 0) {
        throw ScriptError("a control has one index from 0 on: " + Quote(control.name));
    }
    target.index = control.numbers[0];
    return target;
}

template <typename Item>
bool HasName(const std::vector<Item*>& items, const std::string& name) {
    return std::any_of(items.begin(), items.end(),
                       [&](const Item* item) { return item->Name() == name; });
}

}  // namespace

std::string Target::Text() const {
    std::string text = window + '.' + control;
    if (index >= 0) text += '(' + std::to_string(index) + ')';
    return text;
}

bool IsWindowName(std::string_view word) {
    return std::find(kWindows.begin(), kWindows.end(), word) != kWindows.end();
}

std::string ParseWindow(const std::string& word) {
    if (!IsWindowName(word)) throw ScriptError("unknown window " + Quote(word));
    return word;
}

Target ParseTarget(const std::string& word) {
    const std::vector<Part> parts = PathReader(word).Parts();
    if (parts.size() != 2) throw ScriptError("not a window and a control: " + Quote(word));
    return TargetOf(parts[0], parts[1]);
}

PropertyPath ParsePropertyPath(const std::string& word) {
    const std::vector<Part> parts = PathReader(word).Parts();
    const Part& last = parts.back();
    if (parts.size() == 2) {
        PropertyPath path{{WindowOf(parts[0]), {}, -1}, last.name, {}};
        const bool known = last.name == "caption" || last.name == "modal" ||
                           last.name == "minimised" || last.name == "focus" ||
                           last.name == "onscreen" || last.name == "scrolls" ||
                           last.name == "faults" || last.name == "monitor" || last.name == "scale";
        if (!known || last.parenthesis) {
            throw ScriptError("a window has no property " + Quote(last.name));
        }
        return path;
    }
    if (parts.size() != 3) throw ScriptError("unknown query " + Quote(word));
    PropertyPath path{TargetOf(parts[0], parts[1]), last.name, last.numbers};
    const auto known =
        std::find_if(kReadProperties.begin(), kReadProperties.end(),
                     [&](const auto& property) { return property.name == last.name; });
    if (known == kReadProperties.end()) throw ScriptError("unknown property " + Quote(last.name));
    if (known->arguments != last.numbers.size()) {
        throw ScriptError("the property " + Quote(last.name) + " takes " +
                          std::to_string(known->arguments) + " numbers");
    }
    return path;
}

forms::Form& FindForm(const forms::WindowSystem& windows, const std::string& name) {
    forms::Form* form = windows.Find(name);
    if (!form) throw Failure(name + " does not exist now");
    return *form;
}

forms::Control& FindControl(const forms::WindowSystem& windows, const Target& target) {
    const forms::Form& form = FindForm(windows, target.window);
    if (forms::Control* control = form.FindControl(target.control, target.index)) return *control;
    if (!HasName(form.Controls(), target.control)) {
        throw ScriptError(target.window + " has no control " + Quote(target.control));
    }
    throw ScriptError("wrong index: " + target.Text());
}

forms::MenuItem& FindMenu(const forms::WindowSystem& windows, const Target& target) {
    const forms::Form& form = FindForm(windows, target.window);
    if (forms::MenuItem* item = form.FindMenu(target.control, target.index)) return *item;
    if (!HasName(form.Menus(), target.control)) {
        throw ScriptError(target.window + " has no menu entry " + Quote(target.control));
    }
    throw ScriptError("wrong index: " + target.Text());
}

}  // namespace zv::script
