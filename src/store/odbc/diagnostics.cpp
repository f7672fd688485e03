#include "store/odbc/diagnostics.h"

#include <algorithm>
#include <array>
#include <optional>
#include <span>

#include "base/text.h"
#include "store/engines/codes.h"
#include "store/odbc/error_kinds.h"
#include "store/odbc/odbc_connection.h"
#include "store/secrets.h"
#include "store/server_error_kinds.h"

namespace zv::store::odbc {
namespace {

using engines::WordsKind;

struct StateFault {
    std::string_view prefix;
    Fault fault;
};

// Of all drivers; the longest prefix first where two begin alike.
constexpr auto kStates = std::to_array<StateFault>({
    {"42S02", Fault::Table},
    {"S0002", Fault::Table},
    {"42S22", Fault::Column},
    {"S0022", Fault::Column},
    {"42", Fault::Statement},
    {"37", Fault::Statement},
    {"07", Fault::Statement},
    {"28", Fault::LoginRefused},
    {"3D", Fault::DatabaseUnknown},
    {"HYT01", Fault::ConnectionLost},
    {"HYT00", Fault::TimeLimit},
    {"S1T00", Fault::TimeLimit},
    {"HY008", Fault::TimeLimit},
    {"08", Fault::ConnectionLost},
    {"IM002", Fault::DriverMissing},
    {"IM003", Fault::DriverMissing},
    {"IM004", Fault::DriverMissing},
});

// What driver managers and all drivers say, lower case here.
constexpr auto kDriverManagerWords = std::to_array<WordsKind>({
    {"can't open lib", ErrorKind::DriverMissing},
    {"data source name not found", ErrorKind::DriverMissing},
});
constexpr auto kConnectWords = std::to_array<WordsKind>({
    {"timeout", ErrorKind::ServerUnknown},
    {"timed out", ErrorKind::ServerUnknown},
    {"connection refused", ErrorKind::ServerUnknown},
    {"could not connect", ErrorKind::ServerUnknown},
    {"no route to host", ErrorKind::ServerUnknown},
    {"unreachable", ErrorKind::ServerUnknown},
});

/// None for a kind that no fault stands for.
std::optional<Fault> FaultOf(ErrorKind kind) {
    switch (kind) {
        case ErrorKind::NoTable:
            return Fault::Table;
        case ErrorKind::NoColumn:
            return Fault::Column;
        case ErrorKind::BadStatement:
            return Fault::Statement;
        case ErrorKind::NoPermission:
            return Fault::Other;
        case ErrorKind::TimeLimit:
            return Fault::TimeLimit;
        case ErrorKind::ConnectionLost:
            return Fault::ConnectionLost;
        case ErrorKind::LoginRefused:
            return Fault::LoginRefused;
        case ErrorKind::ServerUnknown:
            return Fault::ServerUnknown;
        case ErrorKind::DatabaseUnknown:
            return Fault::DatabaseUnknown;
        case ErrorKind::TooManyConnections:
            return Fault::TooManyConnections;
        case ErrorKind::DriverMissing:
            return Fault::DriverMissing;
        default:
            return {};
    }
}

std::string_view SkipBrackets(std::string_view text) {
    while (!text.empty() && text.front() == '[') {
        const std::size_t end = text.find(']');
        if (end == std::string_view::npos) break;
        text.remove_prefix(end + 1);
    }
    return text;
}

/// "[vendor][driver]ERROR: words;\nError while executing the query" becomes "words".
std::string Undecorated(std::string_view text) {
    text = text::Trim(SkipBrackets(text));
    if (const std::size_t end = text.rfind(";\nError while"); end != std::string_view::npos) {
        text = text.substr(0, end);
    }
    for (const std::string_view start : {"ERROR:", "FATAL:"}) {
        if (text.starts_with(start)) text = text::TrimLeft(text.substr(start.size()));
    }
    while (!text.empty() && (text.back() == '\n' || text.back() == '\r' || text.back() == ' ')) {
        text.remove_suffix(1);
    }
    return std::string(text);
}

std::optional<Fault> FaultOfWords(std::span<const WordsKind> parts, std::string_view words) {
    for (const WordsKind& entry : parts) {
        if (text::Contains(words, entry.words)) return FaultOf(entry.kind);
    }
    return {};
}

std::optional<Fault> FaultOfConnecting(std::int32_t native, std::string_view words) {
    const std::optional<Fault> number = FaultOf(KindOfServerNumber(native));
    if (number == Fault::LoginRefused || number == Fault::DatabaseUnknown) return number;
    if (const auto fault = FaultOfWords(kDriverManagerWords, words)) return fault;
    for (const engines::Codes* codes : engines::AllCodes()) {
        if (const auto fault = FaultOfWords(codes->connectWords, words)) return fault;
    }
    return FaultOfWords(kConnectWords, words);
}

std::optional<Fault> FaultOfStatement(std::string_view state, std::string_view words) {
    // States that a driver makes itself say nothing.
    const bool saysNothing = state.starts_with("HY0") || state.starts_with("S10");
    for (const engines::Codes* codes : engines::AllCodes()) {
        for (const WordsKind& entry : codes->statementWords) {
            if ((saysNothing || entry.kind == ErrorKind::ConnectionLost) &&
                text::Contains(words, entry.words)) {
                return FaultOf(entry.kind);
            }
        }
    }
    return {};
}

std::optional<Fault> FaultOfState(std::string_view state) {
    for (const engines::Codes* codes : engines::AllCodes()) {
        for (const WordsKind& entry : codes->states) {
            if (!state.starts_with(entry.words)) continue;
            if (const auto fault = FaultOf(entry.kind)) return fault;
        }
    }
    for (const StateFault& entry : kStates) {
        if (state.starts_with(entry.prefix)) return entry.fault;
    }
    return {};
}

Fault FaultOf(const ServerCode& code, std::string_view text, bool connecting) {
    const std::string words = text::ToLower(text);
    if (const auto known = connecting ? FaultOfConnecting(code.native, words)
                                      : FaultOfStatement(code.sqlState, words)) {
        return *known;
    }
    const Fault fault = FaultOfState(code.sqlState).value_or(Fault::Other);
    const bool silent = fault == Fault::ConnectionLost || fault == Fault::TimeLimit;
    return connecting && silent ? Fault::ServerUnknown : fault;
}

std::string CodeText(const ServerCode& code) {
    return " (SQLSTATE " + code.sqlState + ", code " + std::to_string(code.native) + ")";
}

}  // namespace

Diagnosis Diagnose(std::string sqlState, std::int32_t native, std::string_view driverText,
                   bool connecting) {
    Diagnosis diagnosis{Fault::Other, {std::move(sqlState), native}, Undecorated(driverText)};
    diagnosis.fault = FaultOf(diagnosis.code, diagnosis.text, connecting);
    return diagnosis;
}

Diagnosis Diagnose(SQLSMALLINT kind, SQLHANDLE handle, bool connecting) {
    Diagnosis best;
    for (SQLSMALLINT record = 1;; record++) {
        std::u16string state(5, u'\0');
        SQLWCHAR stateBuffer[6]{};
        SQLINTEGER native = 0;
        std::u16string words(512, u'\0');
        SQLSMALLINT length = 0;
        SQLRETURN code = SQLGetDiagRecW(kind, handle, record, stateBuffer, &native, Wide(words),
                                        static_cast<SQLSMALLINT>(words.size()), &length);
        if (code == SQL_SUCCESS_WITH_INFO && length >= static_cast<SQLSMALLINT>(words.size())) {
            words.resize(static_cast<std::size_t>(length) + 1);
            code = SQLGetDiagRecW(kind, handle, record, stateBuffer, &native, Wide(words),
                                  static_cast<SQLSMALLINT>(words.size()), &length);
        }
        if (!SQL_SUCCEEDED(code)) break;
        words.resize(std::min(words.size(), static_cast<std::size_t>(std::max<int>(length, 0))));
        std::copy_n(stateBuffer, 5, state.begin());
        Diagnosis found =
            Diagnose(text::FromUtf16(state), native, text::FromUtf16(words), connecting);
        // A record that says more than the first - "cannot connect", then why - wins.
        if (record == 1 || (best.fault == Fault::Other && found.fault != Fault::Other)) {
            best = std::move(found);
        }
    }
    if (best.code.sqlState.empty()) {
        best.code.sqlState = "HY000";
        best.text = "the driver reports a failure without a reason";
    }
    return best;
}

RuntimeError ConnectError(const Diagnosis& diagnosis, const std::string& name,
                          const std::vector<std::string>& secrets) {
    std::string text = "Cannot connect to the database server \"" + name + "\": ";
    ErrorNumber number = ErrorNumber::DatabaseFailure;
    switch (diagnosis.fault) {
        case Fault::LoginRefused:
            text += "the server refused the login.";
            break;
        case Fault::ServerUnknown:
        case Fault::ConnectionLost:
            text += "the server cannot be reached or does not answer.";
            break;
        case Fault::TimeLimit:
            text += "the server did not answer within the time limit.";
            break;
        case Fault::DatabaseUnknown:
            text += "the server has no such database.";
            break;
        case Fault::TooManyConnections:
            text += "the server has no connection left. Try again later.";
            break;
        case Fault::DriverMissing:
            text += "its ODBC driver or data source is not installed.";
            number = ErrorNumber::CannotCreateObject;
            break;
        default:
            text += WithoutSecrets(diagnosis.text, secrets) + CodeText(diagnosis.code);
            break;
    }
    return RuntimeError(number, std::move(text), kErrorSource, diagnosis.code)
        .Of(KindOf(diagnosis));
}

RuntimeError StatementError(const Diagnosis& diagnosis, const std::vector<std::string>& secrets) {
    ErrorNumber number = ErrorNumber::DatabaseFailure;
    std::string text = WithoutSecrets(diagnosis.text, secrets);
    switch (diagnosis.fault) {
        case Fault::Table:
            number = ErrorNumber::DatabaseTable;
            break;
        case Fault::Column:
            number = ErrorNumber::DatabaseColumn;
            break;
        case Fault::Statement:
            number = ErrorNumber::DatabaseStatement;
            break;
        case Fault::TimeLimit:
            text = "The database server did not answer within the time limit.";
            break;
        case Fault::ConnectionLost:
            text = "The connection to the database server was lost. Try again.";
            break;
        default:
            break;
    }
    return RuntimeError(number, text + CodeText(diagnosis.code), kErrorSource, diagnosis.code)
        .Of(KindOf(diagnosis));
}

}  // namespace zv::store::odbc
