#include "store/sqlite/database_file.h"

#include <array>
#include <fstream>
#include <system_error>

#include "base/errors.h"
#include "base/path.h"
#include "store/connection_text.h"
#include "store/engines/engines.h"
#include "store/sqlite/sqlite_connection.h"

namespace zv::store {
namespace sqlite {
namespace {

bool HasSignature(std::istream& file) {
    std::array<char, 32> start{};
    file.read(start.data(), start.size());
    const auto length = static_cast<std::size_t>(file.gcount());
    return EmbeddedEngine().connecting->IsFile({start.data(), length});
}

[[noreturn]] void Refuse(ErrorNumber number, ErrorKind kind, const char* reason,
                         const std::string& path) {
    // A server's connection string may have come here by a wrong setting.
    throw RuntimeError(number, std::string(reason) + ": " + ConnectionText(path).ForMessage(),
                       kErrorSource)
        .Of(kind);
}

}  // namespace

const engines::Engine& EmbeddedEngine() {
    static const engines::Engine& engine = engines::Of("sqlite");
    return engine;
}

void CheckDatabaseFile(const std::string& path) {
    namespace fs = std::filesystem;
    const fs::path file = PathOf(path);
    std::error_code error;
    const fs::file_status status = fs::status(file, error);
    if (path.empty() || path.find('\0') != std::string::npos ||
        status.type() == fs::file_type::not_found) {
        Refuse(ErrorNumber::FileNotFound, ErrorKind::FileMissing, "The database file was not found",
               path);
    }
    if (fs::is_directory(status)) {
        Refuse(ErrorNumber::PathFileAccess, ErrorKind::CannotOpen,
               "The path names a folder, not a database file", path);
    }
    std::ifstream stream(file, std::ios::binary);
    if (!stream) {
        Refuse(ErrorNumber::PathFileAccess, ErrorKind::CannotOpen,
               "The database file cannot be read", path);
    }
    if (fs::file_size(file, error) == 0 && !error) {
        Refuse(ErrorNumber::DatabaseFailure, ErrorKind::NotADatabase, "The database file is empty",
               path);
    }
    if (!HasSignature(stream)) {
        Refuse(ErrorNumber::DatabaseFailure, ErrorKind::NotADatabase, "The file is not a database",
               path);
    }
}

}  // namespace sqlite

bool IsSqliteFile(const std::string& path) {
    std::ifstream stream(PathOf(path), std::ios::binary);
    return stream && sqlite::HasSignature(stream);
}

}  // namespace zv::store
