// The settings of a workstation in a file that anybody may have written.
#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "resources/file_settings.h"

namespace zv::fuzz {

using SettingsMaker =
    std::function<std::unique_ptr<resources::SettingsStore>(const std::filesystem::path&)>;

/// The first piece of the input is the file, the others are keys and texts that are saved in turn:
/// each text is found afterwards, and everything else is as it was.
void PlaySettings(
    std::string_view input, const SettingsMaker& make = [](const std::filesystem::path& file) {
        return std::make_unique<resources::FileSettings>(file);
    });
std::vector<std::string> SettingsSeeds();

}  // namespace zv::fuzz
