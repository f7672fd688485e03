// Real windows. The same code serves a program and a control that lives in a foreign program whose
// message loop knows nothing of these windows.
#pragma once

#include <windows.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "forms/backend.h"
#include "forms/dpi_awareness.h"
#include "forms/win32/accessibility.h"
#include "forms/win32/common_controls.h"
#include "forms/win32/display.h"
#include "forms/win32/handles.h"
#include "forms/win32/measured_texts.h"
#include "forms/win32/screens.h"
#include "forms/win32/system_dpi.h"
#include "forms/win32/win32_dialogs.h"

namespace zv::forms::win32 {

class FormWindow;

class Win32Backend : public Backend {
 public:
    /// `module` is the file that this code is linked into; its resource 2 is the manifest that asks
    /// for version 6 of the common controls. `dialogs` answers in place of the real boxes when
    /// given. One backend serves one thread.
    explicit Win32Backend(HINSTANCE module, Dialogs* dialogs = nullptr);
    ~Win32Backend() override;
    Win32Backend(const Win32Backend&) = delete;
    Win32Backend& operator=(const Win32Backend&) = delete;

    std::unique_ptr<FormPeer> Realize(Form& form) override;
    void RunForHost(const std::function<void()>& act) override;
    void RunModal(Form& form) override;
    /// What fits at every resolution at which this backend has or had a window.
    Size MeasureText(std::string_view text) override;
    Rect WorkArea() override;
    void MeetMonitor() override;
    int ScrollBarSize() override;
    SystemTheme GetTheme() override;
    Dialogs& GetDialogs() override;
    void SetClipboardText(std::string_view text) override;
    std::string ClipboardText() override;

    /// The system's notes for screen readers; null where it keeps none.
    virtual AccessNotes ScreenReaders() { return SystemAccessNotes(); }
    virtual const Screens& GetScreens() const { return screens_; }
    /// Called again and again while a menu is open and the user does nothing.
    virtual void MenuIdle() {}
    /// Whether the system's clock makes timers tick.
    virtual bool TimersRun() const { return true; }

    /// Windows of this module that exist at this moment; a control must stay loaded as long as
    /// there are any.
    static int OpenWindows();

    /// The session of the user ends: boxes, menus and windows end, nobody is asked.
    void EndSession();
    /// For a backend whose thread has ended, and with it all its windows: the next one begins
    /// afresh. Nothing of this one may be used or destroyed afterwards.
    void Abandon();

    /// The contexts of the windows and of the program that they live in.
    DpiAwareness& Dpi() { return dpi_; }
    /// A window has, or will have, this resolution. True when none had it so far.
    bool Meets(int dpi);

    HINSTANCE Module() const { return module_; }
    const CommonControls& Controls() const { return controls_; }
    /// The native window of a form; 0 when it has none.
    HWND Handle(const Form& form) const;
    FormWindow* Find(const Form& form) const;

 private:
    friend class FormWindow;
    void Add(FormWindow& window);
    void Remove(FormWindow& window);
    static LRESULT CALLBACK OnGetMessage(int code, WPARAM wParam, LPARAM lParam) noexcept;

    HINSTANCE module_;
    SystemDpiThread thread_;
    DpiAwareness dpi_{thread_};
    std::vector<MeasuredTexts> resolutions_;
    Screens screens_;
    CommonControls controls_;
    Win32Dialogs ownDialogs_;
    Dialogs* dialogs_;
    std::vector<FormWindow*> windows_;
    Hook hook_;
    /// Taken with the first window: a procedure must not run in a file that was unloaded, by
    /// whatever call. Given back with the backend, which dies only in calls from outside.
    HMODULE pin_ = nullptr;
    /// Exit code of the end that a menu's loop has seen, and perhaps taken out of the queue.
    std::optional<int> quit_;
};

}  // namespace zv::forms::win32
