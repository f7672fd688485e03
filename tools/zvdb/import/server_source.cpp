#include "zvdb/import/server_source.h"

#include <algorithm>

#include "base/errors.h"
#include "base/text.h"
#include "zvdb/import/server_rows.h"
#include "zvdb/import/system_tables.h"

namespace zv::zvdb {
namespace {

/// Position of the key of a table of the system among `columns`, -1 when it is not there.
int KeyOf(const std::string& table, const std::vector<std::string>& columns) {
    const TableRule* rule = FindTable(SystemTables(), table);
    if (rule == nullptr) rule = FindTable(SideTables(), table);
    if (rule == nullptr) return -1;
    for (const ColumnRule& column : rule->columns) {
        if (!column.isKey) continue;
        const auto found = std::find_if(
            columns.begin(), columns.end(),
            [&](const std::string& name) { return text::EqualsIgnoreCase(name, column.name); });
        return found == columns.end() ? -1 : static_cast<int>(found - columns.begin());
    }
    return -1;
}

class SourceServerRows : public RowReader {
 public:
    SourceServerRows(ServerLink& link, const SourceTable& table,
                     const std::vector<std::string>& columns)
        : rows_(link, table.name, columns, KeyOf(table.name, columns)) {}
    bool Next(std::vector<store::Value>& row) override {
        try {
            return rows_.Next(row);
        } catch (const RuntimeError& error) {
            throw SourceError(error.Text());
        }
    }

 private:
    ServerRows rows_;
};

}  // namespace

ServerSource::ServerSource(const std::string& name) {
    try {
        link_ = std::make_unique<ServerLink>(name);
        for (const std::string& statement : link_->Bulk().BeginReading()) link_->Run(statement);
        for (const ServerTable& from : ReadServerTables(*link_)) {
            SourceTable& table = tables_.emplace_back();
            table.name = from.name;
            for (const ServerColumn& column : from.columns) table.columns.push_back(column.name);
            table.rows = static_cast<std::int64_t>(
                link_->Ask("select count(*) from " + link_->Quoted(table.name)).ToDouble());
        }
    } catch (const RuntimeError& error) {
        throw SourceError(error.Text());
    }
}

std::unique_ptr<RowReader> ServerSource::Read(const SourceTable& table,
                                              const std::vector<std::string>& columns) {
    try {
        return std::make_unique<SourceServerRows>(*link_, table, columns);
    } catch (const RuntimeError& error) {
        throw SourceError(error.Text());
    }
}

}  // namespace zv::zvdb
