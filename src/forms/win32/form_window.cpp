#include "forms/win32/form_window.h"

#include <algorithm>

#include "base/errors.h"
#include "forms/lists.h"
#include "forms/text_box.h"
#include "forms/timer.h"
#include "forms/win32/common_controls.h"
#include "forms/win32/control_factory.h"
#include "forms/win32/panel_peers.h"
#include "forms/win32/system_dpi.h"
#include "forms/win32/wide_text.h"
#include "forms/win32/win32_backend.h"

namespace zv::forms::win32 {
namespace {

constexpr wchar_t kClassName[] = L"zv.Form";
constexpr UINT kKeyMessage = WM_APP + 1;
constexpr UINT kMenuMessage = WM_APP + 2;
constexpr UINT kPlaceMessage = WM_APP + 3;

// The native windows of this copy of this module, which belong to one thread. Another module may
// have windows of the same class name, even of another version of this code: what they keep is
// never looked at.
std::unordered_map<HWND, FormWindow*> ours;

}  // namespace

FormWindow::FormWindow(Win32Backend& backend, Form& form)
    : backend_(backend), form_(form), windows_(form.Windows()), menu_(form), toolTips_(*this) {
    backend_.Add(*this);
}

FormWindow::~FormWindow() {
    gone_ = true;
    toolTips_.Forget();
    handle_.reset();
    backend_.Remove(*this);
}

HINSTANCE FormWindow::Module() const {
    return backend_.Module();
}

DWORD FormWindow::Style() const {
    if (form_.Sizable()) return WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN;
    return WS_OVERLAPPED | WS_CAPTION | WS_SYSMENU | WS_CLIPCHILDREN;
}

DWORD FormWindow::ExtendedStyle() const {
    // One that nobody opened has no place in the task bar.
    const DWORD above = form_.ComesByItself() ? WS_EX_TOPMOST | WS_EX_TOOLWINDOW : 0;
    return above | WS_EX_CONTROLPARENT | (form_.Sizable() ? 0 : WS_EX_DLGMODALFRAME);
}

void FormWindow::Build() {
    const ManifestInForce manifest(backend_.Controls().Manifest());
    class_ = WindowClass::Get(Module(), kClassName, &FormWindow::Procedure);
    // Where Center() puts it; the window says for sure.
    const Screens& screens = backend_.GetScreens();
    scale_ = Scale(screens.DpiAround(screens.WorkAreaAt(WindowToBlock())));
    placing_++;
    handle_.reset(CreateWindowExW(ExtendedStyle(), kClassName, ToWide(form_.Caption()).c_str(),
                                  Style(), scale_.ToPixels(form_.Bounds().left),
                                  scale_.ToPixels(form_.Bounds().top), 100, 100, nullptr, nullptr,
                                  Module(), nullptr));
    if (!handle_) throw RuntimeError(ErrorNumber::InternalError, "No native window");
    ours[Handle()] = this;
    SetPropW(Handle(), kNameProperty,
             reinterpret_cast<HANDLE>(
                 static_cast<UINT_PTR>(GlobalAddAtomW(ToWide(form_.Name()).c_str()))));
    scale_ = Scale(screens.DpiOf(Handle()));
    const bool isMeasured = !backend_.Meets(scale_.Dpi());
    font_ = CreateUiFont(scale_.Dpi());
    menu_.ShowBar(Handle());
    PlaceByClient();
    int id = 0;
    for (Control* control : form_.Controls()) Build(*control, ++id);
    SendMessageW(Handle(), WM_CHANGEUISTATE, MAKEWPARAM(UIS_INITIALIZE, 0), 0);
    placing_--;
    if (isMeasured)
        AcceptPlace();
    else
        LayOutAgain();
    // Laid out for other texts, it may need another size.
    if (form_.View().Inside() != InsideUnits()) BoundsChanged();
    // While it is made the form has no peer yet to report its view to.
    ViewChanged();
}

void FormWindow::Build(Control& control, int id) {
    const NativeControl* container = control.Parent() ? Find(*control.Parent()) : nullptr;
    const HWND parent = container ? container->ContainerHandle() : Handle();
    if (std::shared_ptr<NativeControl> native = MakeNative(*this, control)) {
        controls_.push_back(native);
        native->Create(parent, id);
    }
}

void FormWindow::Close() {
    gone_ = true;
    for (const auto& control : controls_) control->Abandon();
    if (inMenu_) EndMenu();
    EndModal();
    if (depth_ == 0)
        Destroy();
    else if (!dying_)
        ShowWindow(Handle(), SW_HIDE);
}

void FormWindow::Destroy() {
    if (!handle_ || dying_) return;
    depth_++;  // the messages of dying windows must not come here again
    ForgetName();
    toolTips_.Forget();
    handle_.reset();
    depth_--;
}

void FormWindow::ForgetName() const {
    const HANDLE name = RemovePropW(Handle(), kNameProperty);
    if (name) GlobalDeleteAtom(static_cast<ATOM>(reinterpret_cast<UINT_PTR>(name)));
}

// A window dies with its owner, or by the hand of a program that closes what it finds.
void FormWindow::OnDestroyedByOthers() noexcept {
    alive_ = shared_from_this();
    dying_ = true;
    ForgetName();
    toolTips_.Forget();
    AtBoundary([this] {
        form_.UserDestroyed();
        return 0;
    });
}

void FormWindow::OnNativeGone(HWND window) noexcept {
    ours.erase(window);
    static_cast<void>(handle_.release());
    const std::shared_ptr<FormWindow> last = std::move(alive_);
}

void FormWindow::EndMenus(int exitCode) {
    for (const auto& [handle, window] : ours) {
        if (!window->inMenu_) continue;
        window->backend_.quit_ = exitCode;
        EndMenu();
        return;
    }
}

void FormWindow::ForgetAll() {
    ours.clear();
    WindowClass::Forget(kClassName);
}

FormWindow* FormWindow::Owning(HWND window) {
    const HWND root = window ? GetAncestor(window, GA_ROOT) : nullptr;
    const auto found = ours.find(root);
    return found == ours.end() ? nullptr : found->second;
}

bool FormWindow::CameByItself(HWND window) {
    const FormWindow* owning = Owning(window);
    return owning && owning->form_.ComesByItself();
}

NativeControl* FormWindow::Find(HWND window) const {
    const auto at = byHandle_.find(window);
    return at == byHandle_.end() ? nullptr : at->second;
}

NativeControl* FormWindow::Find(const Control& control) const {
    const auto at = std::find_if(controls_.begin(), controls_.end(), [&](const auto& candidate) {
        return &candidate->Logical() == &control;
    });
    return at == controls_.end() ? nullptr : at->get();
}

LRESULT FormWindow::Guard(const std::function<LRESULT()>& body) noexcept {
    LRESULT result = 0;
    try {
        const std::shared_ptr<FormWindow> alive = shared_from_this();
        depth_++;
        try {
            windows_.FromUser([&] { result = body(); });
        } catch (...) {
            // Even the message to the user has failed; the program that holds these windows goes
            // on.
            OutputDebugStringW(L"An error could not be shown.\n");
        }
        if (--depth_ == 0 && gone_) Destroy();
    } catch (...) {
        OutputDebugStringW(L"A window could not be destroyed.\n");
    }
    return result;
}

LRESULT CALLBACK FormWindow::Procedure(HWND window, UINT message, WPARAM wParam,
                                       LPARAM lParam) noexcept {
    const auto found = ours.find(window);
    FormWindow* self = found == ours.end() ? nullptr : found->second;
    if (self && message == WM_NCDESTROY) {
        self->OnNativeGone(window);
        return DefWindowProcW(window, message, wParam, lParam);
    }
    if (message == WM_NCCREATE) ScaleFrame(window);
    if (!self || self->gone_) return DefWindowProcW(window, message, wParam, lParam);
    if (message == WM_DESTROY) {
        self->OnDestroyedByOthers();
        return 0;
    }
    return self->AtBoundary([&] { return self->Handle(message, wParam, lParam); });
}

LRESULT FormWindow::Handle(UINT message, WPARAM wParam, LPARAM lParam) {
    if (gone_) return DefWindowProcW(Handle(), message, wParam, lParam);
    switch (message) {
        case WM_CLOSE:
            if (IsWindowEnabled(Handle())) form_.UserClose();
            return 0;
        case WM_SIZE:
            if (wParam == SIZE_MINIMIZED) {
                form_.UserChangedState(WindowState::Minimised);
                return 0;
            }
            form_.UserChangedState(wParam == SIZE_MAXIMIZED ? WindowState::Maximised
                                                            : WindowState::Normal);
            // The system is not done with restoring the window yet.
            if (form_.MissedMonitors()) PostMessageW(Handle(), kPlaceMessage, 0, 0);
            ReportPlace();
            return 0;
        case WM_MOVE:
            ReportPlace();
            return 0;
        case WM_GETMINMAXINFO:
            OnMinimumSize(*reinterpret_cast<MINMAXINFO*>(lParam));
            return 0;
        case WM_HSCROLL:
        case WM_VSCROLL:
            if (lParam != 0) break;
            OnScroll(message == WM_HSCROLL ? SB_HORZ : SB_VERT, LOWORD(wParam));
            return 0;
        case WM_MOUSEWHEEL:
        case WM_MOUSEHWHEEL:
            OnWheel(message == WM_MOUSEHWHEEL ? SB_HORZ : SB_VERT,
                    static_cast<short>(HIWORD(wParam)));
            return 0;
        case WM_ACTIVATE:
            return OnActivate(wParam, lParam);
        case WM_SETFOCUS:
            RestoreFocus();
            return 0;
        case WM_COMMAND:
            if (lParam == 0) {
                OnCommand(wParam);
                return 0;
            }
            break;
        case WM_TIMER:
            OnTimer(wParam);
            return 0;
        case WM_ENTERMENULOOP:
            inMenu_ = true;
            break;
        case WM_EXITMENULOOP:
            inMenu_ = false;
            if (backend_.quit_) PostQuitMessage(*std::exchange(backend_.quit_, std::nullopt));
            break;
        case WM_QUERYENDSESSION:
            return form_.UserMayEnd() ? TRUE : FALSE;
        case WM_ENDSESSION:
            if (wParam) backend_.EndSession();
            return 0;
        case WM_ENTERSIZEMOVE:
            beingMoved_ = true;
            break;
        case WM_EXITSIZEMOVE:
            beingMoved_ = false;
            if (std::exchange(rescaledOnTheWay_, false)) form_.MonitorsChanged();
            break;
        case WM_TIMECHANGE:
            form_.ClockChanged();
            return 0;
        case WM_POWERBROADCAST:
            if (wParam == PBT_APMRESUMEAUTOMATIC) form_.ClockChanged();
            return TRUE;
        case WM_DISPLAYCHANGE:
            form_.MonitorsChanged();
            break;
        case WM_ENTERIDLE:
            if (wParam == MSGF_MENU) backend_.MenuIdle();
            return 0;
        case WM_DPICHANGED:
            OnResolution(HIWORD(wParam), *reinterpret_cast<const RECT*>(lParam));
            return 0;
        case kGetDpiScaledSize:
            return OnScaledSize(static_cast<int>(wParam), *reinterpret_cast<SIZE*>(lParam));
        case WM_SETTINGCHANGE:
            if (wParam == SPI_SETWORKAREA) form_.MonitorsChanged();
            if (!gone_) OnSystemChanged();
            break;
        case WM_THEMECHANGED:
        case WM_SYSCOLORCHANGE:
            OnSystemChanged();
            break;
        case kKeyMessage:
            if (const auto at = deferred_.find(wParam); at != deferred_.end()) {
                const MSG key = at->second;
                deferred_.erase(deferred_.begin(), std::next(at));
                HandleKey(key);
            }
            return 0;
        case kPlaceMessage:
            form_.HasPlaceAgain();
            return 0;
        case kMenuMessage:
            menuChanged_ = false;
            menu_.ShowBar(Handle());
            return 0;
        default:
            break;
    }
    if (const auto result = FromChild(message, wParam, lParam)) return *result;
    return DefWindowProcW(Handle(), message, wParam, lParam);
}

std::optional<LRESULT> FormWindow::FromChild(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_COMMAND:
            if (NativeControl* control = Find(reinterpret_cast<HWND>(lParam))) {
                if (!control->Gone()) control->OnCommand(HIWORD(wParam));
                return 0;
            }
            return std::nullopt;
        case WM_NOTIFY: {
            auto& header = *reinterpret_cast<NMHDR*>(lParam);
            NativeControl* control = Find(header.hwndFrom);
            if (!control || control->Gone()) return std::nullopt;
            return control->OnNotify(header);
        }
        case WM_CTLCOLORSTATIC:
        case WM_CTLCOLORBTN:
            return reinterpret_cast<LRESULT>(
                ColorOf(reinterpret_cast<HDC>(wParam), reinterpret_cast<HWND>(lParam)));
        case WM_CTLCOLOREDIT:
            if (!LooksLocked(reinterpret_cast<HWND>(lParam))) return std::nullopt;
            return reinterpret_cast<LRESULT>(
                ColorOf(reinterpret_cast<HDC>(wParam), reinterpret_cast<HWND>(lParam)));
        default:
            return std::nullopt;
    }
}

