// The module runner: starts another program of the suite with what the control passes to it.
#pragma once

#include <span>
#include <string>

#include "automation/dispatch.h"
#include "store/connection_opener.h"

namespace zv::host {

using automation::Arguments;
using automation::DispatchObject;
using automation::MemberEntry;

/// Where a module's program is registered: a value named like the module holds its path. The
/// user's own entry comes before the machine's.
inline constexpr wchar_t kModulesKey[] = L"Software\\Tarnell\\Modules";

class ModuleRunnerObject final : public DispatchObject<ModuleRunnerObject> {
 public:
    // {89CEF98E-E3AE-4F6F-BC0D-C256C0F60B3D}
    static constexpr IID kInterfaceId = {
        0x89CEF98E, 0xE3AE, 0x4F6F, {0xBC, 0x0D, 0xC2, 0x56, 0xC0, 0xF6, 0x0B, 0x3D}};
    static constexpr std::string_view kSourceName = "zv_Host.ModuleRunner";
    static std::span<const MemberEntry<ModuleRunnerObject>> Members();

 private:
    ~ModuleRunnerObject() override = default;

    template <auto Field>
    win32::Variant ReadText(const Arguments& arguments);
    template <auto Field>
    void AssignText(const Arguments& arguments);
    template <auto Field>
    win32::Variant ReadNumber(const Arguments& arguments);
    template <auto Field>
    void AssignNumber(const Arguments& arguments);
    /// Start([moduleName]): error 53 when no program is registered for the module or it is gone.
    win32::Variant Start(const Arguments& arguments);

    struct State {
        std::string moduleName, heading, userName, userPath, password, userId, defaultDatabase;
        std::int32_t language = 0, startMode = 9, sqlData = 0;
    } state_;
};

}  // namespace zv::host
