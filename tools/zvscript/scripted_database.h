// The database as a scenario arranges it: how connections are opened, and what is watched on them.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/scripted/scripted_machine.h"
#include "script_engine.h"
#include "store/connection_opener.h"
#include "store/statement_log.h"

namespace zv::script {

/// Opens databases of the scenarios' engine, whatever kind is asked for.
class ScriptedOpener : public store::ConnectionOpener {
 public:
    ScriptedOpener(const platform::scripted::ScriptedFiles& files, ScriptEngine& engine)
        : files_(files), engine_(engine) {}
    void FailNext() { failNext_ = true; }
    std::unique_ptr<store::Connection> Open(const store::ConnectionSettings& settings) override;

 private:
    const platform::scripted::ScriptedFiles& files_;
    ScriptEngine& engine_;
    bool failNext_ = false;
};

/// Keeps the statements and makes one of those to come fail.
class ScriptedStatements : public store::StatementObserver {
 public:
    /// The `position`-th statement or row update from now on, 1 the next, fails with that text.
    void Fail(int position, std::string text);
    /// One of the statements to come is to fail.
    bool FailsLater() const { return untilFailure_ > 0; }
    void OnStatement(const std::string& sql) override;
    void OnRowUpdate() override { Count(); }

    std::vector<std::string> lines;
    std::function<void(const std::string&)> watch;  ///< sees each statement; may be empty

 private:
    void Count();

    int untilFailure_ = 0;  ///< 0: none planned
    std::string failureText_;
};

/// The connection of the host application, apart from the control's.
class HostDatabase {
 public:
    HostDatabase(const platform::scripted::ScriptedFiles& files, ScriptEngine& engine)
        : files_(files), engine_(engine) {}
    /// Makes an empty database with the full schema.
    void Create(const std::string& path);
    /// The file that later statements run on; it need not exist.
    void Use(std::string path);
    /// These throw RuntimeError.
    void Execute(const std::string& sql);
    /// A line a row, columns joined by "|", null empty, dates as stored.
    std::string Rows(const std::string& query);
    void Close() { connection_.reset(); }

 private:
    store::Connection& Open();

    const platform::scripted::ScriptedFiles& files_;
    ScriptEngine& engine_;
    std::string path_;
    std::unique_ptr<store::Connection> connection_;
};

}  // namespace zv::script
