#include "store/server_error_kinds.h"

#include <array>

#include "base/text.h"

namespace zv::store {
namespace {

struct NativeKind {
    std::int32_t native;
    ErrorKind kind;
};
struct WordsKind {
    std::string_view words;
    ErrorKind kind;
};

// SQL Server tells more by its own numbers than by SQLSTATEs.
constexpr auto kKindNumbers = std::to_array<NativeKind>({
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

// By SQLSTATE or its beginning; the longer one first where two begin alike.
constexpr auto kKindStates = std::to_array<WordsKind>({
    {"23505", ErrorKind::Duplicate},
    {"23", ErrorKind::RuleBroken},
    {"22001", ErrorKind::TooLarge},
    {"22", ErrorKind::WrongValue},
    {"25006", ErrorKind::ReadOnly},
    {"40", ErrorKind::Busy},
    {"42501", ErrorKind::NoPermission},
    {"42804", ErrorKind::WrongValue},
    {"53100", ErrorKind::DiskFull},
    {"53200", ErrorKind::OutOfMemory},
    {"55P03", ErrorKind::Busy},
    {"55006", ErrorKind::Busy},
    {"58030", ErrorKind::InputOutput},
    {"XX001", ErrorKind::Damaged},
    {"XX002", ErrorKind::Damaged},
    {"HY001", ErrorKind::OutOfMemory},
    {"42S02", ErrorKind::NoTable},
    {"42P01", ErrorKind::NoTable},
    {"S0002", ErrorKind::NoTable},
    {"42S22", ErrorKind::NoColumn},
    {"42703", ErrorKind::NoColumn},
    {"S0022", ErrorKind::NoColumn},
    {"28", ErrorKind::LoginRefused},
    {"3D", ErrorKind::DatabaseUnknown},
    {"53300", ErrorKind::TooManyConnections},
    {"HYT00", ErrorKind::TimeLimit},
    {"S1T00", ErrorKind::TimeLimit},
    {"57014", ErrorKind::TimeLimit},
    {"IM002", ErrorKind::DriverMissing},
    {"IM003", ErrorKind::DriverMissing},
    {"IM004", ErrorKind::DriverMissing},
});

// Drivers without codes of their own say it in words, lower case here.
constexpr auto kKindWords = std::to_array<WordsKind>({
    {"database is locked", ErrorKind::Busy},
    {"database table is locked", ErrorKind::Busy},
    {"currently locked", ErrorKind::Busy},
    {"could not lock", ErrorKind::Busy},
    {"database or disk is full", ErrorKind::DiskFull},
    {"readonly database", ErrorKind::ReadOnly},
    {"unique constraint failed", ErrorKind::Duplicate},
    {"constraint failed", ErrorKind::RuleBroken},
    {"disk i/o error", ErrorKind::InputOutput},
    {"disk image is malformed", ErrorKind::Damaged},
    {"file is not a database", ErrorKind::NotADatabase},
    {"unable to open database", ErrorKind::CannotOpen},
    {"string or blob too big", ErrorKind::TooLarge},
    {"datatype mismatch", ErrorKind::WrongValue},
    {"out of memory", ErrorKind::OutOfMemory},
});

}  // namespace

ErrorKind KindOfServerCode(const ServerCode& code) {
    for (const NativeKind& entry : kKindNumbers) {
        // PostgreSQL's driver has numbers too, small ones, and says the rest by SQLSTATE.
        if (entry.native == code.native) return entry.kind;
    }
    for (const WordsKind& entry : kKindStates) {
        if (code.sqlState.starts_with(entry.words)) return entry.kind;
    }
    return ErrorKind::Other;
}

ErrorKind KindOfDriverWords(std::string_view text) {
    const std::string words = text::ToLower(text);
    for (const WordsKind& entry : kKindWords) {
        if (text::Contains(words, entry.words)) return entry.kind;
    }
    return ErrorKind::Other;
}

}  // namespace zv::store
