#include "demo/command_line.h"

#include "resources/texts.h"

namespace zv::demo {
namespace {

std::optional<int> LanguageOf(const std::wstring& number) {
    for (int language = 0; language < resources::LanguageCount(); language++) {
        if (number == std::to_wstring(language)) return language;
    }
    return std::nullopt;
}

}  // namespace

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
        } else if (option == L"--language") {
            const auto language = LanguageOf(value);
            if (!language) return std::nullopt;
            options.language = *language;
        } else {
            return std::nullopt;
        }
    }
    return options;
}

}  // namespace zv::demo
