// A host for scripts with events: zvScriptHost FILE [ARGUMENT...] runs a VBScript in UTF-8. The
// script finds the object "host": Echo TEXT, Argument(N) from 0, Create(PROGID), Connect OBJECT,
// PREFIX (events of the object call the functions PREFIX + name of the script), Pump MILLISECONDS.
// Exit status: 0, 1 when the script fails (message, line and character are printed), 2 when it
// cannot be run. A handler of an event that fails is printed and ends nothing.
#include <windows.h>

#include <activscp.h>
#include <olectl.h>

#include <cstdio>
#include <cwchar>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>
#include <vector>

#include "base/win32/bstr.h"
#include "base/win32/com_ptr.h"
#include "base/win32/variant.h"
#include "base/win32/wide.h"

namespace {

using zv::win32::Bstr;
using zv::win32::ComPtr;
using zv::win32::Variant;

constexpr CLSID kVBScript = {
    0xb54f3741, 0x5b07, 0x11cf, {0xa4, 0xb0, 0x00, 0xaa, 0x00, 0x4a, 0x55, 0xe8}};
constexpr wchar_t kHost[] = L"host";

int handlersRunning = 0;

void Print(const std::string& text) {
    std::printf("%s\n", text.c_str());
    std::fflush(stdout);
}

/// Counts references; Derived answers further interfaces in Offers.
template <class Interface>
class Counted : public Interface {
 public:
    virtual ~Counted() = default;
    STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
        *object = nullptr;
        if (iid != IID_IUnknown && !Offers(iid)) return E_NOINTERFACE;
        *object = static_cast<Interface*>(this);
        AddRef();
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return ++references_; }
    STDMETHODIMP_(ULONG) Release() override {
        const ULONG left = --references_;
        if (left == 0) delete this;
        return left;
    }

 protected:
    virtual bool Offers(REFIID iid) const { return iid == __uuidof(Interface); }

 private:
    ULONG references_ = 1;
};

class Dispatching : public Counted<IDispatch> {
 public:
    STDMETHODIMP GetTypeInfoCount(UINT* count) override {
        *count = 0;
        return S_OK;
    }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
        return DISP_E_UNKNOWNNAME;
    }
};

/// Calls the function of the script that has the name of the event behind a prefix.
class EventSink final : public Dispatching {
 public:
    EventSink(ComPtr<IDispatch> script, ComPtr<ITypeInfo> events, IID id, std::wstring prefix)
        : script_(std::move(script)),
          events_(std::move(events)),
          id_(id),
          prefix_(std::move(prefix)) {}

    STDMETHODIMP Invoke(DISPID id, REFIID, LCID locale, WORD, DISPPARAMS* parameters, VARIANT*,
                        EXCEPINFO* exception, UINT*) override {
        Bstr name;
        UINT count = 0;
        if (FAILED(events_->GetNames(id, name.Put(), 1, &count)) || count == 0) return S_OK;
        std::wstring function = prefix_ + std::wstring(zv::win32::View(name.Get()));
        LPOLESTR names[] = {function.data()};
        DISPID member = 0;
        // Nobody has to listen to every event.
        if (FAILED(script_->GetIDsOfNames(IID_NULL, names, 1, locale, &member))) return S_OK;
        handlersRunning++;
        const HRESULT hr = script_->Invoke(member, IID_NULL, locale, DISPATCH_METHOD, parameters,
                                           nullptr, exception, nullptr);
        handlersRunning--;
        return hr;
    }

 protected:
    bool Offers(REFIID iid) const override { return iid == IID_IDispatch || iid == id_; }

 private:
    ComPtr<IDispatch> script_;
    ComPtr<ITypeInfo> events_;
    IID id_;
    std::wstring prefix_;
};

class HostObject final : public Dispatching {
 public:
    explicit HostObject(std::vector<std::wstring> arguments) : arguments_(std::move(arguments)) {}

