// The database engines that the system knows. Each has a folder here whose files have the same
// names; nobody else distinguishes engines, they ask these.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "store/engines/bulk.h"
#include "store/engines/codes.h"
#include "store/engines/connecting.h"
#include "store/engines/facts.h"

namespace zv::store::dialect {
class Target;
}

namespace zv::store::engines {

struct Engine {
    std::string_view folder;  ///< of its files, and by which it is asked for
    const Codes* codes = nullptr;
    const Connecting* connecting = nullptr;
    const Facts* facts = nullptr;
    /// What statements are translated into; null where they are sent as they are.
    const dialect::Target* dialect = nullptr;
    const dialect::Target* driverDialect = nullptr;  ///< the same, behind an ODBC driver
    /// Null where rows are not moved by statements over a connection.
    const Bulk* bulk = nullptr;
    /// The script that makes the tables.
    std::string_view schema;
    /// The script that makes what a database may have beside them.
    std::string_view sideTables;
};

/// The statements of a script that makes tables, without comments and the signs between them. Both
/// are found wherever they stand: no such script holds them in a literal.
std::vector<std::string> StatementsOf(std::string_view script);

std::span<const Engine> All();
/// The engine in `folder`; throws RuntimeError (InternalError) when there is none.
const Engine& Of(std::string_view folder);
/// Behind a driver that calls its database `product`; one of which nothing is known when it is none
/// of these.
const Engine& OfProduct(std::string_view product);
/// Of a file that begins so, null when nobody knows it.
const Engine* OfFile(std::string_view head);
/// Of the server at this address: its scheme, or the one whose addresses need none.
const Engine& OfAddress(std::string_view address);
/// Of a driver's name, null when it is nobody's.
const Engine* OfDriver(std::string_view driver);

}  // namespace zv::store::engines