bool FormWindow::LooksLocked(HWND child) const {
    const NativeControl* control = Find(child);
    if (!control) return false;
    if (const auto* box = dynamic_cast<const TextBox*>(&control->Logical())) {
        return box->LooksLocked();
    }
    const auto* combo = dynamic_cast<const ComboBox*>(&control->Logical());
    return combo && combo->Locked();
}

HBRUSH FormWindow::ColorOf(HDC dc, HWND child) const {
    const NativeControl* control = Find(child);
    const bool entry = control && (control->Logical().Kind() == ControlKind::TextBox ||
                                   control->Logical().Kind() == ControlKind::ComboBox);
    if (entry) {
        SetTextColor(dc, GetSysColor(COLOR_WINDOWTEXT));
        SetBkColor(dc, GetSysColor(COLOR_BTNFACE));
        return GetSysColorBrush(COLOR_BTNFACE);
    }
    SetTextColor(dc, GetSysColor(COLOR_BTNTEXT));
    SetBkMode(dc, TRANSPARENT);
    return BackgroundOf(*this, dc, child);
}

void FormWindow::OnCommand(WPARAM wParam) {
    MenuItem* item = menu_.Find(LOWORD(wParam));
    if (item && item->CanChoose()) item->UserChosen();
}

LRESULT FormWindow::OnActivate(WPARAM wParam, LPARAM lParam) {
    const LRESULT result = DefWindowProcW(Handle(), WM_ACTIVATE, wParam, lParam);
    const bool active = LOWORD(wParam) != WA_INACTIVE;
    // Coming back from another program or from a message box is no activation.
    if (active && !gone_ && !showing_ && form_.IsShown() && HIWORD(wParam) == 0 &&
        FormWindow::Owning(reinterpret_cast<HWND>(lParam))) {
        form_.UserActivated();
    }
    return result;
}

