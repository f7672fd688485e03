#include "scripted_database.h"

#include "base/errors.h"
#include "base/path.h"
#include "doubles/rows_of.h"

namespace zv::script {
namespace {

std::string ResolvedPath(const platform::scripted::ScriptedFiles& files, const std::string& path) {
    if (path.empty()) return path;
    return Utf8Of(files.Resolve(path));
}

}  // namespace

std::unique_ptr<store::Connection> ScriptedOpener::Open(const store::ConnectionSettings& settings) {
    if (failNext_) {
        failNext_ = false;
        throw RuntimeError(ErrorNumber::DatabaseFailure, "The scenario lets this opening fail");
    }
    return engine_.Open(ResolvedPath(files_, settings.dataPath.ForDriver()));
}

void HostDatabase::Create(const std::string& path) {
    Use(path);
    engine_.Create(ResolvedPath(files_, path));
}

void HostDatabase::AddSideTables() {
    engine_.AddSideTables(ResolvedPath(files_, path_));
}

void HostDatabase::Use(std::string path) {
    Close();
    path_ = std::move(path);
}

store::Connection& HostDatabase::Open() {
    if (path_.empty()) {
        throw RuntimeError(ErrorNumber::FileNotFound, "no database: see the command database");
    }
    if (!connection_) connection_ = engine_.OpenForHost(ResolvedPath(files_, path_));
    return *connection_;
}

void HostDatabase::Execute(const std::string& sql) {
    Open().Execute(sql);
}

std::string HostDatabase::Rows(const std::string& query) {
    return doubles::RowsOf(Open(), query);
}

}  // namespace zv::script
