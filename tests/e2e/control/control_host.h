// A compiled host with the registered control and a listener to its events.
#pragma once

#include <windows.h>

#include <gtest/gtest.h>
#include <oleauto.h>
#include <olectl.h>

#include <chrono>
#include <cstdlib>
#include <functional>
#include <iterator>
#include <string>
#include <vector>

#include "base/win32/bstr.h"
#include "base/win32/com_ptr.h"
#include "base/win32/variant.h"

namespace zv::e2e {

using win32::Bstr;
using win32::ComPtr;
using win32::Variant;
using Lines = std::vector<std::string>;

inline constexpr IID kEvents = {
    0x588817b4, 0xc687, 0x4e66, {0x9c, 0x60, 0x88, 0xa7, 0xda, 0x76, 0x48, 0x4c}};
inline constexpr long kManager = 1;
inline constexpr long kMark = 4;

inline std::string TextOf(const VARIANT& value) {
    switch (value.vt) {
        case VT_BOOL:
            return value.boolVal == VARIANT_FALSE ? "false" : "true";
        case VT_BSTR:
            return win32::ToUtf8(value.bstrVal);
        case VT_I4:
            return std::to_string(value.lVal);
        case VT_I2:
            return std::to_string(value.iVal);
        default:
            return "?" + std::to_string(value.vt);
    }
}

/// On the stack of a test: it outlives the control.
class Listener final : public IDispatch {
 public:
    STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
        *object = nullptr;
        if (iid != IID_IUnknown && iid != IID_IDispatch && iid != kEvents) return E_NOINTERFACE;
        *object = static_cast<IDispatch*>(this);
        AddRef();
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return ++references; }
    STDMETHODIMP_(ULONG) Release() override { return --references; }
    STDMETHODIMP GetTypeInfoCount(UINT* count) override {
        *count = 0;
        return S_OK;
    }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
        return DISP_E_UNKNOWNNAME;
    }
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT*, EXCEPINFO*,
                        UINT*) override {
        static constexpr const char* kNames[] = {"?",
                                                 "AlertShown",
                                                 "ItemSaved",
                                                 "ItemDeleted",
                                                 "ItemDone",
                                                 "PlanGenerated",
                                                 "WindowClosed",
                                                 "ReminderShown",
                                                 "ReminderActed"};
        std::string line =
            id >= 1 && id < std::ssize(kNames) ? kNames[id] : "?" + std::to_string(id);
        for (UINT i = parameters->cArgs; i > 0; i--) {
            line += " " + TextOf(parameters->rgvarg[i - 1]);
        }
        lines.push_back(line);
        if (const auto act = std::exchange(next, nullptr)) act();
        return answer;
    }
    Lines Take() { return std::exchange(lines, {}); }

    ULONG references = 1;
    Lines lines;
    std::function<void()> next;  ///< runs inside the next event
    HRESULT answer = S_OK;
};

struct Search {
    const wchar_t* name;
    HWND found = nullptr;
};

inline BOOL CALLBACK LookAt(HWND window, LPARAM data) {
    auto& search = *reinterpret_cast<Search*>(data);
    wchar_t text[64] = L"";
    const auto atom = static_cast<ATOM>(reinterpret_cast<UINT_PTR>(GetPropW(window, L"zv.Name")));
    if (atom) GlobalGetAtomNameW(atom, text, 64);
    if (std::wstring(text) == search.name) search.found = window;
    return !search.found;
}

/// The control's window of that name, or null.
inline HWND WindowNamed(const wchar_t* name) {
    Search search{name};
    EnumThreadWindows(GetCurrentThreadId(), &LookAt, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

class ControlHost : public testing::Test {
 protected:
    static void SetUpTestSuite() { OleInitialize(nullptr); }
    static void TearDownTestSuite() { OleUninitialize(); }

    void SetUp() override {
        control = Create();
        ASSERT_TRUE(control);
        const wchar_t* data = _wgetenv(L"ZV_EVENTS_DATA");
        ASSERT_NE(data, nullptr);
        Put(L"UserPath", Variant(data));
        Put(L"UserName", Variant("O'Brien"));
        Put(L"SQLData", Variant(std::int16_t{0}));
        first = Connect(*control, listener);
    }
    void TearDown() override { control.Reset(); }

    static ComPtr<IDispatch> Create() {
        CLSID id{};
        ComPtr<IDispatch> object;
        if (SUCCEEDED(CLSIDFromProgID(L"zv_Task.zvTask", &id))) {
            CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch, object.PutVoid());
        }
        return object;
    }
    static ComPtr<IConnectionPoint> Point(IDispatch& object) {
        ComPtr<IConnectionPointContainer> container;
        ComPtr<IConnectionPoint> point;
        object.QueryInterface(IID_IConnectionPointContainer, container.PutVoid());
        if (container) container->FindConnectionPoint(kEvents, point.Put());
        return point;
    }
    static DWORD Connect(IDispatch& object, Listener& sink) {
        DWORD cookie = 0;
        EXPECT_EQ(Point(object)->Advise(&sink, &cookie), S_OK);
        return cookie;
    }
    void Disconnect(DWORD cookie) { EXPECT_EQ(Point(*control)->Unadvise(cookie), S_OK); }

    HRESULT Invoke(const wchar_t* name, WORD kind, std::vector<VARIANT> reversed) {
        DISPID id = 0;
        LPOLESTR names[] = {const_cast<LPOLESTR>(name)};
        HRESULT hr = control->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id);
        if (FAILED(hr)) return hr;
        DISPID put = DISPID_PROPERTYPUT;
        const bool assigns = kind == DISPATCH_PROPERTYPUT;
        DISPPARAMS parameters{reversed.data(), assigns ? &put : nullptr,
                              static_cast<UINT>(reversed.size()), assigns ? 1u : 0u};
        return control->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, kind, &parameters, nullptr,
                               nullptr, nullptr);
    }
    void Put(const wchar_t* name, const Variant& value) {
        EXPECT_EQ(Invoke(name, DISPATCH_PROPERTYPUT, {value.Get()}), S_OK);
    }
    HRESULT Refresh(long mode) {
        return Invoke(
            L"refresh", DISPATCH_METHOD,
            {Variant(std::int16_t{0}).Get(), Variant(static_cast<std::int32_t>(mode)).Get()});
    }
    HRESULT Mark(int item, int state) {
        Put(L"myTaskID", Variant(std::int32_t{item}));
        Put(L"myDate", Variant(static_cast<double>(state)));
        return Refresh(kMark);
    }
    static void PumpWhile(const std::function<bool()>& waits) {
        const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(30);
        while (waits() && std::chrono::steady_clock::now() < end) {
            MSG message;
            while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
                TranslateMessage(&message);
                DispatchMessageW(&message);
            }
            Sleep(5);
        }
    }

    Listener listener;
    ComPtr<IDispatch> control;
    DWORD first = 0;
};

}  // namespace zv::e2e
