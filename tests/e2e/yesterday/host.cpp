// A host that binds early, as it was compiled against an earlier type library. The programs in
// frozen/ were made of this file once; no build makes them again, because what they prove is that
// files compiled long ago go on working.
//
//   host save STREAM BAG            stores the properties of the registered control
//   host check STREAM BAG LIBRARY   loads what an earlier control stored, calls every member
//   through
//                                   the interface as it was, and compares the type library of then
//                                   with the registered one
//
// Closes with "N passed, N failed".
#define INITGUID
#include <windows.h>

#include <ocidl.h>
#include <oleauto.h>
#include <olectl.h>

#include <cstdio>
#include <map>
#include <string>
#include <vector>

#include "zv_task.h"

namespace {

int passed = 0;
int failed = 0;

void Check(const std::string& what, bool good) {
    (good ? passed : failed)++;
    std::printf("%s %s\n", good ? "ok" : "FAIL", what.c_str());
    std::fflush(stdout);
}

std::string Utf8(const wchar_t* text) {
    if (!text) return {};
    const int length = static_cast<int>(wcslen(text));
    const int bytes = WideCharToMultiByte(CP_UTF8, 0, text, length, nullptr, 0, nullptr, nullptr);
    std::string result(static_cast<std::size_t>(bytes), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text, length, result.data(), bytes, nullptr, nullptr);
    return result;
}

std::wstring Wide(const std::string& text) {
    const int bytes = static_cast<int>(text.size());
    const int units = MultiByteToWideChar(CP_UTF8, 0, text.data(), bytes, nullptr, 0);
    std::wstring result(static_cast<std::size_t>(units), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, text.data(), bytes, result.data(), units);
    return result;
}

/// A text that the callee only reads.
class Text {
 public:
    explicit Text(const std::string& utf8) : text_(SysAllocString(Wide(utf8).c_str())) {}
    ~Text() { SysFreeString(text_); }
    Text(const Text&) = delete;
    Text& operator=(const Text&) = delete;
    operator BSTR() const { return text_; }

 private:
    BSTR text_;
};

std::string Taken(BSTR text) {
    const std::string result = Utf8(text);
    SysFreeString(text);
    return result;
}

/// Lives on the stack. A value is kept as its type's number, a colon and its text.
class Bag final : public IPropertyBag {
 public:
    STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
        *object = nullptr;
        if (iid != IID_IUnknown && iid != IID_IPropertyBag) return E_NOINTERFACE;
        *object = static_cast<IPropertyBag*>(this);
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return 1; }
    STDMETHODIMP_(ULONG) Release() override { return 1; }
    STDMETHODIMP Read(LPCOLESTR name, VARIANT* value, IErrorLog*) override {
        const auto at = values.find(Utf8(name));
        if (at == values.end()) return E_INVALIDARG;
        const std::size_t colon = at->second.find(':');
        VARIANT text;
        VariantInit(&text);
        text.vt = VT_BSTR;
        text.bstrVal = SysAllocString(Wide(at->second.substr(colon + 1)).c_str());
        const auto kept = static_cast<VARTYPE>(std::stoi(at->second.substr(0, colon)));
        const VARTYPE wanted = value->vt == VT_EMPTY ? kept : value->vt;
        VariantInit(value);
        const HRESULT hr = VariantChangeTypeEx(value, &text, LOCALE_INVARIANT, 0, wanted);
        VariantClear(&text);
        return hr;
    }
    STDMETHODIMP Write(LPCOLESTR name, VARIANT* value) override {
        VARIANT text;
        VariantInit(&text);
        const HRESULT hr = VariantChangeTypeEx(&text, value, LOCALE_INVARIANT, 0, VT_BSTR);
        if (SUCCEEDED(hr))
            values[Utf8(name)] = std::to_string(value->vt) + ":" + Utf8(text.bstrVal);
        VariantClear(&text);
        return hr;
    }

    std::map<std::string, std::string> values;
};

constexpr const char* kPath = "C:\\Data\\taskAlert.db";
constexpr const char* kUser = "O'Brien 张三";
constexpr const char* kDefault = "tasks";

