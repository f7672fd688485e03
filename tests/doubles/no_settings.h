// A workstation on which nothing was ever set and nothing is kept.
#pragma once

#include <string>
#include <string_view>

#include "resources/settings.h"

namespace zv::doubles {

class NoSettings : public resources::SettingsStore {
 public:
    std::string Get(std::string_view, std::string_view, std::string_view,
                    std::string_view fallback) const override {
        return std::string(fallback);
    }
    void Save(std::string_view, std::string_view, std::string_view, std::string_view) override {}
};

}  // namespace zv::doubles
