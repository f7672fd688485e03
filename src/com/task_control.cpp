#include "com/task_control.h"

#include "com/ids.h"

namespace zv::com {

namespace {

// Members that are written to a bag; setting another leaves nothing to be saved.
bool IsPersisted(DISPID id) {
    switch (id) {
        case kMyTaskID:
        case kMyDate:
        case kPowerPath:
        case kCompName:
        case kZorvan:
            return false;
        default:
            return true;
    }
}

}  // namespace

TaskControl::TaskControl(IUnknown* aggregate) : core_(aggregate ? *aggregate : *this) {
    core_.onPropertyChanged = [this](DISPID id) {
        if (IsPersisted(id)) core_.isDirty = true;
        connectionPoints_.NotifyPropertyChanged(id);
    };
    core_.onViewChanged = [this] {
        inPlace_.Redraw();
        view_.NotifyChanged();
        data_.NotifyChanged();
    };
    core_.onEventsFrozen = [this](bool freeze) { connectionPoints_.Freeze(freeze); };
    storage_.onSaved = [this] { oleObject_.NotifySaved(); };
}

HRESULT TaskControl::Create(IUnknown* aggregate, REFIID iid, void** object) {
    *object = nullptr;
    if (aggregate && iid != IID_IUnknown) return CLASS_E_NOAGGREGATION;
    const auto control = win32::ComPtr<TaskControl>::Attach(new TaskControl(aggregate));
    return control->QueryInterface(iid, object);
}

STDMETHODIMP_(ULONG) TaskControl::Release() noexcept {
    const ULONG left = --references_;
    if (left > 0) return left;
    // While parts are taken down they may hand out and release references once more.
    references_ = 1;
    delete this;
    SessionHost::ReleaseConnection();
    return 0;
}

IUnknown* TaskControl::Find(REFIID iid) noexcept {
    if (iid == IID_IUnknown) return this;
    if (iid == IID_IDispatch || iid == kInterfaceId || iid == kSecondInterfaceId) {
        return &automation_;
    }
    if (iid == IID_IOleObject) return static_cast<IOleObject*>(&oleObject_);
    if (iid == IID_IOleControl) return static_cast<IOleControl*>(&oleObject_);
    if (iid == IID_IOleInPlaceObject || iid == IID_IOleWindow) {
        return static_cast<IOleInPlaceObject*>(&inPlace_);
    }
    if (iid == IID_IOleInPlaceActiveObject) {
        return static_cast<IOleInPlaceActiveObject*>(&inPlace_);
    }
    if (iid == IID_IViewObject2 || iid == IID_IViewObject) return &view_;
    if (iid == IID_IDataObject) return &data_;
    if (iid == IID_IPersistPropertyBag || iid == IID_IPersist) return &propertyBag_;
    if (iid == IID_IPersistStreamInit) return &stream_;
    if (iid == IID_IPersistStorage) return &storage_;
    if (iid == IID_IProvideClassInfo2 || iid == IID_IProvideClassInfo) return &classInfo_;
    if (iid == IID_ISupportErrorInfo) return &errorSupport_;
    if (iid == IID_IConnectionPointContainer) return &connectionPoints_;
    return nullptr;
}

STDMETHODIMP TaskControl::QueryInterface(REFIID iid, void** object) noexcept {
    if (!object) return E_POINTER;
    IUnknown* const found = Find(iid);
    *object = found;
    if (!found) return E_NOINTERFACE;
    found->AddRef();
    return S_OK;
}

}  // namespace zv::com
