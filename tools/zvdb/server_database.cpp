#include "zvdb/server_database.h"

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <random>
#include <sstream>
#include <system_error>

#include "base/errors.h"
#include "base/path.h"
#include "base/text.h"
#include "zvdb/import/endpoint.h"
#include "zvdb/import/importer.h"
#include "zvdb/import/server_link.h"
#include "zvdb/import/server_transaction.h"
#include "zvdb/own_modules.h"
#include "zvdb/server_inspected.h"

namespace zv::zvdb {
namespace {

namespace fs = std::filesystem;

/// The tables of the system, and those beside them, that are there where new ones would be made, as
/// the server writes them.
std::vector<std::string> TablesPresent(ServerLink& link) {
    const auto rows = link.Select(
        "select table_name from information_schema.tables where table_type='BASE TABLE' and "
        "table_schema=" +
        std::string(link.Bulk().PresentSchema()) + " order by table_name");
    std::vector<std::string> names;
    for (; !rows->Eof(); rows->MoveNext()) {
        const std::string name = rows->Field(0).ToText();
        if (FindTable(SystemTables(), name) != nullptr ||
            FindTable(SideTables(), name) != nullptr) {
            names.push_back(name);
        }
    }
    return names;
}

/// The tables that would be replaced; throws FileError when that is not wanted.
std::vector<std::string> TablesInTheWay(ServerLink& link, bool replace) {
    std::vector<std::string> present = TablesPresent(link);
    if (!present.empty() && !replace) {
        throw FileError("it has tables of the system already (" + text::Join(present, ", ") +
                        "; --force replaces them)");
    }
    return present;
}

enum class Contents : std::uint8_t { None, OwnModules };

void Create(ServerLink& link, bool replace, bool sideTables, Contents contents) {
    const std::vector<std::string> present = TablesInTheWay(link, replace);
    ServerTransaction transaction(link);
    for (const std::string& table : present) link.Run("drop table " + link.Quoted(table));
    const std::string before(link.Bulk().BeforeSchema());
    if (!before.empty()) link.Run(before);
    link.Run(std::string(link.Engine().schema));
    if (sideTables) link.Run(std::string(link.Engine().sideTables));
    if (contents == Contents::OwnModules) {
        for (const std::string& statement : RegisterOwnModules(link.Bulk().TextPrefix()))
            link.Run(statement);
    }
    transaction.Commit();
}

/// A file that is gone at the end.
class TemporaryFile {
 public:
    TemporaryFile() {
        const unsigned number = std::random_device()();
        path_ = fs::temp_directory_path() / ("zvdb-sample-" + std::to_string(number) + ".db");
    }
    ~TemporaryFile() {
        std::error_code ignored;
        for (const char* suffix : {"", "-wal", "-shm"}) {
            fs::path file = path_;
            fs::remove(file += suffix, ignored);
        }
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    std::string Path() const { return Utf8Of(path_); }

 private:
    fs::path path_;
};

}  // namespace

void CreateServerTables(const std::string& server, bool replace, bool sideTables) {
    ServerLink link(server);
    Create(link, replace, sideTables, Contents::OwnModules);
}

void CreateServerSample(const std::string& server, bool replace, bool sideTables,
                        const SampleOptions& options, Progress& progress) {
    const TemporaryFile file;
    {
        ServerLink link(server);
        // Known before the work of making the data.
        TablesInTheWay(link, replace);
        CreateDatabase(file.Path(), false, false, &options, progress);
        Create(link, replace, sideTables, Contents::None);
    }
    const auto source = OpenSource(file.Path());
    const auto target = OpenTarget(server, {}, progress);
    ImportReport report;
    Importer(*source, *target, report, progress).Run(false, false);
    progress.Finish();
    if (report.HasRefusals()) {
        std::ostringstream reasons;
        report.Print(reasons);
        throw FileError("the sample data does not fit:\n" + reasons.str());
    }
}

Report CheckServer(const std::string& server) {
    ServerLink link(server);
    return CheckContents(*InspectServer(link));
}

}  // namespace zv::zvdb
