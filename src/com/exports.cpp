// The functions by which the system and setup programs know this file.
#include <windows.h>

#include <cwchar>

#include "com/boundary.h"
#include "com/class_factory.h"
#include "com/ids.h"
#include "com/in_place.h"
#include "com/module.h"
#include "com/registration.h"
#include "com/session_host.h"

using zv::com::Boundary;
using zv::com::Scope;

extern "C" {

BOOL WINAPI DllMain(HINSTANCE handle, DWORD reason, LPVOID) {
    // Nothing is freed at the end: windows, hooks and connections are given back before the file
    // may be unloaded, and a process that ends needs no tidying under the loader's lock.
    if (reason == DLL_PROCESS_ATTACH) zv::com::module::SetHandle(handle);
    return TRUE;
}

STDAPI DllGetClassObject(REFCLSID classId, REFIID iid, LPVOID* object) {
    if (!object) return E_POINTER;
    *object = nullptr;
    if (classId != zv::com::kClassId) return CLASS_E_CLASSNOTAVAILABLE;
    return zv::com::ClassFactory::Instance().QueryInterface(iid, object);
}

STDAPI DllCanUnloadNow() {
    if (zv::com::module::IsLocked() || zv::com::InPlaceObject::OpenWindows() > 0 ||
        !zv::com::SessionHost::IsIdle()) {
        return S_FALSE;
    }
    zv::com::SessionHost::Close();
    return S_OK;
}

STDAPI DllRegisterServer() {
    return Boundary([] { return zv::com::RegisterAnywhere(); });
}

STDAPI DllUnregisterServer() {
    return Boundary([] { return zv::com::UnregisterEverywhere(); });
}

STDAPI DllInstall(BOOL install, LPCWSTR commandLine) {
    const bool isUser = commandLine && _wcsicmp(commandLine, L"user") == 0;
    if (commandLine && *commandLine != L'\0' && !isUser) return E_INVALIDARG;
    return Boundary([&] {
        if (isUser) {
            return install ? zv::com::Register(Scope::User) : zv::com::Unregister(Scope::User);
        }
        return install ? zv::com::RegisterAnywhere() : zv::com::UnregisterEverywhere();
    });
}

}  // extern "C"
