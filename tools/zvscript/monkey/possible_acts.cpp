#include "monkey/possible_acts.h"

#include <array>
#include <string_view>

#include "failure.h"
#include "forms/buttons.h"
#include "forms/containers.h"
#include "forms/date_picker.h"
#include "forms/form.h"
#include "forms/grid.h"
#include "forms/lists.h"
#include "forms/menu.h"
#include "forms/text_box.h"
#include "forms/timer.h"
#include "forms/tree_view.h"
#include "forms/up_down.h"
#include "scenario_stage.h"
#include "script_text.h"
#include "target.h"

namespace zv::script {
namespace {

using Lines = std::vector<std::string>;

constexpr auto kDates = std::to_array<std::string_view>({"2003-03-07", "2003-03-08T14:00:00",
                                                         "2003-02-28", "2004-02-29", "2003-12-31",
                                                         "empty", "1999-12-31", "2012-01-01"});
constexpr auto kKeys = std::to_array<std::string_view>(
    {"Enter",     "Tab",       "Escape", "Up",     "Down",       "Home",   "End",
     "PageUp",    "PageDown",  "F1",     "F2",     "F5",         "Delete", "Menu",
     "Shift+F10", "Shift+Tab", "Ctrl+N", "Ctrl+S", "Ctrl+D",     "Ctrl+H", "Ctrl+F",
     "Ctrl+P",    "Ctrl+Z",    "Ctrl+Y", "Ctrl+L", "Ctrl+Enter", "Ctrl+A"});

// The windows that no modal one blocks.
std::vector<const forms::Form*> Reachable(const ScenarioStage& stage) {
    std::vector<const forms::Form*> forms;
    for (const forms::Form* form : stage.windows.Windows()) {
        if (!form->IsShown() || !IsWindowName(form->Name())) continue;
        if (form->IsModal()) forms.clear();
        forms.push_back(form);
    }
    std::erase_if(forms, [&](const forms::Form* form) {
        try {
            stage.RequireReachable(*form);
            return false;
        } catch (const Failure&) {
            return true;
        }
    });
    return forms;
}

class ActsAtControl {
 public:
    ActsAtControl(const forms::Control& control, RandomChoice& random)
        : control_(control),
          name_(control.Owner().Name() + '.' + control.DisplayName()),
          random_(random) {}

    Lines All() {
        if (const auto* timer = Is<forms::Timer>()) {
            return timer->Running() ? Lines{"tick " + name_} : Lines{};
        }
        if (!control_.CanInteract()) return {};
        if (Is<forms::CommandButton>() || Is<forms::CheckBox>() || Is<forms::OptionButton>()) {
            return {"click " + name_};
        }
        if (const auto* box = Is<forms::TextBox>()) {
            if (box->Locked()) return {"key " + name_ + ' ' + Key()};
            return {"type " + name_ + ' ' + ChooseText(random_), "leave " + name_,
                    "key " + name_ + ' ' + Key()};
        }
        if (const auto* tree = Is<forms::TreeView>()) return AtTree(*tree);
        if (const auto* grid = Is<forms::Grid>()) return AtGrid(*grid);
        if (const auto* list = Is<forms::ListControl>()) return AtList(*list);
        if (Is<forms::DatePicker>()) {
            return {"date " + name_ + ' ' + std::string(random_.Of(kDates))};
        }
        if (Is<forms::UpDown>()) {
            return {"spin " + name_ + (random_.Once(2) ? " up" : " down")};
        }
        if (const auto* tabs = Is<forms::TabPanel>()) {
            return {"pick " + name_ + ' ' + Position(tabs->Tabs())};
        }
        return {};
    }

 private:
    template <typename T>
    const T* Is() const {
        return dynamic_cast<const T*>(&control_);
    }
    std::string Key() { return std::string(random_.Of(kKeys)); }
    std::string Position(int count) {
        return std::to_string(random_.Below(static_cast<std::size_t>(count)));
    }

