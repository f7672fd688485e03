#include "driver/headless/headless_driver.h"

#include "driver/driver_checks.h"
#include "driver/layout_faults.h"
#include "forms/buttons.h"
#include "forms/containers.h"
#include "forms/date_picker.h"
#include "forms/form.h"
#include "forms/grid.h"
#include "forms/headless/headless_backend.h"
#include "forms/lists.h"
#include "forms/text_box.h"
#include "forms/timer.h"
#include "forms/tree_view.h"
#include "forms/up_down.h"

namespace zv::driver {

using namespace forms;

namespace {

constexpr const char* kNoDisplay = "without a display there is no picture";

headless::HeadlessBackend& BackendOf(const Form& form) {
    return dynamic_cast<headless::HeadlessBackend&>(form.Windows().GetBackend());
}

const headless::HeadlessWindow& WindowOf(const Form& form) {
    const headless::HeadlessWindow* window = BackendOf(form).Find(form);
    if (!window) throw DriverError(form.Name() + " has no window yet");
    return *window;
}

// A press brings the window to the front and moves the focus first; false when a validation kept
// it, and the press is lost then.
bool Press(Control& control) {
    RequireUsable(control);
    BackendOf(control.Owner()).Raise(control.Owner());
    return !control.CanFocus() || control.Owner().UserFocused(control);
}

}  // namespace

void HeadlessDriver::Click(Control& control) {
    if (!Press(control)) return;
    switch (control.Kind()) {
        case ControlKind::CommandButton:
            static_cast<CommandButton&>(control).UserClick();
            break;
        case ControlKind::CheckBox:
            static_cast<CheckBox&>(control).UserClick();
            break;
        case ControlKind::OptionButton:
            static_cast<OptionButton&>(control).UserClick();
            break;
        default:
            throw DriverError(control.DisplayName() + " cannot be clicked");
    }
}

void HeadlessDriver::Choose(MenuItem& item) {
    RequireChoosable(item);
    if (ChoseInStandingMenu(item)) return;
    item.UserChosen();
}

void HeadlessDriver::ClickNode(Control& control, const std::string& key) {
    auto& tree = As<TreeView>(control);
    RequireUsable(tree);
    const int node = RequireNode(tree, key);
    if (Press(tree)) tree.UserClick(node);
}

void HeadlessDriver::RightClickNode(Control& control, const std::string& key) {
    auto& tree = As<TreeView>(control);
    RequireUsable(tree);
    const int node = RequireNode(tree, key);
    tree.Owner().ForgetPopup();
    if (Press(tree)) tree.UserRightClick(node, 0, 0);
}

void HeadlessDriver::Type(Control& control, const std::string& text) {
    if (!Press(control)) return;
    if (auto* box = dynamic_cast<TextBox*>(&control)) {
        if (box->Locked()) throw DriverError(control.DisplayName() + " is locked");
        box->UserText(text);
        return;
    }
    auto& combo = As<ComboBox>(control);
    if (combo.Style() != ComboStyle::FreeText || combo.Locked()) {
        throw DriverError(control.DisplayName() + " takes no typing");
    }
    combo.UserText(text);
}

void HeadlessDriver::PressKey(Control& control, const KeyEvent& key) {
    if (Press(control)) control.Owner().UserKey(control, key);
}

void HeadlessDriver::PressAccessKey(Form& form, char letter) {
    RequireReachable(form);
    form.UserAccessKey(static_cast<unsigned char>(letter));
}

void HeadlessDriver::Pick(Control& control, int position) {
    auto& list = As<ListControl>(control);
    if (position < -1 || position >= list.ListCount()) {
        throw DriverError(control.DisplayName() + " has no row " + std::to_string(position));
    }
    if (auto* combo = dynamic_cast<ComboBox*>(&control); combo && combo->Locked()) {
        throw DriverError(control.DisplayName() + " is locked");
    }
    if (Press(control)) list.UserPick(position);
}

void HeadlessDriver::SetDate(Control& control, const std::optional<DateTime>& value) {
    auto& picker = As<DatePicker>(control);
    if (!value && !picker.MayBeEmpty()) {
        throw DriverError(control.DisplayName() + " cannot be empty");
    }
    if (Press(control)) picker.UserPick(value);
}

void HeadlessDriver::Spin(Control& control, int direction) {
    auto& upDown = As<UpDown>(control);
    RequireUsable(control);
    upDown.UserSpin(direction);
}

void HeadlessDriver::Tick(Control& control) {
    As<Timer>(control).UserTick();
}

void HeadlessDriver::MoveMouse(Control& control, int xTwips, int yTwips) {
    RequireUsable(control);
    control.Owner().ForgetPopup();
    control.UserMouseMove({MouseButton::None, xTwips, yTwips});
}

void HeadlessDriver::RightPress(Control& control) {
    RequireUsable(control);
    control.Owner().ForgetPopup();
    control.UserMouseDown({MouseButton::Right, 0, 0});
}

void HeadlessDriver::SelectTab(Control& control, int tab) {
    auto& tabs = As<TabPanel>(control);
    if (tab < 0 || tab >= tabs.Tabs())
        throw DriverError(control.DisplayName() + " has no such tab");
    if (Press(control)) tabs.UserSelect(tab);
}

void HeadlessDriver::SelectRow(Control& control, int row) {
    Grid& grid = RequireRow(control, row);
    if (Press(control)) grid.UserSelect(row);
}

void HeadlessDriver::AddRow(Control& control, int row) {
    Grid& grid = RequireRow(control, row);
    if (!Press(control)) return;
    grid.UserChangedSelection(row, row, true);
    grid.UserWentTo(row);
}

void HeadlessDriver::PressHeading(Control& control, int column) {
    Grid& grid = RequireColumn(control, column);
    if (Press(control)) grid.UserPressedHeading(column);
}

void HeadlessDriver::ResizeColumn(Control& control, int column, int width) {
    RequireUsable(control);
    RequireColumn(control, column).UserResizedColumn(column, width);
}

void HeadlessDriver::Resize(Form& form, Size inside) {
    RequireReachable(form);
    const Rect bounds = form.Bounds();
    form.UserResized(
        {bounds.left, bounds.top, bounds.width + inside.width - form.View().Inside().width,
         bounds.height + inside.height - form.View().Inside().height},
        inside);
}

void HeadlessDriver::Drag(Form& form, Position corner) {
    RequireReachable(form);
    if (!form.IsShown()) throw DriverError(form.Name() + " is not shown");
    BackendOf(form).Drag(form, corner);
}

void HeadlessDriver::Close(Form& form) {
    RequireReachable(form);
    form.UserClose();
}

void HeadlessDriver::EndSession(WindowSystem& windows) {
    for (Form* form : windows.Windows()) {
        if (!form->UserMayEnd()) return;
    }
    windows.EndSession();
}

std::optional<std::string> HeadlessDriver::Read(Control& control, const std::string& property,
                                                const std::vector<int>& arguments) {
    return ReadState(control, property, arguments);
}

std::string HeadlessDriver::ReadCaption(Form& form) {
    return form.Caption();
}

Rect HeadlessDriver::ReadPlace(Form& form) {
    return WindowOf(form).Place();
}

int HeadlessDriver::ReadDpi(Form& form) {
    return WindowOf(form).Dpi();
}

std::vector<std::string> HeadlessDriver::ReadFaults(Form& form) {
    return LayoutFaults(form, StateRuler(form.Windows().GetBackend()));
}

void HeadlessDriver::SavePicture(Form&, const std::filesystem::path&) {
    throw DriverError(kNoDisplay);
}

void HeadlessDriver::SaveMenuPicture(MenuItem&, const std::filesystem::path&) {
    throw DriverError(kNoDisplay);
}

void HeadlessDriver::SaveBoxPicture(const Question&, const std::filesystem::path&) {
    throw DriverError(kNoDisplay);
}

std::vector<std::string> HeadlessDriver::ReadBoxFaults(const Question&) {
    return {};
}

}  // namespace zv::driver
