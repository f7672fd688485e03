#include "zvdb/import/server_target.h"

#include <algorithm>

#include "base/errors.h"
#include "base/text.h"
#include "zvdb/import/server_rows.h"
#include "zvdb/server_database.h"

namespace zv::zvdb {
namespace {

// SQL Server takes a thousand rows in a statement; a statement of about this length is sent while
// the next rows are read.
constexpr int kRowsInStatement = 500;
constexpr std::size_t kStatementLength = 256 * 1024;

class TargetServerRows : public RowReader {
 public:
    TargetServerRows(ServerLink& link, const std::string& table,
                     const std::vector<std::string>& columns, int key)
        : rows_(link, table, columns, key) {}
    bool Next(std::vector<store::Value>& row) override {
        try {
            return rows_.Next(row);
        } catch (const RuntimeError& error) {
            throw TargetError(error.Text());
        }
    }

 private:
    ServerRows rows_;
};

}  // namespace

template <class Do>
auto ServerTarget::Guarded(Do work) {
    try {
        return work();
    } catch (const RuntimeError& error) {
        throw TargetError(error.Text());
    }
}

ServerTarget::ServerTarget(const std::string& name) : name_(name) {
    Guarded([&] {
        link_ = std::make_unique<ServerLink>(name);
        MatchTables();
    });
}

ServerTarget::~ServerTarget() {
    if (!begun_) return;
    try {
        link_->Run("rollback");
    } catch (const std::exception&) {
        // The connection is gone, and the server has rolled back by itself.
    }
}

/// The tables of the system with the sizes that this server's columns have.
void ServerTarget::MatchTables() {
    const std::vector<ServerTable> present = ReadServerTables(*link_);
    tables_ = SystemTables();
    for (TableRule& table : tables_) {
        const auto found = std::find_if(
            present.begin(), present.end(),
            [&](const ServerTable& each) { return text::EqualsIgnoreCase(each.name, table.name); });
        if (found == present.end()) throw TargetError("table " + table.name + " is missing");
        for (ColumnRule& column : table.columns) {
            const auto there = std::find_if(
                found->columns.begin(), found->columns.end(), [&](const ServerColumn& each) {
                    return text::EqualsIgnoreCase(each.name, column.name);
                });
            if (there == found->columns.end()) {
                throw TargetError("column " + table.name + "." + column.name + " is missing");
            }
            column.size = there->size;
        }
    }
}

TargetLimits ServerTarget::Limits() const {
    TargetLimits limits;
    if (link_->Kind() == ServerKind::SqlServer) limits.firstDate = DateTime(1753, 1, 1);
    return limits;
}

std::string ServerTarget::NameOf(const TableRule& table) const {
    return link_->Kind() == ServerKind::PostgreSql ? text::ToLower(table.name) : table.name;
}

std::string ServerTarget::NameOf(const ColumnRule& column) const {
    return link_->Kind() == ServerKind::PostgreSql ? text::ToLower(column.name) : column.name;
}

std::vector<std::pair<std::string, std::int64_t>> ServerTarget::RowsPresent() {
    std::vector<std::pair<std::string, std::int64_t>> present;
    Guarded([&] {
        for (const TableRule& table : tables_) {
            const auto rows = static_cast<std::int64_t>(
                link_->Ask("select count(*) from " + link_->Quoted(NameOf(table))).ToDouble());
            if (rows > 0) present.emplace_back(table.name, rows);
        }
    });
    return present;
}

void ServerTarget::CheckWritable() {
    if (link_->Kind() != ServerKind::PostgreSql) return;
    for (const TableRule& table : tables_) {
        const bool allowed = Guarded([&] {
            return link_
                       ->Ask("select case when has_table_privilege('" + NameOf(table) +
                             "','insert') and has_table_privilege('" + NameOf(table) +
                             "','delete') then 1 else 0 end")
                       .ToInt32() != 0;
        });
        if (!allowed) throw TargetError("this user may not write into table " + table.name);
    }
}

void ServerTarget::Begin(bool replace) {
    Guarded([&] {
        const bool postgres = link_->Kind() == ServerKind::PostgreSql;
        link_->Run(postgres ? "begin" : "begin transaction");
        begun_ = true;
        for (const TableRule& table : tables_) {
            const std::string name = link_->Quoted(NameOf(table));
            // Others go on reading; what they would write waits for the end of the import.
            if (postgres) {
                link_->Run("lock table " + name + " in exclusive mode");
            } else {
                link_->Ask("select count(*) from " + name + " with (tablockx, holdlock)");
            }
            if (replace) link_->Run("delete from " + name);
        }
    });
    if (!RowsPresent().empty()) throw TargetError("somebody else filled it meanwhile");
    if (link_->Kind() != ServerKind::PostgreSql) return;
    Guarded([&] {
        for (const TableRule& table : tables_) PutAside(NameOf(table));
    });
}

/// A statement that only the owner of a table may run; nothing has happened when it fails.
bool ServerTarget::TryRun(const std::string& sql) {
    link_->Run("savepoint attempt");
    try {
        link_->Run(sql);
        return true;
    } catch (const RuntimeError&) {
        link_->Run("rollback to savepoint attempt");
        return false;
    }
}

/// Takes triggers and indexes out of the way of the rows, for those who may: both are several times
/// faster made anew than kept up. All of it belongs to the transaction.
void ServerTarget::PutAside(const std::string& table) {
    const std::string name = link_->Quoted(table);
    // The triggers are those that count on behind rows which bring a key; Finish does that.
    if (!TryRun("alter table " + name + " disable trigger user")) return;
    toMakeAgain_.push_back("alter table " + name + " enable trigger user");
    const auto rows = link_->Select(
        "select indexrelid::regclass::text,pg_get_indexdef(indexrelid) from pg_index where "
        "indrelid='" +
        name + "'::regclass and not indisunique order by indexrelid");
    for (; !rows->Eof(); rows->MoveNext()) {
        if (TryRun("drop index " + rows->Field(0).ToText())) {
            toMakeAgain_.push_back(rows->Field(1).ToText());
        }
    }
}

void ServerTarget::BeginTable(const TableRule& table, const std::vector<ColumnRule>& columns) {
    table_ = &table;
    const std::string name = link_->Quoted(NameOf(table));
    std::string list;
    for (const ColumnRule& column : columns) {
        list += (list.empty() ? "" : ",") + link_->Quoted(NameOf(column));
    }
    head_ = "insert into " + name + "(" + list + ") values";
    if (table.countsByItself && link_->Kind() == ServerKind::SqlServer) {
        Guarded([&] { link_->Run("set identity_insert " + name + " on"); });
    }
}

void ServerTarget::Add(const std::vector<store::Value>& row) {
    statement_ += rows_ == 0 ? head_ : ",";
    for (std::size_t i = 0; i < row.size(); ++i) {
        statement_ += i == 0 ? '(' : ',';
        link_->AppendLiteral(statement_, row[i]);
    }
    statement_ += ')';
    if (++rows_ >= kRowsInStatement || statement_.size() >= kStatementLength) Send();
}

void ServerTarget::Send() {
    if (rows_ == 0) return;
    Guarded([&] { link_->Run(statement_); });
    statement_.clear();
    rows_ = 0;
}

void ServerTarget::EndTable() {
    Send();
    if (table_->countsByItself && link_->Kind() == ServerKind::SqlServer) {
        Guarded(
            [&] { link_->Run("set identity_insert " + link_->Quoted(NameOf(*table_)) + " off"); });
    }
}

// SQL Server counts on behind the greatest number by itself.
void ServerTarget::SetCounter(const TableRule& table) {
    const auto key = std::find_if(table.columns.begin(), table.columns.end(),
                                  [](const ColumnRule& column) { return column.isKey; });
    const std::string counter =
        "pg_get_serial_sequence('" + NameOf(table) + "','" + NameOf(*key) + "')";
    if (link_->Ask("select " + counter).IsNull()) return;
    link_->Ask("select setval(" + counter + ",greatest(coalesce(max(" +
               link_->Quoted(NameOf(*key)) + "),1),1),coalesce(max(" + link_->Quoted(NameOf(*key)) +
               "),0)>=1) from " + link_->Quoted(NameOf(table)));
}

void ServerTarget::Finish() {
    if (link_->Kind() != ServerKind::PostgreSql) return;
    Guarded([&] {
        for (const std::string& statement : toMakeAgain_) link_->Run(statement);
        for (const TableRule& table : tables_) {
            if (table.countsByItself) SetCounter(table);
        }
    });
}

std::unique_ptr<RowReader> ServerTarget::Read(const TableRule& table,
                                              const std::vector<ColumnRule>& columns) {
    std::vector<std::string> names;
    int key = -1;
    for (const ColumnRule& column : columns) {
        if (column.isKey) key = static_cast<int>(names.size());
        names.push_back(NameOf(column));
    }
    return Guarded(
        [&] { return std::make_unique<TargetServerRows>(*link_, NameOf(table), names, key); });
}

void ServerTarget::Commit() {
    try {
        link_->Run("commit");
    } catch (const RuntimeError& error) {
        const bool unknown =
            error.Kind() == ErrorKind::ConnectionLost || error.Kind() == ErrorKind::TimeLimit;
        throw TargetError(error.Text() +
                          (unknown ? " The server may have completed the import all the same: "
                                     "zvdb check --to tells what it holds."
                                   : ""));
    }
    begun_ = false;
    if (link_->Kind() != ServerKind::PostgreSql) return;
    try {
        // So that the first questions are answered well.
        for (const TableRule& table : tables_) {
            link_->Run("analyze " + link_->Quoted(NameOf(table)));
        }
    } catch (const RuntimeError&) {
        // The server does it later by itself.
    }
}

std::vector<std::string> ServerTarget::CheckImported() {
    return CheckServer(name_).problems;
}

}  // namespace zv::zvdb
