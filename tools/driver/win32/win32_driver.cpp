#include "driver/win32/win32_driver.h"

#include <array>
#include <cstring>
#include <exception>
#include <utility>

#include "driver/driver_checks.h"
#include "driver/layout_faults.h"
#include "driver/win32/native_ruler.h"
#include "driver/win32/standing_look.h"
#include "driver/win32/window_picture.h"
#include "forms/containers.h"
#include "forms/date_picker.h"
#include "forms/form.h"
#include "forms/grid.h"
#include "forms/lists.h"
#include "forms/text_box.h"
#include "forms/timer.h"
#include "forms/up_down.h"
#include "forms/win32/date_picker_peer.h"
#include "forms/win32/form_window.h"
#include "forms/win32/grid_peer.h"
#include "forms/win32/tree_peer.h"
#include "forms/win32/wide_text.h"

namespace zv::driver {

using namespace forms;
using namespace forms::win32;

namespace {

LPARAM Place(int x, int y) {
    return MAKELPARAM(x, y);
}

// Sends the parent what the native window would when the user had done it.
void Command(HWND window, UINT code) {
    SendMessageW(GetParent(window), WM_COMMAND,
                 MAKEWPARAM(static_cast<WORD>(GetDlgCtrlID(window)), code),
                 reinterpret_cast<LPARAM>(window));
}

void SetRowState(HWND list, int row, UINT state) {
    LVITEMW item{};
    item.stateMask = LVIS_SELECTED | LVIS_FOCUSED;
    item.state = state;
    SendMessageW(list, LVM_SETITEMSTATE, static_cast<WPARAM>(static_cast<INT_PTR>(row)),
                 reinterpret_cast<LPARAM>(&item));
}

// A key that is down for the messages of this thread, as long as this lives.
class HeldKey {
 public:
    explicit HeldKey(int key) : key_(static_cast<std::size_t>(key)) { Set(0x80); }
    ~HeldKey() { Set(0); }
    HeldKey(const HeldKey&) = delete;
    HeldKey& operator=(const HeldKey&) = delete;