_zvTask* NewControl() {
    _zvTask* control = nullptr;
    const HRESULT hr = CoCreateInstance(CLSID_zvTask, nullptr, CLSCTX_INPROC_SERVER, IID__zvTask,
                                        reinterpret_cast<void**>(&control));
    Check("the class has the interface of then", SUCCEEDED(hr));
    return control;
}

bool SaveStream(_zvTask& control, const wchar_t* file) {
    IPersistStreamInit* persist = nullptr;
    IStream* stream = nullptr;
    bool good = SUCCEEDED(control.QueryInterface(IID_IPersistStreamInit,
                                                 reinterpret_cast<void**>(&persist))) &&
                SUCCEEDED(CreateStreamOnHGlobal(nullptr, TRUE, &stream)) &&
                SUCCEEDED(persist->Save(stream, TRUE));
    HGLOBAL memory = nullptr;
    if (good && SUCCEEDED(GetHGlobalFromStream(stream, &memory))) {
        STATSTG facts{};
        stream->Stat(&facts, STATFLAG_NONAME);
        std::FILE* out = _wfopen(file, L"wb");
        good = out && std::fwrite(GlobalLock(memory), 1, facts.cbSize.LowPart, out) ==
                          facts.cbSize.LowPart;
        GlobalUnlock(memory);
        if (out) std::fclose(out);
    }
    if (stream) stream->Release();
    if (persist) persist->Release();
    return good;
}

bool LoadStream(_zvTask& control, const wchar_t* file) {
    std::FILE* in = _wfopen(file, L"rb");
    if (!in) return false;
    std::vector<char> bytes(1 << 16);
    bytes.resize(std::fread(bytes.data(), 1, bytes.size(), in));
    std::fclose(in);
    IPersistStreamInit* persist = nullptr;
    IStream* stream = nullptr;
    ULONG written = 0;
    LARGE_INTEGER start{};
    const bool good =
        SUCCEEDED(
            control.QueryInterface(IID_IPersistStreamInit, reinterpret_cast<void**>(&persist))) &&
        SUCCEEDED(CreateStreamOnHGlobal(nullptr, TRUE, &stream)) &&
        SUCCEEDED(stream->Write(bytes.data(), static_cast<ULONG>(bytes.size()), &written)) &&
        SUCCEEDED(stream->Seek(start, STREAM_SEEK_SET, nullptr)) &&
        SUCCEEDED(persist->Load(stream));
    if (stream) stream->Release();
    if (persist) persist->Release();
    return good;
}

bool WithBag(_zvTask& control, Bag& bag, bool loads) {
    IPersistPropertyBag* persist = nullptr;
    if (FAILED(control.QueryInterface(IID_IPersistPropertyBag, reinterpret_cast<void**>(&persist))))
        return false;
    const HRESULT hr = loads ? persist->Load(&bag, nullptr) : persist->Save(&bag, TRUE, TRUE);
    persist->Release();
    return SUCCEEDED(hr);
}

int Save(const wchar_t* stream, const wchar_t* bagFile) {
    _zvTask* control = NewControl();
    if (!control) return 1;
    Check("properties", SUCCEEDED(control->put_UserPath(Text(kPath))) &&
                            SUCCEEDED(control->put_UserName(Text(kUser))) &&
                            SUCCEEDED(control->put_Language(1)) &&
                            SUCCEEDED(control->put_AlertType(3)) &&
                            SUCCEEDED(control->put_myName(Text("张三"))) &&
                            SUCCEEDED(control->put_UserID(Text("office"))) &&
                            SUCCEEDED(control->put_Default(Text(kDefault))));
    Check("stream", SaveStream(*control, stream));
    Bag bag;
    Check("bag", WithBag(*control, bag, false));
    std::FILE* out = _wfopen(bagFile, L"wb");
    for (const auto& [key, value] : bag.values) {
        std::fprintf(out, "%s=%s\n", key.c_str(), value.c_str());
    }
    std::fclose(out);
    control->Release();
    return 0;
}

