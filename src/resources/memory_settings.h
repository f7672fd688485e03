// Workstation settings that live as long as the object: for tests.
#pragma once

#include <map>
#include <string>
#include <string_view>

#include "base/text.h"
#include "resources/settings.h"

namespace zv::resources {

class MemorySettings : public SettingsStore {
 public:
    std::string Get(std::string_view application, std::string_view section, std::string_view key,
                    std::string_view fallback) const override {
        const auto at = texts_.find(Place(application, section, key));
        return at == texts_.end() ? std::string(fallback) : at->second;
    }
    void Save(std::string_view application, std::string_view section, std::string_view key,
              std::string_view text) override {
        texts_[Place(application, section, key)] = std::string(text);
    }

 private:
    static std::string Place(std::string_view application, std::string_view section,
                             std::string_view key) {
        return text::ToLower(std::string(application) + '\n' + std::string(section) + '\n' +
                             std::string(key));
    }

    std::map<std::string, std::string> texts_;
};

}  // namespace zv::resources
