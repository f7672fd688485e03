#include "store/ado_error_kinds.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <string_view>

#include "base/text.h"
#include "store/lost_connection.h"
#include "store/server_error_kinds.h"

namespace zv::store {
namespace {

struct NumberKind {
    std::uint32_t number;
    ErrorKind kind;
};

constexpr auto kNumbers = std::to_array<NumberKind>({
    {0x80040E14, ErrorKind::BadStatement},    // errors in the command
    {0x80040E37, ErrorKind::NoTable},         // table does not exist
    {0x80040E10, ErrorKind::NoColumn},        // a name that nothing gives a value
    {0x80040E4D, ErrorKind::LoginRefused},    // authentication failed
    {0x80040E09, ErrorKind::NoPermission},    // permission denied
    {0x80040E31, ErrorKind::TimeLimit},       // timeout expired
    {0x80040E2F, ErrorKind::RuleBroken},      // integrity violation
    {0x80040E38, ErrorKind::Changed},         // concurrency violation
    {0x80040E23, ErrorKind::Changed},         // the row is gone
    {0x80040E57, ErrorKind::TooLarge},        // data overflow
    {0x80040E07, ErrorKind::WrongValue},      // conversion failed
    {0x80040E18, ErrorKind::ConnectionLost},  // rowset with no live connection
    {0x80040155, ErrorKind::DriverMissing},
    {0x8007000E, ErrorKind::OutOfMemory},
    {0x80030070, ErrorKind::DiskFull},
    {0x80070070, ErrorKind::DiskFull},
    {3706, ErrorKind::DriverMissing},  // no such provider
    {3709, ErrorKind::ConnectionLost},
});

// Jet's own numbers. Its provider tells them as the SQLSTATE, some of its versions as the number.
constexpr auto kJetNumbers = std::to_array<NumberKind>({
    {3008, ErrorKind::Busy},  // another user has the table for himself
    {3009, ErrorKind::Busy},
    {3022, ErrorKind::Duplicate},
    {3024, ErrorKind::FileMissing},
    {3026, ErrorKind::DiskFull},
    {3027, ErrorKind::ReadOnly},
    {3031, ErrorKind::LoginRefused},
    {3033, ErrorKind::NoPermission},
    {3044, ErrorKind::FileMissing},
    {3045, ErrorKind::Busy},
    {3051, ErrorKind::CannotOpen},
    {3078, ErrorKind::NoTable},
    {3112, ErrorKind::NoPermission},
    {3163, ErrorKind::TooLarge},
    {3186, ErrorKind::Busy},  // locked by a user of another machine
    {3187, ErrorKind::Busy},
    {3188, ErrorKind::Busy},
    {3189, ErrorKind::Busy},
    {3197, ErrorKind::Changed},
    {3200, ErrorKind::RuleBroken},
    {3201, ErrorKind::RuleBroken},
    {3211, ErrorKind::Busy},
    {3212, ErrorKind::Busy},
    {3218, ErrorKind::Busy},
    {3260, ErrorKind::Busy},
    {3261, ErrorKind::Busy},
    {3262, ErrorKind::Busy},
    {3314, ErrorKind::RuleBroken},
    {3315, ErrorKind::RuleBroken},
    {3316, ErrorKind::RuleBroken},
    {3317, ErrorKind::RuleBroken},
    {3343, ErrorKind::NotADatabase},
    {3356, ErrorKind::Busy},
});

template <std::size_t Size>
ErrorKind FindKind(const std::array<NumberKind, Size>& kinds, std::uint32_t number) {
    const auto found = std::find_if(kinds.begin(), kinds.end(), [&](const NumberKind& entry) {
        return entry.number == number;
    });
    return found == kinds.end() ? ErrorKind::Other : found->kind;
}

/// 0 for what is no number of Jet.
std::uint32_t JetNumber(std::string_view state) {
    std::uint32_t number = 0;
    const char* end = state.data() + state.size();
    const auto [stop, error] = std::from_chars(state.data(), end, number);
    return state.size() == 4 && error == std::errc() && stop == end ? number : 0;
}

ErrorKind KindOfProviderCode(const ServerCode& code) {
    const std::uint32_t jet = JetNumber(code.sqlState);
    const ErrorKind kind = jet != 0 ? FindKind(kJetNumbers, jet) : KindOfServerCode(code);
    return kind == ErrorKind::Other && TellsLoss(code) ? ErrorKind::ConnectionLost : kind;
}

}  // namespace

bool IsGeneral(ErrorKind kind) {
    return kind == ErrorKind::Other || kind == ErrorKind::BadStatement ||
           kind == ErrorKind::RuleBroken;
}

ErrorKind KindOfAdoError(ErrorNumber number) {
    const ErrorKind kind = FindKind(kNumbers, static_cast<std::uint32_t>(number));
    return kind == ErrorKind::Other ? FindKind(kJetNumbers, static_cast<std::uint32_t>(number))
                                    : kind;
}

ErrorKind KindOfProviderError(const RuntimeError& error, const std::vector<ServerCode>& said) {
    const ErrorKind kind =
        error.Kind() == ErrorKind::Other ? KindOfAdoError(error.Number()) : error.Kind();
    if (!IsGeneral(kind)) return kind;
    // The numbers of other servers mean something else.
    const bool isSqlServer = text::Contains(error.Source(), "SQL Server");
    for (ServerCode code : said) {
        if (!isSqlServer) code.native = 0;
        const ErrorKind told = KindOfProviderCode(code);
        if (told != ErrorKind::Other) return told;
    }
    if (kind != ErrorKind::Other || error.Number() != ErrorNumber::DatabaseFailure) return kind;
    return KindOfDriverWords(error.Text());
}

}  // namespace zv::store
