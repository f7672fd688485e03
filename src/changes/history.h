// Who did what to which row, in the table zvHistory.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "base/date_time.h"
#include "changes/row_change.h"
#include "store/database.h"

namespace zv::changes {

/// fAct.
enum class Act : std::uint8_t {
    Add = 1,
    Change = 2,
    Delete = 3,
    Mark = 4,
    Generate = 5,
    TakeBack = 6,
    Restore = 7,
};
inline constexpr Act kLastAct = Act::Restore;

/// One row of the table. A row that was added or deleted is a record without a field, and the other
/// side of it empty (RowText); a change is one record for each field.
struct Record {
    DateTime when{};
    std::string who{};
    std::int32_t act = 0;  ///< an Act, or a number that somebody else has stored
    std::string table{};
    std::int32_t row = 0;
    std::string field{};
    std::string before{};
    std::string after{};
};

/// Where the database has no such table every call but IsKept throws RuntimeError of the kind
/// NoTable. Other database errors reach the caller.
class History {
 public:
    static constexpr std::string_view kTable = "zvHistory";

    /// `database` must outlive this.
    explicit History(store::Database& database) : database_(database) {}

    /// Whether the database has the table. Opens the connection.
    bool IsKept();
    void Write(DateTime when, std::string_view who, Act act, const std::vector<RowChange>& changes);
    /// What became of a row, the oldest first.
    std::vector<Record> Of(const Table& table, std::int32_t row);
    /// Rows that were deleted, the latest first.
    std::vector<Record> Deletions(std::size_t most);
    /// Deletes what was written before this day.
    void ForgetBefore(DateTime day);

 private:
    store::Database& database_;
};

}  // namespace zv::changes
