#include "automation/registration.h"

#include <objbase.h>

#include <algorithm>
#include <string_view>

namespace zv::automation {

namespace {

const std::wstring kClasses = L"Software\\Classes";

HKEY RootOf(Scope scope) {
    return scope == Scope::Machine ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER;
}

// Software\Classes of a scope.
class ClassesKey {
 public:
    enum class Missing { Created, Reported };

    ClassesKey(Scope scope, Missing missing) {
        constexpr REGSAM kAccess = KEY_READ | KEY_WRITE | DELETE;
        result_ = missing == Missing::Created
                      ? RegCreateKeyExW(RootOf(scope), kClasses.c_str(), 0, nullptr, 0, kAccess,
                                        nullptr, &key_, nullptr)
                      : RegOpenKeyExW(RootOf(scope), kClasses.c_str(), 0, kAccess, &key_);
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

LSTATUS Write(HKEY classes, const RegistryEntry& entry) {
    HKEY key = nullptr;
    LSTATUS result = RegCreateKeyExW(classes, entry.key.c_str(), 0, nullptr, 0, KEY_SET_VALUE,
                                     nullptr, &key, nullptr);
    if (result != ERROR_SUCCESS) return result;
    if (entry.data) {
        result = RegSetValueExW(key, entry.name.empty() ? nullptr : entry.name.c_str(), 0, REG_SZ,
                                reinterpret_cast<const BYTE*>(entry.data->c_str()),
                                static_cast<DWORD>((entry.data->size() + 1) * sizeof(wchar_t)));
    }
    RegCloseKey(key);
    return result;
}

bool Exists(HKEY parent, const std::wstring& path, REGSAM view = 0) {
    HKEY key = nullptr;
    if (RegOpenKeyExW(parent, path.c_str(), 0, KEY_READ | view, &key) != ERROR_SUCCESS) {
        return false;
    }
    RegCloseKey(key);
    return true;
}

LSTATUS DeleteTree(HKEY classes, const std::wstring& path) {
    const LSTATUS result = RegDeleteTreeW(classes, path.c_str());
    return result == ERROR_FILE_NOT_FOUND ? ERROR_SUCCESS : result;
}

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

// The system shows a program of each width its own classes; where it knows one width only this
// looks at those of the program itself.
bool Stays(const RegistryRemoval& removal, HKEY classes, Scope scope) {
    if (removal.unless.empty()) return false;
    if (removal.unlessIn == RegistryRemoval::Width::Own) return Exists(classes, removal.unless);
    const REGSAM view = sizeof(void*) == 8 ? KEY_WOW64_32KEY : KEY_WOW64_64KEY;
    return Exists(RootOf(scope), kClasses + L"\\" + removal.unless, view);
}

}  // namespace

std::wstring Braced(REFGUID id) {
    wchar_t text[40];
    StringFromGUID2(id, text, ARRAYSIZE(text));
    return text;
}

std::wstring ClassKey(REFCLSID classId) {
    return L"CLSID\\" + Braced(classId);
}

void AddClass(Registration& registration, const RegisteredClass& entry, const std::wstring& path) {
    const std::wstring key = ClassKey(entry.classId);
    const std::wstring progId = entry.progId;
    registration.classKeys.push_back(key);
    auto& entries = registration.entries;
    entries.push_back({key, L"", entry.description});
    entries.push_back({key + L"\\InprocServer32", L"", path});
    entries.push_back({key + L"\\InprocServer32", L"ThreadingModel", L"Apartment"});
    entries.push_back({key + L"\\ProgID", L"", progId});
    entries.push_back({progId, L"", entry.description});
    entries.push_back({progId + L"\\CLSID", L"", Braced(entry.classId)});
}

HRESULT Register(const Registration& registration, Scope scope) {
    const ClassesKey classes(scope, ClassesKey::Missing::Created);
    LSTATUS result = classes.Result();
    if (result == ERROR_SUCCESS) {
        for (const RegistryEntry& entry : registration.entries) {
            result = Write(classes.Get(), entry);
            if (result != ERROR_SUCCESS) break;
        }
        if (result != ERROR_SUCCESS) Unregister(registration, scope);
    }
    return HRESULT_FROM_WIN32(static_cast<unsigned long>(result));
}

HRESULT Unregister(const Registration& registration, Scope scope) {
    const ClassesKey opened(scope, ClassesKey::Missing::Reported);
    LSTATUS first = opened.Result();
    if (first == ERROR_FILE_NOT_FOUND) return S_OK;
    if (first != ERROR_SUCCESS) return HRESULT_FROM_WIN32(static_cast<unsigned long>(first));
    for (const RegistryRemoval& removal : registration.removals) {
        if (Stays(removal, opened.Get(), scope)) continue;
        if (removal.kind == RegistryRemoval::Kind::IfEmpty) {
            DeleteIfEmpty(opened.Get(), removal.key);
            continue;
        }
        const LSTATUS result = DeleteTree(opened.Get(), removal.key);
        if (first == ERROR_SUCCESS) first = result;
    }
    return HRESULT_FROM_WIN32(static_cast<unsigned long>(first));
}

HRESULT RegisterAnywhere(const Registration& registration) {
    if (SUCCEEDED(Register(registration, Scope::Machine))) return S_OK;
    return Register(registration, Scope::User);
}

HRESULT UnregisterEverywhere(const Registration& registration) {
    const HRESULT user = Unregister(registration, Scope::User);
    const HRESULT machine = Unregister(registration, Scope::Machine);
    if (FAILED(user)) return user;
    if (SUCCEEDED(machine)) return S_OK;
    // Without the right to write there, it is a failure only when there is something to remove.
    const bool isLeft = std::any_of(
        registration.classKeys.begin(), registration.classKeys.end(),
        [](const auto& key) { return Exists(HKEY_LOCAL_MACHINE, kClasses + L"\\" + key); });
    return isLeft ? machine : S_OK;
}

HRESULT Install(const Registration& registration, bool install, const wchar_t* commandLine) {
    const std::wstring_view words = commandLine ? commandLine : L"";
    if (words.empty()) {
        return install ? RegisterAnywhere(registration) : UnregisterEverywhere(registration);
    }
    if (words != L"user" && words != L"machine") return E_INVALIDARG;
    const Scope scope = words == L"user" ? Scope::User : Scope::Machine;
    return install ? Register(registration, scope) : Unregister(registration, scope);
}

}  // namespace zv::automation
