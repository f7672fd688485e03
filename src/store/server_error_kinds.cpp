#include "store/server_error_kinds.h"

#include <array>
#include <utility>

#include "base/text.h"
#include "store/engines/codes.h"

namespace zv::store {
namespace {

using engines::WordsKind;

// Of all servers, by SQLSTATE or its beginning; the longer one first where two begin alike.
constexpr auto kKindStates = std::to_array<WordsKind>({
    {"23", ErrorKind::RuleBroken},
    {"22001", ErrorKind::TooLarge},
    {"22", ErrorKind::WrongValue},
    {"40", ErrorKind::Busy},
    {"HY001", ErrorKind::OutOfMemory},
    {"42S02", ErrorKind::NoTable},
    {"S0002", ErrorKind::NoTable},
    {"42S22", ErrorKind::NoColumn},
    {"S0022", ErrorKind::NoColumn},
    {"28", ErrorKind::LoginRefused},
    {"3D", ErrorKind::DatabaseUnknown},
    {"HYT00", ErrorKind::TimeLimit},
    {"S1T00", ErrorKind::TimeLimit},
    {"IM002", ErrorKind::DriverMissing},
    {"IM003", ErrorKind::DriverMissing},
    {"IM004", ErrorKind::DriverMissing},
});

// Drivers without codes of their own say it in words, lower case here.
constexpr auto kKindWords = std::to_array<WordsKind>({
    {"out of memory", ErrorKind::OutOfMemory},
});

ErrorKind KindOfState(std::span<const WordsKind> states, std::string_view state) {
    for (const WordsKind& entry : states) {
        if (state.starts_with(entry.words)) return entry.kind;
    }
    return ErrorKind::Other;
}

ErrorKind KindOfWords(std::span<const WordsKind> parts, std::string_view words) {
    for (const WordsKind& entry : parts) {
        if (text::Contains(words, entry.words)) return entry.kind;
    }
    return ErrorKind::Other;
}

}  // namespace

ErrorKind KindOfServerNumber(std::int32_t native) {
    // Drivers of other servers have numbers too, small ones, and say the rest by SQLSTATE.
    for (const engines::Codes* codes : engines::AllCodes()) {
        for (const engines::NumberKind& entry : codes->numbers) {
            if (std::cmp_equal(entry.number, native)) return entry.kind;
        }
    }
    return ErrorKind::Other;
}

ErrorKind KindOfServerCode(const ServerCode& code) {
    if (const ErrorKind kind = KindOfServerNumber(code.native); kind != ErrorKind::Other) {
        return kind;
    }
    for (const engines::Codes* codes : engines::AllCodes()) {
        const ErrorKind kind = KindOfState(codes->states, code.sqlState);
        if (kind != ErrorKind::Other) return kind;
    }
    return KindOfState(kKindStates, code.sqlState);
}

ErrorKind KindOfDriverWords(std::string_view text) {
    const std::string words = text::ToLower(text);
    for (const engines::Codes* codes : engines::AllCodes()) {
        const ErrorKind kind = KindOfWords(codes->words, words);
        if (kind != ErrorKind::Other) return kind;
    }
    return KindOfWords(kKindWords, words);
}

}  // namespace zv::store
