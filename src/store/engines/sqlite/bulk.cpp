#include "store/engines/bulk.h"

#include "store/engines/parts.h"

namespace zv::store::engines::sqlite {

// Rows are moved within one process, through the engine itself.
const Bulk* TheBulk() {
    return nullptr;
}

}  // namespace zv::store::engines::sqlite
