#include "query.h"

#include <array>

#include "control_properties.h"
#include "failure.h"
#include "forms/form.h"
#include "forms/menu.h"
#include "forms/monitors.h"
#include "scenario_stage.h"
#include "script_text.h"
#include "target.h"
#include "values.h"

namespace zv::script {
namespace {

std::string ListWindows(ScenarioStage& stage) {
    std::vector<std::string> lines;
    for (const forms::Form* form : stage.windows.Windows()) {
        lines.push_back(form->Name() + (form->IsShown() ? " shown" : " hidden"));
    }
    return JoinLines(lines);
}

std::string LastPopup(ScenarioStage& stage) {
    for (const forms::Form* form : stage.windows.Windows()) {
        if (!form->LastPopup().empty()) return form->LastPopup();
    }
    return {};
}

struct NamedQuery {
    std::string_view name;
    std::string (*look)(ScenarioStage& stage);
};
constexpr std::array kNamed = std::to_array<NamedQuery>({
    {"bag", [](ScenarioStage& stage) { return JoinLines(stage.bag.Lines()); }},
    {"windows", ListWindows},
    {"popup", LastPopup},
    {"messages", [](ScenarioStage& stage) { return TakeLines(stage.dialogs.messages); }},
    {"messages.reason", [](ScenarioStage& stage) { return TakeLines(stage.dialogs.reasons); }},
    {"messages.default", [](ScenarioStage& stage) { return TakeLines(stage.dialogs.defaults); }},
    {"events", [](ScenarioStage& stage) { return TakeLines(stage.events.lines); }},
    {"statements", [](ScenarioStage& stage) { return TakeLines(stage.statements.lines); }},
    {"opened", [](ScenarioStage& stage) { return stage.TakeOpened(); }},
    {"printedFor", [](ScenarioStage& stage) { return stage.PrintedFor(); }},
    {"printed", [](ScenarioStage& stage) { return stage.TakePrinted(); }},
    {"clipboard", [](ScenarioStage& stage) { return stage.stand->GetBackend().ClipboardText(); }},
    {"box.faults",
     [](ScenarioStage& stage) {
         return JoinLines(stage.driver.ReadBoxFaults(stage.RequireBox().ask));
     }},
    {"result", [](ScenarioStage& stage) { return stage.result; }},
    {"error", [](ScenarioStage& stage) { return stage.TakeError(); }},
});

Query ControlQuery(const std::string& name) {
    if (!IsReadable(name)) throw ScriptError("unknown control property " + Quote(name));
    return [name](ScenarioStage& stage) { return ReadProperty(stage.control, name); };
}

Query SettingQuery(const std::string& path) {
    const std::size_t dot = path.find('.');
    if (dot == 0 || dot == std::string::npos || dot + 1 == path.size()) {
        throw ScriptError("a setting is looked at as setting.SECTION.KEY");
    }
    return [section = path.substr(0, dot), key = path.substr(dot + 1)](ScenarioStage& stage) {
        return stage.session.GetSetting(section, key, "");
    };
}

// Of a menu entry "visible" leaves out the root: a menu of that name may pop up.
bool MenuVisible(const forms::MenuItem& item) {
    if (!item.Owner().IsShown()) return false;
    for (const forms::MenuItem* at = &item; at; at = at->Parent()) {
        if (!at->Visible() && (at == &item || at->Parent())) return false;
    }
    return true;
}

std::optional<std::string> ReadMenu(const forms::MenuItem& item, const std::string& property) {
    if (property == "caption") return item.Caption();
    if (property == "enabled") return Truth(item.Enabled());
    if (property == "visible") return Truth(MenuVisible(item));
    if (property == "shortcut") return item.Shortcut();
    if (property == "value") return std::string(item.Checked() ? "1" : "0");
    return {};
}

template <class Look>
auto AtWindow(const Look& look) {
    try {
        return look();
    } catch (const driver::DriverError& error) {
        throw Failure(error.what());
    }
}

forms::Rect Place(ScenarioStage& stage, forms::Form& form) {
    return AtWindow([&] { return stage.driver.ReadPlace(form); });
}

int Dpi(ScenarioStage& stage, forms::Form& form) {
    return AtWindow([&] { return stage.driver.ReadDpi(form); });
}

std::string ReadWindow(ScenarioStage& stage, const PropertyPath& path) {
    forms::Form& form = FindForm(stage.windows, path.target.window);
    if (path.property == "focus") {
        return form.ActiveControl() ? form.ActiveControl()->DisplayName() : std::string();
    }
    if (path.property == "monitor") return stage.desktop.NameAround(Place(stage, form));
    if (path.property == "scale") {
        constexpr int kPercent = 100;
        return std::to_string(Dpi(stage, form) * kPercent / forms::Scale::kUsualDpi);
    }
    if (path.property == "onscreen") {
        if (!stage.desktop.IsEmpty()) {
            return Truth(forms::LiesWhole(stage.desktop.All(), Place(stage, form)));
        }
        const forms::Rect area = stage.windows.GetBackend().WorkArea();
        return Truth(forms::FitInto(form.Bounds(), area) == form.Bounds());
    }
    if (path.property == "scrolls") {
        return Truth(form.View().HasHorizontalBar() || form.View().HasVerticalBar());
    }
    if (path.property == "faults") return JoinLines(stage.driver.ReadFaults(form));
    if (path.property == "minimised") {
        return Truth(form.State() == forms::WindowState::Minimised);
    }
    return path.property == "modal" ? Truth(form.IsModal()) : stage.driver.ReadCaption(form);
}

std::string ReadItem(ScenarioStage& stage, const PropertyPath& path) {
    const Target& target = path.target;
    const forms::Form& form = FindForm(stage.windows, target.window);
    std::optional<std::string> value;
    if (const forms::MenuItem* item = form.FindMenu(target.control, target.index)) {
        value = ReadMenu(*item, path.property);
    } else {
        forms::Control& control = FindControl(stage.windows, target);
        try {
            value = stage.driver.Read(control, path.property, path.arguments);
        } catch (const driver::DriverError& error) {
            throw Failure(error.what());
        } catch (const RuntimeError&) {
            throw Failure(target.Text() + " has no such position");
        }
    }
    if (!value) throw ScriptError(target.Text() + " has no property " + Quote(path.property));
    return *value;
}

}  // namespace

std::size_t QueryWords(const std::string& first) {
    return first == "rows" ? 2 : 1;
}

Query ParseQuery(Words words) {
    const std::string& first = words[0];
    if (words.size() != QueryWords(first)) {
        throw ScriptError(first == "rows" ? "rows needs a query"
                                          : "more than one query: " + Quote(words[1]));
    }
    if (first == "rows") {
        return [sql = words[1]](ScenarioStage& stage) { return stage.host.Rows(sql); };
    }
    for (const NamedQuery& named : kNamed) {
        if (named.name == first) return named.look;
    }
    if (first.starts_with("control.")) return ControlQuery(first.substr(8));
    if (first.starts_with("setting.")) return SettingQuery(first.substr(8));
    if (first.find('.') == std::string::npos) throw ScriptError("unknown query " + Quote(first));
    const PropertyPath path = ParsePropertyPath(first);
    if (path.target.control.empty()) {
        return [path](ScenarioStage& stage) { return ReadWindow(stage, path); };
    }
    return [path](ScenarioStage& stage) { return ReadItem(stage, path); };
}

}  // namespace zv::script
