// The control: one object that answers for all its interfaces, alone or inside an aggregate.
#pragma once

#include <atomic>

#include "com/automation.h"
#include "com/class_info.h"
#include "com/connection_points.h"
#include "com/core.h"
#include "com/data_object.h"
#include "com/in_place.h"
#include "com/ole_object.h"
#include "com/persist.h"
#include "com/view_object.h"

namespace zv::com {

/// This class itself is the inner unknown: the identity of a control that stands alone, and what an
/// aggregate holds.
class TaskControl final : public IUnknown {
 public:
    /// Hands out the interface of a new control. With `aggregate` only IUnknown can be asked for.
    /// Throws when there is no session to be had.
    static HRESULT Create(IUnknown* aggregate, REFIID iid, void** object);

    STDMETHODIMP QueryInterface(REFIID iid, void** object) noexcept override;
    STDMETHODIMP_(ULONG) AddRef() noexcept override { return ++references_; }
    STDMETHODIMP_(ULONG) Release() noexcept override;

 private:
    explicit TaskControl(IUnknown* aggregate);
    ~TaskControl() = default;
    IUnknown* Find(REFIID iid) noexcept;

    std::atomic<ULONG> references_{1};
    Core core_;
    Automation automation_{core_};
    InPlaceObject inPlace_{core_};
    OleObject oleObject_{core_, inPlace_};
    ViewObject view_{core_};
    DataObject data_{core_};
    PersistPropertyBag propertyBag_{core_};
    PersistStream stream_{core_};
    PersistStorage storage_{core_};
    ClassInfo classInfo_{core_};
    ErrorSupport errorSupport_{core_};
    ConnectionPoints connectionPoints_{core_};
};

}  // namespace zv::com
