// Uses the control as a host that has registered nothing.
//
//   user manifest DATABASE        the classes are those of the program's own manifest
//   user context FILE DATABASE    those of the manifest FILE, in force only while the control is
//                                 created, as scripts do it
//   user missing DATABASE         as manifest, but the file of the opener is missing
//   user apartment                calls the control of the program's manifest from another thread
//
// Closes with "N passed, N failed".
#include <windows.h>

#include <objbase.h>
#include <oleauto.h>
#include <olectl.h>

#include <cstdio>
#include <string>
#include <thread>

#include "base/win32/com_error.h"
#include "base/win32/com_ptr.h"
#include "box_reader.h"
#include "com/ids.h"
#include "counted_checks.h"

namespace {

using zv::com::ITask;
using zv::tests::Check;
using zv::win32::Bstr;
using zv::win32::ComPtr;
using zv::win32::ToUtf8;

void CheckResult(const std::string& what, HRESULT hr) {
    std::string reason = zv::win32::SystemMessage(hr);
    ComPtr<IErrorInfo> info;
    Bstr text;
    if (FAILED(hr) && GetErrorInfo(0, info.Put()) == S_OK) {
        info->GetDescription(text.Put());
        reason += " " + text.Utf8();
    }
    Check(what, hr == S_OK, reason);
}

std::wstring FolderOf(std::wstring path) {
    return path.substr(0, path.find_last_of(L'\\'));
}
std::wstring FileOf(HMODULE module) {
    wchar_t path[1024];
    return std::wstring(path, GetModuleFileNameW(module, path, ARRAYSIZE(path)));
}
/// A loaded file lies in the program's folder.
void CheckIsOwn(const wchar_t* file) {
    const HMODULE module = GetModuleHandleW(file);
    Check(ToUtf8(file) + " is the one of the own folder",
          module && FolderOf(FileOf(module)) == FolderOf(FileOf(nullptr)),
          module ? ToUtf8(FileOf(module)) : "not loaded");
}

ComPtr<ITask> Create() {
    ComPtr<ITask> task;
    CLSID id{};
    CheckResult("the name of the control is known", CLSIDFromProgID(zv::com::kProgId, &id));
    CheckResult("the control is created", CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER,
                                                           zv::com::kInterfaceId, task.PutVoid()));
    return task;
}

void CheckWhatTheSystemSays() {
    CLSID id{};
    CheckResult("the versioned name is known", CLSIDFromProgID(zv::com::kVersionedProgId, &id));
    // The system may stand an id of its own for a class of a manifest.
    ComPtr<IOleObject> object;
    CheckResult("it names a class", CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER,
                                                     IID_IOleObject, object.PutVoid()));
    if (object) CheckResult("the object has a class", object->GetUserClassID(&id));
    Check("it is the control's", id == zv::com::kClassId);
    LPOLESTR name = nullptr;
    CheckResult("the class has a name", ProgIDFromCLSID(zv::com::kClassId, &name));
    const std::wstring given = name ? name : L"";
    Check("the name is the versioned one", given == zv::com::kVersionedProgId, ToUtf8(given));
    CoTaskMemFree(name);
    DWORD status = 0;
    CheckResult("the class has a status",
                OleRegGetMiscStatus(zv::com::kClassId, DVASPECT_CONTENT, &status));
    Check("the status is that of the control", status == zv::com::kMiscStatus,
          std::to_string(status));
    ComPtr<ITypeLib> library;
    CheckResult("the type library is found",
                LoadRegTypeLib(zv::com::kLibraryId, zv::com::kMajorVersion, zv::com::kMinorVersion,
                               0, library.Put()));
}

void Prepare(ITask& task, const wchar_t* database) {
    CheckResult("UserPath", task.put_UserPath(Bstr(database).Get()));
    CheckResult("UserName", task.put_UserName(Bstr(L"张三").Get()));
    CheckResult("SQLData", task.put_SQLData(0));
}