void CheckStored(_zvTask& control, const std::string& where) {
    BSTR text = nullptr;
    SHORT number = 0;
    Check(where + ": AlertType", SUCCEEDED(control.get_AlertType(&number)) && number == 3);
    Check(where + ": myName", SUCCEEDED(control.get_myName(&text)) && Taken(text) == "张三");
    Check(where + ": UserID", SUCCEEDED(control.get_UserID(&text)) && Taken(text) == "office");
    Check(where + ": Default", SUCCEEDED(control.get_Default(&text)) && Taken(text) == kDefault);
    // What cannot be read is written by the control as it was.
    Bag again;
    Check(where + ": stored again", WithBag(control, again, false));
    Check(where + ": UserPath", again.values["UserPath"] == std::string("8:") + kPath);
    Check(where + ": Language", again.values["Language"].substr(0, 2) == "2:" &&
                                    again.values["Language"].substr(2) == "1");
}

void CheckMembers(_zvTask& control) {
    Check("numbers", SUCCEEDED(control.put_myTaskID(70000)) && SUCCEEDED(control.put_SQLData(0)) &&
                         SUCCEEDED(control.put_AlertType(5)) && SUCCEEDED(control.put_Language(0)));
    Check("a date", SUCCEEDED(control.put_myDate(37687.5)));
    Check("a truth value", SUCCEEDED(control.put_Copyright(VARIANT_TRUE)));
    Check(
        "texts",
        SUCCEEDED(control.put_UserPath(Text(""))) && SUCCEEDED(control.put_Password(Text("p"))) &&
            SUCCEEDED(control.put_PowerPath(Text("p"))) &&
            SUCCEEDED(control.put_UserName(Text(kUser))) &&
            SUCCEEDED(control.put_ZgName(Text("z"))) &&
            SUCCEEDED(control.put_CompName(Text("甲公司"))) &&
            SUCCEEDED(control.put_myPower(Text("1111"))) &&
            SUCCEEDED(control.put_myModel(Text("m"))) && SUCCEEDED(control.put_Zorvan(Text("x"))) &&
            SUCCEEDED(control.put_UserID(Text("u"))) && SUCCEEDED(control.put_Default(Text("d"))));
    SHORT number = 0;
    BSTR text = nullptr;
    Check("a number comes back", SUCCEEDED(control.get_AlertType(&number)) && number == 5);
    Check("a text comes back", SUCCEEDED(control.get_UserID(&text)) && Taken(text) == "u");
    Check("branding reads as empty", SUCCEEDED(control.get_Zorvan(&text)) && Taken(text).empty());
    Check("refresh without anything to open", SUCCEEDED(control.refresh(8, 0)));
    Check("initial values", SUCCEEDED(control.UserControl_InitProperties()));
}

/// Everything of `old` that a host may have compiled in stands unchanged in `now`.
bool SameType(ITypeInfo& old, ITypeInfo& now, std::string& difference) {
    TYPEATTR* before = nullptr;
    TYPEATTR* present = nullptr;
    old.GetTypeAttr(&before);
    now.GetTypeAttr(&present);
    bool same = before->typekind == present->typekind && before->cFuncs <= present->cFuncs &&
                before->cImplTypes == present->cImplTypes;
    if (!same) difference = "kind or counts";
    for (UINT i = 0; same && i < before->cFuncs; i++) {
        FUNCDESC* a = nullptr;
        FUNCDESC* b = nullptr;
        old.GetFuncDesc(i, &a);
        now.GetFuncDesc(i, &b);
        BSTR names[2] = {};
        UINT count = 0;
        old.GetNames(a->memid, &names[0], 1, &count);
        now.GetNames(b->memid, &names[1], 1, &count);
        same = a->memid == b->memid && a->invkind == b->invkind && a->oVft == b->oVft &&
               a->cParams == b->cParams && a->callconv == b->callconv &&
               a->elemdescFunc.tdesc.vt == b->elemdescFunc.tdesc.vt &&
               wcscmp(names[0], names[1]) == 0;
        for (SHORT p = 0; same && p < a->cParams; p++) {
            same = a->lprgelemdescParam[p].tdesc.vt == b->lprgelemdescParam[p].tdesc.vt &&
                   a->lprgelemdescParam[p].paramdesc.wParamFlags ==
                       b->lprgelemdescParam[p].paramdesc.wParamFlags;
        }
        if (!same) difference = Utf8(names[0]);
        SysFreeString(names[0]);
        SysFreeString(names[1]);
        old.ReleaseFuncDesc(a);
        now.ReleaseFuncDesc(b);
    }
    old.ReleaseTypeAttr(before);
    now.ReleaseTypeAttr(present);
    return same;
}

