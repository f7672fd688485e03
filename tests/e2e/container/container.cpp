#include "container.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace container {

namespace {

bool SameKey(const std::string& a, const std::string& b) {
    return _stricmp(a.c_str(), b.c_str()) == 0;
}

template <class Function>
void Bind(HMODULE file, const char* name, Function& function) {
    function = reinterpret_cast<Function>(GetProcAddress(file, name));
    if (function) return;
    std::fprintf(stderr, "zv_Task.ocx does not export %s\n", name);
    std::exit(1);
}

std::wstring OwnFolder() {
    wchar_t path[MAX_PATH];
    const std::wstring file(path, GetModuleFileNameW(nullptr, path, MAX_PATH));
    return file.substr(0, file.find_last_of(L'\\'));
}

// ZV_BIN names the folder of what ships, as a path of Windows or of the system around Wine; without
// it the control beside this program is taken.
std::wstring FolderOfControl() {
    wchar_t value[MAX_PATH];
    std::wstring folder(value, GetEnvironmentVariableW(L"ZV_BIN", value, MAX_PATH));
    if (folder.empty()) return OwnFolder();
    if (folder.front() == L'/') folder.insert(0, L"Z:");
    std::replace(folder.begin(), folder.end(), L'/', L'\\');
    return folder;
}

ControlFile LoadControlFile() {
    ControlFile file;
    file.path = FolderOfControl() + L"\\zv_Task.ocx";
    const HMODULE module = LoadLibraryW(file.path.c_str());
    if (!module) {
        std::fprintf(stderr, "zv_Task.ocx cannot be loaded: %lu\n", GetLastError());
        std::exit(1);
    }
    Bind(module, "DllCanUnloadNow", file.canUnload);
    Bind(module, "DllRegisterServer", file.registerServer);
    Bind(module, "DllUnregisterServer", file.unregisterServer);
    Bind(module, "DllInstall", file.install);
    Bind(module, "DllGetClassObject", file.getClassObject);
    return file;
}

// The control is registered while the tests run, and afterwards as it was before.
class Registered final : public ::testing::Environment {
 public:
    void SetUp() override {
        ASSERT_EQ(OleInitialize(nullptr), S_OK);
        CLSID id;
        wasRegistered_ = SUCCEEDED(CLSIDFromProgID(zv::com::kProgId, &id));
        ASSERT_EQ(File().registerServer(), S_OK);
    }
    void TearDown() override {
        const HRESULT hr = wasRegistered_ ? File().registerServer() : File().unregisterServer();
        EXPECT_EQ(hr, S_OK);
        OleUninitialize();
    }

 private:
    bool wasRegistered_ = false;
};

[[maybe_unused]] const auto* const g_registered =
    ::testing::AddGlobalTestEnvironment(new Registered);

}  // namespace

const std::vector<IID>& ControlInterfaces() {
    static const std::vector<IID> list{IID_IUnknown,           IID_IDispatch,
                                       zv::com::kInterfaceId,  IID_IOleObject,
                                       IID_IOleControl,        IID_IOleWindow,
                                       IID_IOleInPlaceObject,  IID_IOleInPlaceActiveObject,
                                       IID_IViewObject,        IID_IViewObject2,
                                       IID_IPersist,           IID_IPersistPropertyBag,
                                       IID_IPersistStreamInit, IID_IPersistStorage,
                                       IID_IDataObject,        IID_IProvideClassInfo,
                                       IID_IProvideClassInfo2, IID_IConnectionPointContainer,
                                       IID_ISupportErrorInfo};
    return list;
}

const ControlFile& File() {
    static const ControlFile file = LoadControlFile();
    return file;
}

STDMETHODIMP Bag::QueryInterface(REFIID iid, void** object) {
    *object = nullptr;
    if (iid != IID_IUnknown && iid != IID_IPropertyBag) return E_NOINTERFACE;
    *object = static_cast<IPropertyBag*>(this);
    AddRef();
    return S_OK;
}

