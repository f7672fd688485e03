// The list of what an Access file holds.
#pragma once

#include <string>
#include <vector>

#include "zvdb/access/mdb_file.h"

namespace zv::zvdb::access {

struct CatalogueTable {
    std::string name;
    std::uint32_t page = 0;
    /// Not empty: the table is linked, its rows are in this file or data source.
    std::string elsewhere;
};

/// The tables that users made. Throws Damage when any row of the catalogue cannot be read.
std::vector<CatalogueTable> ReadCatalogue(MdbFile& file);

}  // namespace zv::zvdb::access
