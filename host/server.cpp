// The entry points of the automation server.
#include <windows.h>

#include <oleauto.h>
#include <olectl.h>

#include <array>

#include "automation/class_factory.h"
#include "automation/module.h"
#include "automation/registration.h"
#include "module_runner_object.h"
#include "opener_object.h"
#include "recordset_object.h"
#include "report/windows/print_object.h"
#include "store/odbc/worker.h"

namespace zv::host {
namespace {

constexpr std::string_view kSource = "zv_Host";

template <class T>
HRESULT Create(IUnknown* outer, REFIID iid, void** object) noexcept {
    if (outer) return CLASS_E_NOAGGREGATION;
    return win32::Guarded(kSource, [&] {
        const auto created = win32::ComPtr<IDispatch>::Attach(static_cast<IDispatch*>(new T()));
        return created->QueryInterface(iid, object);
    });
}

struct ServerClass {
    automation::RegisteredClass registered;
    automation::CreateFunction create;
};

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

automation::ClassFactory g_factories[] = {
    {kClasses[0].registered.classId, kClasses[0].create},
    {kClasses[1].registered.classId, kClasses[1].create},
    {kClasses[2].registered.classId, kClasses[2].create},
    {kClasses[3].registered.classId, kClasses[3].create},
};

automation::Registration Classes() {
    const std::wstring path = automation::module::Path();
    automation::Registration registration;
    for (const ServerClass& each : kClasses) {
        const std::wstring key = automation::ClassKey(each.registered.classId);
        automation::AddClass(registration, each.registered, path);
        registration.entries.push_back({key + L"\\Programmable", L"", L""});
        registration.removals.push_back({.key = key});
        registration.removals.push_back({.key = each.registered.progId});
    }
    return registration;
}

}  // namespace
}  // namespace zv::host

using namespace zv;

// The names of these five are the system's.
STDAPI DllGetClassObject(REFCLSID classId, REFIID iid, void** object) {
    return automation::GetClassObject(host::g_factories, classId, iid, object);
}

STDAPI DllCanUnloadNow() {
    // A thread that waits for a driver would return into nothing.
    const bool idle = !automation::module::IsLocked() && store::odbc::AbandonedThreads() == 0;
    return idle ? S_OK : S_FALSE;
}

STDAPI DllRegisterServer() {
    return win32::Guarded(host::kSource,
                          [] { return automation::RegisterAnywhere(host::Classes()); });
}

STDAPI DllUnregisterServer() {
    return win32::Guarded(host::kSource,
                          [] { return automation::UnregisterEverywhere(host::Classes()); });
}

STDAPI DllInstall(BOOL install, LPCWSTR commandLine) {
    return win32::Guarded(
        host::kSource, [&] { return automation::Install(host::Classes(), install, commandLine); });
}