    ComPtr<IDispatch> script;  ///< its functions

    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) override {
        if (count != 1) return DISP_E_UNKNOWNNAME;
        static constexpr const wchar_t* kNames[] = {L"Echo", L"Argument", L"Create", L"Connect",
                                                    L"Pump"};
        for (DISPID id = 0; id < 5; id++) {
            if (_wcsicmp(names[0], kNames[id]) == 0) {
                ids[0] = id + 1;
                return S_OK;
            }
        }
        return DISP_E_UNKNOWNNAME;
    }
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT* result,
                        EXCEPINFO*, UINT*) override {
        std::vector<Variant> given(parameters->cArgs);
        for (UINT i = 0; i < parameters->cArgs; i++) {
            VariantCopyInd(&given[i].Ref(), &parameters->rgvarg[parameters->cArgs - 1 - i]);
        }
        if (given.size() != (id == 4 ? 2u : 1u)) return DISP_E_BADPARAMCOUNT;
        switch (id) {
            case 1:
                return Echo(given[0]);
            case 2:
                return Argument(given[0], result);
            case 3:
                return Create(given[0], result);
            case 4:
                return Connect(given[0], given[1]);
            case 5:
                return Pump(given[0]);
            default:
                return DISP_E_MEMBERNOTFOUND;
        }
    }

 private:
    static HRESULT Echo(Variant& text) {
        const HRESULT hr = text.ChangeType(VT_BSTR);
        if (SUCCEEDED(hr)) Print(zv::win32::ToUtf8(text.Get().bstrVal));
        return hr;
    }
    HRESULT Argument(Variant& index, VARIANT* result) {
        const HRESULT hr = index.ChangeType(VT_I4);
        if (FAILED(hr) || !result) return hr;
        const auto at = static_cast<std::size_t>(index.Get().lVal);
        if (at >= arguments_.size()) return DISP_E_BADINDEX;
        *result = Variant(std::wstring_view(arguments_[at])).Detach();
        return S_OK;
    }
    static HRESULT Create(Variant& name, VARIANT* result) {
        HRESULT hr = name.ChangeType(VT_BSTR);
        if (FAILED(hr) || !result) return hr;
        CLSID id{};
        hr = CLSIDFromProgID(name.Get().bstrVal, &id);
        if (FAILED(hr)) return hr;
        IDispatch* object = nullptr;
        hr = CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch,
                              reinterpret_cast<void**>(&object));
        if (FAILED(hr)) return hr;
        result->vt = VT_DISPATCH;
        result->pdispVal = object;
        return S_OK;
    }
    HRESULT Connect(Variant& object, Variant& prefix) {
        if (object.Type() != VT_DISPATCH || !object.Get().pdispVal) return DISP_E_TYPEMISMATCH;
        HRESULT hr = prefix.ChangeType(VT_BSTR);
        IDispatch& source = *object.Get().pdispVal;
        ComPtr<IProvideClassInfo2> info;
        ComPtr<IConnectionPointContainer> container;
        ComPtr<IConnectionPoint> point;
        ComPtr<ITypeInfo> members;
        ComPtr<ITypeLib> library;
        ComPtr<ITypeInfo> events;
        IID id{};
        UINT index = 0;
        if (SUCCEEDED(hr)) hr = source.QueryInterface(IID_IProvideClassInfo2, info.PutVoid());
        if (SUCCEEDED(hr)) hr = info->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &id);
        if (SUCCEEDED(hr)) hr = source.GetTypeInfo(0, LOCALE_USER_DEFAULT, members.Put());
        if (SUCCEEDED(hr)) hr = members->GetContainingTypeLib(library.Put(), &index);
        if (SUCCEEDED(hr)) hr = library->GetTypeInfoOfGuid(id, events.Put());
        if (SUCCEEDED(hr)) {
            hr = source.QueryInterface(IID_IConnectionPointContainer, container.PutVoid());
        }
        if (SUCCEEDED(hr)) hr = container->FindConnectionPoint(id, point.Put());
        if (FAILED(hr)) return hr;
        const auto sink = ComPtr<IDispatch>::Attach(
            new EventSink(script, events, id, std::wstring(zv::win32::View(prefix.Get().bstrVal))));
        DWORD cookie = 0;
        return point->Advise(sink.Get(), &cookie);
    }
    static HRESULT Pump(Variant& milliseconds) {
        const HRESULT hr = milliseconds.ChangeType(VT_I4);
        if (FAILED(hr)) return hr;
        const DWORD begin = GetTickCount();
        while (GetTickCount() - begin < static_cast<DWORD>(milliseconds.Get().lVal)) {
            MSG message;
            while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
                TranslateMessage(&message);
                DispatchMessageW(&message);
            }
            Sleep(5);
        }
        return S_OK;
    }

    std::vector<std::wstring> arguments_;
};