/// Calls from another apartment go through what the type library says of the interface.
void UseFromAnotherApartment() {
    const auto task = Create();
    if (!task) return;
    IStream* stream = nullptr;
    CheckResult("the control is marshalled",
                CoMarshalInterThreadInterfaceInStream(zv::com::kInterfaceId, task.Get(), &stream));
    if (!stream) return;
    HRESULT got = E_FAIL;
    HRESULT put = E_FAIL;
    const HANDLE ended = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    std::thread caller([&] {
        CoInitializeEx(nullptr, COINIT_MULTITHREADED);
        ComPtr<ITask> remote;
        got = CoGetInterfaceAndReleaseStream(stream, zv::com::kInterfaceId, remote.PutVoid());
        if (remote) put = remote->put_myName(Bstr(L"甲公司").Get());
        remote.Reset();
        CoUninitialize();
        SetEvent(ended);
    });
    while (MsgWaitForMultipleObjects(1, &ended, FALSE, 60000, QS_ALLINPUT) == WAIT_OBJECT_0 + 1) {
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
    }
    caller.join();
    CloseHandle(ended);
    CheckResult("another thread gets it", got);
    CheckResult("and calls it", put);
    Bstr name;
    CheckResult("myName", task->get_myName(name.Put()));
    Check("the call has arrived", name.Utf8() == "甲公司", name.Utf8());
}

void UseByManifest(const wchar_t* database) {
    const auto task = Create();
    if (!task) return;
    CheckIsOwn(L"zv_Task.ocx");
    CheckWhatTheSystemSays();
    Prepare(*task.Get(), database);
    CheckResult("refresh opens the database", task->refresh(8, 0));
    CheckIsOwn(L"zv_Host.dll");
    for (const wchar_t* name : {L"zv_Host.Opener", L"zv_Host.Recordset", L"zv_Host.ModuleRunner",
                                L"zvPrint_ADO.zvPrint"}) {
        CLSID id{};
        ComPtr<IDispatch> object;
        HRESULT hr = CLSIDFromProgID(name, &id);
        if (SUCCEEDED(hr)) {
            hr = CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch,
                                  object.PutVoid());
        }
        CheckResult(ToUtf8(name) + " is created", hr);
    }
}

void UseByContext(const wchar_t* manifest, const wchar_t* database) {
    ACTCTXW request{};
    request.cbSize = sizeof request;
    request.dwFlags = ACTCTX_FLAG_ASSEMBLY_DIRECTORY_VALID;
    request.lpSource = manifest;
    const std::wstring folder = FolderOf(manifest);
    request.lpAssemblyDirectory = folder.c_str();
    const HANDLE context = CreateActCtxW(&request);
    Check("the manifest is read", context != INVALID_HANDLE_VALUE, std::to_string(GetLastError()));
    ULONG_PTR cookie = 0;
    if (context == INVALID_HANDLE_VALUE || !ActivateActCtx(context, &cookie)) return;
    const auto task = Create();
    DeactivateActCtx(0, cookie);
    ReleaseActCtx(context);
    if (!task) return;
    CLSID id{};
    Check("the name is unknown afterwards", FAILED(CLSIDFromProgID(zv::com::kProgId, &id)));
    Prepare(*task.Get(), database);
    CheckResult("refresh opens the database", task->refresh(8, 0));
}

void UseWithoutOpener(const wchar_t* database) {
    const auto task = Create();
    if (!task) return;
    Prepare(*task.Get(), database);
    zv::BoxReader boxes;
    const HRESULT hr = task->refresh(8, 0);
    Check("refresh fails", FAILED(hr));
    ComPtr<IErrorInfo> info;
    Bstr text;
    if (GetErrorInfo(0, info.Put()) == S_OK) info->GetDescription(text.Put());
    Check("the error names the opener", text.Utf8().find("zv_Host.Opener") != std::string::npos,
          text.Utf8());
    const std::string box = boxes.Take();
    Check("the user's box too", box.find("zv_Host.Opener") != std::string::npos, box);
}

}  // namespace

int wmain(int count, wchar_t** words) {
    const std::wstring how = count > 1 ? words[1] : L"";
    OleInitialize(nullptr);
    if (how == L"manifest" && count == 3) {
        UseByManifest(words[2]);
    } else if (how == L"apartment" && count == 2) {
        UseFromAnotherApartment();
    } else if (how == L"context" && count == 4) {
        UseByContext(words[2], words[3]);
    } else if (how == L"missing" && count == 3) {
        UseWithoutOpener(words[2]);
    } else {
        std::printf("manifest DATABASE, missing DATABASE, apartment or context FILE DATABASE\n");
        zv::tests::failed++;
    }
    OleUninitialize();
    return zv::tests::Close();
}
