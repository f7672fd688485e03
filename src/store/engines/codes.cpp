#include "store/engines/codes.h"

#include <array>
#include <string>

#include "base/text.h"
#include "store/engines/parts.h"

namespace zv::store::engines {

std::span<const Codes* const> AllCodes() {
#define ZV_ENGINE(folder) &folder::TheCodes(),
    static const auto codes = std::to_array<const Codes*>({
#include "engine_list.h"
    });
#undef ZV_ENGINE
    return codes;
}

std::string_view SchemeOf(std::string_view address) {
    const std::string lower = text::ToLower(address);
    for (const Codes* codes : AllCodes()) {
        if (!codes->scheme.empty() && lower.starts_with(codes->scheme)) return codes->scheme;
    }
    return {};
}

}  // namespace zv::store::engines
