#include "zvdb/import/endpoint.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <string_view>
#include <system_error>

#include "base/path.h"
#include "base/text.h"
#include "store/engines/engines.h"
#include "store/odbc/connection_string.h"
#include "zvdb/access/access_source.h"
#include "zvdb/import/embedded_source.h"
#include "zvdb/import/embedded_target.h"
#include "zvdb/import/server_source.h"
#include "zvdb/import/server_target.h"

namespace zv::zvdb {
namespace {

namespace fs = std::filesystem;

enum class Content { Missing, Folder, Special, Unreadable, Empty, Embedded, Access, Other };

Content ContentOf(const std::string& name) {
    std::error_code failed;
    const fs::path file = PathOf(name);
    const fs::file_status status = fs::status(file, failed);
    if (status.type() == fs::file_type::not_found) return Content::Missing;
    if (fs::is_directory(status)) return Content::Folder;
    if (!fs::is_regular_file(status)) return failed ? Content::Unreadable : Content::Special;
    std::ifstream in(file, std::ios::binary);
    if (!in) return Content::Unreadable;
    std::array<char, 32> head{};
    in.read(head.data(), head.size());
    const std::string_view begin(head.data(), static_cast<std::size_t>(in.gcount()));
    if (begin.empty()) return Content::Empty;
    const store::engines::Engine* engine = store::engines::OfFile(begin);
    if (!engine) return Content::Other;
    // What has a provider is read without it.
    return engine->connecting->Providers().empty() ? Content::Embedded : Content::Access;
}

std::string Extension(const std::string& name) {
    return text::ToLower(PathOf(name).extension().string());
}

bool IsAccessExtension(const std::string& extension) {
    return extension == ".mdb" || extension == ".accdb" || extension == ".mde" ||
           extension == ".accde";
}

}  // namespace

bool IsServer(const std::string& name) {
    std::error_code failed;
    if (fs::exists(PathOf(name), failed)) return false;
    return store::odbc::IsForOdbc(name);
}

bool IsAccessFile(const std::string& name) {
    return ContentOf(name) == Content::Access;
}

std::string ShownName(const std::string& name) {
    return store::ConnectionText(name).ForMessage();
}

std::unique_ptr<TableSource> OpenSource(const std::string& name) {
    if (IsServer(name)) return std::make_unique<ServerSource>(name);
    switch (ContentOf(name)) {
        case Content::Missing:
            throw SourceError("there is no such file");
        case Content::Folder:
            throw SourceError("this is a folder, not a database file");
        case Content::Special:
            throw SourceError("this is not a file");
        case Content::Unreadable:
            throw SourceError("the file cannot be read");
        case Content::Empty:
            throw SourceError("the file is empty");
        case Content::Embedded:
            return std::make_unique<EmbeddedSource>(name);
        case Content::Access:
            return OpenAccessFile(name);
        case Content::Other:
            break;
    }
    throw SourceError(IsAccessExtension(Extension(name))
                          ? "this is not an Access file, or its head is damaged"
                          : "this is neither an Access file nor an embedded database");
}

std::unique_ptr<TableTarget> OpenTarget(const std::string& name, const std::string& source,
                                        Progress& progress) {
    if (IsServer(name)) return std::make_unique<ServerTarget>(name);
    const std::string extension = Extension(name);
    switch (ContentOf(name)) {
        case Content::Missing:
            if (IsAccessExtension(extension)) {
                throw TargetError("Access files are read, not written");
            }
            if (extension != ".db" && extension != ".db3" && extension != ".sqlite" &&
                extension != ".sqlite3") {
                throw TargetError(
                    "a new embedded file ends in .db, .db3, .sqlite or .sqlite3; a server is "
                    "named by a connection string");
            }
            return std::make_unique<EmbeddedTarget>(name, IsServer(source) ? "" : source, progress);
        case Content::Embedded:
            return std::make_unique<EmbeddedTarget>(name, IsServer(source) ? "" : source, progress);
        case Content::Access:
            throw TargetError("Access files are read, not written");
        case Content::Folder:
            throw TargetError("this is a folder, not a database file");
        case Content::Unreadable:
            throw TargetError("the file cannot be read");
        case Content::Special:
        case Content::Empty:
        case Content::Other:
            break;
    }
    throw TargetError("something else is there already, not an embedded database");
}

bool IsSameFile(const std::string& from, const std::string& to) {
    if (IsServer(from) || IsServer(to)) return false;
    std::error_code failed;
    return fs::equivalent(PathOf(from), PathOf(to), failed) && !failed;
}

}  // namespace zv::zvdb
