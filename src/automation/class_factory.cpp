#include "automation/class_factory.h"

#include "automation/module.h"

namespace zv::automation {

STDMETHODIMP ClassFactory::QueryInterface(REFIID iid, void** object) noexcept {
    if (!object) return E_POINTER;
    *object = nullptr;
    if (iid != IID_IUnknown && iid != IID_IClassFactory) return E_NOINTERFACE;
    *object = static_cast<IClassFactory*>(this);
    AddRef();
    return S_OK;
}

STDMETHODIMP_(ULONG) ClassFactory::AddRef() noexcept {
    module::Lock();
    return 2;
}

STDMETHODIMP_(ULONG) ClassFactory::Release() noexcept {
    module::Unlock();
    return 1;
}

STDMETHODIMP ClassFactory::CreateInstance(IUnknown* outer, REFIID iid, void** object) noexcept {
    if (!object) return E_POINTER;
    *object = nullptr;
    return create_(outer, iid, object);
}

STDMETHODIMP ClassFactory::LockServer(BOOL lock) noexcept {
    if (lock) {
        ++serverLocks_;
        module::Lock();
        return S_OK;
    }
    // One too many must not stand for an object that lives.
    long held = serverLocks_;
    while (held > 0 && !serverLocks_.compare_exchange_weak(held, held - 1)) {
    }
    if (held <= 0) return E_UNEXPECTED;
    module::Unlock();
    return S_OK;
}

HRESULT GetClassObject(std::span<ClassFactory> factories, REFCLSID classId, REFIID iid,
                       void** object) noexcept {
    if (!object) return E_POINTER;
    *object = nullptr;
    for (ClassFactory& factory : factories) {
        if (factory.ClassId() == classId) return factory.QueryInterface(iid, object);
    }
    return CLASS_E_CLASSNOTAVAILABLE;
}

}  // namespace zv::automation
