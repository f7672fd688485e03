// The database as a scenario arranges it: how the control and its host open connections.
#pragma once

#include <memory>
#include <string>

#include "platform/scripted/scripted_machine.h"
#include "script_engine.h"
#include "store/connection_opener.h"

namespace zv::script {

/// Opens databases of the scenarios' engine, whatever kind is asked for, in the folder that the
/// played system takes for its disk: what a scenario means by a path is known only here.
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

/// The connection of the host application, apart from the control's.
class HostDatabase {
 public:
    HostDatabase(const platform::scripted::ScriptedFiles& files, ScriptEngine& engine)
        : files_(files), engine_(engine) {}
    /// Makes an empty database with the full schema.
    void Create(const std::string& path);
    void AddSideTables();
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
