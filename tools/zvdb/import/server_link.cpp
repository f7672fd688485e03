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

// Name of the table, name of the column, longest text; by table. PostgreSQL's own catalogue is
// asked by numbers: a table of somebody else that goes away meanwhile is then merely not seen,
// while its name could not be looked up any more.
constexpr const char* kPostgreSqlColumns =
    "select c.relname,a.attname,case when a.atttypid in ('char'::regtype,'varchar'::regtype) and "
    "a.atttypmod>4 then a.atttypmod-4 end from pg_class c join pg_namespace n on "
    "n.oid=c.relnamespace join pg_attribute a on a.attrelid=c.oid where c.relkind in ('r','p') and "
    "n.nspname not in ('pg_catalog','information_schema') and pg_table_is_visible(c.oid) and "
    "a.attnum>0 and not a.attisdropped order by c.relname,a.attnum";
constexpr const char* kSqlServerColumns =
    "select c.table_name,c.column_name,c.character_maximum_length from information_schema.columns "
    "c "
    "join information_schema.tables t on t.table_schema=c.table_schema and "
    "t.table_name=c.table_name where t.table_type='BASE TABLE' and c.table_schema=schema_name() "
    "order by c.table_name,c.ordinal_position";

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
    std::string version;
    for (const char* question : {"select version()", "select @@version"}) {
        try {
            version = Ask(question).ToText();
            break;
        } catch (const RuntimeError& error) {
            if (connection_->State() != store::Connection::kStateOpen) throw;
        }
    }
    if (version.starts_with("PostgreSQL")) {
        kind_ = ServerKind::PostgreSql;
        Run("set standard_conforming_strings=on");
    } else if (version.starts_with("Microsoft")) {
        kind_ = ServerKind::SqlServer;
        Run("set xact_abort on");
    } else {
        throw RuntimeError(ErrorNumber::DatabaseFailure,
                           "Only PostgreSQL and SQL Server are known as servers.");
    }
}

std::string ServerLink::Product() const {
    return kind_ == ServerKind::PostgreSql ? "PostgreSQL" : "SQL Server";
}

std::string ServerLink::Identity() {
    return Ask(kind_ == ServerKind::PostgreSql
                   ? "select coalesce(host(inet_server_addr()),'')||':'||"
                     "coalesce(inet_server_port(),0)||'/'||current_database()||'/'||"
                     "coalesce(current_schema(),'')"
                   : "select @@servername+'/'+db_name()+'/'+schema_name()")
        .ToText();
}

std::unique_ptr<store::Recordset> ServerLink::Select(const std::string& sql) {
    return connection_->Open(sql, store::CursorType::ForwardOnly, store::LockType::ReadOnly);
}

store::Value ServerLink::Ask(const std::string& sql) {
    return Select(sql)->Field(0);
}

std::string ServerLink::Quoted(std::string_view name) const {
    const bool brackets = kind_ == ServerKind::SqlServer;
    const char end = brackets ? ']' : '"';
    std::string quoted(1, brackets ? '[' : '"');
    for (const char c : name) {
        quoted += c;
        if (c == end) quoted += c;
    }
    return quoted + end;
}

void ServerLink::AppendLiteral(std::string& sql, const store::Value& value) const {
    if (value.IsNull()) {
        sql += "null";
    } else if (const std::string* text = value.TextIf()) {
        if (kind_ == ServerKind::SqlServer) sql += 'N';
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

std::string ServerLink::SelectPart(const std::string& columns, const std::string& table,
                                   const std::string& key, const std::string& after,
                                   std::size_t rows) const {
    const bool top = kind_ == ServerKind::SqlServer;
    const std::string count = std::to_string(rows);
    return "select " + (top ? "top " + count + " " : "") + columns + " from " + table +
           (after.empty() ? "" : " where " + key + ">" + after) + " order by " + key +
           (top ? "" : " limit " + count);
}

std::vector<ServerTable> ReadServerTables(ServerLink& link) {
    const auto rows =
        link.Select(link.Kind() == ServerKind::PostgreSql ? kPostgreSqlColumns : kSqlServerColumns);
    std::vector<ServerTable> tables;
    for (; !rows->Eof(); rows->MoveNext()) {
        const std::string table = rows->Field(0).ToText();
        if (tables.empty() || tables.back().name != table) tables.push_back({table, {}});
        const std::string column = rows->Field(1).ToText();
        if (text::EqualsIgnoreCase(column, kRowKey)) continue;
        // SQL Server tells -1 for texts of any length.
        const std::int32_t size = rows->Field(2).ToInt32();
        tables.back().columns.push_back({column, size > 0 ? static_cast<std::size_t>(size) : 0});
    }
    return tables;
}

}  // namespace zv::zvdb