 private:
    void Set(BYTE state) const {
        std::array<BYTE, 256> keys{};
        GetKeyboardState(keys.data());
        keys.at(key_) = state;
        SetKeyboardState(keys.data());
    }
    std::size_t key_;
};

}  // namespace

Win32Driver::Win32Driver(PlayedBackend& backend) : backend_(backend) {
    backend_.onMenuIdle = [] { EndMenu(); };
}

NativeControl& Win32Driver::Native(Control& control) const {
    const FormWindow* window = backend_.Find(control.Owner());
    NativeControl* native = window ? window->Find(control) : nullptr;
    if (!native) throw DriverError(control.DisplayName() + " has no native window");
    return *native;
}

NativeControl& Win32Driver::Usable(Control& control) const {
    RequireUsable(control);
    NativeControl& native = Native(control);
    if (!IsWindowVisible(native.Handle())) {
        throw DriverError(control.DisplayName() + " is not visible natively");
    }
    if (!IsWindowEnabled(native.Handle())) {
        throw DriverError(control.DisplayName() + " is disabled natively");
    }
    Activate(control.Owner());
    return native;
}

void Win32Driver::Activate(const Form& form) const {
    const HWND window = backend_.Handle(form);
    if (GetActiveWindow() == window) return;
    SetForegroundWindow(window);
    SetActiveWindow(window);
    PumpMessages();
}

bool Win32Driver::Focus(Control& control) const {
    const NativeControl& native = Usable(control);
    if (!control.CanFocus()) return true;
    SetFocus(native.FocusHandle());
    return control.HasFocus();
}

void Win32Driver::Click(Control& control) {
    switch (control.Kind()) {
        case ControlKind::CommandButton:
        case ControlKind::CheckBox:
        case ControlKind::OptionButton:
            SendMessageW(Usable(control).Handle(), BM_CLICK, 0, 0);
            break;
        default:
            RequireUsable(control);
            throw DriverError(control.DisplayName() + " cannot be clicked");
    }
    PumpMessages();
}

void Win32Driver::Choose(MenuItem& item) {
    RequireChoosable(item);
    if (ChoseInStandingMenu(item)) return;
    PumpMessages();
    const FormWindow* window = backend_.Find(item.Owner());
    if (!window) throw DriverError(item.Name() + " has no native window");
    const UINT id = window->Menus().IdOf(item);
    if (const HMENU bar = GetMenu(window->Handle())) {
        const UINT state = GetMenuState(bar, id, MF_BYCOMMAND);
        if (state != static_cast<UINT>(-1) && (state & (MF_GRAYED | MF_DISABLED))) {
            throw DriverError(item.Name() + " is grey");
        }
    }
    SendMessageW(window->Handle(), WM_COMMAND, id, 0);
    PumpMessages();
}

void Win32Driver::PressNode(Control& control, const std::string& key, UINT down, UINT up) {
    auto& tree = As<TreeView>(control);
    auto& native = static_cast<NativeTree&>(Usable(control));
    const int node = RequireNode(tree, key);
    PumpMessages();
    HTREEITEM item = native.ItemOf(node);
    if (!item) throw DriverError(control.DisplayName() + " does not show \"" + key + "\"");
    SendMessageW(native.Handle(), TVM_ENSUREVISIBLE, 0, reinterpret_cast<LPARAM>(item));
    RECT place = {};
    std::memcpy(&place, &item, sizeof(HTREEITEM));
    SendMessageW(native.Handle(), TVM_GETITEMRECT, TRUE, reinterpret_cast<LPARAM>(&place));
    // Rows as wide as the window may end outside it.
    const LPARAM at =
        Place(static_cast<int>(place.left) + 4, static_cast<int>(place.top + place.bottom) / 2);
    const bool left = down == WM_LBUTTONDOWN;
    PostMessageW(native.Handle(), down, left ? MK_LBUTTON : MK_RBUTTON, at);
    PostMessageW(native.Handle(), up, 0, at);
    PumpMessages();
}

void Win32Driver::ClickNode(Control& control, const std::string& key) {
    PressNode(control, key, WM_LBUTTONDOWN, WM_LBUTTONUP);
}

void Win32Driver::RightClickNode(Control& control, const std::string& key) {
    control.Owner().ForgetPopup();
    PressNode(control, key, WM_RBUTTONDOWN, WM_RBUTTONUP);
}

void Win32Driver::Type(Control& control, const std::string& text) {
    if (!Focus(control)) return;
    if (auto* box = dynamic_cast<TextBox*>(&control)) {
        if (box->Locked()) throw DriverError(control.DisplayName() + " is locked");
    } else {
        auto& combo = As<ComboBox>(control);
        if (combo.Style() != ComboStyle::FreeText || combo.Locked()) {
            throw DriverError(control.DisplayName() + " takes no typing");
        }
    }
    // All at once, as an input method or a paste does: one change.
    const HWND entry = Native(control).FocusHandle();
    SendMessageW(entry, EM_SETSEL, 0, -1);
    SendMessageW(entry, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(ToWide(text).c_str()));
    PumpMessages();
}

void Win32Driver::PressKey(Control& control, const KeyEvent& key) {
    if (!Focus(control)) return;
    std::optional<HeldKey> shift;
    std::optional<HeldKey> held;
    if (key.shift) shift.emplace(VK_SHIFT);
    if (key.control) held.emplace(VK_CONTROL);
    const HWND window = Native(control).FocusHandle();
    PostMessageW(window, WM_KEYDOWN, static_cast<WPARAM>(key.code), 1);
    PostMessageW(window, WM_KEYUP, static_cast<WPARAM>(key.code), static_cast<LPARAM>(0xC0000001));
    PumpMessages();
}

void Win32Driver::PressAccessKey(Form& form, char letter) {
    RequireReachable(form);
    constexpr LPARAM kAltIsDown = 1 << 29;
    Activate(form);
    const HWND focus = GetFocus();
    PostMessageW(focus ? focus : backend_.Handle(form), WM_SYSCHAR,
                 static_cast<unsigned char>(letter), kAltIsDown);
    PumpMessages();
}

void Win32Driver::Pick(Control& control, int position) {
    auto& list = As<ListControl>(control);
    if (position < -1 || position >= list.ListCount()) {
        throw DriverError(control.DisplayName() + " has no row " + std::to_string(position));
    }
    auto* combo = dynamic_cast<ComboBox*>(&control);
    if (combo && combo->Locked()) throw DriverError(control.DisplayName() + " is locked");
    if (!Focus(control)) return;
    const HWND window = Native(control).Handle();
    const auto row = static_cast<WPARAM>(static_cast<INT_PTR>(position));
    SendMessageW(window, combo ? CB_SETCURSEL : LB_SETCURSEL, row, 0);
    static_assert(CBN_SELCHANGE == LBN_SELCHANGE);
    Command(window, LBN_SELCHANGE);
    PumpMessages();
}

void Win32Driver::SetDate(Control& control, const std::optional<DateTime>& value) {
    auto& picker = As<DatePicker>(control);
    if (!value && !picker.MayBeEmpty()) {
        throw DriverError(control.DisplayName() + " cannot be empty");
    }
    if (!Focus(control)) return;
    const HWND window = Native(control).Handle();
    NMDATETIMECHANGE change{};
    change.nmhdr = {window, static_cast<UINT_PTR>(GetDlgCtrlID(window)),
                    static_cast<UINT>(DTN_DATETIMECHANGE)};
    change.dwFlags = value ? GDT_VALID : GDT_NONE;
    change.st = ToSystemTime(value.value_or(DateTime()));
    SendMessageW(window, DTM_SETSYSTEMTIME, change.dwFlags, reinterpret_cast<LPARAM>(&change.st));
    SendMessageW(GetParent(window), WM_NOTIFY, change.nmhdr.idFrom,
                 reinterpret_cast<LPARAM>(&change));
    PumpMessages();
}

void Win32Driver::Spin(Control& control, int direction) {
    As<UpDown>(control);
    const HWND window = Usable(control).Handle();
    RECT client{};
    GetClientRect(window, &client);
    const int y = static_cast<int>(client.bottom) * (direction > 0 ? 1 : 3) / 4;
    const LPARAM at = Place(static_cast<int>(client.right) / 2, y);
    SendMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, at);
    SendMessageW(window, WM_LBUTTONUP, 0, at);
    PumpMessages();
}

