// The modules of the host suite as the database registers them.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "store/database.h"

namespace zv::suite {

struct Module {
    std::int16_t serialNo = 0;  ///< its place among the rights of a user
    std::string key;
    std::string caption;  ///< in the language that was asked for
    std::string password;
};

/// The module of a name or of a caption in a language; nothing when there is none. Throws error 13
/// for a row whose unused number is none; errors of the database reach the caller.
std::optional<Module> FindModule(store::Database& database, const std::string& name,
                                 std::int16_t language);

}  // namespace zv::suite
