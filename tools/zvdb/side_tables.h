// What a database may have beside the tables of the system: the parts of it, and which of them a
// database has.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "zvdb/inspected.h"

namespace zv::zvdb {

/// Says by its row "version" which side tables are there. Made with them and never copied.
inline constexpr char kMetaTable[] = "zvMeta";

/// What one statement of a script makes.
struct SidePart {
    enum class Kind : std::uint8_t { Table, Index, Version };
    Kind kind = Kind::Table;
    std::string name;    ///< of the table or index
    std::string making;  ///< of an index: as Inspected::IndexMaking; of the version: its number
    std::string statement;
    /// For messages: "table zvMeta".
    std::string Called() const;
};

/// The parts that an engine's script makes, in its order.
std::vector<SidePart> SideParts(std::string_view script);

struct SideTablesFound {
    std::vector<SidePart> missing;
    bool any = false;                 ///< at least one part is there
    std::vector<std::string> faults;  ///< of parts that are there, a sentence each
};

SideTablesFound FindSideTables(Inspected& database);
/// What an upgrade has to make; throws FileError when something is there that is not as it should
/// be.
std::vector<SidePart> MissingSideTables(Inspected& database);

}  // namespace zv::zvdb
