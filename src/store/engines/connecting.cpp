#include "store/engines/connecting.h"

namespace zv::store::engines {
namespace {

bool IsPort(std::string_view text) {
    return !text.empty() && text.size() <= 5 &&
           text.find_first_not_of("0123456789") == std::string_view::npos;
}

}  // namespace

std::pair<std::string_view, std::string_view> HostAndPort(std::string_view text) {
    if (text.starts_with('[')) {
        const std::size_t end = text.find(']');
        if (end == std::string_view::npos) return {text, {}};
        const std::string_view behind = text.substr(end + 1);
        const bool port = behind.starts_with(':') && IsPort(behind.substr(1));
        return {text.substr(1, end - 1), port ? behind.substr(1) : std::string_view()};
    }
    const std::size_t colon = text.find_first_of(":,");
    if (colon == std::string_view::npos || !IsPort(text.substr(colon + 1))) return {text, {}};
    return {text.substr(0, colon), text.substr(colon + 1)};
}

ConnectionEntries Connecting::EntriesFor(std::string_view address, std::string_view driver) const {
    ConnectionEntries entries;
    entries.Add("Driver", driver);
    entries.Add("Server", address);
    return entries;
}

}  // namespace zv::store::engines
