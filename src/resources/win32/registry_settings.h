// Workstation settings in the per-user registry, where hosts of the suite look for them too.
#pragma once

#include <string>
#include <string_view>

#include "resources/settings.h"

namespace zv::resources::win32 {

class RegistrySettings final : public SettingsStore {
 public:
    static constexpr std::wstring_view kRoot = L"Software\\VB and VBA Program Settings";

    /// `root` is the key below HKEY_CURRENT_USER that holds the applications.
    explicit RegistrySettings(std::wstring_view root = kRoot) : root_(root) {}

    /// A number reads as its decimal text, bytes as hexadecimal pairs, several lines joined by line
    /// feeds. A value that cannot be read counts as absent.
    std::string Get(std::string_view application, std::string_view section, std::string_view key,
                    std::string_view fallback) const override;
    /// Throws error 75 when the value cannot be written.
    void Save(std::string_view application, std::string_view section, std::string_view key,
              std::string_view text) override;

 private:
    std::wstring KeyPath(std::string_view application, std::string_view section) const;

    std::wstring root_;
};

}  // namespace zv::resources::win32
