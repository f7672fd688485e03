#include "store/engines/bulk.h"

#include "store/engines/parts.h"

namespace zv::store::engines::access {

// Its files are read, and not by statements.
const Bulk* TheBulk() {
    return nullptr;
}

}  // namespace zv::store::engines::access
