#include "com/registration.h"

#include <string>

#include "automation/module.h"
#include "automation/registration.h"
#include "com/ids.h"
#include "com/resource_ids.h"

namespace zv::com {

using automation::Braced;
using automation::ClassKey;
using automation::Registration;
using automation::RegistryRemoval;

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

std::wstring Version() {
    return std::to_wstring(kMajorVersion) + L"." + std::to_wstring(kMinorVersion);
}

std::wstring LibraryKey() {
    return L"TypeLib\\" + Braced(kLibraryId);
}

std::wstring InterfaceKey(REFGUID id) {
    return L"Interface\\" + Braced(id);
}

void AddControl(Registration& registration, const std::wstring& path) {
    automation::AddClass(registration, {kClassId, kVersionedProgId, kFriendlyName}, path);
    auto& entries = registration.entries;
    entries.push_back({kProgId, L"", kFriendlyName});
    entries.push_back({std::wstring(kProgId) + L"\\CLSID", L"", Braced(kClassId)});
    entries.push_back({std::wstring(kProgId) + L"\\CurVer", L"", kVersionedProgId});
    const std::wstring key = ClassKey(kClassId);
    entries.push_back({key + L"\\VersionIndependentProgID", L"", kProgId});
    entries.push_back({key + L"\\TypeLib", L"", Braced(kLibraryId)});
    entries.push_back({key + L"\\Version", L"", Version()});
    entries.push_back({key + L"\\Control", L"", {}});
    entries.push_back({key + L"\\Programmable", L"", {}});
    entries.push_back({key + L"\\MiscStatus", L"", L"0"});
    entries.push_back({key + L"\\MiscStatus\\1", L"", std::to_wstring(kMiscStatus)});
    entries.push_back(
        {key + L"\\ToolboxBitmap32", L"", path + L", " + std::to_wstring(ZV_TOOLBOX_BITMAP)});
    entries.push_back({key + L"\\DefaultIcon", L"", path + L",0"});
    for (const wchar_t* category : kCategories) {
        entries.push_back({key + L"\\Implemented Categories\\" + category, L"", {}});
    }
}

void AddLibrary(Registration& registration, const std::wstring& path) {
    const std::wstring key = LibraryKey() + L"\\" + Version();
    auto& entries = registration.entries;
    entries.push_back({key, L"", kFriendlyName});
    entries.push_back({key + L"\\0\\" + kPlatform, L"", path});
    entries.push_back({key + L"\\FLAGS", L"", L"2"});  // a library of controls
    entries.push_back({key + L"\\HELPDIR", L"", path.substr(0, path.find_last_of(L'\\'))});
}

void AddInterface(Registration& registration, REFGUID id, const wchar_t* name,
                  const wchar_t* marshaller) {
    const std::wstring key = InterfaceKey(id);
    auto& entries = registration.entries;
    entries.push_back({key, L"", name});
    entries.push_back({key + L"\\ProxyStubClsid32", L"", marshaller});
    entries.push_back({key + L"\\TypeLib", L"", Braced(kLibraryId)});
    entries.push_back({key + L"\\TypeLib", L"Version", Version()});
}

void AddRemovals(Registration& registration) {
    using enum RegistryRemoval::Kind;
    using enum RegistryRemoval::Width;
    auto& removals = registration.removals;
    const std::wstring key = ClassKey(kClassId);
    const std::wstring version = LibraryKey() + L"\\" + Version();
    removals.push_back({.key = key});
    // One name stands for the classes of both widths: it goes with the last of them.
    for (const wchar_t* name : {kProgId, kVersionedProgId}) {
        removals.push_back({.key = name, .unless = key + L"\\InprocServer32", .unlessIn = Other});
    }
    // So does the library's entry, which is one for both.
    removals.push_back({.key = version + L"\\0\\" + kPlatform});
    removals.push_back({.key = version, .unless = version + L"\\0\\" + kOtherPlatform});
    removals.push_back({.key = LibraryKey(), .kind = IfEmpty});
    // Marshalling information serves both widths where they share it.
    for (const GUID& id : {kInterfaceId, kSecondInterfaceId, kEventsId}) {
        removals.push_back({.key = InterfaceKey(id), .unless = LibraryKey()});
    }
    // A user has these only when something was registered; the machine's are never empty.
    for (const wchar_t* parent : {L"CLSID", L"TypeLib", L"Interface"}) {
        removals.push_back({.key = parent, .kind = IfEmpty});
    }
}

}  // namespace

Registration ControlRegistration() {
    const std::wstring path = automation::module::Path();
    Registration registration;
    AddControl(registration, path);
    AddLibrary(registration, path);
    AddInterface(registration, kInterfaceId, L"_zvTask", kAutomationMarshaller);
    AddInterface(registration, kSecondInterfaceId, L"_zvTask2", kAutomationMarshaller);
    AddInterface(registration, kEventsId, L"__zvTask", kDispatchMarshaller);
    AddRemovals(registration);
    return registration;
}

}  // namespace zv::com
