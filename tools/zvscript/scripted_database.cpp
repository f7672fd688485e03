#include "scripted_database.h"

#include "base/errors.h"
#include "base/path.h"

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

void ScriptedStatements::Fail(int position, std::string text) {
    untilFailure_ = position;
    failureText_ = std::move(text);
}

void ScriptedStatements::OnStatement(const std::string& sql) {
    lines.push_back(sql);
    if (watch) watch(sql);
    Count();
}

void ScriptedStatements::Count() {
    if (untilFailure_ == 0 || --untilFailure_ > 0) return;
    throw RuntimeError(ErrorNumber::DatabaseFailure, failureText_);
}

void HostDatabase::Create(const std::string& path) {
    Use(path);
    engine_.Create(ResolvedPath(files_, path));
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
    const auto rows = Open().Open(query, store::CursorType::ForwardOnly, store::LockType::ReadOnly);
    std::string text;
    for (; !rows->Eof(); rows->MoveNext()) {
        if (!text.empty()) text += '\n';
        for (int column = 0; column < rows->FieldCount(); column++) {
            if (column > 0) text += '|';
            text += rows->Field(column).ToText();
        }
    }
    rows->Close();
    return text;
}

}  // namespace zv::script
