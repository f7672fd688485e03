#include "store/secrets.h"

#include <string_view>

#include "base/text.h"

namespace zv::store {
namespace {

constexpr std::string_view kHidden = "***";

void HideWords(std::string& text, const std::string& secret) {
    // A secret of one or two characters would be found inside other words.
    constexpr std::size_t kUnmistakable = 4;
    for (std::size_t at = text.find(secret); at != std::string::npos;) {
        const std::size_t end = at + secret.size();
        const bool whole = (at == 0 || !text::IsWordCharacter(text[at - 1])) &&
                           (end == text.size() || !text::IsWordCharacter(text[end]));
        if (whole || secret.size() >= kUnmistakable) {
            text.replace(at, secret.size(), kHidden);
            at = text.find(secret, at + kHidden.size());
        } else {
            at = text.find(secret, end);
        }
    }
}

}  // namespace

std::string WithoutSecrets(std::string text, const std::vector<std::string>& secrets) {
    for (const std::string_view name : {"pwd=", "password=", "uid=", "user=", "user id="}) {
        for (std::size_t from = 0;;) {
            const std::size_t at = text::ToLower(text).find(name, from);
            if (at == std::string::npos) break;
            const std::size_t start = at + name.size();
            std::size_t end =
                text.find_first_of(start < text.size() && text[start] == '{' ? "}" : "; \n", start);
            if (end == std::string::npos) end = text.size();
            text.replace(start, end - start, kHidden);
            from = start + kHidden.size();
        }
    }
    for (const std::string& secret : secrets) {
        if (!secret.empty()) HideWords(text, secret);
    }
    return text;
}

}  // namespace zv::store
