#include "module_runner_object.h"

#include <array>
#include <map>
#include <vector>

#include "automation/variant_readers.h"
#include "base/win32/com_error.h"

namespace zv::host {
namespace {

using automation::Offers;
using win32::ToWide;
using win32::Variant;

/// Empty when there is no such value. Environment variables in the text are filled in.
std::wstring ReadRegistryText(HKEY root, const std::wstring& value) {
    DWORD bytes = 0;
    if (RegGetValueW(root, kModulesKey, value.c_str(), RRF_RT_REG_SZ, nullptr, nullptr, &bytes) !=
        ERROR_SUCCESS) {
        return {};
    }
    std::wstring text(bytes / sizeof(wchar_t) + 1, L'\0');
    bytes = static_cast<DWORD>(text.size() * sizeof(wchar_t));
    if (RegGetValueW(root, kModulesKey, value.c_str(), RRF_RT_REG_SZ, nullptr, text.data(),
                     &bytes) != ERROR_SUCCESS) {
        return {};
    }
    text.resize(wcsnlen(text.c_str(), text.size()));
    return text;
}

/// One argument as the C run-time splits it again.
std::wstring Quote(const std::wstring& argument) {
    std::wstring quoted = L"\"";
    std::size_t backslashes = 0;
    for (const wchar_t c : argument) {
        if (c == L'\\') {
            ++backslashes;
            continue;
        }
        quoted.append(c == L'"' ? backslashes * 2 + 1 : backslashes, L'\\');
        backslashes = 0;
        quoted += c;
    }
    quoted.append(backslashes * 2, L'\\');
    return quoted + L'"';
}

/// This process' environment with `additions`, as CreateProcess takes it.
std::wstring EnvironmentWith(const std::map<std::wstring, std::wstring>& additions) {
    std::wstring block;
    if (wchar_t* own = GetEnvironmentStringsW()) {
        for (const wchar_t* entry = own; *entry; entry += wcslen(entry) + 1) {
            const std::wstring_view text(entry);
            // Entries that begin with "=" are the system's own and have their "=" further on.
            const std::wstring name(text.substr(0, text.find(L'=', 1)));
            if (!additions.contains(name)) block.append(text).push_back(L'\0');
        }
        FreeEnvironmentStringsW(own);
    }
    for (const auto& [name, value] : additions) {
        block.append(name).append(L"=").append(value).push_back(L'\0');
    }
    block.push_back(L'\0');
    return block;
}

}  // namespace

template <auto Field>
Variant ModuleRunnerObject::ReadText(const Arguments&) {
    return Variant(std::string_view(state_.*Field));
}

template <auto Field>
void ModuleRunnerObject::AssignText(const Arguments& arguments) {
    state_.*Field = automation::ToText(arguments.Assigned(), automation::Misfit::TypeMismatch);
}

template <auto Field>
Variant ModuleRunnerObject::ReadNumber(const Arguments&) {
    return Variant(state_.*Field);
}

template <auto Field>
void ModuleRunnerObject::AssignNumber(const Arguments& arguments) {
    state_.*Field = automation::ToNumber(arguments.Assigned(), automation::Misfit::Result);
}

std::span<const MemberEntry<ModuleRunnerObject>> ModuleRunnerObject::Members() {
    using M = ModuleRunnerObject;
    using S = State;
    static constexpr std::array<MemberEntry<M>, 11> kMembers{{
        Offers<&M::ReadNumber<&S::language>, &M::AssignNumber<&S::language>>(L"Language", 1),
        Offers<&M::ReadNumber<&S::startMode>, &M::AssignNumber<&S::startMode>>(L"StartMode", 2),
        Offers<&M::ReadText<&S::userPath>, &M::AssignText<&S::userPath>>(L"UserPath", 3),
        // The password can be set but not asked for.
        Offers<nullptr, &M::AssignText<&S::password>>(L"Password", 4),
        Offers<&M::ReadNumber<&S::sqlData>, &M::AssignNumber<&S::sqlData>>(L"SQLData", 5),
        Offers<&M::ReadText<&S::userId>, &M::AssignText<&S::userId>>(L"UserID", 6),
        Offers<&M::ReadText<&S::defaultDatabase>, &M::AssignText<&S::defaultDatabase>>(L"Default",
                                                                                       7),
        Offers<&M::ReadText<&S::userName>, &M::AssignText<&S::userName>>(L"UserName", 8),
        Offers<&M::ReadText<&S::heading>, &M::AssignText<&S::heading>>(L"Heading", 9),
        Offers<&M::ReadText<&S::moduleName>, &M::AssignText<&S::moduleName>>(L"ModuleName", 10),
        Offers<&M::Start>(L"Start", 11),
    }};
    return kMembers;
}

Variant ModuleRunnerObject::Start(const Arguments& arguments) {
    if (arguments.IsGiven(0)) state_.moduleName = arguments.Text(0);
    const std::wstring name = ToWide(state_.moduleName);
    if (name.empty()) {
        throw RuntimeError(ErrorNumber::InvalidProcedureCall, "No module is named.");
    }
    std::wstring program = ReadRegistryText(HKEY_CURRENT_USER, name);
    if (program.empty()) program = ReadRegistryText(HKEY_LOCAL_MACHINE, name);
    if (program.empty()) {
        throw RuntimeError(ErrorNumber::FileNotFound, "The module \"" + state_.moduleName +
                                                          "\" is not installed on this computer.");
    }
    std::wstring commandLine = Quote(program) + L" " + Quote(L"/module:" + name) + L" " +
                               Quote(L"/heading:" + ToWide(state_.heading)) + L" /language:" +
                               std::to_wstring(state_.language) + L" /startmode:" +
                               std::to_wstring(state_.startMode);
    // Other programs can read a command line; what opens the database travels apart from it.
    std::wstring environment = EnvironmentWith({
        {L"ZV_USERNAME", ToWide(state_.userName)},
        {L"ZV_USERPATH", ToWide(state_.userPath)},
        {L"ZV_PASSWORD", ToWide(state_.password)},
        {L"ZV_SQLDATA", std::to_wstring(state_.sqlData)},
        {L"ZV_USERID", ToWide(state_.userId)},
        {L"ZV_DEFAULT", ToWide(state_.defaultDatabase)},
    });
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process{};
    if (!CreateProcessW(program.c_str(), commandLine.data(), nullptr, nullptr, FALSE,
                        CREATE_UNICODE_ENVIRONMENT, environment.data(), nullptr, &startup,
                        &process)) {
        const DWORD error = GetLastError();
        throw RuntimeError(
            ErrorNumber::FileNotFound,
            "The module \"" + state_.moduleName + "\" (" + win32::ToUtf8(program) +
                ") cannot be started: " + win32::SystemMessage(HRESULT_FROM_WIN32(error)));
    }
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return {};
}

}  // namespace zv::host
