// The rows of a flow on the PostgreSQL server of the tests, in a schema of its own.
#pragma once

#include <memory>
#include <string>

#include "ring/flows/flow_store.h"
#include "store/connection.h"
#include "test_server/scratch_schema.h"

namespace zv::ring {

class ServerStore final : public FlowStore {
 public:
    /// Why there is no server; empty when there is one.
    static std::string WhyMissing();

    /// Makes the tables. Throws RuntimeError.
    ServerStore();
    ~ServerStore() override;
    ServerStore(const ServerStore&) = delete;
    ServerStore& operator=(const ServerStore&) = delete;

    std::string Address() const { return schema_.Address(); }
    void Fill(const std::vector<std::string>& statements) override;
    void Run(const std::string& statement) override;
    std::vector<std::string> Wrong(const std::filesystem::path& folder) override;
    std::string Rows(const std::string& query) override;

 private:
    test_server::ScratchSchema schema_;
    std::unique_ptr<store::Connection> direct_;
};

}  // namespace zv::ring
