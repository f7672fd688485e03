// The rows of a flow in the file "t.db" of a folder.
#pragma once

#include "ring/flows/flow_store.h"

namespace zv::ring {

class FileStore final : public FlowStore {
 public:
    /// The folder holds a database with all tables and no row. `rollBack`: the file keeps a
    /// roll-back journal from Fill on.
    FileStore(std::filesystem::path folder, bool rollBack);
    void Fill(const std::vector<std::string>& statements) override;
    void Run(const std::string& statement) override;
    std::vector<std::string> Wrong(const std::filesystem::path& folder) override;
    std::string Rows(const std::string& query) override;

 private:
    std::filesystem::path own_;
    bool rollBack_;
    std::string judged_;
};

}  // namespace zv::ring
