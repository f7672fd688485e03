// What a file of components writes to the registry, for the whole machine or for one user.
#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <vector>

namespace zv::automation {

enum class Scope { Machine, User };

/// Keys lie below the scope's Software\Classes.
struct RegistryEntry {
    std::wstring key;
    std::wstring name;                 ///< empty: the key's own value
    std::optional<std::wstring> data;  ///< nothing: the key alone
};

struct RegistryRemoval {
    enum class Kind {
        Tree,     ///< with all that it holds
        IfEmpty,  ///< a key that holds something stays
    };
    enum class Width { Own, Other };

    std::wstring key;
    Kind kind = Kind::Tree;
    std::wstring unless{};        ///< stays as long as this key is there; empty: goes
    Width unlessIn = Width::Own;  ///< whose view of the registry `unless` is looked up in
};

struct Registration {
    std::vector<RegistryEntry> entries;     ///< written in this order
    std::vector<RegistryRemoval> removals;  ///< done in this order
    std::vector<std::wstring> classKeys;    ///< of the classes that are offered
};

/// "{...}".
std::wstring Braced(REFGUID id);
std::wstring ClassKey(REFCLSID classId);

struct RegisteredClass {
    CLSID classId;
    const wchar_t* progId;  ///< the one that the class itself names
    const wchar_t* description;
};
/// What every class has: its file and its name. Removals stay the caller's.
void AddClass(Registration& registration, const RegisteredClass& entry, const std::wstring& path);

/// Writes everything; after a failure nothing of it is left.
HRESULT Register(const Registration& registration, Scope scope);
/// Removes what Register writes, and nothing else; succeeds where there is nothing.
HRESULT Unregister(const Registration& registration, Scope scope);

/// For the machine, or without the right to do that for the user.
HRESULT RegisterAnywhere(const Registration& registration);
/// Both scopes; fails when classes of the machine are left because the user may not remove them.
HRESULT UnregisterEverywhere(const Registration& registration);

/// What DllInstall does: in one scope where the command line names it ("user", "machine"), as
/// DllRegisterServer and DllUnregisterServer do where it is empty. E_INVALIDARG for other words.
HRESULT Install(const Registration& registration, bool install, const wchar_t* commandLine);

}  // namespace zv::automation
