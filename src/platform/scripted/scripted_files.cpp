#include <algorithm>

#include "base/path.h"

#include "platform/scripted/scripted_machine.h"

namespace zv::platform::scripted {
std::filesystem::path ScriptedFiles::Resolve(std::string_view path) const {
    std::string native(path);
    if constexpr (std::filesystem::path::preferred_separator == '/') {
        std::replace(native.begin(), native.end(), '\\', '/');
    }
    return folder_ / PathOf(native);
}

bool ScriptedFiles::FileExists(const std::string& path) const {
    std::error_code failure;
    return !path.empty() && std::filesystem::is_regular_file(Resolve(path), failure);
}

std::string ScriptedFiles::ApplicationFolder() const {
    return Utf8Of(folder_);
}

}  // namespace zv::platform::scripted
