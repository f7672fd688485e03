#include "com/class_factory.h"

#include "com/boundary.h"
#include "com/module.h"
#include "com/task_control.h"

namespace zv::com {

ClassFactory& ClassFactory::Instance() {
    static ClassFactory factory;
    return factory;
}

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

STDMETHODIMP ClassFactory::CreateInstance(IUnknown* aggregate, REFIID iid, void** object) noexcept {
    if (!object) return E_POINTER;
    *object = nullptr;
    return Boundary([&] { return TaskControl::Create(aggregate, iid, object); });
}

STDMETHODIMP ClassFactory::LockServer(BOOL lock) noexcept {
    if (lock) {
        module::Lock();
    } else {
        module::Unlock();
    }
    return S_OK;
}

}  // namespace zv::com
