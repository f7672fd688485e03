// Statements in the system's dialect, translated for the engines and prepared on the real tables.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "store/dialect/translator.h"
#include "store/sqlite/session.h"

namespace zv::fuzz {

/// What is under test; a double may stand in for any of it.
struct StatementProduct {
    std::function<store::dialect::Translation(store::sqlite::Session&, const std::string&)>
        translate = [](store::sqlite::Session& session, const std::string& sql) {
            return *session.Translated(sql);
        };
    /// As servers are sent it.
    std::function<void(std::string_view)> requireOne;
};

/// What is refused names its place. What is accepted is a statement for the embedded engine, one
/// and no more, that changes nothing if it is said to be a select, and whose rows are found again
/// by their keys; for the other engine that statements are translated for it is made of whole words
/// and closes what it opens. What servers are sent as it is, is one statement and is taken for what
/// it is.
void PlayStatement(std::string_view input, const StatementProduct& product = {});
std::vector<std::string> StatementSeeds();

}  // namespace zv::fuzz
