#include "com/registration.h"

#include <string>
#include <vector>

#include "com/ids.h"
#include "com/module.h"
#include "com/resource_ids.h"

namespace zv::com {

namespace {

// Automation's own marshaller, which works from the type library.
constexpr wchar_t kAutomationMarshaller[] = L"{00020424-0000-0000-C000-000000000046}";
constexpr wchar_t kDispatchMarshaller[] = L"{00020420-0000-0000-C000-000000000046}";

// Component categories that hold for this control.
constexpr const wchar_t* kCategories[] = {
    L"{40FC6ED4-2438-11CF-A3DB-080036F12502}",  // control
    L"{40FC6ED5-2438-11CF-A3DB-080036F12502}",  // programmable
    L"{0DE86A52-2BAA-11CF-A229-00AA003D7352}",  // persists to a storage
    L"{0DE86A53-2BAA-11CF-A229-00AA003D7352}",  // persists to a stream
    L"{0DE86A57-2BAA-11CF-A229-00AA003D7352}",  // persists to a property bag
};

constexpr const wchar_t* kPlatform = sizeof(void*) == 8 ? L"win64" : L"win32";
constexpr const wchar_t* kOtherPlatform = sizeof(void*) == 8 ? L"win32" : L"win64";

struct Entry {
    std::wstring key;   ///< below Software\Classes
    std::wstring name;  ///< empty: the key's own value
    std::wstring data;
};

std::wstring Braced(REFGUID id) {
    wchar_t text[40];
    StringFromGUID2(id, text, ARRAYSIZE(text));
    return text;
}

std::wstring Version() {
    return std::to_wstring(kMajorVersion) + L"." + std::to_wstring(kMinorVersion);
}

std::wstring ClassKey() {
    return L"CLSID\\" + Braced(kClassId);
}

std::wstring LibraryKey() {
    return L"TypeLib\\" + Braced(kLibraryId);
}

std::wstring InterfaceKey(REFGUID id) {
    return L"Interface\\" + Braced(id);
}

void AddProgIds(std::vector<Entry>& entries) {
    const std::wstring classId = Braced(kClassId);
    entries.push_back({kProgId, L"", kFriendlyName});
    entries.push_back({std::wstring(kProgId) + L"\\CLSID", L"", classId});
    entries.push_back({std::wstring(kProgId) + L"\\CurVer", L"", kVersionedProgId});
    entries.push_back({kVersionedProgId, L"", kFriendlyName});
    entries.push_back({std::wstring(kVersionedProgId) + L"\\CLSID", L"", classId});
}

void AddClass(std::vector<Entry>& entries, const std::wstring& path) {
    const std::wstring key = ClassKey();
    entries.push_back({key, L"", kFriendlyName});
    entries.push_back({key + L"\\InprocServer32", L"", path});
    entries.push_back({key + L"\\InprocServer32", L"ThreadingModel", L"Apartment"});
    entries.push_back({key + L"\\ProgID", L"", kVersionedProgId});
    entries.push_back({key + L"\\VersionIndependentProgID", L"", kProgId});
    entries.push_back({key + L"\\TypeLib", L"", Braced(kLibraryId)});
    entries.push_back({key + L"\\Version", L"", Version()});
    entries.push_back({key + L"\\Control", L"", L""});
    entries.push_back({key + L"\\Programmable", L"", L""});
    entries.push_back({key + L"\\MiscStatus", L"", L"0"});
    entries.push_back({key + L"\\MiscStatus\\1", L"", std::to_wstring(kMiscStatus)});
    entries.push_back(
        {key + L"\\ToolboxBitmap32", L"", path + L", " + std::to_wstring(ZV_TOOLBOX_BITMAP)});
    entries.push_back({key + L"\\DefaultIcon", L"", path + L",0"});
    for (const wchar_t* category : kCategories) {
        entries.push_back({key + L"\\Implemented Categories\\" + category, L"", L""});
    }
}

void AddLibrary(std::vector<Entry>& entries, const std::wstring& path) {
    const std::wstring key = LibraryKey() + L"\\" + Version();
    entries.push_back({key, L"", kFriendlyName});
    entries.push_back({key + L"\\0\\" + kPlatform, L"", path});
    entries.push_back({key + L"\\FLAGS", L"", L"2"});  // a library of controls
    entries.push_back({key + L"\\HELPDIR", L"", path.substr(0, path.find_last_of(L'\\'))});
}

void AddInterface(std::vector<Entry>& entries, REFGUID id, const wchar_t* name,
                  const wchar_t* marshaller) {
    const std::wstring key = InterfaceKey(id);
    entries.push_back({key, L"", name});
    entries.push_back({key + L"\\ProxyStubClsid32", L"", marshaller});
    entries.push_back({key + L"\\TypeLib", L"", Braced(kLibraryId)});
    entries.push_back({key + L"\\TypeLib", L"Version", Version()});
}

std::vector<Entry> Entries() {
    const std::wstring path = module::Path();
    std::vector<Entry> entries;
    AddProgIds(entries);
    AddClass(entries, path);
    AddLibrary(entries, path);
    AddInterface(entries, kInterfaceId, L"_zvTask", kAutomationMarshaller);
    AddInterface(entries, kEventsId, L"__zvTask", kDispatchMarshaller);
    return entries;
}

// Software\Classes of a scope, created when a user has none yet.
class ClassesKey {
 public:
    explicit ClassesKey(Scope scope) {
        const HKEY root = scope == Scope::Machine ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER;
        result_ = RegCreateKeyExW(root, L"Software\\Classes", 0, nullptr, 0,
                                  KEY_READ | KEY_WRITE | DELETE, nullptr, &key_, nullptr);
    }
    ClassesKey(const ClassesKey&) = delete;
    ClassesKey& operator=(const ClassesKey&) = delete;
    ~ClassesKey() {
        if (key_) RegCloseKey(key_);
    }
    LSTATUS Result() const { return result_; }
    HKEY Get() const { return key_; }

