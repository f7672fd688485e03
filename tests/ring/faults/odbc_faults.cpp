#include "odbc_faults.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cstdlib>
#include <string_view>

#include "base/text.h"
#include "store/odbc/connection_string.h"
#include "store/odbc/installed_drivers.h"
#include "store/odbc/odbc_api.h"
#include "store/odbc/odbc_connection.h"
#include "test_server/scratch_schema.h"

namespace zv::ring {
namespace {

constexpr std::array<std::string_view, 24> kFunctions = {
    "SQLAllocHandle",  "SQLBindCol",      "SQLBindParameter",   "SQLColAttributeW",
    "SQLColumnsW",     "SQLDescribeColW", "SQLDriverConnectW",  "SQLExecDirectW",
    "SQLExecute",      "SQLFetch",        "SQLGetConnectAttrW", "SQLGetData",
    "SQLGetInfoW",     "SQLMoreResults",  "SQLNumResultCols",   "SQLPrepareW",
    "SQLPrimaryKeysW", "SQLRowCount",     "SQLSetConnectAttrW", "SQLSetEnvAttr",
    "SQLSetStmtAttrW", "SQLDisconnect",   "SQLFreeHandle",      "SQLFreeStmt",
};

std::atomic<bool> armed{false};
std::atomic<bool> forever{false};
std::atomic<bool> failed{false};
/// The last call failed here and not in the driver: the driver has nothing to say about it.
std::atomic<bool> silent{false};
std::atomic<long> left{0};
/// The function of `kFunctions` that is counted; past the end: all.
std::atomic<std::size_t> counted{0};

bool Fails(std::string_view function) {
    silent = false;
    if (!armed) return false;
    if (counted < kFunctions.size() && kFunctions.at(counted) != function) return false;
    const long now = --left;
    const bool fails = now == 0 || (now < 0 && forever);
    if (fails) silent = failed = true;
    return fails;
}

SQLRETURN Say(SQLWCHAR* state, SQLINTEGER* native, SQLWCHAR* words, SQLSMALLINT room,
              SQLSMALLINT* length) {
    const std::u16string code = forever ? u"08S01" : u"HY000";
    const std::u16string text = u"planted fault";
    std::copy_n(code.begin(), code.size() + 1, reinterpret_cast<char16_t*>(state));
    const std::size_t taken =
        std::min<std::size_t>(text.size(), static_cast<std::size_t>(room) - 1);
    std::copy_n(text.begin(), taken, reinterpret_cast<char16_t*>(words));
    words[taken] = 0;
    *native = 0;
    *length = static_cast<SQLSMALLINT>(taken);
    return SQL_SUCCESS;
}

}  // namespace

std::string OdbcFaults::Driver() {
    for (const std::string& driver : store::odbc::InstalledDrivers()) {
        if (driver.starts_with("SQLite3")) return driver;
    }
    return {};
}

std::vector<std::string> OdbcFaults::Operations() const {
    // A point on a server takes twenty times as long as one in a file: those that carry statements
    // and rows are always played.
    if (server_ && !std::getenv("ZV_LONG")) {
        return {"SQLDriverConnectW", "SQLExecDirectW", "SQLExecute", "SQLFetch"};
    }
    std::vector<std::string> names(kFunctions.begin(), kFunctions.end());
    names.emplace_back("odbc");
    return names;
}

FlowOptions OdbcFaults::Options() const {
    FlowOptions options;
    options.isServer = true;
    if (server_) {
        options.store = server_;
        options.open = [address = server_->Address()](const std::string&) {
            return store::odbc::OpenOdbc(test_server::Patient(store::odbc::OptionsFor(address)));
        };
        return options;
    }
    // The driver brings an engine of its own: what two keep in shared memory for one file in one
    // process is not safe.
    options.rollBack = true;
    options.open = [](const std::string& path) {
        return store::odbc::OpenOdbc(test_server::Patient(
            store::odbc::OptionsFor("Driver={" + Driver() + "};Database=" + path)));
    };
    return options;
}

void OdbcFaults::Arm(const FaultPoint& point) {
    const auto* const name = std::find(kFunctions.begin(), kFunctions.end(), point.operation);
    counted = static_cast<std::size_t>(name - kFunctions.begin());
    left = point.number;
    forever = point.forever;
    failed = false;
    armed = true;
}

bool OdbcFaults::Disarm() {
    armed = false;
    silent = false;
    return failed;
}

}  // namespace zv::ring