// Fonts, colours and themes follow the system without a restart.
void FormWindow::OnSystemChanged() {
    Font former = std::exchange(font_, CreateUiFont(scale_.Dpi()));
    toolTips_.ResolutionChanged();
    for (const auto& control : controls_) control->ResolutionChanged();
    InvalidateRect(Handle(), nullptr, TRUE);
}

void FormWindow::PaintNow() {
    if (gone_ || !form_.IsShown()) return;
    // Looking for messages without taking one lets the system know that the thread lives, so it
    // does not put a picture of a hanging window in this one's place. Input waits as it is.
    MSG message;
    PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE);
    RedrawWindow(Handle(), nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
}

void FormWindow::CaptionChanged() {
    SetWindowTextW(Handle(), ToWide(form_.Caption()).c_str());
}

void FormWindow::WindowStateChanged() {
    if (gone_ || !form_.IsShown()) return;
    switch (form_.State()) {
        case WindowState::Minimised:
            ShowWindow(Handle(), SW_MINIMIZE);
            break;
        case WindowState::Maximised:
            ShowWindow(Handle(), SW_MAXIMIZE);
            break;
        case WindowState::Normal:
            ShowWindow(Handle(), SW_RESTORE);
            break;
    }
}

void FormWindow::CloseMenu() {
    if (inMenu_) EndMenu();
}

