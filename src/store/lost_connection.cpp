#include "store/lost_connection.h"

#include <algorithm>

#include "store/engines/codes.h"

namespace zv::store {
namespace {

/// The class of states that speak of the connection.
constexpr const char* kConnectionClass = "08";

}  // namespace

bool TellsLoss(const ServerCode& code) {
    if (code.sqlState.starts_with(kConnectionClass)) return true;
    // A native number means something only beside a state that leaves it open.
    const bool general = code.sqlState.empty() || code.sqlState == "HY000";
    for (const engines::Codes* codes : engines::AllCodes()) {
        const auto states = codes->lossStates;
        if (std::find(states.begin(), states.end(), code.sqlState) != states.end()) return true;
        const auto numbers = codes->lossNumbers;
        if (general && std::find(numbers.begin(), numbers.end(), code.native) != numbers.end()) {
            return true;
        }
    }
    return false;
}

}  // namespace zv::store
