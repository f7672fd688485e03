#include "server_store.h"

#include "base/errors.h"
#include "doubles/rows_of.h"
#include "zvdb/server_database.h"

namespace zv::ring {

std::string ServerStore::WhyMissing() {
    return test_server::Address().empty() ? "ZV_TEST_POSTGRESQL names no server" : "";
}

ServerStore::ServerStore() : schema_(test_server::Address(), "zv_faults") {
    schema_.CreateTables();
    direct_ = test_server::ConnectRaw(schema_.Address());
    // A connection that a flow has lost and that still holds rows is an error and no rest.
    direct_->Execute("set lock_timeout='10s'");
}

ServerStore::~ServerStore() {
    direct_.reset();
}

void ServerStore::Fill(const std::vector<std::string>& statements) {
    std::string all = "truncate tTaskList,tTaskSet,tSysFunc restart identity";
    for (const std::string& statement : statements) all += ';' + statement;
    direct_->Execute(all);
}

void ServerStore::Run(const std::string& statement) {
    direct_->Execute(statement);
}

std::vector<std::string> ServerStore::Wrong(const std::filesystem::path&) {
    try {
        return zvdb::CheckServer(Address()).problems;
    } catch (const RuntimeError& error) {
        return {"the server cannot be checked: " + error.Text()};
    } catch (const std::exception& error) {
        return {std::string("the server cannot be checked: ") + error.what()};
    }
}

std::string ServerStore::Rows(const std::string& query) {
    return doubles::RowsOf(*direct_, query);
}

}  // namespace zv::ring