void Win32Driver::Tick(Control& control) {
    auto& timer = As<Timer>(control);
    const FormWindow* window = backend_.Find(control.Owner());
    if (!window) {
        timer.UserTick();  // a window that was never shown has no native timer
        return;
    }
    SendMessageW(window->Handle(), WM_TIMER, window->TimerId(timer), 0);
    PumpMessages();
}

void Win32Driver::MoveMouse(Control& control, int xTwips, int yTwips) {
    const NativeControl& native = Usable(control);
    control.Owner().ForgetPopup();
    const auto& scale = native.Owner().GetScale();
    SendMessageW(native.Handle(), WM_MOUSEMOVE, 0,
                 Place(scale.FromTwips(xTwips), scale.FromTwips(yTwips)));
    PumpMessages();
}

void Win32Driver::RightPress(Control& control) {
    const HWND window = Usable(control).Handle();
    control.Owner().ForgetPopup();
    SendMessageW(window, WM_RBUTTONDOWN, MK_RBUTTON, 0);
    SendMessageW(window, WM_RBUTTONUP, 0, 0);
    PumpMessages();
}

void Win32Driver::SelectTab(Control& control, int tab) {
    auto& tabs = As<TabPanel>(control);
    if (tab < 0 || tab >= tabs.Tabs())
        throw DriverError(control.DisplayName() + " has no such tab");
    if (!Focus(control)) return;
    SendMessageW(Native(control).Handle(), TCM_SETCURFOCUS, static_cast<WPARAM>(tab), 0);
    PumpMessages();
}