class Site final : public Counted<IActiveScriptSite> {
 public:
    explicit Site(IDispatch& host) : host_(&host) {}

    STDMETHODIMP GetLCID(LCID*) override { return E_NOTIMPL; }
    STDMETHODIMP GetItemInfo(LPCOLESTR name, DWORD mask, IUnknown** item,
                             ITypeInfo** info) override {
        if (info) *info = nullptr;
        if (std::wstring(name) != kHost) return TYPE_E_ELEMENTNOTFOUND;
        if (mask & SCRIPTINFO_IUNKNOWN) {
            *item = host_;
            host_->AddRef();
        }
        return S_OK;
    }
    STDMETHODIMP GetDocVersionString(BSTR*) override { return E_NOTIMPL; }
    STDMETHODIMP OnScriptTerminate(const VARIANT*, const EXCEPINFO*) override { return S_OK; }
    STDMETHODIMP OnStateChange(SCRIPTSTATE) override { return S_OK; }
    STDMETHODIMP OnScriptError(IActiveScriptError* error) override {
        EXCEPINFO info{};
        DWORD context = 0;
        ULONG line = 0;
        LONG character = 0;
        error->GetExceptionInfo(&info);
        error->GetSourcePosition(&context, &line, &character);
        const bool inHandler = handlersRunning > 0;
        Print(std::string(inHandler ? "a handler fails, line " : "FAIL line ") +
              std::to_string(line + 1) + ", character " + std::to_string(character + 1) + ": " +
              zv::win32::ToUtf8(info.bstrDescription));
        SysFreeString(info.bstrSource);
        SysFreeString(info.bstrDescription);
        SysFreeString(info.bstrHelpFile);
        failed = failed || !inHandler;
        return S_OK;
    }
    STDMETHODIMP OnEnterScript() override { return S_OK; }
    STDMETHODIMP OnLeaveScript() override { return S_OK; }

    bool failed = false;

 private:
    IDispatch* host_;
};

int Run(const std::wstring& file, std::vector<std::wstring> arguments) {
    std::ifstream in(std::filesystem::path(file), std::ios::binary);
    if (!in) {
        Print("FAIL the script cannot be read");
        return 2;
    }
    const std::wstring text =
        zv::win32::ToWide(std::string(std::istreambuf_iterator<char>(in), {}));
    auto* host = new HostObject(std::move(arguments));
    const auto hostLife = ComPtr<IDispatch>::Attach(host);
    auto* site = new Site(*host);
    const auto siteLife = ComPtr<IActiveScriptSite>::Attach(site);

    ComPtr<IActiveScript> engine;
    ComPtr<IActiveScriptParse> parser;
    HRESULT hr = CoCreateInstance(kVBScript, nullptr, CLSCTX_INPROC_SERVER, IID_IActiveScript,
                                  engine.PutVoid());
    if (SUCCEEDED(hr)) hr = engine->QueryInterface(__uuidof(IActiveScriptParse), parser.PutVoid());
    if (SUCCEEDED(hr)) hr = engine->SetScriptSite(site);
    if (SUCCEEDED(hr)) hr = parser->InitNew();
    if (SUCCEEDED(hr)) hr = engine->AddNamedItem(kHost, SCRIPTITEM_ISVISIBLE);
    if (SUCCEEDED(hr)) hr = engine->GetScriptDispatch(nullptr, host->script.Put());
    if (FAILED(hr)) {
        Print("FAIL no engine for scripts");
        return 2;
    }
    hr = parser->ParseScriptText(text.c_str(), nullptr, nullptr, nullptr, 0, 0,
                                 SCRIPTTEXT_ISVISIBLE, nullptr, nullptr);
    if (SUCCEEDED(hr)) hr = engine->SetScriptState(SCRIPTSTATE_CONNECTED);
    host->script.Reset();
    engine->Close();
    return site->failed || FAILED(hr) ? 1 : 0;
}

}  // namespace

int wmain(int count, wchar_t** words) {
    if (count < 2) {
        Print("zvScriptHost FILE [ARGUMENT...]");
        return 2;
    }
    OleInitialize(nullptr);
    const int status = Run(words[1], std::vector<std::wstring>(words + 2, words + count));
    OleUninitialize();
    return status;
}
