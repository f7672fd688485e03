// The entry points of the automation server.
#include <windows.h>

#include <oleauto.h>
#include <olectl.h>

#include <array>

#include "dispatch.h"
#include "module.h"
#include "module_runner_object.h"
#include "opener_object.h"
#include "recordset_object.h"
#include "registration.h"
#include "report/windows/print_object.h"
#include "store/odbc/worker.h"

namespace zv::host {
namespace {

struct ServerClass {
    ClassRegistration registration;
    IDispatch* (*create)();
};

template <class T>
IDispatch* Create() {
    return new T();
}

constexpr std::array<ServerClass, 4> kClasses{{
    // {336EFE7F-89AB-4286-9169-B1B6111066F7}
    {{{0x336EFE7F, 0x89AB, 0x4286, {0x91, 0x69, 0xB1, 0xB6, 0x11, 0x10, 0x66, 0xF7}},
      store::ado::kOpenerProgId,
      L"Connection opener"},
     &Create<OpenerObject>},
    // {D98B1F19-FE25-430E-AD23-1B7CFB313A26}
    {{{0xD98B1F19, 0xFE25, 0x430E, {0xAD, 0x23, 0x1B, 0x7C, 0xFB, 0x31, 0x3A, 0x26}},
      L"zv_Host.Recordset",
      L"Recordset of the embedded engine"},
     &Create<RecordsetObject>},
    // {5203B1CD-CA6E-4578-B3A3-86321EABD565}
    {{{0x5203B1CD, 0xCA6E, 0x4578, {0xB3, 0xA3, 0x86, 0x32, 0x1E, 0xAB, 0xD5, 0x65}},
      L"zv_Host.ModuleRunner",
      L"Module runner"},
     &Create<ModuleRunnerObject>},
    // {8DFBA9A8-D18E-4655-9D30-38094F13AAB9}
    {{{0x8DFBA9A8, 0xD18E, 0x4655, {0x9D, 0x30, 0x38, 0x09, 0x4F, 0x13, 0xAA, 0xB9}},
      kPrintProgId,
      L"Report printer"},
     &Create<PrintObject>},
}};

std::array<ClassRegistration, kClasses.size()> Registrations() {
    std::array<ClassRegistration, kClasses.size()> registrations{};
    for (std::size_t i = 0; i < kClasses.size(); ++i) registrations[i] = kClasses[i].registration;
    return registrations;
}

class ClassFactory final : public IClassFactory {
 public:
    explicit ClassFactory(const ServerClass& serverClass) : class_(serverClass) { ++liveObjects; }
    ClassFactory(const ClassFactory&) = delete;
    ClassFactory& operator=(const ClassFactory&) = delete;

    STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
        if (!object) return E_POINTER;
        if (iid != IID_IUnknown && iid != IID_IClassFactory) {
            *object = nullptr;
            return E_NOINTERFACE;
        }
        AddRef();
        *object = static_cast<IClassFactory*>(this);
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return static_cast<ULONG>(++references_); }
    STDMETHODIMP_(ULONG) Release() override {
        const long left = --references_;
        if (left == 0) delete this;
        return static_cast<ULONG>(left);
    }
    STDMETHODIMP CreateInstance(IUnknown* outer, REFIID iid, void** object) override {
        if (!object) return E_POINTER;
        *object = nullptr;
        if (outer) return CLASS_E_NOAGGREGATION;
        return win32::Guarded("zv_Host", [&] {
            const auto created = win32::ComPtr<IDispatch>::Attach(class_.create());
            return created->QueryInterface(iid, object);
        });
    }
    STDMETHODIMP LockServer(BOOL lock) override {
        lock ? ++liveObjects : --liveObjects;
        return S_OK;
    }

 private:
    ~ClassFactory() { --liveObjects; }

    std::atomic<long> references_{1};
    const ServerClass& class_;
};

}  // namespace
}  // namespace zv::host

// The names of these four are the system's.
STDAPI DllGetClassObject(REFCLSID classId, REFIID iid, void** object) {
    using namespace zv;
    if (!object) return E_POINTER;
    *object = nullptr;
    for (const auto& serverClass : host::kClasses) {
        if (serverClass.registration.classId != classId) continue;
        return win32::Guarded("zv_Host", [&] {
            const auto factory = win32::MakeCom<host::ClassFactory>(serverClass);
            return factory->QueryInterface(iid, object);
        });
    }
    return CLASS_E_CLASSNOTAVAILABLE;
}

STDAPI DllCanUnloadNow() {
    // A thread that waits for a driver would return into nothing.
    const bool idle = zv::host::liveObjects == 0 && zv::store::odbc::AbandonedThreads() == 0;
    return idle ? S_OK : S_FALSE;
}

STDAPI DllRegisterServer() {
    return zv::win32::Guarded("zv_Host", [] {
        return zv::host::RegisterClasses(zv::host::Registrations(), zv::host::ThisModulePath());
    });
}

STDAPI DllUnregisterServer() {
    return zv::win32::Guarded(
        "zv_Host", [] { return zv::host::UnregisterClasses(zv::host::Registrations()); });
}
