// The alert pass at log-in from C++, late bound: no type library is needed to compile it.
//
//   cl /std:c++17 /EHsc alert.cpp ole32.lib oleaut32.lib
//   x86_64-w64-mingw32-g++ -std=c++17 -municode -static alert.cpp -o alert.exe
//       -lole32 -loleaut32 -luuid
//
//   alert DATABASE USER [MODE]
//
// The same program runs without any registration with these in one folder, all of its own width:
// alert.exe, alert.exe.manifest, zvTask.manifest, zv_Task.ocx, zvHost.manifest, zv_Host.dll.
// A manifest inside the program counts instead of the one beside it. Where the linker puts one in
// by itself, put this one in:
//
//   cl ... /link /MANIFEST:EMBED /MANIFESTINPUT:alert.exe.manifest
//   windres alert.rc alert.o, with alert.rc being the line  1 24 "alert.exe.manifest"
#include <windows.h>

#include <oleauto.h>

#include <cstdio>
#include <cstdlib>
#include <cwchar>

namespace {

HRESULT Invoke(IDispatch* task, const wchar_t* name, WORD kind, VARIANT* reversed, UINT count) {
    DISPID id = 0;
    LPOLESTR names[] = {const_cast<LPOLESTR>(name)};
    HRESULT hr = task->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id);
    if (FAILED(hr)) return hr;
    DISPID put = DISPID_PROPERTYPUT;
    const bool assigns = kind == DISPATCH_PROPERTYPUT;
    DISPPARAMS parameters{reversed, assigns ? &put : nullptr, count, assigns ? 1u : 0u};
    EXCEPINFO error{};
    hr = task->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, kind, &parameters, nullptr, &error,
                      nullptr);
    if (hr == DISP_E_EXCEPTION) {
        std::fwprintf(stderr, L"%ls: %ls\n", name, error.bstrDescription);
        SysFreeString(error.bstrSource);
        SysFreeString(error.bstrDescription);
        SysFreeString(error.bstrHelpFile);
    }
    return hr;
}

HRESULT PutText(IDispatch* task, const wchar_t* name, const wchar_t* text) {
    VARIANT value{};
    value.vt = VT_BSTR;
    value.bstrVal = SysAllocString(text);
    const HRESULT hr = Invoke(task, name, DISPATCH_PROPERTYPUT, &value, 1);
    VariantClear(&value);
    return hr;
}

HRESULT Refresh(IDispatch* task, LONG mode, SHORT modal) {
    // The last argument comes first.
    VARIANT arguments[2]{};
    arguments[0].vt = VT_I2;
    arguments[0].iVal = modal;
    arguments[1].vt = VT_I4;
    arguments[1].lVal = mode;
    return Invoke(task, L"refresh", DISPATCH_METHOD, arguments, 2);
}

}  // namespace

int wmain(int count, wchar_t** words) {
    if (count < 3) return 2;
    OleInitialize(nullptr);
    CLSID id{};
    IDispatch* task = nullptr;
    // By its manifest or else by the registry the system knows the name and finds the file.
    HRESULT hr = CLSIDFromProgID(L"zv_Task.zvTask", &id);
    if (SUCCEEDED(hr)) {
        hr = CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch,
                              reinterpret_cast<void**>(&task));
    }
    if (FAILED(hr)) std::fwprintf(stderr, L"zv_Task.zvTask cannot be created.\n");
    if (SUCCEEDED(hr)) hr = PutText(task, L"UserPath", words[1]);
    if (SUCCEEDED(hr)) hr = PutText(task, L"UserName", words[2]);
    if (SUCCEEDED(hr)) hr = Refresh(task, count > 3 ? _wtoi(words[3]) : 0, 1);
    if (FAILED(hr)) std::fwprintf(stderr, L"failed: %08lX\n", static_cast<unsigned long>(hr));
    if (task) task->Release();
    OleUninitialize();
    return SUCCEEDED(hr) ? 0 : 1;
}