STDMETHODIMP Bag::Read(LPCOLESTR name, VARIANT* value, IErrorLog*) {
    const std::string key = zv::win32::ToUtf8(name);
    asked.push_back(key);
    for (const auto& [stored, held] : entries_) {
        if (SameKey(stored, key)) return VariantCopy(value, const_cast<VARIANT*>(&held.Get()));
    }
    return E_INVALIDARG;
}

STDMETHODIMP Bag::Write(LPCOLESTR name, VARIANT* value) {
    if (FAILED(writeResult)) return writeResult;
    entries_.emplace_back(zv::win32::ToUtf8(name), Variant::Copy(*value));
    return S_OK;
}

void Bag::Set(const std::string& key, Variant value) {
    entries_.emplace_back(key, std::move(value));
}

std::vector<std::string> Bag::Keys() const {
    std::vector<std::string> keys;
    for (const auto& entry : entries_) keys.push_back(entry.first);
    return keys;
}

std::string Bag::Text(const std::string& key) const {
    for (const auto& [stored, held] : entries_) {
        if (stored != key) continue;
        Variant text = Variant::Copy(held.Get());
        return text.ChangeType(VT_BSTR) == S_OK ? zv::win32::ToUtf8(text.Get().bstrVal) : "<odd>";
    }
    return "<none>";
}

STDMETHODIMP ErrorLog::QueryInterface(REFIID iid, void** object) {
    *object = nullptr;
    if (iid != IID_IUnknown && iid != IID_IErrorLog) return E_NOINTERFACE;
    *object = static_cast<IErrorLog*>(this);
    AddRef();
    return S_OK;
}

STDMETHODIMP ErrorLog::AddError(LPCOLESTR name, EXCEPINFO* info) {
    names.push_back(zv::win32::ToUtf8(name));
    lastCode = info->scode;
    lastText = zv::win32::ToUtf8(info->bstrDescription);
    return S_OK;
}

STDMETHODIMP Site::QueryInterface(REFIID iid, void** object) {
    *object = nullptr;
    if (iid == IID_IUnknown || iid == IID_IOleClientSite) {
        *object = static_cast<IOleClientSite*>(this);
    } else if (iid == IID_IOleInPlaceSite || iid == IID_IOleWindow) {
        *object = static_cast<IOleInPlaceSite*>(this);
    } else if (iid == IID_IDispatch) {
        *object = static_cast<IDispatch*>(this);
    } else if (iid == IID_IOleInPlaceFrame || iid == IID_IOleInPlaceUIWindow) {
        *object = static_cast<IOleInPlaceFrame*>(this);
    } else {
        return E_NOINTERFACE;
    }
    AddRef();
    return S_OK;
}

STDMETHODIMP Site::SaveObject() {
    saves++;
    return S_OK;
}

STDMETHODIMP Site::GetContainer(IOleContainer** container) {
    *container = nullptr;
    return E_NOINTERFACE;
}

STDMETHODIMP Site::GetWindow(HWND* result) {
    *result = window;
    return window ? S_OK : E_FAIL;
}

STDMETHODIMP Site::OnInPlaceActivate() {
    Note("activate");
    return S_OK;
}

STDMETHODIMP Site::OnUIActivate() {
    Note("ui activate");
    return S_OK;
}

STDMETHODIMP Site::GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document,
                                    LPRECT place, LPRECT clip, LPOLEINPLACEFRAMEINFO info) {
    *frame = this;
    AddRef();
    *document = nullptr;
    *place = position;
    *clip = RECT{0, 0, 1000, 1000};
    info->fMDIApp = FALSE;
    info->hwndFrame = window;
    info->haccel = nullptr;
    info->cAccelEntries = 0;
    return S_OK;
}

STDMETHODIMP Site::OnUIDeactivate(BOOL) {
    Note("ui deactivate");
    return S_OK;
}

STDMETHODIMP Site::OnInPlaceDeactivate() {
    Note("deactivate");
    return S_OK;
}

