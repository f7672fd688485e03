#include "store/lost_connection.h"

#include <algorithm>

#include "store/engines/codes.h"

namespace zv::store {
namespace {

/// The class of states that speak of the connection.
constexpr const char* kConnectionClass = "08";

}  // namespace

bool MeansLoss(const ServerCode& code) {
    if (code.sqlState.starts_with(kConnectionClass)) return true;
    // A native number means something only beside a state that leaves it open.
    const bool general = code.sqlState.empty() || code.sqlState == "HY000";
    const auto has = [](const auto& known, const auto& one) {
        return std::find(known.begin(), known.end(), one) != known.end();
    };
    return std::ranges::any_of(engines::AllCodes(), [&](const engines::Codes* codes) {
        return has(codes->lossStates, code.sqlState) ||
               (general && has(codes->lossNumbers, code.native));
    });
}

}  // namespace zv::store
