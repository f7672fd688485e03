#include "store/engines/facts.h"

#include "store/engines/parts.h"

namespace zv::store::engines::access {

// It is reached through its provider, which brings recordsets of its own.
const Facts& TheFacts() {
    static const Facts facts;
    return facts;
}

}  // namespace zv::store::engines::access
