// The classes that a file offers, and what makes their objects.
#pragma once

#include <windows.h>

#include <unknwn.h>

#include <atomic>
#include <span>

namespace zv::automation {

/// Hands out the interface of a new object, which becomes part of `outer` when that is given.
/// Whatever goes wrong is answered.
using CreateFunction = HRESULT (*)(IUnknown* outer, REFIID iid, void** object) noexcept;

/// One for each class, as long as the file is loaded; counted with the file's locks.
class ClassFactory final : public IClassFactory {
 public:
    constexpr ClassFactory(const CLSID& classId, CreateFunction create)
        : classId_(classId), create_(create) {}
    ClassFactory(const ClassFactory&) = delete;
    ClassFactory& operator=(const ClassFactory&) = delete;

    const CLSID& ClassId() const { return classId_; }

    STDMETHODIMP QueryInterface(REFIID iid, void** object) noexcept override;
    STDMETHODIMP_(ULONG) AddRef() noexcept override;
    STDMETHODIMP_(ULONG) Release() noexcept override;
    STDMETHODIMP CreateInstance(IUnknown* outer, REFIID iid, void** object) noexcept override;
    STDMETHODIMP LockServer(BOOL lock) noexcept override;

 private:
    CLSID classId_;
    CreateFunction create_;
    std::atomic<long> serverLocks_{0};
};

/// What DllGetClassObject answers of a file with these classes.
HRESULT GetClassObject(std::span<ClassFactory> factories, REFCLSID classId, REFIID iid,
                       void** object) noexcept;

}  // namespace zv::automation
