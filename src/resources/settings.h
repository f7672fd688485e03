// Workstation settings: texts by application, section and key, compared without regard to case.
#pragma once

#include <string>
#include <string_view>

namespace zv::resources {

inline constexpr std::string_view kApplication = "Tarnell";
inline constexpr std::string_view kTaskSection = "zvTask";
inline constexpr std::string_view kSuiteSection = "zv2000";

class SettingsStore {
 public:
    virtual ~SettingsStore() = default;
    /// The stored text, or `fallback` when there is none.
    virtual std::string Get(std::string_view application, std::string_view section,
                            std::string_view key, std::string_view fallback) const = 0;
    virtual void Save(std::string_view application, std::string_view section, std::string_view key,
                      std::string_view text) = 0;
};

}  // namespace zv::resources
