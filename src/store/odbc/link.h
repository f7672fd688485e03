// The conversation with a driver, on whatever thread it is held.
#pragma once

#include <atomic>
#include <chrono>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

#include "store/engines/engines.h"
#include "store/odbc/columns.h"
#include "store/odbc/diagnostics.h"
#include "store/odbc/handle.h"
#include "store/odbc/parameters.h"
#include "store/odbc/row_reader.h"
#include "store/odbc/row_store.h"
#include "store/statement_cache.h"

namespace zv::store::odbc {

struct LinkOptions {
    std::string connectionString;
    std::string name;
    std::vector<std::string> secrets;
    std::chrono::seconds connectLimit{15};
    std::chrono::seconds statementLimit{30};
};

struct ServerFacts {
    const engines::Engine* engine = nullptr;  ///< never null once connected
    std::string product;                      ///< as the driver calls it
    std::string quote;                        ///< around names; empty when the driver has none
    ReadingFacts reading;
};

struct Result {
    std::vector<Column> columns;  ///< empty when the statement yields no rows
    RowStore rows;
    int changed = -1;  ///< rows changed, -1 when the driver does not report it
};

/// One connection to a driver. Everything but IsLost and Cancel belongs to one thread at a time.
/// Operations throw RuntimeError.
class Link {
 public:
    explicit Link(LinkOptions options) : options_(std::move(options)) {}
    ~Link();
    Link(const Link&) = delete;
    Link& operator=(const Link&) = delete;

    void Connect();
    const ServerFacts& Facts() const { return facts_; }
    const LinkOptions& Options() const { return options_; }
    /// A statement failed because the connection is gone.
    bool IsLost() const { return lost_; }

    /// Runs a statement and reads all its rows. With parameters it is prepared and kept.
    /// `asStored`: dates that are stored as texts come as these.
    Result Run(const std::string& sql, const std::vector<Parameter>& parameters, bool asStored);
    /// The columns that a statement will yield; finds its errors without running it.
    std::vector<Column> Describe(const std::string& sql);
    /// No columns when there is no such table.
    Table DescribeTable(const std::string& name);

    /// Asks the driver to end the statement under way. May be called from any thread and may itself
    /// take as long as the network likes.
    void Cancel();

 private:
    static constexpr std::size_t kKeptStatements = 16;

    void ReadFacts();
    std::string Info(SQLUSMALLINT what) const;
    StatementHandle NewStatement();
    SQLHSTMT PreparedFor(const std::string& sql);
    void Forget(SQLHSTMT statement);
    std::vector<Column> ColumnsOf(SQLHSTMT statement);
    /// Of the current row; nothing for null.
    std::string TextOf(SQLHSTMT statement, SQLUSMALLINT column);
    int NumberOf(SQLHSTMT statement, SQLUSMALLINT column);
    /// False behind the last row.
    bool Fetch(SQLHSTMT statement);
    Result Finish(SQLHSTMT statement, bool asStored);
    template <class Call>
    void Check(SQLHSTMT statement, Call call);
    [[noreturn]] void Throw(SQLHSTMT statement);

    LinkOptions options_;
    EnvironmentHandle environment_;
    ConnectionHandle connection_;
    bool connected_ = false;
    ServerFacts facts_;
    StatementCache<StatementHandle> prepared_{kKeptStatements};
    std::atomic<bool> lost_{false};
    std::mutex runningMutex_;
    SQLHSTMT running_ = SQL_NULL_HSTMT;
};

}  // namespace zv::store::odbc
