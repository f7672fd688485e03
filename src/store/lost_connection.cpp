#include "store/lost_connection.h"

#include <algorithm>
#include <array>

namespace zv::store {
namespace {

/// The class of states that speak of the connection.
constexpr const char* kConnectionClass = "08";

constexpr auto kStates = std::to_array<std::string_view>({
    "57P01",  // the administrator ended the session
    "57P02",  // the server has crashed
    "57P03",  // the server is starting or stopping
    "3043",   // Access: the disk or the network has failed
});

// Numbers of the system and of the network library, which SQL Server's providers pass on.
constexpr auto kNative = std::to_array<std::int32_t>({
    11,     // general network error
    64,     // the network name is no longer there
    121,    // the semaphore's time limit: the network is dead
    233,    // nobody at the other end of the pipe
    10053,  // broken off on this side
    10054,  // broken off by the server
    10058,  // the socket was shut down
    10060,  // no answer to a connection attempt
    10061,  // no server listens
});

}  // namespace

bool TellsLoss(const ServerCode& code) {
    if (code.sqlState.starts_with(kConnectionClass)) return true;
    if (std::find(kStates.begin(), kStates.end(), code.sqlState) != kStates.end()) return true;
    // A native number means something only beside a state that leaves it open.
    const bool general = code.sqlState.empty() || code.sqlState == "HY000";
    return general && std::find(kNative.begin(), kNative.end(), code.native) != kNative.end();
}

}  // namespace zv::store
