#include "ring/flows/file_store.h"

#include <fstream>
#include <iterator>
#include <map>
#include <utility>

#include "base/path.h"
#include "doubles/rows_of.h"
#include "ring/flows/flow.h"
#include "store/sqlite/sqlite_connection.h"

namespace zv::ring {
namespace {

constexpr const char* kFile = "t.db";

std::unique_ptr<store::Connection> OpenAsItIs(const std::string& path) {
    store::SqliteOptions options;
    options.translate = false;
    options.datesAsText = true;
    return store::OpenSqlite(path, options);
}

}  // namespace

FileStore::FileStore(std::filesystem::path folder, bool rollBack)
    : own_(folder / kFile), rollBack_(rollBack), judged_(Utf8Of(own_)) {}

// Made once and copied from then on.
void FileStore::Fill(const std::vector<std::string>& statements) {
    static std::map<bool, std::string> kept;
    std::string& bytes = kept[rollBack_];
    if (bytes.empty()) {
        {
            const auto connection = OpenAsItIs(Utf8Of(own_));
            for (const std::string& statement : statements) connection->Execute(statement);
            if (rollBack_) connection->Execute("pragma journal_mode=delete");
        }
        std::ifstream in(own_, std::ios::binary);
        bytes.assign(std::istreambuf_iterator<char>(in), {});
    } else {
        std::ofstream(own_, std::ios::binary) << bytes;
    }
}

void FileStore::Run(const std::string& statement) {
    OpenAsItIs(Utf8Of(own_))->Execute(statement);
}

std::vector<std::string> FileStore::Wrong(const std::filesystem::path& folder) {
    judged_ = Utf8Of(folder / kFile);
    return WrongWithFile(judged_);
}

std::string FileStore::Rows(const std::string& query) {
    return doubles::RowsOf(*OpenAsItIs(judged_), query);
}

}  // namespace zv::ring