void FormWindow::MenuChanged() {
    // Many items change together.
    if (gone_ || std::exchange(menuChanged_, true)) return;
    PostMessageW(Handle(), kMenuMessage, 0, 0);
}

MenuItem* FormWindow::PopupMenu(MenuItem& menu, int x, int y) {
    const ManifestInForce manifest(backend_.Controls().Manifest());
    const DpiScope sharp = backend_.Dpi().ForWindows();
    const Menu native = menu_.CreatePopup(menu);
    POINT at{scale_.ToPixels(x) - scrolled_.x, scale_.ToPixels(y) - scrolled_.y};
    ClientToScreen(Handle(), &at);
    SetForegroundWindow(Handle());
    const UINT id = static_cast<UINT>(TrackPopupMenuEx(
        native.get(), TPM_RETURNCMD | TPM_RIGHTBUTTON, at.x, at.y, Handle(), nullptr));
    if (backend_.quit_) PostQuitMessage(*std::exchange(backend_.quit_, std::nullopt));
    if (gone_) return nullptr;
    PostMessageW(Handle(), WM_NULL, 0, 0);
    return id ? menu_.Find(id) : nullptr;
}

void FormWindow::Show() {
    if (gone_) return;
    showing_ = true;
    if (!IsWindowVisible(Handle())) {
        formerActive_ = GetActiveWindow();
        formerFocus_ = GetFocus();
        if (form_.IsModal()) BeginModal();
        int how = form_.ComesByItself() ? SW_SHOWNOACTIVATE : SW_SHOWNORMAL;
        if (form_.State() == WindowState::Maximised) how = SW_SHOWMAXIMIZED;
        if (form_.State() == WindowState::Minimised) how = SW_SHOWMINIMIZED;
        ShowWindow(Handle(), how);
    } else if (IsIconic(Handle())) {
        ShowWindow(Handle(), SW_RESTORE);
    }
    if (!form_.ComesByItself()) SetForegroundWindow(Handle());
    showing_ = false;
}