void CheckLibrary(const wchar_t* file) {
    ITypeLib* old = nullptr;
    ITypeLib* now = nullptr;
    Check("the library of then is read", SUCCEEDED(LoadTypeLibEx(file, REGKIND_NONE, &old)));
    if (!old) return;
    TLIBATTR* facts = nullptr;
    old->GetLibAttr(&facts);
    Check("its id and version are registered",
          SUCCEEDED(LoadRegTypeLib(facts->guid, facts->wMajorVerNum, facts->wMinorVerNum,
                                   LOCALE_NEUTRAL, &now)));
    old->ReleaseTLibAttr(facts);
    for (UINT i = 0; now && i < old->GetTypeInfoCount(); i++) {
        ITypeInfo* before = nullptr;
        ITypeInfo* present = nullptr;
        TYPEATTR* id = nullptr;
        BSTR name = nullptr;
        old->GetTypeInfo(i, &before);
        before->GetTypeAttr(&id);
        before->GetDocumentation(MEMBERID_NIL, &name, nullptr, nullptr, nullptr);
        std::string difference;
        const std::string what = Taken(name);
        const bool found = SUCCEEDED(now->GetTypeInfoOfGuid(id->guid, &present));
        const bool same = found && SameType(*before, *present, difference);
        Check(what + " is as it was" + (difference.empty() ? "" : ": " + difference), same);
        before->ReleaseTypeAttr(id);
        before->Release();
        if (present) present->Release();
    }
    if (now) now->Release();
    old->Release();
}

int CheckAll(const wchar_t* stream, const wchar_t* bagFile, const wchar_t* library) {
    _zvTask* control = NewControl();
    if (!control) return 1;
    Check("the stream of then is loaded", LoadStream(*control, stream));
    CheckStored(*control, "stream");
    Check("values between", SUCCEEDED(control->UserControl_InitProperties()));
    Bag bag;
    std::FILE* in = _wfopen(bagFile, L"rb");
    if (in) {
        std::string all;
        for (int c = std::fgetc(in); c != EOF; c = std::fgetc(in)) all += static_cast<char>(c);
        std::fclose(in);
        for (std::size_t begin = 0, end; (end = all.find('\n', begin)) != std::string::npos;
             begin = end + 1) {
            const std::string line = all.substr(begin, end - begin);
            const std::size_t equals = line.find('=');
            bag.values[line.substr(0, equals)] = line.substr(equals + 1);
        }
    }
    Check("the bag of then is there", !bag.values.empty());
    Check("the bag of then is loaded", WithBag(*control, bag, true));
    CheckStored(*control, "bag");
    CheckMembers(*control);
    CheckLibrary(library);
    Check("nothing holds the control", control->Release() == 0);
    return 0;
}

}  // namespace

int wmain(int count, wchar_t** words) {
    OleInitialize(nullptr);
    if (count == 4 && std::wstring(words[1]) == L"save") {
        Save(words[2], words[3]);
    } else if (count == 5 && std::wstring(words[1]) == L"check") {
        CheckAll(words[2], words[3], words[4]);
    } else {
        std::printf("host save STREAM BAG | host check STREAM BAG LIBRARY\n");
        return 2;
    }
    std::printf("%d passed, %d failed\n", passed, failed);
    OleUninitialize();
    return failed == 0 ? 0 : 1;
}
