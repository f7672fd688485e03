// Workstation settings in a text file, for systems without a registry:
//
//     [application\section]
//     key=text
//
// UTF-8. In names and texts "\\" stands for a backslash, "\n" and "\r" for line breaks, in names
// "\e" for an equals sign and "\b" for an opening bracket.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "resources/settings.h"

namespace zv::resources {

/// Reads the file anew at each look, so that what another process saved is seen, and replaces it
/// as a whole, so that no reader ever sees half of it. A missing file holds no settings. Throws
/// error 75 when the file cannot be read or written.
class FileSettings : public SettingsStore {
 public:
    explicit FileSettings(std::filesystem::path file) : file_(std::move(file)) {}

    std::string Get(std::string_view application, std::string_view section, std::string_view key,
                    std::string_view fallback) const override;
    void Save(std::string_view application, std::string_view section, std::string_view key,
              std::string_view text) override;

 private:
    std::filesystem::path file_;
};

}  // namespace zv::resources
