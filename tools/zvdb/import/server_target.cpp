#include "zvdb/import/server_target.h"

#include <algorithm>

#include "base/errors.h"
#include "base/text.h"
#include "zvdb/import/server_rows.h"
#include "zvdb/own_modules.h"
#include "zvdb/server_database.h"
#include "zvdb/server_inspected.h"

namespace zv::zvdb {
namespace {

// Servers take a thousand rows in a statement or more; a statement of about this length is sent
// while the next rows are read.
constexpr int kRowsInStatement = 500;
constexpr std::size_t kStatementLength = std::size_t{256} * 1024;

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
    present_ = ReadServerTables(*link_);
    tables_ = SystemTables();
    for (TableRule& table : tables_) {
        if (!Has(table)) throw TargetError("table " + table.name + " is missing");
        Match(table);
    }
    for (const TableRule& table : SideTables()) {
        if (table.name != kMetaTable && Has(table)) beside_.push_back(table);
    }
}

bool ServerTarget::Has(const TableRule& table) const {
    return std::ranges::any_of(present_, [&](const ServerTable& each) {
        return text::EqualsIgnoreCase(each.name, table.name);
    });
}

void ServerTarget::Match(TableRule& table) {
    const auto found = std::ranges::find_if(present_, [&](const ServerTable& each) {
        return text::EqualsIgnoreCase(each.name, table.name);
    });
    for (ColumnRule& column : table.columns) {
        const auto there = std::ranges::find_if(found->columns, [&](const ServerColumn& each) {
            return text::EqualsIgnoreCase(each.name, column.name);
        });
        if (there == found->columns.end()) {
            throw TargetError("column " + table.name + "." + column.name + " is missing");
        }
        column.size = there->size;
    }
}

void ServerTarget::TakeSideTables() {
    try {
        // By a connection of its own, which may look at one moment.
        ServerLink link(name_);
        missing_ = MissingSideTables(*InspectServer(link));
    } catch (const RuntimeError& error) {
        throw TargetError(error.Text());
    } catch (const FileError& error) {
        throw TargetError(error.what());
    }
    beside_.clear();
    for (const TableRule& side : SideTables()) {
        if (side.name == kMetaTable) continue;
        TableRule& table = tables_.emplace_back(side);
        if (Has(table)) Match(table);
    }
}

TargetLimits ServerTarget::Limits() const {
    TargetLimits limits;
    limits.firstDate = link_->Bulk().FirstDate();
    return limits;
}

std::string ServerTarget::NameOf(const TableRule& table) const {
    return link_->StoredName(table.name);
}

std::string ServerTarget::NameOf(const ColumnRule& column) const {
    return link_->StoredName(column.name);
}

std::vector<std::pair<std::string, std::int64_t>> ServerTarget::RowsPresent() {
    std::vector<std::pair<std::string, std::int64_t>> present;
    for (const std::vector<TableRule>* tables : {&tables_, &beside_}) {
        for (const TableRule& table : *tables) {
            // What Begin has yet to make holds nothing.
            if (!begun_ && !Has(table)) continue;
            const std::int64_t rows = Guarded([&] { return CountOf(table); });
            if (rows > 0) present.emplace_back(table.name, rows);
        }
    }
    return present;
}

/// Of rows that are somebody's.
std::int64_t ServerTarget::CountOf(const TableRule& table) {
    const auto count = [&](const std::string& condition) {
        return static_cast<std::int64_t>(
            link_->Ask("select count(*) from " + link_->Quoted(NameOf(table)) + condition)
                .ToDouble());
    };
    const std::int64_t rows = count("");
    return table.name == kModuleTable ? rows - count(" where " + IsOwnModule()) : rows;
}

void ServerTarget::CheckWritable() {
    for (const TableRule& table : tables_) {
        if (!Has(table)) continue;
        const std::string question = link_->Bulk().MayWriteQuestion(NameOf(table));
        if (question.empty()) continue;
        const bool allowed = Guarded([&] { return link_->Ask(question).ToInt32() != 0; });
        if (!allowed) throw TargetError("this user may not write into table " + table.name);
    }
}

void ServerTarget::Begin(bool replace) {
    Guarded([&] {
        link_->Run(std::string(link_->Bulk().Begin()));
        begun_ = true;
        for (const SidePart& part : missing_) link_->Run(part.statement);
        for (const TableRule& table : beside_) {
            if (replace) link_->Run("delete from " + link_->Quoted(NameOf(table)));
        }
        for (const TableRule& table : tables_) {
            const std::string name = link_->Quoted(NameOf(table));
            link_->Run(link_->Bulk().Lock(name));
            if (replace)
                link_->Run("delete from " + name);
            else if (table.name == kModuleTable)
                link_->Run("delete from " + name + " where " + IsOwnModule());
        }
    });
    if (!RowsPresent().empty()) throw TargetError("somebody else filled it meanwhile");
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
    const std::string disable = link_->Bulk().DisableTriggers(name);
    if (disable.empty() || !TryRun(disable)) return;
    toMakeAgain_.push_back(link_->Bulk().EnableTriggers(name));
    const auto rows = link_->Select(link_->Bulk().IndexesToMakeAgain(name));
    for (; !rows->Eof(); rows->MoveNext()) {
        if (TryRun("drop index " + rows->Field(0).ToText())) {
            toMakeAgain_.push_back(rows->Field(1).ToText());
        }
    }
}

void ServerTarget::RunIfAny(const std::string& sql) {
    if (!sql.empty()) Guarded([&] { link_->Run(sql); });
}

void ServerTarget::BeginTable(const TableRule& table, const std::vector<ColumnRule>& columns) {
    table_ = &table;
    const std::string name = link_->Quoted(NameOf(table));
    std::string list;
    for (const ColumnRule& column : columns) {
        list += (list.empty() ? "" : ",") + link_->Quoted(NameOf(column));
    }
    head_ = "insert into " + name + "(" + list + ") values";
    if (table.countsByItself) RunIfAny(link_->Bulk().BeforeKeys(name));
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
    if (table_->countsByItself) {
        RunIfAny(link_->Bulk().BehindKeys(link_->Quoted(NameOf(*table_))));
    }
}

void ServerTarget::SetCounter(const TableRule& table) {
    const auto key = std::find_if(table.columns.begin(), table.columns.end(),
                                  [](const ColumnRule& column) { return column.isKey; });
    const std::string counter = link_->Bulk().Counter(NameOf(table), NameOf(*key));
    if (counter.empty() || link_->Ask(counter).IsNull()) return;
    link_->Ask(link_->Bulk().SetCounter(NameOf(table), NameOf(*key)));
}

void ServerTarget::Finish() {
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

void ServerTarget::RegisterModules() {
    Guarded([&] {
        for (const std::string& statement : RegisterOwnModules(link_->Bulk().TextPrefix()))
            link_->Run(statement);
    });
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
    try {
        for (const TableRule& table : tables_) {
            const std::string analyze = link_->Bulk().Analyze(link_->Quoted(NameOf(table)));
            if (!analyze.empty()) link_->Run(analyze);
        }
    } catch (const RuntimeError&) {
        // The server does it later by itself.
    }
}

std::vector<std::string> ServerTarget::CheckImported() {
    return CheckServer(name_).problems;
}

}  // namespace zv::zvdb
