#include <algorithm>

#include "platform/scripted/scripted_machine.h"

namespace zv::platform::scripted {
namespace {

std::filesystem::path FromUtf8(std::string_view text) {
    return std::filesystem::path(std::u8string(text.begin(), text.end()));
}

}  // namespace

std::filesystem::path ScriptedFiles::Resolve(std::string_view path) const {
    std::string native(path);
    if constexpr (std::filesystem::path::preferred_separator == '/') {
        std::replace(native.begin(), native.end(), '\\', '/');
    }
    return folder_ / FromUtf8(native);
}

bool ScriptedFiles::FileExists(const std::string& path) const {
    std::error_code failure;
    return !path.empty() && std::filesystem::is_regular_file(Resolve(path), failure);
}

std::string ScriptedFiles::ApplicationFolder() const {
    const std::u8string text = folder_.u8string();
    return std::string(text.begin(), text.end());
}

}  // namespace zv::platform::scripted
