// Memos: their bytes lie in the row, in another page or in a chain of pieces.
#pragma once

#include <cstdint>
#include <vector>

#include "zvdb/access/mdb_file.h"

namespace zv::zvdb::access {

/// All bytes of the long value whose field in the row is `field`. Throws Damage when a piece is
/// missing or the pieces do not make up the length that the field states.
std::vector<std::uint8_t> ReadLongValue(MdbFile& file, Bytes field);

}  // namespace zv::zvdb::access
