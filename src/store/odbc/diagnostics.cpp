#include "store/odbc/diagnostics.h"

#include <algorithm>
#include <array>

#include "base/text.h"
#include "store/odbc/error_kinds.h"
#include "store/odbc/odbc_connection.h"
#include "store/secrets.h"

namespace zv::store::odbc {
namespace {

struct StateFault {
    std::string_view prefix;
    Fault fault;
};

// The longest prefix first where two begin alike.
constexpr auto kStates = std::to_array<StateFault>({
    {"42S02", Fault::Table},          {"42P01", Fault::Table},
    {"S0002", Fault::Table},          {"42S22", Fault::Column},
    {"42703", Fault::Column},         {"42702", Fault::Column},
    {"S0022", Fault::Column},         {"42501", Fault::Other},
    {"42", Fault::Statement},         {"37", Fault::Statement},
    {"07", Fault::Statement},         {"28", Fault::LoginRefused},
    {"3D", Fault::DatabaseUnknown},   {"53300", Fault::TooManyConnections},
    {"HYT01", Fault::ConnectionLost}, {"HYT00", Fault::TimeLimit},
    {"S1T00", Fault::TimeLimit},      {"57014", Fault::TimeLimit},
    {"HY008", Fault::TimeLimit},      {"57P", Fault::ConnectionLost},
    {"08", Fault::ConnectionLost},    {"IM002", Fault::DriverMissing},
    {"IM003", Fault::DriverMissing},  {"IM004", Fault::DriverMissing},
});

struct TextFault {
    std::string_view part;
    Fault fault;
};

// Drivers that report everything under one code say the rest in words, lower case here.
constexpr auto kConnectTexts = std::to_array<TextFault>({
    {"can't open lib", Fault::DriverMissing},
    {"data source name not found", Fault::DriverMissing},
    {"too many connections", Fault::TooManyConnections},
    {"too many clients", Fault::TooManyConnections},
    {"connection slots are reserved", Fault::TooManyConnections},
    {"authentication failed", Fault::LoginRefused},
    {"login failed", Fault::LoginRefused},
    {"no password supplied", Fault::LoginRefused},
    {"no pg_hba.conf entry", Fault::LoginRefused},
    {"is not permitted to log in", Fault::LoginRefused},
    {"role \"", Fault::LoginRefused},
    {"starting up", Fault::ServerUnknown},
    {"shutting down", Fault::ServerUnknown},
    {"recovery mode", Fault::ServerUnknown},
    {"database \"", Fault::DatabaseUnknown},
    {"timeout", Fault::ServerUnknown},
    {"timed out", Fault::ServerUnknown},
    {"could not translate host name", Fault::ServerUnknown},
    {"connection refused", Fault::ServerUnknown},
    {"could not connect", Fault::ServerUnknown},
    {"no route to host", Fault::ServerUnknown},
    {"unreachable", Fault::ServerUnknown},
});
constexpr auto kStatementTexts = std::to_array<TextFault>({
    {"server closed the connection", Fault::ConnectionLost},
    {"no connection to the server", Fault::ConnectionLost},
    {"could not receive data from server", Fault::ConnectionLost},
    {"could not send data to server", Fault::ConnectionLost},
    {"terminating connection", Fault::ConnectionLost},
    {"connection not open", Fault::ConnectionLost},
    {"could not send query", Fault::ConnectionLost},
    {"no such table", Fault::Table},
    {"no such column", Fault::Column},
    {"has no column named", Fault::Column},
    {"ambiguous column", Fault::Column},
    {"syntax error", Fault::Statement},
    {"no such function", Fault::Statement},
    {"unrecognized token", Fault::Statement},
    {"incomplete input", Fault::Statement},
    {"wrong number of arguments", Fault::Statement},
    {"misuse of aggregate", Fault::Statement},
    {"values for", Fault::Statement},
});

constexpr std::int32_t kSqlServerLoginFailed = 18456;
constexpr std::int32_t kSqlServerCannotOpenDatabase = 4060;

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

Fault FaultOf(const ServerCode& code, std::string_view text, bool connecting) {
    const std::string words = text::ToLower(text);
    if (connecting) {
        if (code.native == kSqlServerLoginFailed) return Fault::LoginRefused;
        if (code.native == kSqlServerCannotOpenDatabase) return Fault::DatabaseUnknown;
        for (const TextFault& entry : kConnectTexts) {
            if (text::Contains(words, entry.part)) return entry.fault;
        }
    }
    // The states of PostgreSQL's errors come through its driver as they are; those that the driver
    // makes itself, and all of SQLite's, say nothing.
    if (!connecting) {
        const bool saysNothing =
            code.sqlState.starts_with("HY0") || code.sqlState.starts_with("S10");
        for (const TextFault& entry : kStatementTexts) {
            if ((saysNothing || entry.fault == Fault::ConnectionLost) &&
                text::Contains(words, entry.part)) {
                return entry.fault;
            }
        }
    }
    for (const StateFault& entry : kStates) {
        if (!code.sqlState.starts_with(entry.prefix)) continue;
        const bool silent = entry.fault == Fault::ConnectionLost || entry.fault == Fault::TimeLimit;
        return connecting && silent ? Fault::ServerUnknown : entry.fault;
    }
    return Fault::Other;
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
        // A record that tells more than the first - "cannot connect", then why - wins.
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