STDMETHODIMP Site::SetActiveObject(IOleInPlaceActiveObject* object, LPCOLESTR) {
    active = ComPtr<IOleInPlaceActiveObject>(object);
    if (onCall) onCall(object ? "active object" : "no active object");
    return S_OK;
}

void Site::Note(const std::string& event) {
    events.push_back(event);
    if (onCall) onCall(event);
}

STDMETHODIMP Site::Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result, EXCEPINFO*,
                          UINT*) {
    switch (id) {
        case DISPID_AMBIENT_USERMODE:
            *result = Variant(userMode).Detach();
            return S_OK;
        case DISPID_AMBIENT_DISPLAYNAME:
            *result = Variant(displayName).Detach();
            return S_OK;
        default:
            return DISP_E_MEMBERNOTFOUND;
    }
}

CallResult Invoke(IDispatch& object, DISPID id, WORD flags, std::vector<VARIANT> arguments) {
    CallResult result;
    EXCEPINFO exception{};
    DISPID putId = DISPID_PROPERTYPUT;
    const std::vector<VARIANT> reversed(arguments.rbegin(), arguments.rend());
    DISPPARAMS parameters{const_cast<VARIANT*>(reversed.data()), nullptr,
                          static_cast<UINT>(reversed.size()), 0};
    if (flags == DISPATCH_PROPERTYPUT) {
        parameters.rgdispidNamedArgs = &putId;
        parameters.cNamedArgs = 1;
    }
    result.hr = object.Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters,
                              result.value.Put(), &exception, &result.badArgument);
    result.errorNumber = exception.scode;
    Bstr source, text, help;
    *source.Put() = exception.bstrSource;
    *text.Put() = exception.bstrDescription;
    *help.Put() = exception.bstrHelpFile;
    result.errorSource = source.Utf8();
    result.errorText = text.Utf8();
    return result;
}

DISPID IdOf(IDispatch& object, const wchar_t* name) {
    auto* argument = const_cast<LPOLESTR>(name);
    DISPID id = DISPID_UNKNOWN;
    object.GetIDsOfNames(IID_NULL, &argument, 1, LOCALE_USER_DEFAULT, &id);
    return id;
}

CallResult Call(IDispatch& object, const wchar_t* name, std::vector<VARIANT> arguments) {
    return Invoke(object, IdOf(object, name), DISPATCH_METHOD, std::move(arguments));
}

CallResult Get(IDispatch& object, const wchar_t* name) {
    return Invoke(object, IdOf(object, name), DISPATCH_PROPERTYGET, {});
}

CallResult Put(IDispatch& object, const wchar_t* name, const Variant& value) {
    return Invoke(object, IdOf(object, name), DISPATCH_PROPERTYPUT, {value.Get()});
}

void ContainerTest::SetUp() {
    CLSID id;
    ASSERT_EQ(CLSIDFromProgID(zv::com::kProgId, &id), S_OK);
    ASSERT_EQ(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown, control.PutVoid()),
              S_OK);
    dispatch = control.As<IDispatch>();
    ASSERT_TRUE(dispatch);
}

void ContainerTest::TearDown() {
    dispatch.Reset();
    control.Reset();
    EXPECT_EQ(File().canUnload(), S_OK) << "something of the test is left";
}

void ContainerTest::SetEverything() {
    PutText(L"myName", "名");
    PutNumber(L"Language", 1);
    PutNumber(L"AlertType", 2);
    PutText(L"UserPath", "C:\\数据 库\\t.mdb");
    PutText(L"UserName", "张三");
    PutText(L"ZgName", "李四");
    PutText(L"myPower", "101");
    PutText(L"myModel", "model");
    EXPECT_EQ(Put(*dispatch, L"Copyright", Variant(true)).hr, S_OK);
    PutText(L"Password", "secret");
    PutNumber(L"SQLData", 1);
    PutText(L"UserID", "sa");
    PutText(L"Default", "zv2000");
}

}  // namespace container
