// Makes controls.
#pragma once

#include <unknwn.h>

namespace zv::com {

/// One for the whole file, counted with the file's locks.
class ClassFactory final : public IClassFactory {
 public:
    static ClassFactory& Instance();

    STDMETHODIMP QueryInterface(REFIID iid, void** object) noexcept override;
    STDMETHODIMP_(ULONG) AddRef() noexcept override;
    STDMETHODIMP_(ULONG) Release() noexcept override;
    STDMETHODIMP CreateInstance(IUnknown* aggregate, REFIID iid, void** object) noexcept override;
    STDMETHODIMP LockServer(BOOL lock) noexcept override;
};

}  // namespace zv::com
