// Takes back what acts did, while nobody else has changed the rows.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "changes/row_change.h"
#include "store/database.h"

namespace zv::changes {

/// A row that is not as the act left it.
struct Obstacle {
    enum class Kind {
        Changed,  ///< somebody stored something else since
        Gone,     ///< somebody deleted it
        Taken,    ///< another row has its number
    };
    Kind kind = Kind::Changed;
    RowChange change;
    std::vector<std::size_t> fields{};  ///< of a row that was changed: those that differ
};

/// What stands against taking these changes back; nothing: they can be. A row that is as it was
/// before the act is none. Opens the connection. Database errors reach the caller.
std::vector<Obstacle> ObstaclesTo(store::Database& database, const std::vector<RowChange>& changes);

struct TakenBack {
    /// A row that came back under another number.
    struct Renumbered {
        RowChange change;         ///< that was taken back, with its former number
        std::int32_t number = 0;  ///< 0 when the database does not give it
    };
    std::vector<RowChange> rows;  ///< what was done to them
    std::vector<Renumbered> renumbered;
};

/// Takes them back, the last one first, and adds what it did to `done`, row by row: after an error,
/// which reaches the caller, it holds what was taken back before. A row that was deleted comes back
/// under its own number where the engine takes it, else under another one. A row that somebody
/// changed since ObstaclesTo was asked is left alone.
void TakeBack(store::Database& database, const std::vector<RowChange>& changes, TakenBack& done);

}  // namespace zv::changes
