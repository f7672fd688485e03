// A small container: it loads the control's file from its own folder, registers it, and offers
// controls a site, a property bag and a window.
#pragma once

#include <gtest/gtest.h>
#include <windows.h>

#include <ocidl.h>
#include <olectl.h>

#include <atomic>
#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "base/win32/bstr.h"
#include "base/win32/com_ptr.h"
#include "base/win32/variant.h"
#include "base/win32/wide.h"
#include "com/ids.h"
#include "quiet_interfaces.h"

namespace container {

using zv::win32::Bstr;
using zv::win32::ComPtr;
using zv::win32::Variant;

/// The exported functions of the control's file.
struct ControlFile {
    std::wstring path;
    HRESULT(WINAPI* canUnload)() = nullptr;
    HRESULT(WINAPI* registerServer)() = nullptr;
    HRESULT(WINAPI* unregisterServer)() = nullptr;
    HRESULT(WINAPI* install)(BOOL, LPCWSTR) = nullptr;
    HRESULT(WINAPI* getClassObject)(REFCLSID, REFIID, void**) = nullptr;
};
const ControlFile& File();

/// All that the control offers.
const std::vector<IID>& ControlInterfaces();

/// Reference counting of objects on the stack of a test: they outlive every receiver of them, and
/// the test can look at how many references are left.
template <class... Interfaces>
class OnStack : public Interfaces... {
 public:
    STDMETHODIMP_(ULONG) AddRef() override { return ++references; }
    STDMETHODIMP_(ULONG) Release() override { return --references; }
    std::atomic<ULONG> references{1};
};

/// Keys compare without regard to case, as in common containers; remembers what was asked.
class Bag final : public OnStack<IPropertyBag> {
 public:
    STDMETHODIMP QueryInterface(REFIID iid, void** object) override;
    STDMETHODIMP Read(LPCOLESTR name, VARIANT* value, IErrorLog* log) override;
    STDMETHODIMP Write(LPCOLESTR name, VARIANT* value) override;

    void Set(const std::string& key, Variant value);
    std::vector<std::string> Keys() const;
    /// The written value as text; "<none>" when absent.
    std::string Text(const std::string& key) const;

    std::vector<std::string> asked;
    HRESULT writeResult = S_OK;

 private:
    std::vector<std::pair<std::string, Variant>> entries_;
};

class ErrorLog final : public OnStack<IErrorLog> {
 public:
    STDMETHODIMP QueryInterface(REFIID iid, void** object) override;
    STDMETHODIMP AddError(LPCOLESTR name, EXCEPINFO* info) override;
    std::vector<std::string> names;
    SCODE lastCode = S_OK;
    std::string lastText;
};

/// Client site, in-place site, frame and ambient properties in one.
class Site final
    : public QuietSite<OnStack<IOleClientSite, IOleInPlaceSite, IDispatch, IOleInPlaceFrame>> {
 public:
    STDMETHODIMP QueryInterface(REFIID iid, void** object) override;
    STDMETHODIMP_(ULONG) AddRef() override { return OnStack::AddRef(); }
    STDMETHODIMP_(ULONG) Release() override { return OnStack::Release(); }

    STDMETHODIMP SaveObject() override;
    STDMETHODIMP GetMoniker(DWORD, DWORD, IMoniker**) override { return E_NOTIMPL; }
    STDMETHODIMP GetContainer(IOleContainer** container) override;
    STDMETHODIMP ShowObject() override { return S_OK; }

    STDMETHODIMP GetWindow(HWND* window) override;
    STDMETHODIMP CanInPlaceActivate() override { return S_OK; }
    STDMETHODIMP OnInPlaceActivate() override;
    STDMETHODIMP OnUIActivate() override;
    STDMETHODIMP GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document,
                                  LPRECT position, LPRECT clip,
                                  LPOLEINPLACEFRAMEINFO info) override;
    STDMETHODIMP OnUIDeactivate(BOOL) override;
    STDMETHODIMP OnInPlaceDeactivate() override;

    STDMETHODIMP SetActiveObject(IOleInPlaceActiveObject* object, LPCOLESTR) override;

    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result, EXCEPINFO*,
                        UINT*) override;

    bool userMode = false;
    std::string displayName = "zvTask1";
    HWND window = nullptr;
    RECT position{10, 20, 110, 90};
    int saves = 0;
    std::vector<std::string> events;
    /// Called for each call that comes in while a control is activated or deactivated.
    std::function<void(const std::string&)> onCall;
    ComPtr<IOleInPlaceActiveObject> active;

 private:
    void Note(const std::string& event);
};

/// What a late-bound call answered.
struct CallResult {
    HRESULT hr = S_OK;
    Variant value;
    HRESULT errorNumber = S_OK;
    std::string errorText;
    std::string errorSource;
    UINT badArgument = 99;
};

CallResult Invoke(IDispatch& object, DISPID id, WORD flags, std::vector<VARIANT> arguments);
/// Arguments in the order in which they are written in a call.
CallResult Call(IDispatch& object, const wchar_t* name, std::vector<VARIANT> arguments);
CallResult Get(IDispatch& object, const wchar_t* name);
CallResult Put(IDispatch& object, const wchar_t* name, const Variant& value);
DISPID IdOf(IDispatch& object, const wchar_t* name);

/// Creates the registered control anew and lets go of it at the end of the test.
class ContainerTest : public ::testing::Test {
 protected:
    void SetUp() override;
    void TearDown() override;

    template <class Interface>
    ComPtr<Interface> As() const {
        return control.As<Interface>();
    }
    void PutText(const wchar_t* name, const std::string& value) {
        EXPECT_EQ(Put(*dispatch, name, Variant(value)).hr, S_OK) << zv::win32::ToUtf8(name);
    }
    void PutNumber(const wchar_t* name, int value) {
        EXPECT_EQ(Put(*dispatch, name, Variant(std::int32_t{value})).hr, S_OK)
            << zv::win32::ToUtf8(name);
    }
    /// Sets every persisted property to something that is not its default.
    void SetEverything();

    ComPtr<IUnknown> control;
    ComPtr<IDispatch> dispatch;
};

}  // namespace container