 private:
    HKEY key_ = nullptr;
    LSTATUS result_;
};

LSTATUS Write(HKEY classes, const Entry& entry) {
    HKEY key = nullptr;
    LSTATUS result = RegCreateKeyExW(classes, entry.key.c_str(), 0, nullptr, 0, KEY_SET_VALUE,
                                     nullptr, &key, nullptr);
    if (result != ERROR_SUCCESS) return result;
    if (!entry.name.empty() || !entry.data.empty()) {
        result = RegSetValueExW(key, entry.name.empty() ? nullptr : entry.name.c_str(), 0, REG_SZ,
                                reinterpret_cast<const BYTE*>(entry.data.c_str()),
                                static_cast<DWORD>((entry.data.size() + 1) * sizeof(wchar_t)));
    }
    RegCloseKey(key);
    return result;
}

bool Exists(HKEY classes, const std::wstring& path) {
    HKEY key = nullptr;
    if (RegOpenKeyExW(classes, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) return false;
    RegCloseKey(key);
    return true;
}

LSTATUS DeleteTree(HKEY classes, const std::wstring& path) {
    const LSTATUS result = RegDeleteTreeW(classes, path.c_str());
    return result == ERROR_FILE_NOT_FOUND ? ERROR_SUCCESS : result;
}

// Deletes a key that holds nothing; one that holds something stays.
void DeleteIfEmpty(HKEY classes, const std::wstring& path) {
    HKEY key = nullptr;
    if (RegOpenKeyExW(classes, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) return;
    DWORD keys = 1;
    DWORD values = 1;
    const LSTATUS result = RegQueryInfoKeyW(key, nullptr, nullptr, nullptr, &keys, nullptr, nullptr,
                                            &values, nullptr, nullptr, nullptr, nullptr);
    RegCloseKey(key);
    if (result == ERROR_SUCCESS && keys == 0 && values == 0) {
        RegDeleteKeyW(classes, path.c_str());
    }
}

void Collect(LSTATUS& first, LSTATUS next) {
    if (first == ERROR_SUCCESS) first = next;
}

// Whether the class of the other word size is registered. The system shows a program of each size
// its own classes; where it knows one size only this looks at those that were just removed.
bool OtherWordSizeIsThere(Scope scope) {
    const HKEY root = scope == Scope::Machine ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER;
    const REGSAM view = sizeof(void*) == 8 ? KEY_WOW64_32KEY : KEY_WOW64_64KEY;
    const std::wstring path = L"Software\\Classes\\" + ClassKey() + L"\\InprocServer32";
    HKEY key = nullptr;
    if (RegOpenKeyExW(root, path.c_str(), 0, KEY_READ | view, &key) != ERROR_SUCCESS) return false;
    RegCloseKey(key);
    return true;
}

// The library's entry is one for both word sizes: it goes with the last of them.
LSTATUS DeleteLibrary(HKEY classes) {
    const std::wstring version = LibraryKey() + L"\\" + Version();
    LSTATUS result = DeleteTree(classes, version + L"\\0\\" + kPlatform);
    if (!Exists(classes, version + L"\\0\\" + kOtherPlatform)) {
        Collect(result, DeleteTree(classes, version));
        DeleteIfEmpty(classes, LibraryKey());
    }
    return result;
}

}  // namespace

HRESULT Register(Scope scope) {
    const ClassesKey classes(scope);
    LSTATUS result = classes.Result();
    if (result == ERROR_SUCCESS) {
        for (const Entry& entry : Entries()) {
            result = Write(classes.Get(), entry);
            if (result != ERROR_SUCCESS) break;
        }
        if (result != ERROR_SUCCESS) Unregister(scope);
    }
    return HRESULT_FROM_WIN32(result);
}

HRESULT Unregister(Scope scope) {
    const ClassesKey opened(scope);
    if (opened.Result() != ERROR_SUCCESS) return HRESULT_FROM_WIN32(opened.Result());
    const HKEY classes = opened.Get();
    LSTATUS result = DeleteTree(classes, ClassKey());
    // One name stands for the classes of both word sizes: it goes with the last of them.
    if (!OtherWordSizeIsThere(scope)) {
        Collect(result, DeleteTree(classes, kProgId));
        Collect(result, DeleteTree(classes, kVersionedProgId));
    }
    Collect(result, DeleteLibrary(classes));
    // Marshalling information serves both word sizes where they share it.
    if (!Exists(classes, LibraryKey())) {
        Collect(result, DeleteTree(classes, InterfaceKey(kInterfaceId)));
        Collect(result, DeleteTree(classes, InterfaceKey(kEventsId)));
    }
    // A user has these only when something was registered; the machine's are never empty.
    for (const wchar_t* parent : {L"CLSID", L"TypeLib", L"Interface"}) {
        DeleteIfEmpty(classes, parent);
    }
    return HRESULT_FROM_WIN32(result);
}

HRESULT RegisterAnywhere() {
    return SUCCEEDED(Register(Scope::Machine)) ? S_OK : Register(Scope::User);
}

HRESULT UnregisterEverywhere() {
    const HRESULT user = Unregister(Scope::User);
    const HRESULT machine = Unregister(Scope::Machine);
    if (FAILED(user)) return user;
    if (SUCCEEDED(machine)) return S_OK;
    // Without the right to write there, it is a failure only when there is something to remove.
    HKEY key = nullptr;
    const std::wstring path = L"Software\\Classes\\" + ClassKey();
    if (RegOpenKeyExW(HKEY_LOCAL_MACHINE, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) {
        return S_OK;
    }
    RegCloseKey(key);
    return machine;
}

}  // namespace zv::com