void FormWindow::Hide() {
    if (!handle_) return;
    if (dying_) return EndModal();
    const bool wasActive = GetActiveWindow() == Handle();
    // First the others are enabled, or the system would bring another program to the front.
    EndModal();
    ShowWindow(Handle(), SW_HIDE);
    if (wasActive && IsWindow(formerActive_) && IsWindowVisible(formerActive_)) {
        SetActiveWindow(formerActive_);
        if (IsWindow(formerFocus_)) SetFocus(formerFocus_);
    }
    formerActive_ = nullptr;
    formerFocus_ = nullptr;
}

void FormWindow::BeginModal() {
    // Owned by the window that it blocks, it always stands above it.
    const HWND blocked = WindowToBlock(Handle(), &FormWindow::CameByItself);
    // A window that stood before may own the one that it comes above: that goes to its own owner.
    for (HWND at = blocked; at; at = GetWindow(at, GW_OWNER)) {
        if (GetWindow(at, GW_OWNER) != Handle()) continue;
        const HWND above = GetWindow(Handle(), GW_OWNER);
        SetWindowLongPtrW(at, GWLP_HWNDPARENT, reinterpret_cast<LONG_PTR>(above));
        break;
    }
    if (blocked) {
        SetWindowLongPtrW(Handle(), GWLP_HWNDPARENT, reinterpret_cast<LONG_PTR>(blocked));
    }
    modal_ = std::make_unique<OtherWindowsDisabled>(Handle(), &FormWindow::CameByItself);
}

void FormWindow::EndModal() {
    if (!modal_) return;
    modal_.reset();
    if (!dying_) SetWindowLongPtrW(Handle(), GWLP_HWNDPARENT, 0);
    // The loop may wait while a message that another thread sent is answered.
    PostThreadMessageW(GetCurrentThreadId(), WM_NULL, 0, 0);
}

void FormWindow::GiveFocus(NativeControl& control) {
    // Another window's focus is not taken; WM_ACTIVATE brings it here in time.
    if (gone_ || GetActiveWindow() != Handle()) return;
    givingFocus_++;
    ::SetFocus(control.FocusHandle());
    givingFocus_--;
}

void FormWindow::FocusArrived(NativeControl& control) {
    if (gone_ || givingFocus_ > 0 || control.Logical().HasFocus()) return;
    if (control.Logical().CanFocus() && form_.UserFocused(control.Logical())) return;
    if (!gone_) RestoreFocus();
}

void FormWindow::RestoreFocus() {
    const Control* active = form_.ActiveControl();
    NativeControl* native = active ? Find(*active) : nullptr;
    if (native) GiveFocus(*native);
}

UINT_PTR FormWindow::TimerId(const Control& timer) const {
    const auto& controls = form_.Controls();
    return static_cast<UINT_PTR>(std::find(controls.begin(), controls.end(), &timer) -
                                 controls.begin()) +
           1;
}

void FormWindow::SetTimer(const Control& timer, int interval) {
    if (!gone_ && backend_.TimersRun())
        ::SetTimer(Handle(), TimerId(timer), static_cast<UINT>(interval), nullptr);
}

void FormWindow::StopTimer(const Control& timer) {
    if (!gone_) KillTimer(Handle(), TimerId(timer));
}

void FormWindow::OnTimer(WPARAM id) {
    const auto& controls = form_.Controls();
    if (id < 1 || id > controls.size()) return;
    if (auto* timer = dynamic_cast<Timer*>(controls[id - 1])) timer->UserTick();
}

void FormWindow::Defer(MSG& message) {
    deferred_[++lastDeferred_] = message;
    message.hwnd = Handle();
    message.message = kKeyMessage;
    message.wParam = lastDeferred_;
    message.lParam = 0;
}

}  // namespace zv::forms::win32
