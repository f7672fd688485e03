#include "driver/driver_checks.h"

#include <array>
#include <cstdio>
#include <string_view>

#include "base/errors.h"
#include "forms/buttons.h"
#include "forms/containers.h"
#include "forms/date_picker.h"
#include "forms/form.h"
#include "forms/grid.h"
#include "forms/label.h"
#include "forms/lists.h"
#include "forms/menu.h"
#include "forms/progress_bar.h"
#include "forms/text_box.h"
#include "forms/timer.h"

namespace zv::driver {

using namespace forms;

namespace {

using Text = std::optional<std::string>;

std::string Truth(bool value) {
    return value ? "true" : "false";
}

std::string NodeLines(const TreeView& tree) {
    std::string lines;
    for (int node = tree.FirstRoot(); node != TreeView::kNone; node = tree.NextInOrder(node)) {
        if (!lines.empty()) lines += '\n';
        lines += tree.Key(node);
        lines += '|';
        if (tree.Parent(node) != TreeView::kNone) lines += tree.Key(tree.Parent(node));
        lines += '|' + tree.Image(node) + '|';
        lines += tree.Text(node);
    }
    return lines;
}

// Where the system's own colour is shown, none is named.
std::string SignLine(std::string_view of, const Sign& sign, const Control& control) {
    std::array<char, 7> color{};
    const SystemTheme theme = control.Owner().Windows().GetBackend().GetTheme();
    if (const auto shown = ShownColor(sign.color, theme, false)) {
        std::snprintf(color.data(), color.size(), "%06X", static_cast<unsigned>(*shown));
    }
    return std::string(of) + '|' + sign.text + '|' + color.data();
}

std::string SignLines(const TreeView& tree) {
    std::string lines;
    for (int node = tree.FirstRoot(); node != TreeView::kNone; node = tree.NextInOrder(node)) {
        const auto sign = tree.sign ? tree.sign(node) : std::nullopt;
        if (!sign) continue;
        if (!lines.empty()) lines += '\n';
        lines += SignLine(tree.Key(node), *sign, tree);
    }
    return lines;
}

std::string SignLines(const Grid& grid) {
    std::string lines;
    for (int row = 1; row <= grid.DataRowCount(); row++) {
        const auto sign = grid.sign ? grid.sign(row) : std::nullopt;
        if (!sign) continue;
        if (!lines.empty()) lines += '\n';
        lines += SignLine(std::to_string(row), *sign, grid);
    }
    return lines;
}

Text ReadCommon(const Control& c, const std::string& p) {
    if (p == "enabled") {
        // Of a timer: whether it ticks.
        const auto* timer = dynamic_cast<const Timer*>(&c);
        return Truth(timer ? timer->Running() : c.Enabled());
    }
    if (p == "visible") return Truth(c.Visible());
    if (p == "tag") return c.tag;
    if (p == "focus") return Truth(c.HasFocus());
    if (p == "tooltip") return c.ToolTip();
    if (p == "accesskey") return c.AccessKey() ? std::string(1, c.AccessKey()) : std::string();
    return {};
}

Text ReadTextBox(const TextBox& c, const std::string& p) {
    if (p == "text") return c.Text();
    if (p == "locked") return Truth(c.Locked());
    if (p == "maxlength") return std::to_string(c.MaxLength());
    return {};
}

Text ReadList(const ListControl& c, const std::string& p, const std::vector<int>& arguments) {
    if (p == "index") return std::to_string(c.ListIndex());
    if (p == "count") return std::to_string(c.ListCount());
    if (p == "list" && arguments.size() == 1) return c.List(arguments[0]);
    return {};
}

Text ReadCombo(const ComboBox& c, const std::string& p, const std::vector<int>& arguments) {
    if (p == "text") return c.Text();
    if (p == "locked") return Truth(c.Locked());
    if (p == "maxlength") return std::to_string(c.MaxLength());
    return ReadList(c, p, arguments);
}

Text ReadTree(const TreeView& c, const std::string& p) {
    if (p == "nodes") return NodeLines(c);
    if (p == "signs") return SignLines(c);
    if (p == "count") return std::to_string(c.Count());
    if (p == "selected") {
        return c.Selected() == TreeView::kNone ? std::string() : std::string(c.Key(c.Selected()));
    }
    return {};
}

// "1,3"
std::string SelectedRows(const Grid& grid) {
    std::string rows;
    for (int row = 1; row <= grid.DataRowCount(); row++) {
        if (!grid.IsSelected(row)) continue;
        if (!rows.empty()) rows += ',';
        rows += std::to_string(row);
    }
    return rows;
}

// "2", downwards "-2", empty while nothing is sorted.
std::string SortOrder(const Grid& grid) {
    if (grid.SortColumn() == 0) return {};
    return (grid.SortsDescending() ? "-" : "") + std::to_string(grid.SortColumn());
}

Text ReadGrid(const Grid& c, const std::string& p, const std::vector<int>& arguments) {
    if (p == "rows") return std::to_string(c.DataRowCount());
    if (p == "cell" && arguments.size() == 2) {
        return std::string(c.Cell(arguments[0], arguments[1]));
    }
    if (p == "selection") return SelectedRows(c);
    if (p == "signs") return SignLines(c);
    if (p == "sort") return SortOrder(c);
    if (p == "width" && arguments.size() == 1) {
        return std::to_string(c.GetColumn(arguments[0]).width);
    }
    if (p == "list" && arguments.size() == 1) return c.GetColumn(arguments[0]).heading;
    return {};
}

Text ReadDate(const DatePicker& c, const std::string& p) {
    if (p != "date" && p != "value" && p != "text") return {};
    return c.Value() ? c.Value()->ShortIso() : std::string();
}

}  // namespace

void RequireReachable(const Form& form) {
    if (!form.IsShown()) throw DriverError(form.Name() + " is not shown");
    const Form* modal = form.Windows().ModalForm();
    if (modal && modal != &form && !form.ComesByItself()) {
        throw DriverError(form.Name() + " is blocked by " + modal->Name());
    }
}

void RequireUsable(const Control& control) {
    RequireReachable(control.Owner());
    if (!control.Visible()) throw DriverError(control.DisplayName() + " is not visible");
    if (!control.CanInteract()) throw DriverError(control.DisplayName() + " is disabled");
    // A user scrolls to what lies outside of the view; what nothing shows of he cannot hit.
    const Rect seen = control.VisiblePlace();
    if (seen.width == 0 || seen.height == 0) {
        throw DriverError(control.DisplayName() + " takes no place in the window");
    }
}

void RequireChoosable(const MenuItem& item) {
    RequireReachable(item.Owner());
    if (!item.CanChoose()) throw DriverError(item.Name() + " cannot be chosen");
}

bool ChoseInStandingMenu(MenuItem& item) {
    WindowSystem& windows = item.Owner().Windows();
    if (!windows.StandingMenu() || !item.IsBelow(*windows.StandingMenu())) return false;
    windows.ChooseInStandingMenu(item);
    return true;
}

Grid& RequireRow(Control& control, int row) {
    auto& grid = As<Grid>(control);
    if (row < 1 || row > grid.DataRowCount()) {
        throw DriverError(control.DisplayName() + " has no row " + std::to_string(row));
    }
    return grid;
}

Grid& RequireColumn(Control& control, int column) {
    auto& grid = As<Grid>(control);
    if (column < 1 || column > grid.ColumnCount() || !grid.GetColumn(column).visible) {
        throw DriverError(control.DisplayName() + " has no column " + std::to_string(column));
    }
    return grid;
}

int RequireNode(const TreeView& tree, const std::string& key) {
    const int node = tree.Find(key);
    if (node == TreeView::kNone) {
        throw DriverError(tree.DisplayName() + " has no node \"" + key + "\"");
    }
    return node;
}

std::optional<std::string> ReadState(const Control& c, const std::string& p,
                                     const std::vector<int>& arguments) {
    if (auto common = ReadCommon(c, p)) return common;
    switch (c.Kind()) {
        case ControlKind::Label:
            if (p == "caption") return static_cast<const Label&>(c).Caption();
            return {};
        case ControlKind::Frame:
            if (p == "caption") return static_cast<const Frame&>(c).Caption();
            return {};
        case ControlKind::CommandButton:
            if (p == "caption") return static_cast<const CommandButton&>(c).Caption();
            return {};
        case ControlKind::CheckBox: {
            const auto& box = static_cast<const CheckBox&>(c);
            if (p == "caption") return box.Caption();
            if (p == "value") return std::to_string(box.Value());
            return {};
        }
        case ControlKind::OptionButton: {
            const auto& option = static_cast<const OptionButton&>(c);
            if (p == "caption") return option.Caption();
            if (p == "value") return option.Value() ? "1" : "0";
            return {};
        }
        case ControlKind::TextBox:
            return ReadTextBox(static_cast<const TextBox&>(c), p);
        case ControlKind::ComboBox:
            return ReadCombo(static_cast<const ComboBox&>(c), p, arguments);
        case ControlKind::ListBox:
            if (p == "text") return static_cast<const ListBox&>(c).Text();
            return ReadList(static_cast<const ListBox&>(c), p, arguments);
        case ControlKind::DatePicker:
            return ReadDate(static_cast<const DatePicker&>(c), p);
        case ControlKind::TabPanel: {
            const auto& tabs = static_cast<const TabPanel&>(c);
            if (p == "tab") return std::to_string(tabs.Tab());
            if (p == "count") return std::to_string(tabs.Tabs());
            if (p == "list" && arguments.size() == 1) return tabs.TabCaption(arguments[0]);
            return {};
        }
        case ControlKind::TreeView:
            return ReadTree(static_cast<const TreeView&>(c), p);
        case ControlKind::Grid:
            return ReadGrid(static_cast<const Grid&>(c), p, arguments);
        case ControlKind::ProgressBar: {
            const auto& percent = static_cast<const ProgressBar&>(c).Percent();
            if (p == "value") return percent ? std::to_string(*percent) : std::string();
            return {};
        }
        case ControlKind::UpDown:
        case ControlKind::Panel:
        case ControlKind::Picture:
        case ControlKind::Canvas:
        case ControlKind::Timer:
            return {};
    }
    return {};
}

}  // namespace zv::driver
