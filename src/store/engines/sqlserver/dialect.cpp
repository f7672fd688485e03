#include "store/engines/parts.h"

namespace zv::store::engines::sqlserver {

// The system writes its statements for it, so they are sent as they are.
const dialect::Target* TheDialect() {
    return nullptr;
}
const dialect::Target* TheDriverDialect() {
    return nullptr;
}

}  // namespace zv::store::engines::sqlserver