void Win32Driver::SelectRow(Control& control, int row) {
    RequireRow(control, row);
    if (!Focus(control)) return;
    const HWND window = Native(control).Handle();
    SetRowState(window, -1, 0);
    SetRowState(window, row - 1, LVIS_SELECTED | LVIS_FOCUSED);
    PumpMessages();
}

void Win32Driver::AddRow(Control& control, int row) {
    RequireRow(control, row);
    if (!Focus(control)) return;
    SetRowState(Native(control).Handle(), row - 1, LVIS_SELECTED | LVIS_FOCUSED);
    PumpMessages();
}

void Win32Driver::PressHeading(Control& control, int column) {
    RequireColumn(control, column);
    if (!Focus(control)) return;
    const auto& native = static_cast<const NativeGrid&>(Native(control));
    const auto header = reinterpret_cast<HWND>(SendMessageW(native.Handle(), LVM_GETHEADER, 0, 0));
    RECT place{};
    SendMessageW(header, HDM_GETITEMRECT, static_cast<WPARAM>(native.NativeColumn(column)),
                 reinterpret_cast<LPARAM>(&place));
    const LPARAM at = Place(static_cast<int>(place.left + place.right) / 2,
                            static_cast<int>(place.top + place.bottom) / 2);
    SendMessageW(header, WM_LBUTTONDOWN, MK_LBUTTON, at);
    SendMessageW(header, WM_LBUTTONUP, 0, at);
    PumpMessages();
}

void Win32Driver::ResizeColumn(Control& control, int column, int width) {
    RequireColumn(control, column);
    const auto& native = static_cast<const NativeGrid&>(Usable(control));
    SendMessageW(native.Handle(), LVM_SETCOLUMNWIDTH,
                 static_cast<WPARAM>(native.NativeColumn(column)),
                 native.Owner().GetScale().ToPixels(width));
    PumpMessages();
}

