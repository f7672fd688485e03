// A server as the source of an import.
#pragma once

#include <memory>
#include <string>

#include "zvdb/import/server_link.h"
#include "zvdb/import/table_source.h"

namespace zv::zvdb {

class ServerSource : public TableSource {
 public:
    /// Sees the rows as they are at this moment, whatever others write meanwhile. Throws
    /// SourceError.
    explicit ServerSource(const std::string& name);

    std::string Kind() const override { return link_->Product(); }
    std::string Identity() override { return link_->Identity(); }
    const std::vector<SourceTable>& Tables() override { return tables_; }
    std::unique_ptr<RowReader> Read(const SourceTable& table,
                                    const std::vector<std::string>& columns) override;

 private:
    std::unique_ptr<ServerLink> link_;
    std::vector<SourceTable> tables_;
};

}  // namespace zv::zvdb
