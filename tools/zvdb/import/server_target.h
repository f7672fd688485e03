// A server as the target of an import: one transaction, in which rows go over many at a time.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "zvdb/import/server_link.h"
#include "zvdb/import/table_target.h"
#include "zvdb/side_tables.h"

namespace zv::zvdb {

class ServerTarget : public TableTarget {
 public:
    /// Throws TargetError when tables or columns of the system are missing.
    explicit ServerTarget(const std::string& name);
    ~ServerTarget() override;

    std::string Kind() const override { return link_->Product(); }
    std::string Identity() override { return link_->Identity(); }
    TargetLimits Limits() const override;
    const std::vector<TableRule>& Tables() override { return tables_; }
    void TakeSideTables() override;
    std::vector<std::pair<std::string, std::int64_t>> RowsPresent() override;
    void CheckWritable() override;

    void Begin(bool replace) override;
    void BeginTable(const TableRule& table, const std::vector<ColumnRule>& columns) override;
    void Add(const std::vector<store::Value>& row) override;
    void EndTable() override;
    void Finish() override;
    std::unique_ptr<RowReader> Read(const TableRule& table,
                                    const std::vector<ColumnRule>& columns) override;
    void RegisterModules() override;
    void Commit() override;
    std::vector<std::string> CheckImported() override;

 private:
    template <class Do>
    static auto Guarded(Do work);
    void MatchTables();
    void Match(TableRule& table);
    bool Has(const TableRule& table) const;
    std::int64_t CountOf(const TableRule& table);
    std::string NameOf(const TableRule& table) const;
    std::string NameOf(const ColumnRule& column) const;
    void Send();
    void SetCounter(const TableRule& table);
    void RunIfAny(const std::string& sql);
    bool TryRun(const std::string& sql);
    void PutAside(const std::string& table);

    std::string name_;
    std::unique_ptr<ServerLink> link_;
    std::vector<ServerTable> present_;
    std::vector<TableRule> tables_;
    /// Side tables that are there and get no rows.
    std::vector<TableRule> beside_;
    std::vector<SidePart> missing_;  ///< of the side tables that get rows
    bool begun_ = false;
    std::vector<std::string> toMakeAgain_;  ///< statements for indexes and triggers
    const TableRule* table_ = nullptr;
    std::string head_;
    std::string statement_;
    int rows_ = 0;
};

}  // namespace zv::zvdb
