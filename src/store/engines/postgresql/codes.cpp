#include "store/engines/codes.h"

#include <array>

#include "store/engines/parts.h"

namespace zv::store::engines::postgresql {
namespace {

// They come through its driver as they are; the longer one first where two begin alike.
constexpr auto kStates = std::to_array<WordsKind>({
    {"23505", ErrorKind::Duplicate},
    {"25006", ErrorKind::ReadOnly},
    {"42501", ErrorKind::NoPermission},
    {"42702", ErrorKind::NoColumn},
    {"42703", ErrorKind::NoColumn},
    {"42804", ErrorKind::WrongValue},
    {"42P01", ErrorKind::NoTable},
    {"53100", ErrorKind::DiskFull},
    {"53200", ErrorKind::OutOfMemory},
    {"53300", ErrorKind::TooManyConnections},
    {"55006", ErrorKind::Busy},
    {"55P03", ErrorKind::Busy},
    {"57014", ErrorKind::TimeLimit},
    {"57P", ErrorKind::ConnectionLost},
    {"58030", ErrorKind::InputOutput},
    {"XX001", ErrorKind::Damaged},
    {"XX002", ErrorKind::Damaged},
});
// That no connection is left names the role, too.
constexpr auto kConnectWords = std::to_array<WordsKind>({
    {"too many connections", ErrorKind::TooManyConnections},
    {"too many clients", ErrorKind::TooManyConnections},
    {"connection slots are reserved", ErrorKind::TooManyConnections},
    {"authentication failed", ErrorKind::LoginRefused},
    {"no password supplied", ErrorKind::LoginRefused},
    {"no pg_hba.conf entry", ErrorKind::LoginRefused},
    {"is not permitted to log in", ErrorKind::LoginRefused},
    {"role \"", ErrorKind::LoginRefused},
    {"starting up", ErrorKind::ServerUnknown},
    {"shutting down", ErrorKind::ServerUnknown},
    {"recovery mode", ErrorKind::ServerUnknown},
    {"database \"", ErrorKind::DatabaseUnknown},
    {"could not translate host name", ErrorKind::ServerUnknown},
});
// What the driver itself says has no state that says anything.
constexpr auto kStatementWords = std::to_array<WordsKind>({
    {"server closed the connection", ErrorKind::ConnectionLost},
    {"no connection to the server", ErrorKind::ConnectionLost},
    {"could not receive data from server", ErrorKind::ConnectionLost},
    {"could not send data to server", ErrorKind::ConnectionLost},
    {"terminating connection", ErrorKind::ConnectionLost},
    {"connection not open", ErrorKind::ConnectionLost},
    {"could not send query", ErrorKind::ConnectionLost},
});
constexpr auto kLossStates = std::to_array<std::string_view>({
    "57P01",  // the administrator ended the session
    "57P02",  // the server has crashed
    "57P03",  // the server is starting or stopping
});

}  // namespace

const Codes& TheCodes() {
    static constexpr Codes kCodes{.name = "PostgreSQL",
                                  .scheme = "postgresql:",
                                  .states = kStates,
                                  .connectWords = kConnectWords,
                                  .statementWords = kStatementWords,
                                  .lossStates = kLossStates};
    return kCodes;
}

}  // namespace zv::store::engines::postgresql
