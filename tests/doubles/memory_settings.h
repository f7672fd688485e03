// Workstation settings of the system that live as long as the object.
#pragma once

#include <map>
#include <stdexcept>
#include <string>
#include <string_view>

#include "base/text.h"
#include "resources/settings.h"

namespace zv::doubles {

class MemorySettings : public resources::SettingsStore {
 public:
    std::string Get(std::string_view application, std::string_view section, std::string_view key,
                    std::string_view fallback) const override {
        if (!IsOurs(application)) return std::string(fallback);
        const auto found = values.find(Place(section, key));
        return found == values.end() ? std::string(fallback) : found->second;
    }
    /// Throws std::logic_error for another application's settings.
    void Save(std::string_view application, std::string_view section, std::string_view key,
              std::string_view text) override {
        if (!IsOurs(application)) throw std::logic_error("foreign application");
        values[Place(section, key)] = text;
    }

 private:
    struct IgnoringCase {
        bool operator()(const std::string& one, const std::string& other) const {
            return text::ToLower(one) < text::ToLower(other);
        }
    };
    static bool IsOurs(std::string_view application) {
        return text::EqualsIgnoreCase(application, resources::kApplication);
    }
    static std::string Place(std::string_view section, std::string_view key) {
        return std::string(section) + '.' + std::string(key);
    }

 public:
    /// "section.key" to text, without regard to case.
    std::map<std::string, std::string, IgnoringCase> values;
};

}  // namespace zv::doubles
