#include "demo/command_line.h"

namespace zv::demo {

std::optional<StartOptions> ReadOptions(const std::vector<std::wstring>& arguments) {
    StartOptions options;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::wstring& option = arguments[i];
        if (option == L"--alert") {
            options.alert = true;
            continue;
        }
        if (++i == arguments.size()) return std::nullopt;
        const std::wstring& value = arguments[i];
        if (option == L"--data") {
            options.data = value;
        } else if (option == L"--user") {
            options.user = value;
        } else if (option == L"--language" && (value == L"0" || value == L"1")) {
            options.language = value == L"1" ? 1 : 0;
        } else {
            return std::nullopt;
        }
    }
    return options;
}

}  // namespace zv::demo
