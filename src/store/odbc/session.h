// One open connection, shared by the connection object and its recordsets.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "base/errors.h"
#include "store/dialect/translations.h"
#include "store/odbc/link.h"
#include "store/odbc/odbc_connection.h"
#include "store/odbc/worker.h"
#include "store/rows/open_recordsets.h"

namespace zv::store::odbc {

class Session {
 public:
    /// Connects. Throws like OpenOdbc.
    explicit Session(const OdbcOptions& options);
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    /// False once closed or lost.
    bool IsOpen() const { return link_ != nullptr; }
    bool IsLost() const { return lost_; }
    void Close() noexcept;
    /// Throws error 3704 when closed.
    void CheckOpen() const;
    const ServerFacts& Facts() const { return facts_; }

    /// The statement in the server's terms; kept for the next time.
    std::shared_ptr<const dialect::Translation> Translated(const std::string& sql);
    Result Run(const std::string& sql, std::vector<Parameter> parameters = {},
               bool asStored = false);
    std::vector<Column> Describe(const std::string& sql);
    /// Asked of the server once. Throws DatabaseTable when there is no such table.
    const Table& TableOf(const std::string& name);
    /// Forgets what was learnt of the tables.
    void ForgetSchema();
    /// After a failure: asks for the facts of the statement's tables anew. True when they differ
    /// from those that `translation` was made with, so that it may succeed in its new form.
    bool IsOfOldFacts(const std::string& sql, const dialect::Translation& translation);
    /// A name as the server takes it, in quotes.
    std::string Quoted(const std::string& name) const;

    const std::shared_ptr<rows::OpenRecordsets>& Recordsets() const { return recordsets_; }

 private:
    /// What a job answers on the worker's thread, within the time limit.
    template <class Job>
    auto Do(Job job, std::chrono::milliseconds limit, bool connecting = false);
    [[noreturn]] void GiveUp(bool connecting);
    void Lose() noexcept;
    const dialect::SchemaInfo& SchemaFor(const std::string& sql);
    const Table& FindTable(const std::string& name);

    OdbcOptions options_;
    std::unique_ptr<Worker> worker_;
    std::shared_ptr<Link> link_;
    bool lost_ = false;
    ServerFacts facts_;
    dialect::Translations translations_;
    std::map<std::string, Table> tables_;  ///< by lower-case name
    dialect::SchemaInfo schema_;
    bool knowsIndex_ = false;
    bool inDoubt_ = false;  ///< a statement failed since the facts were learnt
    std::shared_ptr<rows::OpenRecordsets> recordsets_ = std::make_shared<rows::OpenRecordsets>();
};

}  // namespace zv::store::odbc