    Lines AtTree(const forms::TreeView& tree) {
        Lines keys;
        for (int node = tree.FirstRoot(); node != forms::TreeView::kNone;
             node = tree.NextInOrder(node)) {
            keys.push_back(Quote(tree.Key(node)));
        }
        Lines acts{"key " + name_ + ' ' + Key()};
        if (keys.empty()) return acts;
        acts.push_back("node " + name_ + ' ' + random_.Of(keys));
        acts.push_back("rightclick " + name_ + ' ' + random_.Of(keys));
        return acts;
    }

    Lines AtGrid(const forms::Grid& grid) {
        Lines acts{"key " + name_ + ' ' + Key()};
        if (grid.DataRowCount() > 0) {
            acts.push_back("pick " + name_ + ' ' + Position(grid.DataRowCount()));
        }
        if (grid.ColumnCount() > 0) acts.push_back("heading " + name_ + " 1");
        return acts;
    }

    Lines AtList(const forms::ListControl& list) {
        Lines acts{"key " + name_ + ' ' + Key()};
        const auto* combo = Is<forms::ComboBox>();
        if (combo && combo->Locked()) return acts;
        if (list.ListCount() > 0)
            acts.push_back("pick " + name_ + ' ' + Position(list.ListCount()));
        if (combo && combo->Style() == forms::ComboStyle::FreeText) {
            acts.push_back("type " + name_ + ' ' + ChooseText(random_));
        }
        return acts;
    }

    const forms::Control& control_;
    std::string name_;
    RandomChoice& random_;
};

std::string NameOf(const forms::MenuItem& item) {
    return Target{item.Owner().Name(), item.Name(), item.Index()}.Text();
}

std::string ChooseBarEntry(const forms::Form& form, RandomChoice& random) {
    Lines entries;
    for (const forms::MenuItem* item : form.Menus()) {
        const forms::MenuItem* root = item;
        while (root->Parent()) root = root->Parent();
        if (item != root && root->Visible() && item->CanChoose() && item->Caption() != "-") {
            entries.push_back("menu " + NameOf(*item));
        }
    }
    return entries.empty() ? std::string() : random.Of(entries);
}

bool IsCommonest(const forms::Control& control) {
    return dynamic_cast<const forms::TreeView*>(&control) ||
           dynamic_cast<const forms::CommandButton*>(&control) || control.Name() == "txtTitle2";
}

std::string ChooseAtWindow(const forms::Form& form, RandomChoice& random) {
    constexpr std::size_t kRareActs = 20;
    switch (random.Below(kRareActs)) {
        case 0:
            return "close " + form.Name();
        case 1:
            return form.Sizable()
                       ? "resize " + form.Name() + (random.Once(2) ? " 400 300" : " 1200 900")
                       : std::string();
        case 2:
        case 3:
            return form.ActiveControl()
                       ? "press " + form.Name() + ' ' + std::string(random.Of(kKeys))
                       : std::string();
        case 4:
        case 5:
        case 6:
            return ChooseBarEntry(form, random);
        default:
            break;
    }
    Lines acts;
    // What most is done with would be lost among the many boxes.
    const bool onlyCommonest = random.Once(3);
    for (const forms::Control* control : form.Controls()) {
        if (onlyCommonest && !IsCommonest(*control)) continue;
        // Each control counts once, however much can be done with it.
        const Lines possible = ActsAtControl(*control, random).All();
        if (!possible.empty()) acts.push_back(random.Of(possible));
    }
    return acts.empty() ? std::string() : random.Of(acts);
}

}  // namespace

std::string ChooseEntry(const forms::MenuItem& root, RandomChoice& random) {
    Lines entries;
    for (const forms::MenuItem* item : root.Children()) {
        if (item->CanChoose() && item->Caption() != "-") entries.push_back("menu " + NameOf(*item));
    }
    return entries.empty() ? std::string() : random.Of(entries);
}

std::string ChooseUserAct(const ScenarioStage& stage, RandomChoice& random) {
    const auto forms = Reachable(stage);
    return forms.empty() ? std::string() : ChooseAtWindow(*random.Of(forms), random);
}

}  // namespace zv::script