// The linker gives the calls of the program to these, and the driver manager's functions the other
// name.
extern "C" {

SQLRETURN __real_SQLAllocHandle(SQLSMALLINT kind, SQLHANDLE parent, SQLHANDLE* handle);
SQLRETURN __wrap_SQLAllocHandle(SQLSMALLINT kind, SQLHANDLE parent, SQLHANDLE* handle) {
    return zv::ring::Fails("SQLAllocHandle") ? SQL_ERROR
                                             : __real_SQLAllocHandle(kind, parent, handle);
}

SQLRETURN __real_SQLBindCol(SQLHSTMT statement, SQLUSMALLINT column, SQLSMALLINT type,
                            SQLPOINTER buffer, SQLLEN size, SQLLEN* length);
SQLRETURN __wrap_SQLBindCol(SQLHSTMT statement, SQLUSMALLINT column, SQLSMALLINT type,
                            SQLPOINTER buffer, SQLLEN size, SQLLEN* length) {
    return zv::ring::Fails("SQLBindCol")
               ? SQL_ERROR
               : __real_SQLBindCol(statement, column, type, buffer, size, length);
}

SQLRETURN __real_SQLBindParameter(SQLHSTMT statement, SQLUSMALLINT number, SQLSMALLINT direction,
                                  SQLSMALLINT type, SQLSMALLINT sqlType, SQLULEN size,
                                  SQLSMALLINT digits, SQLPOINTER value, SQLLEN room,
                                  SQLLEN* length);
SQLRETURN __wrap_SQLBindParameter(SQLHSTMT statement, SQLUSMALLINT number, SQLSMALLINT direction,
                                  SQLSMALLINT type, SQLSMALLINT sqlType, SQLULEN size,
                                  SQLSMALLINT digits, SQLPOINTER value, SQLLEN room,
                                  SQLLEN* length) {
    return zv::ring::Fails("SQLBindParameter")
               ? SQL_ERROR
               : __real_SQLBindParameter(statement, number, direction, type, sqlType, size, digits,
                                         value, room, length);
}

SQLRETURN __real_SQLColAttributeW(SQLHSTMT statement, SQLUSMALLINT column, SQLUSMALLINT what,
                                  SQLPOINTER text, SQLSMALLINT room, SQLSMALLINT* length,
                                  SQLLEN* number);
SQLRETURN __wrap_SQLColAttributeW(SQLHSTMT statement, SQLUSMALLINT column, SQLUSMALLINT what,
                                  SQLPOINTER text, SQLSMALLINT room, SQLSMALLINT* length,
                                  SQLLEN* number) {
    return zv::ring::Fails("SQLColAttributeW")
               ? SQL_ERROR
               : __real_SQLColAttributeW(statement, column, what, text, room, length, number);
}

SQLRETURN __real_SQLColumnsW(SQLHSTMT statement, SQLWCHAR* catalogue, SQLSMALLINT a,
                             SQLWCHAR* schema, SQLSMALLINT b, SQLWCHAR* table, SQLSMALLINT c,
                             SQLWCHAR* column, SQLSMALLINT d);
SQLRETURN __wrap_SQLColumnsW(SQLHSTMT statement, SQLWCHAR* catalogue, SQLSMALLINT a,
                             SQLWCHAR* schema, SQLSMALLINT b, SQLWCHAR* table, SQLSMALLINT c,
                             SQLWCHAR* column, SQLSMALLINT d) {
    return zv::ring::Fails("SQLColumnsW")
               ? SQL_ERROR
               : __real_SQLColumnsW(statement, catalogue, a, schema, b, table, c, column, d);
}

SQLRETURN __real_SQLDescribeColW(SQLHSTMT statement, SQLUSMALLINT column, SQLWCHAR* name,
                                 SQLSMALLINT room, SQLSMALLINT* length, SQLSMALLINT* type,
                                 SQLULEN* size, SQLSMALLINT* digits, SQLSMALLINT* nullable);
SQLRETURN __wrap_SQLDescribeColW(SQLHSTMT statement, SQLUSMALLINT column, SQLWCHAR* name,
                                 SQLSMALLINT room, SQLSMALLINT* length, SQLSMALLINT* type,
                                 SQLULEN* size, SQLSMALLINT* digits, SQLSMALLINT* nullable) {
    return zv::ring::Fails("SQLDescribeColW")
               ? SQL_ERROR
               : __real_SQLDescribeColW(statement, column, name, room, length, type, size, digits,
                                        nullable);
}

SQLRETURN __real_SQLDriverConnectW(SQLHDBC connection, SQLHWND window, SQLWCHAR* text,
                                   SQLSMALLINT size, SQLWCHAR* whole, SQLSMALLINT room,
                                   SQLSMALLINT* length, SQLUSMALLINT completion);
SQLRETURN __wrap_SQLDriverConnectW(SQLHDBC connection, SQLHWND window, SQLWCHAR* text,
                                   SQLSMALLINT size, SQLWCHAR* whole, SQLSMALLINT room,
                                   SQLSMALLINT* length, SQLUSMALLINT completion) {
    return zv::ring::Fails("SQLDriverConnectW")
               ? SQL_ERROR
               : __real_SQLDriverConnectW(connection, window, text, size, whole, room, length,
                                          completion);
}

SQLRETURN __real_SQLExecDirectW(SQLHSTMT statement, SQLWCHAR* text, SQLINTEGER size);
SQLRETURN __wrap_SQLExecDirectW(SQLHSTMT statement, SQLWCHAR* text, SQLINTEGER size) {
    return zv::ring::Fails("SQLExecDirectW") ? SQL_ERROR
                                             : __real_SQLExecDirectW(statement, text, size);
}

SQLRETURN __real_SQLExecute(SQLHSTMT statement);
SQLRETURN __wrap_SQLExecute(SQLHSTMT statement) {
    return zv::ring::Fails("SQLExecute") ? SQL_ERROR : __real_SQLExecute(statement);
}

SQLRETURN __real_SQLFetch(SQLHSTMT statement);
SQLRETURN __wrap_SQLFetch(SQLHSTMT statement) {
    return zv::ring::Fails("SQLFetch") ? SQL_ERROR : __real_SQLFetch(statement);
}

SQLRETURN __real_SQLGetConnectAttrW(SQLHDBC connection, SQLINTEGER what, SQLPOINTER value,
                                    SQLINTEGER room, SQLINTEGER* length);
SQLRETURN __wrap_SQLGetConnectAttrW(SQLHDBC connection, SQLINTEGER what, SQLPOINTER value,
                                    SQLINTEGER room, SQLINTEGER* length) {
    return zv::ring::Fails("SQLGetConnectAttrW")
               ? SQL_ERROR
               : __real_SQLGetConnectAttrW(connection, what, value, room, length);
}

SQLRETURN __real_SQLGetData(SQLHSTMT statement, SQLUSMALLINT column, SQLSMALLINT type,
                            SQLPOINTER buffer, SQLLEN size, SQLLEN* length);
SQLRETURN __wrap_SQLGetData(SQLHSTMT statement, SQLUSMALLINT column, SQLSMALLINT type,
                            SQLPOINTER buffer, SQLLEN size, SQLLEN* length) {
    return zv::ring::Fails("SQLGetData")
               ? SQL_ERROR
               : __real_SQLGetData(statement, column, type, buffer, size, length);
}

SQLRETURN __real_SQLGetInfoW(SQLHDBC connection, SQLUSMALLINT what, SQLPOINTER value,
                             SQLSMALLINT room, SQLSMALLINT* length);
SQLRETURN __wrap_SQLGetInfoW(SQLHDBC connection, SQLUSMALLINT what, SQLPOINTER value,
                             SQLSMALLINT room, SQLSMALLINT* length) {
    return zv::ring::Fails("SQLGetInfoW")
               ? SQL_ERROR
               : __real_SQLGetInfoW(connection, what, value, room, length);
}

SQLRETURN __real_SQLMoreResults(SQLHSTMT statement);
SQLRETURN __wrap_SQLMoreResults(SQLHSTMT statement) {
    return zv::ring::Fails("SQLMoreResults") ? SQL_ERROR : __real_SQLMoreResults(statement);
}

SQLRETURN __real_SQLNumResultCols(SQLHSTMT statement, SQLSMALLINT* count);
SQLRETURN __wrap_SQLNumResultCols(SQLHSTMT statement, SQLSMALLINT* count) {
    return zv::ring::Fails("SQLNumResultCols") ? SQL_ERROR
                                               : __real_SQLNumResultCols(statement, count);
}

SQLRETURN __real_SQLPrepareW(SQLHSTMT statement, SQLWCHAR* text, SQLINTEGER size);
SQLRETURN __wrap_SQLPrepareW(SQLHSTMT statement, SQLWCHAR* text, SQLINTEGER size) {
    return zv::ring::Fails("SQLPrepareW") ? SQL_ERROR : __real_SQLPrepareW(statement, text, size);
}

SQLRETURN __real_SQLPrimaryKeysW(SQLHSTMT statement, SQLWCHAR* catalogue, SQLSMALLINT a,
                                 SQLWCHAR* schema, SQLSMALLINT b, SQLWCHAR* table, SQLSMALLINT c);
SQLRETURN __wrap_SQLPrimaryKeysW(SQLHSTMT statement, SQLWCHAR* catalogue, SQLSMALLINT a,
                                 SQLWCHAR* schema, SQLSMALLINT b, SQLWCHAR* table, SQLSMALLINT c) {
    return zv::ring::Fails("SQLPrimaryKeysW")
               ? SQL_ERROR
               : __real_SQLPrimaryKeysW(statement, catalogue, a, schema, b, table, c);
}

SQLRETURN __real_SQLRowCount(SQLHSTMT statement, SQLLEN* count);
SQLRETURN __wrap_SQLRowCount(SQLHSTMT statement, SQLLEN* count) {
    return zv::ring::Fails("SQLRowCount") ? SQL_ERROR : __real_SQLRowCount(statement, count);
}

SQLRETURN __real_SQLSetConnectAttrW(SQLHDBC connection, SQLINTEGER what, SQLPOINTER value,
                                    SQLINTEGER size);
SQLRETURN __wrap_SQLSetConnectAttrW(SQLHDBC connection, SQLINTEGER what, SQLPOINTER value,
                                    SQLINTEGER size) {
    return zv::ring::Fails("SQLSetConnectAttrW")
               ? SQL_ERROR
               : __real_SQLSetConnectAttrW(connection, what, value, size);
}

SQLRETURN __real_SQLSetEnvAttr(SQLHENV environment, SQLINTEGER what, SQLPOINTER value,
                               SQLINTEGER size);
SQLRETURN __wrap_SQLSetEnvAttr(SQLHENV environment, SQLINTEGER what, SQLPOINTER value,
                               SQLINTEGER size) {
    return zv::ring::Fails("SQLSetEnvAttr") ? SQL_ERROR
                                            : __real_SQLSetEnvAttr(environment, what, value, size);
}

SQLRETURN __real_SQLSetStmtAttrW(SQLHSTMT statement, SQLINTEGER what, SQLPOINTER value,
                                 SQLINTEGER size);
SQLRETURN __wrap_SQLSetStmtAttrW(SQLHSTMT statement, SQLINTEGER what, SQLPOINTER value,
                                 SQLINTEGER size) {
    return zv::ring::Fails("SQLSetStmtAttrW")
               ? SQL_ERROR
               : __real_SQLSetStmtAttrW(statement, what, value, size);
}

SQLRETURN __real_SQLDisconnect(SQLHDBC connection);
SQLRETURN __wrap_SQLDisconnect(SQLHDBC connection) {
    const SQLRETURN code = __real_SQLDisconnect(connection);
    return zv::ring::Fails("SQLDisconnect") ? SQL_ERROR : code;
}

SQLRETURN __real_SQLFreeHandle(SQLSMALLINT kind, SQLHANDLE handle);
SQLRETURN __wrap_SQLFreeHandle(SQLSMALLINT kind, SQLHANDLE handle) {
    const SQLRETURN code = __real_SQLFreeHandle(kind, handle);
    return zv::ring::Fails("SQLFreeHandle") ? SQL_ERROR : code;
}

SQLRETURN __real_SQLFreeStmt(SQLHSTMT statement, SQLUSMALLINT what);
SQLRETURN __wrap_SQLFreeStmt(SQLHSTMT statement, SQLUSMALLINT what) {
    const SQLRETURN code = __real_SQLFreeStmt(statement, what);
    return zv::ring::Fails("SQLFreeStmt") ? SQL_ERROR : code;
}

SQLRETURN __real_SQLGetDiagRecW(SQLSMALLINT kind, SQLHANDLE handle, SQLSMALLINT record,
                                SQLWCHAR* state, SQLINTEGER* native, SQLWCHAR* words,
                                SQLSMALLINT room, SQLSMALLINT* length);
SQLRETURN __wrap_SQLGetDiagRecW(SQLSMALLINT kind, SQLHANDLE handle, SQLSMALLINT record,
                                SQLWCHAR* state, SQLINTEGER* native, SQLWCHAR* words,
                                SQLSMALLINT room, SQLSMALLINT* length) {
    if (!zv::ring::silent) {
        return __real_SQLGetDiagRecW(kind, handle, record, state, native, words, room, length);
    }
    return record == 1 ? zv::ring::Say(state, native, words, room, length) : SQL_NO_DATA;
}
}
