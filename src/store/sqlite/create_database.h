// New files of the embedded engine.
#pragma once

#include <cstdint>
#include <string>

namespace zv::store {

/// Marks a file of the embedded engine as one of ours (the header field "application id").
inline constexpr std::int32_t kApplicationId = 0x7A764442;

/// Makes a new database file with empty tables (UTF-8 path), in write-ahead mode, or in roll-back
/// mode on a network share. Throws RuntimeError: error 58 when something of that name exists, or a
/// log or journal that would be taken for its own; DatabaseFailure with reason and path when the
/// file cannot be written; leaves no half-made file behind.
void CreateSqliteDatabase(const std::string& path);

/// The same in a file that is there and empty, which keeps its rights. Whatever fails, the file
/// stays.
void MakeSqliteTables(const std::string& path);

}  // namespace zv::store
