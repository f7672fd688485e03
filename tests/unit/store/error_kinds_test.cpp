// What engines mean by their codes.
#include <gtest/gtest.h>
#include <sqlite3.h>

#include "engines.h"
#include "store/ado_error_kinds.h"
#include "store/odbc/diagnostics.h"
#include "store/odbc/error_kinds.h"
#include "store/sqlite/error_kinds.h"
#include "store/sqlite/sqlite_connection.h"

namespace zv::store {
namespace {

TEST(ErrorKinds, OfTheEmbeddedEngineFollowItsResultCodes) {
    struct Case {
        int code;
        ErrorKind kind;
    };
    for (const Case& given : {Case{SQLITE_BUSY, ErrorKind::Busy},
                              {SQLITE_BUSY_SNAPSHOT, ErrorKind::Busy},
                              {SQLITE_LOCKED, ErrorKind::Busy},
                              {SQLITE_FULL, ErrorKind::DiskFull},
                              {SQLITE_NOMEM, ErrorKind::OutOfMemory},
                              {SQLITE_IOERR_NOMEM, ErrorKind::OutOfMemory},
                              {SQLITE_READONLY, ErrorKind::ReadOnly},
                              {SQLITE_READONLY_DBMOVED, ErrorKind::ReadOnly},
                              {SQLITE_CANTOPEN, ErrorKind::CannotOpen},
                              {SQLITE_NOTADB, ErrorKind::NotADatabase},
                              {SQLITE_CORRUPT, ErrorKind::Damaged},
                              {SQLITE_IOERR_READ, ErrorKind::InputOutput},
                              {SQLITE_CONSTRAINT_UNIQUE, ErrorKind::Duplicate},
                              {SQLITE_CONSTRAINT_PRIMARYKEY, ErrorKind::Duplicate},
                              {SQLITE_CONSTRAINT_NOTNULL, ErrorKind::RuleBroken},
                              {SQLITE_CONSTRAINT_CHECK, ErrorKind::RuleBroken},
                              {SQLITE_TOOBIG, ErrorKind::TooLarge},
                              {SQLITE_MISMATCH, ErrorKind::WrongValue},
                              {SQLITE_ERROR, ErrorKind::Other}}) {
        EXPECT_EQ(sqlite::KindOf(given.code, ErrorNumber::DatabaseFailure), given.kind)
            << given.code;
    }
    EXPECT_EQ(sqlite::KindOf(SQLITE_ERROR, ErrorNumber::DatabaseTable), ErrorKind::NoTable);
    EXPECT_EQ(sqlite::KindOf(SQLITE_ERROR, ErrorNumber::DatabaseColumn), ErrorKind::NoColumn);
    EXPECT_EQ(sqlite::KindOf(SQLITE_ERROR, ErrorNumber::DatabaseStatement),
              ErrorKind::BadStatement);
}

TEST(ErrorKinds, OfServersFollowStatesNumbersAndWords) {
    struct Case {
        const char* state;
        int native;
        const char* words;
        bool connecting;
        ErrorKind kind;
    };
    for (const Case& given :
         {Case{"23505", 1, "duplicate key value", false, ErrorKind::Duplicate},
          {"23502", 1, "null value in column", false, ErrorKind::RuleBroken},
          {"22001", 1, "value too long", false, ErrorKind::TooLarge},
          {"22P02", 1, "invalid input syntax for type integer", false, ErrorKind::WrongValue},
          {"25006", 1, "cannot execute UPDATE in a read-only transaction", false,
           ErrorKind::ReadOnly},
          {"40P01", 1, "deadlock detected", false, ErrorKind::Busy},
          {"40001", 1, "could not serialize access", false, ErrorKind::Busy},
          {"55P03", 1, "canceling statement due to lock timeout", false, ErrorKind::Busy},
          {"42501", 1, "permission denied for table x", false, ErrorKind::NoPermission},
          {"53100", 1, "could not extend file", false, ErrorKind::DiskFull},
          {"53200", 1, "out of memory", false, ErrorKind::OutOfMemory},
          {"58030", 1, "could not read block", false, ErrorKind::InputOutput},
          {"XX001", 1, "invalid page", false, ErrorKind::Damaged},
          {"42P01", 1, "relation does not exist", false, ErrorKind::NoTable},
          {"42703", 1, "column does not exist", false, ErrorKind::NoColumn},
          {"42601", 1, "syntax error", false, ErrorKind::BadStatement},
          {"57014", 1, "canceling statement", false, ErrorKind::TimeLimit},
          {"08S01", 1, "link failure", false, ErrorKind::ConnectionLost},
          {"28P01", 1, "password authentication failed", true, ErrorKind::LoginRefused},
          {"08001", 1, "connection refused", true, ErrorKind::ServerUnknown},
          {"08001", 1, "FATAL: database \"x\" does not exist", true, ErrorKind::DatabaseUnknown},
          {"08001", 1, "sorry, too many clients already", true, ErrorKind::TooManyConnections},
          {"IM002", 0, "Data source name not found", true, ErrorKind::DriverMissing},
          {"23000", 2627, "Violation of PRIMARY KEY constraint", false, ErrorKind::Duplicate},
          {"23000", 547, "conflicted with the CHECK constraint", false, ErrorKind::RuleBroken},
          {"22001", 8152, "String or binary data would be truncated", false, ErrorKind::TooLarge},
          {"42000", 229, "The SELECT permission was denied", false, ErrorKind::NoPermission},
          {"42000", 1105, "Could not allocate space", false, ErrorKind::DiskFull},
          {"25000", 3906, "the database is read-only", false, ErrorKind::ReadOnly},
          {"40001", 1205, "deadlocked", false, ErrorKind::Busy},
          {"HY000", 5, "[SQLite]database is locked (5)", false, ErrorKind::Busy},
          {"HY000", 13, "[SQLite]database or disk is full (13)", false, ErrorKind::DiskFull},
          {"HY000", 19, "[SQLite]UNIQUE constraint failed: t.a (19)", false, ErrorKind::Duplicate},
          {"HY000", 8, "[SQLite]attempt to write a readonly database (8)", false,
           ErrorKind::ReadOnly},
          {"HY000", 1, "[SQLite]no such column: x (1)", false, ErrorKind::NoColumn},
          {"HY000", 9999, "something else", false, ErrorKind::Other}}) {
        EXPECT_EQ(
            odbc::KindOf(odbc::Diagnose(given.state, given.native, given.words, given.connecting)),
            given.kind)
            << given.state << ' ' << given.native << ' ' << given.words;
    }
}

TEST(ErrorKinds, OfProvidersFollowTheNumbersOfAdo) {
    const auto kind = [](std::uint32_t number) {
        return KindOfAdoError(static_cast<ErrorNumber>(number));
    };
    EXPECT_EQ(kind(0x80040E14), ErrorKind::BadStatement);
    EXPECT_EQ(kind(0x80040E37), ErrorKind::NoTable);
    EXPECT_EQ(kind(0x80040E10), ErrorKind::NoColumn);
    EXPECT_EQ(kind(0x80040E4D), ErrorKind::LoginRefused);
    EXPECT_EQ(kind(0x80040E31), ErrorKind::TimeLimit);
    EXPECT_EQ(kind(0x80040E2F), ErrorKind::RuleBroken);
    EXPECT_EQ(kind(0x80040E38), ErrorKind::Changed);
    EXPECT_EQ(kind(3706), ErrorKind::DriverMissing);
    EXPECT_EQ(kind(0x80004005), ErrorKind::Other);
    // A module that is not there is no database file.
    EXPECT_EQ(kind(53), ErrorKind::Other);
}

TEST(ErrorKinds, OfProvidersFollowWhatTheyListWhereTheNumberIsGeneral) {
    struct Case {
        std::uint32_t number;
        const char* source;
        const char* words;
        ServerCode code;
        ErrorKind kind;
    };
    const char* const sqlServer = "Microsoft OLE DB Provider for SQL Server";
    const char* const jet = "Microsoft JET Database Engine";
    const char* const other = "Provider of somebody";
    for (const Case& given :
         {Case{0x80040E14, sqlServer, "Invalid object name", {"42S02", 208}, ErrorKind::NoTable},
          {0x80040E14, sqlServer, "Invalid column name", {"42S22", 207}, ErrorKind::NoColumn},
          {0x80040E14, sqlServer, "Incorrect syntax", {"42000", 170}, ErrorKind::BadStatement},
          {0x80040E14, sqlServer, "was deadlocked", {"40001", 1205}, ErrorKind::Busy},
          {0x80040E2F, sqlServer, "PRIMARY KEY", {"23000", 2627}, ErrorKind::Duplicate},
          {0x80040E2F, sqlServer, "CHECK", {"23000", 547}, ErrorKind::RuleBroken},
          {0x80004005,
           sqlServer,
           "Cannot open database",
           {"08004", 4060},
           ErrorKind::DatabaseUnknown},
          {0x80004005, sqlServer, "General network error", {"", 11}, ErrorKind::ConnectionLost},
          {0x80004005, jet, "Disk or network error", {"3043", -1}, ErrorKind::ConnectionLost},
          {0x80004005, sqlServer, "Could not allocate space", {"42000", 1105}, ErrorKind::DiskFull},
          // The number of another server means something else.
          {0x80004005, other, "an unknown error", {"HY000", 1105}, ErrorKind::Other},
          {0x80004005, other, "duplicate key", {"23505", 1}, ErrorKind::Duplicate},
          {0x80004005, other, "permission denied", {"42501", 1}, ErrorKind::NoPermission},
          {0x80004005, other, "no login", {"28000", 1}, ErrorKind::LoginRefused},
          {0x80004005, other, "too late", {"57014", 1}, ErrorKind::TimeLimit},
          {0x80004005, other, "gone", {"08S01", 0}, ErrorKind::ConnectionLost},
          {0x80004005, other, "[SQLite]database is locked (5)", {"HY000", 0}, ErrorKind::Busy},
          {0x80004005,
           jet,
           "would create duplicate values",
           {"3022", -105121349},
           ErrorKind::Duplicate},
          {0x80004005, jet, "currently locked by user 'x'", {"3260", -1}, ErrorKind::Busy},
          {0x80004005, jet, "Could not update; currently locked.", {"", 0}, ErrorKind::Busy},
          {0x80004005, jet, "not a valid bookmark", {"3159", -1}, ErrorKind::Other},
          // A number that says enough is not overruled.
          {0x80040E31, sqlServer, "Timeout expired", {"HYT00", 0}, ErrorKind::TimeLimit},
          {0x80040E57, other, "too long", {"42501", 0}, ErrorKind::TooLarge},
          {0x80040E14,
           other,
           "the name contains: database is locked",
           {"", 0},
           ErrorKind::BadStatement}}) {
        const RuntimeError error(static_cast<ErrorNumber>(given.number), given.words, given.source);
        EXPECT_EQ(KindOfProviderError(error, {given.code}), given.kind)
            << given.words << ' ' << given.code.sqlState;
    }
    const RuntimeError error(ErrorNumber::DatabaseFailure, "failed", other);
    EXPECT_EQ(KindOfProviderError(error, {}), ErrorKind::Other);
    // What a component of ours has reported stays.
    for (const ErrorKind reported : {ErrorKind::RuleBroken, ErrorKind::Busy, ErrorKind::Refused}) {
        EXPECT_EQ(KindOfProviderError(
                      RuntimeError(ErrorNumber::DatabaseStatement, "x", other).Of(reported), {}),
                  reported);
    }
    EXPECT_EQ(KindOfProviderError(error, {{"HY000", 0}, {"23505", 0}}), ErrorKind::Duplicate);
}

class ErrorKindsOfEngines : public EngineTest {};
ZV_ON_EVERY_ENGINE(ErrorKindsOfEngines);

ErrorKind KindOfFailure(Connection& connection, const std::string& sql) {
    try {
        connection.Execute(sql);
    } catch (const RuntimeError& error) {
        EXPECT_FALSE(error.Text().empty());
        return error.Kind();
    }
    ADD_FAILURE() << sql << " does not fail";
    return ErrorKind::Own;
}

TEST_P(ErrorKindsOfEngines, DistinguishTheUsualMistakes) {
    EXPECT_EQ(KindOfFailure(*connection_, "update noTable set a=1"), ErrorKind::NoTable);
    EXPECT_EQ(KindOfFailure(*connection_, "update tTaskList set noColumn=1"), ErrorKind::NoColumn);
    connection_->Execute("insert into tTaskList(fID,fType) values(1,0)");
    EXPECT_EQ(KindOfFailure(*connection_, "insert into tTaskList(fID,fType) values(1,0)"),
              ErrorKind::Duplicate);
    EXPECT_EQ(KindOfFailure(*connection_, "update tTaskList set fType=0; delete from tTaskList"),
              ErrorKind::Refused);
}

}  // namespace
}  // namespace zv::store
