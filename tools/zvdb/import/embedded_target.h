// A file of the embedded engine as the target of an import. A file that is not there yet is filled
// under another name and renamed at the end; one that is there is filled in one transaction, so
// that programs which have it open see all or nothing.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "zvdb/engine.h"
#include "zvdb/import/table_target.h"
#include "zvdb/indexes_aside.h"
#include "zvdb/new_file.h"
#include "zvdb/progress.h"

namespace zv::zvdb {

class EmbeddedTarget : public TableTarget {
 public:
    /// Throws TargetError when something is there that is no database of the system.
    /// A new file gets the rights of `source`, unless that is empty.
    EmbeddedTarget(const std::string& path, std::string source, Progress& progress);
    ~EmbeddedTarget() override;

    std::string Kind() const override { return isNew_ ? "new embedded file" : "embedded file"; }
    bool IsEmbedded() const override { return true; }
    TargetLimits Limits() const override;
    const std::vector<TableRule>& Tables() override { return tables_; }
    void TakeSideTables() override;
    std::vector<std::pair<std::string, std::int64_t>> RowsPresent() override;
    void CheckWritable() override;

    void Begin(bool replace) override;
    bool Attach(const TableSource& source) override;
    std::unique_ptr<RowReader> ReadAttached(const std::string& table,
                                            const std::vector<std::string>& columns) override;
    void CopyAttached(const TableRule& table, const std::vector<ColumnRule>& columns,
                      const std::string& from, const std::vector<std::string>& names) override;
    void BeginTable(const TableRule& table, const std::vector<ColumnRule>& columns) override;
    void Add(const std::vector<store::Value>& row) override;
    void EndTable() override;
    void Finish() override;
    std::unique_ptr<RowReader> Read(const TableRule& table,
                                    const std::vector<ColumnRule>& columns) override;
    std::vector<std::string> Warnings() override;
    void RegisterModules() override;
    void Commit() override;
    std::vector<std::string> CheckImported() override;

 private:
    [[noreturn]] static void Fail(const EngineError& error);
    template <class Do>
    auto Guarded(Do work) {
        try {
            return work();
        } catch (const EngineError& error) {
            Fail(error);
        }
    }
    void Bind(const store::Value& value);
    std::int64_t OwnModulesIn(const std::string& table);
    std::vector<std::string> AttachedColumns(const std::string& table);

    void MakeNew();
    void MakeSideTables();
    void Empty();
    void RefuseDamage();

    std::string path_;
    std::string source_;
    Progress& progress_;
    bool isNew_;
    std::vector<TableRule> tables_ = SystemTables();
    bool takesSideTables_ = false;
    bool writeAhead_ = false;      ///< the mode that a new file will have
    std::optional<NewFile> file_;  ///< a new one
    std::string attached_;
    std::unique_ptr<Engine> engine_;
    std::optional<IndexesAside> indexes_;
    std::optional<Statement> insert_;
};

}  // namespace zv::zvdb
