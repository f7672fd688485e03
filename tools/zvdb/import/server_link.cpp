#include "zvdb/import/server_link.h"

#include <chrono>

#include "base/errors.h"
#include "base/text.h"
#include "store/odbc/connection_string.h"
#include "store/odbc/odbc_connection.h"

namespace zv::zvdb {
namespace {

// The key that servers give tables which have none of their own; no data of the system.
constexpr std::string_view kRowKey = "rowkey";

std::unique_ptr<store::Connection> Connect(const std::string& name) {
    store::odbc::OdbcOptions options = store::odbc::OptionsFor(name);
    options.translate = false;
    // Statements here move many rows, and nobody's window waits for them.
    options.statementLimit = std::chrono::minutes(30);
    return store::odbc::OpenOdbc(options);
}

void AppendQuoted(std::string& sql, std::string_view text) {
    sql += '\'';
    for (const char c : text) {
        sql += c;
        if (c == '\'') sql += c;
    }
    sql += '\'';
}

}  // namespace

ServerLink::ServerLink(const std::string& name) : connection_(Connect(name)) {
    std::string names;
    for (const store::engines::Engine& engine : store::engines::All()) {
        if (!engine.bulk) continue;
        names += (names.empty() ? "" : " and ") + std::string(engine.codes->name);
        try {
            const std::string version = Ask(std::string(engine.bulk->VersionQuestion())).ToText();
            if (!engine.bulk->IsVersion(version)) continue;
            engine_ = &engine;
            break;
        } catch (const RuntimeError&) {
            // A server that does not understand the question is another one.
            if (connection_->State() != store::Connection::kStateOpen) throw;
        }
    }
    if (!engine_) {
        throw RuntimeError(ErrorNumber::DatabaseFailure,
                           "Only " + names + " are known as servers.");
    }
    Run(std::string(Bulk().Prepare()));
}

std::string ServerLink::Identity() {
    return Ask(std::string(Bulk().Identity())).ToText();
}

std::unique_ptr<store::Recordset> ServerLink::Select(const std::string& sql) {
    return connection_->Open(sql, store::CursorType::ForwardOnly, store::LockType::ReadOnly);
}

store::Value ServerLink::Ask(const std::string& sql) {
    return Select(sql)->Field(0);
}

void ServerLink::AppendLiteral(std::string& sql, const store::Value& value) const {
    if (value.IsNull()) {
        sql += "null";
    } else if (const std::string* text = value.TextIf()) {
        sql += Bulk().TextPrefix();
        AppendQuoted(sql, *text);
    } else if (const auto* date = std::get_if<DateTime>(&value.Data())) {
        // The form that no setting of language or date order can turn round.
        std::string moment = date->IsoDateTime();
        moment[10] = 'T';
        AppendQuoted(sql, moment);
    } else {
        sql += value.ToText();
    }
}

std::vector<ServerTable> ReadServerTables(ServerLink& link) {
    const auto rows = link.Select(std::string(link.Bulk().Columns()));
    std::vector<ServerTable> tables;
    for (; !rows->Eof(); rows->MoveNext()) {
        const std::string table = rows->Field(0).ToText();
        if (tables.empty() || tables.back().name != table) tables.push_back({table, {}});
        const std::string column = rows->Field(1).ToText();
        if (text::EqualsIgnoreCase(column, kRowKey)) continue;
        const std::int32_t size = rows->Field(2).ToInt32();
        tables.back().columns.push_back({column, size > 0 ? static_cast<std::size_t>(size) : 0});
    }
    return tables;
}

}  // namespace zv::zvdb
