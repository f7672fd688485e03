#include "store/odbc/error_kinds.h"

#include <algorithm>
#include <array>

#include "base/text.h"

namespace zv::store::odbc {
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
    {1205, ErrorKind::Busy},        {1222, ErrorKind::Busy},        {1101, ErrorKind::DiskFull},
    {1105, ErrorKind::DiskFull},    {9002, ErrorKind::DiskFull},    {701, ErrorKind::OutOfMemory},
    {3906, ErrorKind::ReadOnly},    {823, ErrorKind::InputOutput},  {824, ErrorKind::Damaged},
    {2601, ErrorKind::Duplicate},   {2627, ErrorKind::Duplicate},   {515, ErrorKind::RuleBroken},
    {547, ErrorKind::RuleBroken},   {2628, ErrorKind::TooLarge},    {8152, ErrorKind::TooLarge},
    {229, ErrorKind::NoPermission}, {230, ErrorKind::NoPermission}, {262, ErrorKind::NoPermission},
    {241, ErrorKind::WrongValue},   {242, ErrorKind::WrongValue},   {245, ErrorKind::WrongValue},
    {8114, ErrorKind::WrongValue},
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
});

// Drivers without codes of their own say it in words, lower case here.
constexpr auto kKindWords = std::to_array<WordsKind>({
    {"database is locked", ErrorKind::Busy},
    {"database table is locked", ErrorKind::Busy},
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

ErrorKind KindOfOther(const Diagnosis& diagnosis) {
    const ServerCode& code = diagnosis.code;
    for (const NativeKind& entry : kKindNumbers) {
        // PostgreSQL's driver has numbers too, small ones, and says the rest by SQLSTATE.
        if (entry.native == code.native) return entry.kind;
    }
    for (const WordsKind& entry : kKindStates) {
        if (code.sqlState.starts_with(entry.words)) return entry.kind;
    }
    const std::string words = text::ToLower(diagnosis.text);
    for (const WordsKind& entry : kKindWords) {
        if (text::Contains(words, entry.words)) return entry.kind;
    }
    return ErrorKind::Other;
}

}  // namespace

ErrorKind KindOf(const Diagnosis& diagnosis) {
    switch (diagnosis.fault) {
        case Fault::Table:
            return ErrorKind::NoTable;
        case Fault::Column:
            return ErrorKind::NoColumn;
        case Fault::Statement:
            // SQL Server has one SQLSTATE for nearly everything.
            if (const ErrorKind kind = KindOfOther(diagnosis); kind != ErrorKind::Other) {
                return kind;
            }
            return ErrorKind::BadStatement;
        case Fault::TimeLimit:
            return ErrorKind::TimeLimit;
        case Fault::ConnectionLost:
            return ErrorKind::ConnectionLost;
        case Fault::LoginRefused:
            return ErrorKind::LoginRefused;
        case Fault::ServerUnknown:
            return ErrorKind::ServerUnknown;
        case Fault::DatabaseUnknown:
            return ErrorKind::DatabaseUnknown;
        case Fault::TooManyConnections:
            return ErrorKind::TooManyConnections;
        case Fault::DriverMissing:
            return ErrorKind::DriverMissing;
        case Fault::Other:
            break;
    }
    return KindOfOther(diagnosis);
}

}  // namespace zv::store::odbc
