// Texts that open a database: read, written and read again, and what of them is shown.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "store/connection_entries.h"
#include "store/connection_opener.h"

namespace zv::fuzz {

/// What is under test; a double may stand in for any of it.
struct ConnectionProduct {
    std::function<std::string(const store::ConnectionEntries&)> write =
        [](const store::ConnectionEntries& entries) { return entries.Text(); };
    std::function<std::string(const store::ConnectionText&)> show =
        [](const store::ConnectionText& text) { return text.ForMessage(); };
    std::function<std::string(const store::ConnectionSettings&, const std::string&)> hide =
        [](const store::ConnectionSettings& settings, const std::string& text) {
            return settings.WithoutSecrets(text);
        };
};

/// Entries that are written are read back as they were. A password that is put behind the input, in
/// front of it as a login, or into it, is in no text that is shown.
void PlayConnectionText(std::string_view input, const ConnectionProduct& product = {});
std::vector<std::string> ConnectionSeeds();

}  // namespace zv::fuzz
