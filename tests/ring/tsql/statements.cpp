// tsql_statements: writes what the system sends to SQL Server, a name, " :: " and a statement in
// each line: the forms in which it writes for servers, its table definitions, and what is composed
// for imports and for rows that are edited in place.
#include <algorithm>
#include <iostream>
#include <set>
#include <string>
#include <string_view>

#include "fixture.h"
#include "store/engines/engines.h"
#include "store/rows/writing_statements.h"

namespace {

using namespace zv::store;

void Write(std::string_view name, std::string_view sql) {
    std::string line(sql);
    std::replace(line.begin(), line.end(), '\n', ' ');
    if (!line.empty()) std::cout << name << " :: " << line << '\n';
}

bool IsForFiles(const std::string& sql) {
    return sql.find('#') != std::string::npos;
}

/// What is written for files has a twin that is written for servers. Returns how many have none.
int WriteForms() {
    const std::vector<NamedStatement> statements = ReadStatements();
    std::set<std::string> forServers;
    for (const NamedStatement& statement : statements) {
        if (IsForFiles(statement.sql)) continue;
        forServers.insert(statement.sql);
        Write(statement.name, statement.sql);
    }
    int missing = 0;
    for (const NamedStatement& statement : statements) {
        std::string twin = statement.sql;
        std::replace(twin.begin(), twin.end(), '#', '\'');
        if (forServers.contains(twin)) continue;
        std::cerr << statement.name << ": nothing of that form is written for servers\n";
        missing++;
    }
    return missing;
}

void WriteScript(std::string_view name, std::string_view script) {
    for (const std::string& statement : engines::StatementsOf(script)) Write(name, statement);
}

void WriteBulk(const engines::Bulk& bulk) {
    const std::string table = bulk.Quoted("tTask]List");
    const std::string key = bulk.Quoted("fID");
    Write("version", bulk.VersionQuestion());
    Write("prepare", bulk.Prepare());
    Write("identity", bulk.Identity());
    Write("columns", bulk.Columns());
    Write("indexes", bulk.Indexes());
    Write("limit of waiting", bulk.LimitWaiting());
    Write("version of side tables", "select fValue from zvMeta where fName='version'");
    Write("schema name", "select " + std::string(bulk.PresentSchema()));
    Write("first part", bulk.SelectPart(key, table, key, "", 500));
    Write("next part", bulk.SelectPart(key + "," + bulk.Quoted("O'Brien"), table, key, "7", 500));
    for (const std::string& statement : bulk.BeginReading()) Write("begin reading", statement);
    for (const std::string& statement : bulk.BeginInspecting()) Write("inspect", statement);
    Write("begin", bulk.Begin());
    Write("lock", bulk.Lock(table));
    Write("before keys", bulk.BeforeKeys(table));
    Write("behind keys", bulk.BehindKeys(table));
    Write("text", "insert into " + table + "(" + key + ") values(" +
                      std::string(bulk.TextPrefix()) + "'O''Brien')");
}

void WriteRows(const engines::Facts& facts) {
    const std::string table = "[tTaskList]";
    Write("insert row",
          rows::InsertStatement(table, {"[taskTitle]", "[tDone]"}) + facts.YieldingKey("[fID]"));
    Write("insert empty row", rows::InsertStatement(table, {}) + facts.YieldingKey("[fID]"));
    Write("update row", rows::UpdateStatement(table, {"[taskTitle]"}) + " where [fID]=? and " +
                            facts.EqualsExactly("[taskTitle]"));
}

}  // namespace

int main() {
    const int missing = WriteForms();
    const engines::Engine& engine = engines::Of("sqlserver");
    WriteScript("schema", engine.schema);
    WriteScript("side tables", engine.sideTables);
    WriteBulk(*engine.bulk);
    WriteRows(*engine.facts);
    return missing == 0 ? 0 : 1;
}
