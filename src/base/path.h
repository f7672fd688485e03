// Names of files. Texts are UTF-8 everywhere inside the system, whatever the platform's names are.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace zv {

inline std::filesystem::path PathOf(std::string_view utf8) {
    return std::filesystem::path(std::u8string(utf8.begin(), utf8.end()));
}

inline std::string Utf8Of(const std::filesystem::path& path) {
    const std::u8string text = path.u8string();
    return std::string(text.begin(), text.end());
}

}  // namespace zv
