// The functions by which the system and setup programs know this file. DllMain is none of them:
// windows, hooks and connections are given back before the file may be unloaded, and a process that
// ends needs no tidying under the loader's lock.
#include <windows.h>

#include "automation/activation.h"
#include "automation/class_factory.h"
#include "automation/module.h"
#include "com/boundary.h"
#include "com/ids.h"
#include "com/in_place.h"
#include "com/registration.h"
#include "com/session_host.h"
#include "com/task_control.h"

namespace zv::com {

namespace {

HRESULT CreateControl(IUnknown* outer, REFIID iid, void** object) noexcept {
    automation::RememberActivation();
    return Boundary([&] { return TaskControl::Create(outer, iid, object); });
}

automation::ClassFactory g_factories[] = {{kClassId, &CreateControl}};

}  // namespace

}  // namespace zv::com

using namespace zv;
using com::Boundary;

extern "C" {

STDAPI DllGetClassObject(REFCLSID classId, REFIID iid, LPVOID* object) {
    return automation::GetClassObject(com::g_factories, classId, iid, object);
}

STDAPI DllCanUnloadNow() {
    com::SessionHost::EndReminders();
    if (automation::module::IsLocked() || com::InPlaceObject::OpenWindows() > 0 ||
        !com::SessionHost::IsIdle()) {
        return S_FALSE;
    }
    com::SessionHost::Close();
    com::InPlaceObject::ForgetWindowClass();
    automation::ForgetActivation();
    return S_OK;
}

STDAPI DllRegisterServer() {
    return Boundary([] { return automation::RegisterAnywhere(com::ControlRegistration()); });
}

STDAPI DllUnregisterServer() {
    return Boundary([] { return automation::UnregisterEverywhere(com::ControlRegistration()); });
}

STDAPI DllInstall(BOOL install, LPCWSTR commandLine) {
    return Boundary(
        [&] { return automation::Install(com::ControlRegistration(), install, commandLine); });
}

}  // extern "C"
