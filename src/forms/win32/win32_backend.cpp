#include "forms/win32/win32_backend.h"

#include <algorithm>
#include <atomic>
#include <new>
#include <utility>

#include "base/errors.h"
#include "forms/form.h"
#include "forms/win32/display.h"
#include "forms/win32/form_window.h"
#include "forms/win32/standing_box.h"
#include "forms/win32/subclass.h"
#include "forms/win32/thread_windows.h"

namespace zv::forms::win32 {
namespace {

std::atomic<int> openWindows = 0;

// What a form holds: lets the native window go when it dies.
class NativeFormPeer : public FormPeer {
 public:
    explicit NativeFormPeer(std::shared_ptr<FormWindow> window) : window_(std::move(window)) {}
    ~NativeFormPeer() override { window_->Close(); }
    // What these cause may take the form's window away.
    void Show() override { std::shared_ptr(window_)->Show(); }
    void Hide() override { std::shared_ptr(window_)->Hide(); }
    void CaptionChanged() override { window_->CaptionChanged(); }
    void BoundsChanged() override { window_->BoundsChanged(); }
    void WindowStateChanged() override { window_->WindowStateChanged(); }
    void FollowMonitor() override { std::shared_ptr(window_)->FollowMonitor(); }
    void CloseMenu() override { window_->CloseMenu(); }
    void ViewChanged() override { window_->ViewChanged(); }
    void PaintNow() override { window_->PaintNow(); }
    void MenuChanged(MenuItem&) override { window_->MenuChanged(); }
    MenuItem* PopupMenu(MenuItem& menu, int x, int y) override {
        // While the menu is open the form may let its window go, and this with it.
        const std::shared_ptr<FormWindow> window = window_;
        return window->PopupMenu(menu, x, y);
    }
    bool InMenu() const override { return window_->InMenu(); }

 private:
    std::shared_ptr<FormWindow> window_;
};

bool IsKeyMessage(const MSG& message) {
    return message.message == WM_KEYDOWN || message.message == WM_SYSKEYDOWN ||
           message.message == WM_SYSCHAR;
}

}  // namespace

Win32Backend::Win32Backend(HINSTANCE module, Dialogs* dialogs)
    : module_(module), controls_(module), ownDialogs_(*this), dialogs_(dialogs) {}

Win32Backend::~Win32Backend() {
    if (pin_) FreeLibrary(pin_);
}

int Win32Backend::OpenWindows() {
    return openWindows;
}

void Win32Backend::Add(FormWindow& window) {
    openWindows++;
    windows_.push_back(&window);
    if (!pin_) {
        GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS,
                           reinterpret_cast<LPCWSTR>(&Win32Backend::OnGetMessage), &pin_);
    }
    if (!hook_) {
        hook_.reset(SetWindowsHookExW(WH_GETMESSAGE, &Win32Backend::OnGetMessage, nullptr,
                                      GetCurrentThreadId()));
    }
}

void Win32Backend::Remove(FormWindow& window) {
    openWindows--;
    std::erase(windows_, &window);
    if (windows_.empty()) hook_.reset();
}

std::unique_ptr<FormPeer> Win32Backend::Realize(Form& form) {
    const DpiScope sharp = dpi_.ForWindows();
    auto window = std::make_shared<FormWindow>(*this, form);
    auto peer = std::make_unique<NativeFormPeer>(window);
    window->Build();
    return peer;
}

void Win32Backend::RunForHost(const std::function<void()>& act) {
    const DpiScope sharp = dpi_.FromHost();
    act();
}

void Win32Backend::EndSession() {
    StandingBox::EndAll();
    EndMenu();
    const std::vector<FormWindow*> lastFirst(windows_.rbegin(), windows_.rend());
    for (FormWindow* window : lastFirst) {
        if (std::find(windows_.begin(), windows_.end(), window) == windows_.end()) continue;
        if (window->Gone()) continue;
        window->Logical().Windows().Interrupt();
        window->Logical().UserDestroyed();
    }
}

void Win32Backend::Abandon() {
    openWindows -= static_cast<int>(windows_.size());
    windows_.clear();
    FormWindow::ForgetAll();
    ForgetSubclasses();
    StandingBox::ForgetAll();
    if (pin_) FreeLibrary(std::exchange(pin_, nullptr));
}

