// A file of the embedded engine as the source of an import.
#pragma once

#include <memory>
#include <string>

#include "zvdb/engine.h"
#include "zvdb/import/table_source.h"

namespace zv::zvdb {

/// Opens a file for questions of one moment, so that its bytes stay as they are, and the
/// write-ahead log that others left with them. Throws EngineError or ShareError.
std::unique_ptr<Engine> OpenToRead(const std::string& path);

class EmbeddedSource : public TableSource {
 public:
    /// Leaves the file's bytes as they are, and the write-ahead log that others left with them.
    /// Throws SourceError.
    explicit EmbeddedSource(const std::string& path);

    std::string Kind() const override { return "embedded file"; }
    std::string EmbeddedFile() const override { return path_; }
    const std::vector<SourceTable>& Tables() override { return tables_; }
    std::unique_ptr<RowReader> Read(const SourceTable& table,
                                    const std::vector<std::string>& columns) override;

 private:
    void Open();
    void ReadTables();

    std::string path_;
    std::unique_ptr<Engine> engine_;
    std::vector<SourceTable> tables_;
};

}  // namespace zv::zvdb
