// The engines on which the store suite runs.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "database_fixture.h"
#include "store/connection.h"

namespace zv::store {

enum class EngineKind { Embedded, SqliteOverOdbc, PostgreSql };

/// What engines cannot do alike. A test that needs something asks for it by name.
struct EngineTraits {
    EngineKind kind;
    const char* name;
    /// The source of errors that the translation of a statement finds.
    const char* dialect;
    /// A name in quotes that is no column is an error. Builds of SQLite for drivers take it for a
    /// text.
    bool knowsItsColumns;
    /// Names of columns and aliases keep their letter case.
    bool keepsNameCase;
    /// A text with a character 0 in it is kept whole.
    bool keepsNulCharacters;
    /// A statement's text may hold characters beyond the first 65,536. The driver manager loses
    /// them for drivers without wide functions.
    bool takesRareCharactersInStatements;
    /// Texts outside ASCII compare without regard to case, too.
    bool foldsAllAlphabets;
    /// The first "select *" after another program added a column has it. The driver for SQLite
    /// takes the columns before the engine has looked at the file.
    bool seesNewColumnsAtOnce;
};

const EngineTraits& TraitsOf(EngineKind kind);

/// An empty database with the tables of the system, gone at the end of the test.
class TestDatabase {
 public:
    virtual ~TestDatabase() = default;
    virtual std::unique_ptr<Connection> Connect() = 0;
    /// Statements in the engine's own language.
    virtual std::unique_ptr<Connection> ConnectRaw() = 0;
};

/// Why the engine cannot be tested on this machine; empty when it can.
std::string WhyMissing(EngineKind kind);
std::unique_ptr<TestDatabase> MakeTestDatabase(EngineKind kind);

/// Tests of this class run once an engine.
class EngineTest : public ::testing::TestWithParam<EngineKind> {
 protected:
    void SetUp() override;

    const EngineTraits& Traits() const { return TraitsOf(GetParam()); }
    /// The tables that a database may do without.
    void MakeSideTables();
    std::unique_ptr<Connection> Another() { return database_->Connect(); }
    std::unique_ptr<Recordset> Read(const std::string& sql) {
        return connection_->Open(sql, CursorType::ForwardOnly, LockType::ReadOnly);
    }
    std::unique_ptr<Recordset> Edit(const std::string& sql) {
        return connection_->Open(sql, CursorType::Keyset, LockType::Optimistic);
    }
    std::string Rows(const std::string& sql) { return RowsOf(*connection_, sql); }
    void Execute(const std::string& sql) { connection_->Execute(sql); }

    std::unique_ptr<TestDatabase> database_;
    std::unique_ptr<Connection> connection_;
};

std::string EngineName(const ::testing::TestParamInfo<EngineKind>& info);

#define ZV_ON_EVERY_ENGINE(suite)                                                       \
    INSTANTIATE_TEST_SUITE_P(Engines, suite,                                            \
                             ::testing::Values(::zv::store::EngineKind::Embedded,       \
                                               ::zv::store::EngineKind::SqliteOverOdbc, \
                                               ::zv::store::EngineKind::PostgreSql),    \
                             ::zv::store::EngineName)

}  // namespace zv::store
