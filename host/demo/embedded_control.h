// The control as this host embeds it.
#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <string_view>

#include "base/win32/com_ptr.h"
#include "base/win32/variant.h"
#include "demo/control_site.h"
#include "demo/property_bag.h"

namespace zv::demo {

/// Every step writes to the log what was called and what came back.
class EmbeddedControl {
 public:
    using Log = ControlSite::Log;
    /// The control gets the rectangle `place` of `window`.
    EmbeddedControl(HWND window, RECT place, Log log);
    ~EmbeddedControl() { Destroy(); }
    EmbeddedControl(const EmbeddedControl&) = delete;
    EmbeddedControl& operator=(const EmbeddedControl&) = delete;

    bool Exists() const { return static_cast<bool>(object_); }
    /// Creates the control, new or with what `stored` holds. Answers false and writes to the log
    /// when that fails.
    bool Create(PropertyBag* stored);
    void Destroy();

    /// `secret` values do not reach the log.
    bool Put(const wchar_t* property, const win32::Variant& value, bool secret = false);
    /// The property's value; empty when it cannot be read.
    win32::Variant Get(const wchar_t* property);
    /// Returns when the control's window is shown, or closed when `modal`.
    bool Refresh(int mode, bool modal);
    /// What the control writes into a container's property bag; null when it fails.
    win32::ComPtr<PropertyBag> Save();

    /// True when the active object took the key.
    bool TranslateKey(MSG& message);

 private:
    bool Attempt(const std::string& call, const std::function<void()>& action);
    void Activate();
    void ConnectEvents();

    HWND window_;
    RECT place_;
    Log log_;
    win32::ComPtr<ControlSite> site_;
    win32::ComPtr<IOleObject> object_;
    win32::ComPtr<IDispatch> control_;
    win32::ComPtr<IConnectionPoint> events_;
    DWORD eventsCookie_ = 0;
};

/// A value as the log shows it.
std::string Describe(const win32::Variant& value);

}  // namespace zv::demo
