// Entries of the classes in the registry.
#pragma once

#include <windows.h>

#include <span>
#include <string>

namespace zv::host {

struct ClassRegistration {
    CLSID classId;
    const wchar_t* progId;
    const wchar_t* description;
};

/// For the machine, or for the user alone when the rights do not reach further. On failure
/// nothing of it is left.
HRESULT RegisterClasses(std::span<const ClassRegistration> classes, const std::wstring& module);
/// Removes what either kind of registration has written; what is not there is no failure.
HRESULT UnregisterClasses(std::span<const ClassRegistration> classes);

}  // namespace zv::host
