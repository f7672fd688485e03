#include "zvdb/import/embedded_target.h"

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <system_error>
#include <utility>

#include "base/errors.h"
#include "base/path.h"
#include "store/sqlite/create_database.h"
#include "store/sqlite/journal_mode.h"
#include "zvdb/check.h"
#include "zvdb/import/embedded_rows.h"
#include "zvdb/import/interruption.h"
#include "zvdb/own_modules.h"
#include "zvdb/side_tables.h"

namespace zv::zvdb {
namespace {

namespace fs = std::filesystem;

std::vector<std::string> Names(const std::vector<ColumnRule>& columns) {
    std::vector<std::string> names;
    names.reserve(columns.size());
    for (const ColumnRule& column : columns) names.push_back(column.name);
    return names;
}

}  // namespace

EmbeddedTarget::EmbeddedTarget(const std::string& path, std::string source, Progress& progress)
    : path_(path),
      source_(std::move(source)),
      progress_(progress),
      isNew_(!fs::exists(PathOf(path))) {
    if (isNew_) {
        const fs::path folder = PathOf(path).parent_path();
        if (!folder.empty() && !fs::is_directory(folder)) {
            throw TargetError("its folder does not exist");
        }
        return;
    }
    try {
        CheckFile(path);
        Guarded([&] {
            engine_ = std::make_unique<Engine>(path);
            const Report report = CheckSchema(*engine_);
            if (!report.problems.empty()) throw TargetError(report.problems.front());
        });
    } catch (const FileError& error) {
        throw TargetError(error.what());
    }
}

EmbeddedTarget::~EmbeddedTarget() {
    insert_.reset();
    if (engine_ && sqlite3_get_autocommit(engine_->Handle()) == 0) {
        sqlite3_exec(engine_->Handle(), "rollback", nullptr, nullptr, nullptr);
    }
    engine_.reset();
}

void EmbeddedTarget::MakeNew() {
    try {
        file_.reset();
        file_.emplace(path_, source_, false);
        store::MakeSqliteTables(file_->Part());
    } catch (const RuntimeError& error) {
        throw TargetError(error.Text());
    } catch (const FileError& error) {
        throw TargetError(error.what());
    } catch (const fs::filesystem_error& error) {
        throw TargetError("the file cannot be created (" + error.code().message() + ")");
    }
}

void EmbeddedTarget::Fail(const EngineError& error) {
    if (error.Code() == SQLITE_INTERRUPT) throw Interrupted();
    throw TargetError(WhyNotWritten(error));
}

TargetLimits EmbeddedTarget::Limits() const {
    TargetLimits limits;
    limits.strict = false;
    limits.datesAreTexts = true;
    return limits;
}

std::vector<std::pair<std::string, std::int64_t>> EmbeddedTarget::RowsPresent() {
    std::vector<std::pair<std::string, std::int64_t>> present;
    if (isNew_) return present;
    Guarded([&] {
        for (const auto& [table, all] : CheckSchema(*engine_).counts) {
            if (table == kMetaTable) continue;
            const std::int64_t rows = all - OwnModulesIn(table);
            if (rows > 0) present.emplace_back(table, rows);
        }
    });
    return present;
}

void EmbeddedTarget::TakeSideTables() {
    if (!isNew_) {
        try {
            Guarded([&] { MissingSideTables(*InspectEmbedded(*engine_)); });
        } catch (const FileError& error) {
            throw TargetError(error.what());
        }
    }
    takesSideTables_ = true;
    std::ranges::copy_if(SideTables(), std::back_inserter(tables_),
                         [](const TableRule& table) { return table.name != kMetaTable; });
}

std::int64_t EmbeddedTarget::OwnModulesIn(const std::string& table) {
    if (table != kModuleTable) return 0;
    return engine_->Number("select count(*) from " + table + " where " + IsOwnModule());
}

void EmbeddedTarget::CheckWritable() {
    if (!isNew_) {
        Guarded([&] { engine_->Run("begin immediate; rollback"); });
        return;
    }
    MakeNew();
    file_.reset();
}

void EmbeddedTarget::Begin(bool replace) {
    if (isNew_) MakeNew();
    Guarded([&] {
        if (isNew_) {
            writeAhead_ = store::sqlite::UsesWriteAheadLog(file_->Part());
            engine_ = std::make_unique<Engine>(file_->Part(), SQLITE_OPEN_READWRITE,
                                               Engine::Users::Alone);
            // A failure throws the file away, so there is nothing to go back to.
            engine_->Run("pragma main.journal_mode=off");
        }
        engine_->Run("pragma cache_size=-65536");
        if (!attached_.empty()) {
            // Within a transaction nothing can be attached.
            Statement attach(*engine_, "attach ? as source");
            attach.Bind(attached_).Run();
        }
        sqlite3_progress_handler(
            engine_->Handle(), 10000, [](void*) { return IsInterrupted() ? 1 : 0; }, nullptr);
        // Not immediately: that would lock an attached source for writing, too, and its readers
        // would keep the change from being committed. The first statement locks the target alone.
        engine_->Run("begin");
        engine_->Run(std::string("delete from ") + kModuleTable + " where " + IsOwnModule());
        if (takesSideTables_) MakeSideTables();
        if (replace) Empty();
    });
    if (!RowsPresent().empty()) throw TargetError("somebody else filled it meanwhile");
}

void EmbeddedTarget::MakeSideTables() {
    try {
        for (const SidePart& part : MissingSideTables(*InspectEmbedded(*engine_))) {
            engine_->Run(part.statement);
        }
    } catch (const FileError& error) {
        throw TargetError(error.what());
    }
}

void EmbeddedTarget::Empty() {
    for (const auto& [table, rows] : CheckSchema(*engine_).counts) {
        if (table == kMetaTable) continue;
        engine_->Run("delete from " + QuotedName(table));
        engine_->Run("delete from sqlite_sequence where name='" + table + "'");
    }
}

bool EmbeddedTarget::Attach(const TableSource& source) {
    // One handle opens both, and a share's is not for a source in write-ahead mode.
    if (isNew_ || !store::sqlite::IsOnShare(path_)) attached_ = source.EmbeddedFile();
    return !attached_.empty();
}

std::unique_ptr<RowReader> EmbeddedTarget::ReadAttached(const std::string& table,
                                                        const std::vector<std::string>& columns) {
    return Guarded([&] {
        return std::make_unique<EmbeddedRows>(*engine_, "source." + QuotedName(table), columns);
    });
}

void EmbeddedTarget::CopyAttached(const TableRule& table, const std::vector<ColumnRule>& columns,
                                  const std::string& from, const std::vector<std::string>& names) {
    // Without lists of columns, and with the same indexes at both ends, the engine moves the rows
    // as they are stored.
    const bool isWhole = Names(columns) == names && Names(columns) == Names(table.columns) &&
                         Names(columns) == AttachedColumns(from);
    const std::string to = "insert into main." + QuotedName(table.name);
    const std::string source = " from source." + QuotedName(from);
    Guarded([&] {
        engine_->Run(isWhole ? to + " select *" + source
                             : to + "(" + QuotedList(Names(columns)) + ") select " +
                                   QuotedList(names) + source);
    });
}

std::vector<std::string> EmbeddedTarget::AttachedColumns(const std::string& table) {
    std::vector<std::string> columns;
    Statement names(*engine_, "select name from pragma_table_info(?,'source')");
    names.Bind(table);
    while (names.Step()) columns.push_back(names.Text(0));
    return columns;
}

void EmbeddedTarget::BeginTable(const TableRule& table, const std::vector<ColumnRule>& columns) {
    std::string places;
    for (std::size_t i = 0; i < columns.size(); ++i) places += i == 0 ? "?" : ",?";
    Guarded([&] {
        if (!indexes_) indexes_.emplace(*engine_);
        insert_.emplace(*engine_, "insert into " + QuotedName(table.name) + "(" +
                                      QuotedList(Names(columns)) + ") values(" + places + ")");
    });
}

void EmbeddedTarget::Bind(const store::Value& value) {
    if (const std::string* text = value.TextIf()) {
        insert_->Bind(*text);
    } else if (const auto* number = std::get_if<std::int64_t>(&value.Data())) {
        insert_->Bind(*number);
    } else if (const auto* real = std::get_if<double>(&value.Data())) {
        insert_->Bind(*real);
    } else if (value.IsNull()) {
        insert_->BindNull();
    } else {
        throw TargetError("a date came in another form than the file holds them");
    }
}

void EmbeddedTarget::Add(const std::vector<store::Value>& row) {
    Guarded([&] {
        for (const store::Value& value : row) Bind(value);
        insert_->Run();
    });
}

void EmbeddedTarget::EndTable() {
    insert_.reset();
}

void EmbeddedTarget::Finish() {
    if (indexes_) Guarded([&] { indexes_->MakeAgain(progress_); });
}

std::unique_ptr<RowReader> EmbeddedTarget::Read(const TableRule& table,
                                                const std::vector<ColumnRule>& columns) {
    return Guarded([&] {
        return std::make_unique<EmbeddedRows>(*engine_, QuotedName(table.name), Names(columns));
    });
}

std::vector<std::string> EmbeddedTarget::Warnings() {
    return isNew_ ? NewFile::ToSetAside(path_) : std::vector<std::string>();
}

void EmbeddedTarget::RefuseDamage() {
    const auto damage = InspectEmbedded(*engine_)->Damage();
    if (!damage.empty()) throw TargetError(damage.front());
}

void EmbeddedTarget::RegisterModules() {
    Guarded([&] {
        for (const std::string& statement : RegisterOwnModules()) engine_->Run(statement);
    });
}

void EmbeddedTarget::Commit() {
    Guarded([&] {
        // What is in a file that is there may have been damaged before.
        if (!isNew_) RefuseDamage();
        engine_->Run("commit");
        if (isNew_ && writeAhead_) {
            engine_->Run("pragma main.locking_mode=normal");
            if (store::sqlite::SetJournalMode(engine_->Handle(), "wal") != SQLITE_OK) {
                engine_->Fail("write-ahead mode");
            }
        }
    });
    engine_.reset();
    if (!isNew_) return;
    if (fs::exists(PathOf(path_))) throw TargetError("somebody else made the file meanwhile");
    try {
        Guarded([&] { PlaceAndCheck(*file_, path_); });
    } catch (const FileError& error) {
        throw TargetError(error.what());
    } catch (const fs::filesystem_error& error) {
        throw TargetError(error.code().message());
    }
}

std::vector<std::string> EmbeddedTarget::CheckImported() {
    return CheckDatabase(path_).problems;
}

}  // namespace zv::zvdb
