#include "store/time_limit.h"

#include <string>

namespace zv::store {

std::string SecondsText(std::chrono::milliseconds limit) {
    return std::to_string((limit.count() + 500) / 1000) + " s";
}

RuntimeError StatementTookTooLong(const std::string& who, std::chrono::milliseconds limit,
                                  const std::string& source) {
    return RuntimeError(ErrorNumber::DatabaseFailure,
                        who + " did not answer within the time limit (" + SecondsText(limit) +
                            "). Try again.",
                        source, ServerCode{"HYT00", 0})
        .Of(ErrorKind::TimeLimit);
}

}  // namespace zv::store