void Win32Driver::Resize(Form& form, Size inside) {
    RequireReachable(form);
    const FormWindow* window = backend_.Find(form);
    if (!window) throw DriverError(form.Name() + " has no native window");
    RECT outer{};
    GetWindowRect(window->Handle(), &outer);
    const Size present = window->InsidePixels();
    const auto& scale = window->GetScale();
    SetWindowPos(
        window->Handle(), nullptr, 0, 0,
        static_cast<int>(outer.right - outer.left) - present.width + scale.ToPixels(inside.width),
        static_cast<int>(outer.bottom - outer.top) - present.height + scale.ToPixels(inside.height),
        SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    PumpMessages();
}

void Win32Driver::Drag(Form& form, Position corner) {
    RequireReachable(form);
    const FormWindow* window = backend_.Find(form);
    if (!window || !form.IsShown()) throw DriverError(form.Name() + " is not shown");
    Activate(form);
    const HWND handle = window->Handle();
    SendMessageW(handle, WM_ENTERSIZEMOVE, 0, 0);
    SetWindowPos(handle, nullptr, corner.x, corner.y, 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    backend_.FollowScale(*window);
    SendMessageW(handle, WM_EXITSIZEMOVE, 0, 0);
    PumpMessages();
}

void Win32Driver::Close(Form& form) {
    RequireReachable(form);
    const HWND window = backend_.Handle(form);
    if (!window) throw DriverError(form.Name() + " has no native window");
    SendMessageW(window, WM_CLOSE, 0, 0);
    PumpMessages();
}

void Win32Driver::EndSession(WindowSystem& windows) {
    std::vector<HWND> asked;
    BOOL ends = TRUE;
    for (const Form* form : windows.Windows()) {
        const HWND window = backend_.Handle(*form);
        if (!window || !ends) continue;
        asked.push_back(window);
        ends = SendMessageW(window, WM_QUERYENDSESSION, 0, 0) ? TRUE : FALSE;
    }
    for (const HWND window : asked) {
        if (IsWindow(window)) SendMessageW(window, WM_ENDSESSION, static_cast<WPARAM>(ends), 0);
    }
    PumpMessages();
}

std::optional<std::string> Win32Driver::Read(Control& control, const std::string& property,
                                             const std::vector<int>& arguments) {
    PumpMessages();
    const FormWindow* window = backend_.Find(control.Owner());
    const NativeControl* native = window ? window->Find(control) : nullptr;
    if (native && native->Handle()) {
        if (auto text = ReadNative(*native, property, arguments)) return text;
    }
    return ReadState(control, property, arguments);
}

std::string Win32Driver::ReadCaption(Form& form) {
    const HWND window = backend_.Handle(form);
    return window ? WindowText(window) : form.Caption();
}

Rect Win32Driver::ReadPlace(Form& form) {
    PumpMessages();
    const HWND window = backend_.Handle(form);
    if (!window) throw DriverError(form.Name() + " has no native window");
    return ScriptedScreens::PlaceOf(window);
}

int Win32Driver::ReadDpi(Form& form) {
    PumpMessages();
    const FormWindow* window = backend_.Find(form);
    if (!window) throw DriverError(form.Name() + " has no native window");
    return window->GetScale().Dpi();
}

std::vector<std::string> Win32Driver::ReadFaults(Form& form) {
    PumpMessages();
    const FormWindow* window = backend_.Find(form);
    if (!window) throw DriverError(form.Name() + " has no native window");
    return LayoutFaults(form, NativeRuler(*window));
}

void Win32Driver::SavePicture(Form& form, const std::filesystem::path& file) {
    const HWND window = backend_.Handle(form);
    if (!window) throw DriverError(form.Name() + " has no native window");
    Activate(form);
    SaveWindowPicture(window, file);
}

void Win32Driver::SaveMenuPicture(MenuItem& root, const std::filesystem::path& file) {
    RequireReachable(root.Owner());
    Activate(root.Owner());
    const HWND window = backend_.Handle(root.Owner());
    const std::size_t mark = root.Caption().find('&');
    if (!window || mark == std::string::npos || mark + 1 == root.Caption().size()) {
        throw DriverError(root.Name() + " has no letter in a menu bar");
    }
    bool opened = false;
    std::exception_ptr failure;
    auto former = std::exchange(backend_.onMenuIdle, [&] {
        opened = !OpenMenus().empty();
        try {
            if (opened) SaveWindowPicture(window, file);
        } catch (const std::exception&) {
            failure = std::current_exception();
        }
        EndMenu();
    });
    const auto letter = static_cast<unsigned char>(root.Caption()[mark + 1]);
    SendMessageW(window, WM_SYSCOMMAND, SC_KEYMENU, letter);
    PumpMessages();
    backend_.onMenuIdle = std::move(former);
    if (failure) std::rethrow_exception(failure);
    if (!opened) throw DriverError(root.Name() + " does not open");
}

void Win32Driver::SaveBoxPicture(const Question& ask, const std::filesystem::path& file) {
    LookAtBox(backend_, ask, [&](HWND box) { SaveWindowPicture(box, file); });
}

std::vector<std::string> Win32Driver::ReadBoxFaults(const Question& ask) {
    std::vector<std::string> faults;
    LookAtBox(backend_, ask, [&](HWND box) { faults = BoxFaults(box); });
    return faults;
}

}  // namespace zv::driver
