#include "store/ado_error_kinds.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <string_view>

#include "base/text.h"
#include "store/engines/codes.h"
#include "store/lost_connection.h"
#include "store/server_error_kinds.h"

namespace zv::store {
namespace {

using engines::NumberKind;

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

ErrorKind FindKind(std::span<const NumberKind> kinds, std::uint32_t number) {
    const auto found = std::find_if(kinds.begin(), kinds.end(), [&](const NumberKind& entry) {
        return entry.number == number;
    });
    return found == kinds.end() ? ErrorKind::Other : found->kind;
}

/// 0 for what is no provider's own number in the place of a state.
std::uint32_t ProviderNumber(std::string_view state) {
    std::uint32_t number = 0;
    const char* end = state.data() + state.size();
    const auto [stop, error] = std::from_chars(state.data(), end, number);
    return state.size() == 4 && error == std::errc() && stop == end ? number : 0;
}

ErrorKind KindOfProviderNumber(std::uint32_t number) {
    for (const engines::Codes* codes : engines::AllCodes()) {
        const ErrorKind kind = FindKind(codes->providerNumbers, number);
        if (kind != ErrorKind::Other) return kind;
    }
    return ErrorKind::Other;
}

ErrorKind KindOfProviderCode(const ServerCode& code) {
    const std::uint32_t number = ProviderNumber(code.sqlState);
    const ErrorKind kind = number != 0 ? KindOfProviderNumber(number) : KindOfServerCode(code);
    return kind == ErrorKind::Other && MeansLoss(code) ? ErrorKind::ConnectionLost : kind;
}

/// The source of an error names an engine whose numbers are known.
bool NamesNumbers(std::string_view source) {
    const auto all = engines::AllCodes();
    return std::any_of(all.begin(), all.end(), [&](const engines::Codes* codes) {
        return !codes->numbers.empty() && text::Contains(source, codes->name);
    });
}

}  // namespace

bool IsGeneral(ErrorKind kind) {
    return kind == ErrorKind::Other || kind == ErrorKind::BadStatement ||
           kind == ErrorKind::RuleBroken;
}

ErrorKind KindOfAdoError(ErrorNumber number) {
    const ErrorKind kind = FindKind(kNumbers, static_cast<std::uint32_t>(number));
    return kind == ErrorKind::Other ? KindOfProviderNumber(static_cast<std::uint32_t>(number))
                                    : kind;
}

ErrorKind KindOfProviderError(const RuntimeError& error, const std::vector<ServerCode>& said) {
    const ErrorKind kind =
        error.Kind() == ErrorKind::Other ? KindOfAdoError(error.Number()) : error.Kind();
    if (!IsGeneral(kind)) return kind;
    // The numbers of other servers mean something else.
    const bool known = NamesNumbers(error.Source());
    for (ServerCode code : said) {
        if (!known) code.native = 0;
        const ErrorKind named = KindOfProviderCode(code);
        if (named != ErrorKind::Other) return named;
    }
    if (kind != ErrorKind::Other || error.Number() != ErrorNumber::DatabaseFailure) return kind;
    return KindOfDriverWords(error.Text());
}

}  // namespace zv::store
