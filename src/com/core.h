// What the interfaces of one control share.
#pragma once

#include <windows.h>

#include <ocidl.h>
#include <olectl.h>

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <utility>

#include "automation/module.h"
#include "base/win32/com_ptr.h"
#include "base/win32/variant.h"
#include "com/boundary.h"
#include "com/session_host.h"
#include "control/zv_task.h"

namespace zv::com {

class Core {
 public:
    explicit Core(IUnknown& controller) : outer(controller), task(SessionHost::Acquire().Get()) {}

    /// A host that creates the control without any persistence gets the initial values, once for
    /// the loaded library: all controls share them.
    void EnsureValues();
    void InitProperties();
    void ReadProperties(PropertyBag& bag);
    void WriteProperties(PropertyBag& bag) { task.UserControl_WriteProperties(bag); }

    /// A property of the container, nothing when it does not offer it in that type.
    std::optional<win32::Variant> Ambient(DISPID id, VARTYPE type) const;
    /// True in a running host, false while a form is designed and without a container.
    bool IsUserMode() const;
    /// Name of the control in its container, or its class name.
    std::wstring DisplayName() const;

    /// The controlling unknown of the object; counts references for every interface.
    IUnknown& outer;
    ZvTask task;
    win32::ComPtr<IOleClientSite> site;
    SIZEL extent = kInitialExtent;  ///< HIMETRIC
    bool isDirty = false;
    /// Called after a property was set; -1 after all of them changed.
    std::function<void(DISPID)> onPropertyChanged;
    /// Called when the picture of the control changed.
    std::function<void()> onViewChanged;
    /// The container holds events back, or lets them go on.
    std::function<void(bool freeze)> onEventsFrozen;

 private:
    static constexpr SIZEL kInitialExtent = {1905, 1694};  // 72 x 64 pixels at 96 dpi

    automation::module::Reference reference_;
};

/// Implements interfaces whose reference counting and identity are those of the whole control.
/// Their methods run inside Boundary(), which keeps the control until they are through: whatever a
/// host is called for meanwhile, it may let go of the control.
template <class... Interfaces>
class Part : public Interfaces... {
 public:
    explicit Part(Core& core) : core_(core) {}
    Part(const Part&) = delete;
    Part& operator=(const Part&) = delete;

    STDMETHODIMP QueryInterface(REFIID iid, void** object) noexcept override {
        return core_.outer.QueryInterface(iid, object);
    }
    STDMETHODIMP_(ULONG) AddRef() noexcept override { return core_.outer.AddRef(); }
    STDMETHODIMP_(ULONG) Release() noexcept override { return core_.outer.Release(); }

 protected:
    ~Part() = default;

    template <class... Arguments>
    HRESULT Boundary(Arguments&&... arguments) const noexcept {
        const win32::ComPtr<IUnknown> alive(&core_.outer);
        return com::Boundary(std::forward<Arguments>(arguments)...);
    }

    Core& core_;
};

}  // namespace zv::com
