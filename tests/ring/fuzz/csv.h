// Tables as comma-separated text, read back by a reader of RFC 4180 that knows nothing of ours.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace zv::fuzz {

using Rows = std::vector<std::vector<std::string>>;

/// As the product writes it.
std::string WriteCsv(const Rows& rows);
/// Throws Finding where the text is not as RFC 4180 and the byte order mark have it.
Rows ReadCsv(std::string_view text);

/// Rows come back as they were, but for an apostrophe in front of what a spreadsheet program would
/// compute.
void PlayCsv(std::string_view input,
             const std::function<std::string(const Rows&)>& write = WriteCsv);
std::vector<std::string> CsvSeeds();

}  // namespace zv::fuzz
