#include "zvdb/import/embedded_source.h"

#include <filesystem>

#include "base/path.h"
#include "store/sqlite/journal_mode.h"
#include "zvdb/check.h"
#include "zvdb/import/embedded_rows.h"

namespace zv::zvdb {
namespace {

namespace fs = std::filesystem;

bool HasPendingLog(fs::path file) {
    file += "-wal";
    std::error_code failed;
    const auto size = fs::file_size(file, failed);
    return !failed && size > 0;
}

[[noreturn]] void Throw(const EngineError& error) {
    try {
        ThrowFileError(error);
    } catch (const FileError& readable) {
        throw SourceError(readable.what());
    }
}

/// The engine's errors while rows are read, as errors of the source.
class SourceRows : public RowReader {
 public:
    SourceRows(Engine& engine, const std::string& table, const std::vector<std::string>& columns)
        : rows_(engine, table, columns) {}
    bool Next(std::vector<store::Value>& row) override {
        try {
            return rows_.Next(row);
        } catch (const EngineError& error) {
            Throw(error);
        }
    }
    const std::vector<CellRemark>& Remarks() const override { return rows_.Remarks(); }

 private:
    EmbeddedRows rows_;
};

}  // namespace

EmbeddedSource::EmbeddedSource(const std::string& path) : path_(path) {
    try {
        CheckFile(path);
        Open();
        ReadTables();
    } catch (const FileError& error) {
        throw SourceError(error.what());
    } catch (const ShareError& error) {
        throw SourceError(error.what());
    } catch (const EngineError& error) {
        Throw(error);
    }
}

std::unique_ptr<Engine> OpenToRead(const std::string& path) {
    // A file with a write-ahead log is opened for writing, so that the empty log which every reader
    // makes goes away again; without one, opening for writing could finish somebody's broken-off
    // change.
    const bool log = store::sqlite::UsesWriteAheadLog(path);
    const bool pending = HasPendingLog(PathOf(path));
    auto engine =
        std::make_unique<Engine>(path, log ? SQLITE_OPEN_READWRITE : SQLITE_OPEN_READONLY);
    if (pending) {
        // The last one to close would move the log into the file.
        sqlite3_db_config(engine->Handle(), SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
    }
    engine->Run("pragma query_only=on");
    // One snapshot for everything, whatever others write meanwhile.
    engine->Run("begin; select count(*) from sqlite_master");
    return engine;
}

void EmbeddedSource::Open() {
    engine_ = OpenToRead(path_);
    // Indexes too: rows could be found or missed by them.
    const std::string damage = engine_->Text("pragma integrity_check(1)");
    if (damage != "ok") throw SourceError("the file is damaged: " + damage);
}

void EmbeddedSource::ReadTables() {
    Statement names(*engine_,
                    "select name from sqlite_master where type='table' and name not like "
                    "'sqlite\\_%' escape '\\' order by rowid");
    while (names.Step()) {
        SourceTable& table = tables_.emplace_back();
        table.name = names.Text(0);
        table.rows = engine_->Number("select count(*) from " + QuotedName(table.name));
        Statement columns(*engine_, "select name from pragma_table_info(?)");
        columns.Bind(table.name);
        while (columns.Step()) table.columns.push_back(columns.Text(0));
    }
}

std::unique_ptr<RowReader> EmbeddedSource::Read(const SourceTable& table,
                                                const std::vector<std::string>& columns) {
    try {
        return std::make_unique<SourceRows>(*engine_, QuotedName(table.name), columns);
    } catch (const EngineError& error) {
        Throw(error);
    }
}

}  // namespace zv::zvdb