FormWindow* Win32Backend::Find(const Form& form) const {
    const auto at = std::find_if(windows_.begin(), windows_.end(), [&](const FormWindow* window) {
        return !window->Gone() && &window->Logical() == &form;
    });
    return at == windows_.end() ? nullptr : *at;
}

HWND Win32Backend::Handle(const Form& form) const {
    const FormWindow* window = Find(form);
    return window ? window->Handle() : nullptr;
}

void Win32Backend::RunModal(Form& form) {
    // Each window handles its messages in its own context; what else the loop runs is the host's.
    const DpiScope host = dpi_.ForHost();
    MSG message{};
    while (form.IsShown()) {
        const BOOL received = GetMessageW(&message, nullptr, 0, 0);
        if (received < 0) throw RuntimeError(ErrorNumber::InternalError, "No messages arrive");
        if (received == 0) {
            // The program ends: its own loop must hear of it too.
            form.Windows().Interrupt();
            PostQuitMessage(static_cast<int>(message.wParam));
            return;
        }
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

// A hook procedure must not run handlers, which may wait for the user: so the message is exchanged
// for one to the form, and the key is handled when the loop hands that over.
LRESULT CALLBACK Win32Backend::OnGetMessage(int code, WPARAM wParam, LPARAM lParam) noexcept {
    auto& message = *reinterpret_cast<MSG*>(lParam);
    if (code == HC_ACTION && message.message == WM_QUIT) {
        // Loops of the system do not all end by themselves, and a menu's may lose the message.
        StandingBox::EndAll();
        FormWindow::EndMenus(static_cast<int>(message.wParam));
    }
    if (code == HC_ACTION && wParam == PM_REMOVE && IsKeyMessage(message) &&
        message.wParam != VK_PROCESSKEY) {
        FormWindow* window = FormWindow::Owning(message.hwnd);
        try {
            if (window && window->TakesKeys()) window->Defer(message);
        } catch (const std::bad_alloc&) {
            // The key goes where the system sends it.
        }
    }
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

Size Win32Backend::MeasureText(std::string_view text) {
    const DpiScope sharp = dpi_.ForWindows();
    if (resolutions_.empty()) Meets(SystemDpi());
    Size most;
    for (MeasuredTexts& texts : resolutions_) {
        const Scale scale(texts.Dpi());
        const SIZE size = texts.SizeOf(text, MessageFont(texts.Dpi()));
        most.width = std::max(most.width, scale.UnitsThatHold(static_cast<int>(size.cx)));
        most.height = std::max(most.height, scale.UnitsThatHold(static_cast<int>(size.cy)));
    }
    return most;
}

bool Win32Backend::Meets(int dpi) {
    const bool known =
        std::any_of(resolutions_.begin(), resolutions_.end(),
                    [dpi](const MeasuredTexts& texts) { return texts.Dpi() == dpi; });
    if (known) return false;
    resolutions_.emplace_back(dpi);
    return true;
}

Rect Win32Backend::WorkArea() {
    const DpiScope sharp = dpi_.ForWindows();
    const RECT area = GetScreens().WorkAreaAt(WindowToBlock());
    return Scale(GetScreens().DpiAround(area)).ToUnits(area);
}

void Win32Backend::MeetMonitor() {
    const DpiScope sharp = dpi_.ForWindows();
    Meets(GetScreens().DpiAround(GetScreens().WorkAreaAt(WindowToBlock())));
}

int Win32Backend::ScrollBarSize() {
    const DpiScope sharp = dpi_.ForWindows();
    return Scale(SystemDpi()).ToUnits(BarThickness(SystemDpi()));
}

SystemTheme Win32Backend::GetTheme() {
    const COLORREF window = GetSysColor(COLOR_WINDOW);
    HIGHCONTRASTW contrast{};
    contrast.cbSize = sizeof contrast;
    const bool isKnown =
        SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof contrast, &contrast, 0) != 0;
    constexpr unsigned kRed = 16;
    constexpr unsigned kGreen = 8;
    const std::uint32_t color = std::uint32_t{GetRValue(window)} << kRed |
                                std::uint32_t{GetGValue(window)} << kGreen | GetBValue(window);
    return {color, isKnown && (contrast.dwFlags & HCF_HIGHCONTRASTON) != 0};
}

Dialogs& Win32Backend::GetDialogs() {
    return dialogs_ ? *dialogs_ : ownDialogs_;
}

}  // namespace zv::forms::win32
