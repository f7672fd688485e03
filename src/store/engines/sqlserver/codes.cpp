#include "store/engines/codes.h"

#include <array>

#include "store/engines/parts.h"

namespace zv::store::engines::sqlserver {
namespace {

constexpr auto kNumbers = std::to_array<NumberKind>({
    {1205, ErrorKind::Busy},
    {1222, ErrorKind::Busy},
    {1101, ErrorKind::DiskFull},
    {1105, ErrorKind::DiskFull},
    {9002, ErrorKind::DiskFull},
    {701, ErrorKind::OutOfMemory},
    {3906, ErrorKind::ReadOnly},
    {823, ErrorKind::InputOutput},
    {824, ErrorKind::Damaged},
    {2601, ErrorKind::Duplicate},
    {2627, ErrorKind::Duplicate},
    {515, ErrorKind::RuleBroken},
    {547, ErrorKind::RuleBroken},
    {2628, ErrorKind::TooLarge},
    {8152, ErrorKind::TooLarge},
    {229, ErrorKind::NoPermission},
    {230, ErrorKind::NoPermission},
    {262, ErrorKind::NoPermission},
    {241, ErrorKind::WrongValue},
    {242, ErrorKind::WrongValue},
    {245, ErrorKind::WrongValue},
    {8114, ErrorKind::WrongValue},
    {4060, ErrorKind::DatabaseUnknown},
    {18456, ErrorKind::LoginRefused},
});
constexpr auto kConnectWords = std::to_array<WordsKind>({
    {"login failed", ErrorKind::LoginRefused},
});
// Of the system and of the network library, which its providers pass on.
constexpr auto kLossNumbers = std::to_array<std::int32_t>({
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

const Codes& TheCodes() {
    static constexpr Codes kCodes{.name = "SQL Server",
                                  .numbers = kNumbers,
                                  .connectWords = kConnectWords,
                                  .lossNumbers = kLossNumbers};
    return kCodes;
}

}  // namespace zv::store::engines::sqlserver
