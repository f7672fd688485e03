#include "zvdb/check.h"

#include <array>
#include <filesystem>
#include <fstream>

#include "base/path.h"
#include "base/text.h"
#include "cards/card_columns.h"
#include "items/fields.h"
#include "plans/plan_row.h"
#include "staff/staff_columns.h"
#include "zvdb/import/system_tables.h"

namespace zv::zvdb {
namespace {

struct Table {
    const char* name;
    std::vector<std::string_view> columns;
};

template <std::size_t N>
std::vector<std::string_view> Names(const std::array<store::Column, N>& columns) {
    const auto names = store::NamesOf(columns);
    return {names.begin(), names.end()};
}

std::vector<std::string_view> ItemColumns() {
    std::vector<std::string_view> all = {"fID"};
    all.insert(all.end(), items::kColumns.begin(), items::kColumns.end());
    return all;
}

const std::vector<Table>& Schema() {
    static const std::vector<Table> kTables = {
        {"tTaskSet", Names(plans::kPlanColumns)},
        {"tTaskList", ItemColumns()},
        {"cards", Names(cards::kColumns)},
        {"tRsBasic", Names(staff::kPersonnelColumns)},
        {"Employees", Names(staff::kEmployeeColumns)},
        {"rptListDetail",
         {"fTable", "FieldName", "FieldName_0", "FieldName_1", "FieldType", "fieldID"}},
        {"tSysFunc",
         {"SerialNo", "model_Name", "Model_Name_0", "Model_Name_1", "SecondPass", "password",
          "NoUse_"}},
    };
    return kTables;
}

std::uint32_t BigEndian(const std::array<unsigned char, 100>& header, std::size_t at) {
    return static_cast<std::uint32_t>(header[at]) << 24 |
           static_cast<std::uint32_t>(header[at + 1]) << 16 |
           static_cast<std::uint32_t>(header[at + 2]) << 8 | header[at + 3];
}

}  // namespace

// The engine itself would only say that the file is malformed.
void CheckFile(const std::string& path) {
    namespace fs = std::filesystem;
    const fs::path file = PathOf(path);
    std::error_code failed;
    if (!fs::exists(file, failed)) throw FileError("there is no such file");
    if (!fs::is_regular_file(file, failed)) throw FileError("this is not a file");
    const std::uintmax_t size = fs::file_size(file, failed);
    if (size == 0) throw FileError("the file is empty");
    std::ifstream in(file, std::ios::binary);
    if (!in) throw FileError("the file cannot be read");
    std::array<unsigned char, 100> header{};
    in.read(reinterpret_cast<char*>(header.data()), static_cast<std::streamsize>(header.size()));
    constexpr std::string_view kMagic("SQLite format 3\0", 16);
    const auto got = static_cast<std::size_t>(in.gcount());
    const std::string_view begin(reinterpret_cast<const char*>(header.data()), got);
    if (begin.substr(0, kMagic.size()) != kMagic.substr(0, std::min(got, kMagic.size()))) {
        throw FileError("this is not an embedded database");
    }
    // Pages that are still in the write-ahead log need not be in the file yet, and what a journal
    // takes back need not be whole.
    bool pending = false;
    for (const char* suffix : {"-wal", "-journal"}) {
        fs::path log = file;
        log += suffix;
        pending = pending || (fs::exists(log, failed) && fs::file_size(log, failed) > 0);
    }
    const std::uint32_t pageSize =
        (header[16] == 0 && header[17] == 1) ? 65536U : (header[16] * 256U + header[17]);
    const std::uintmax_t stated = std::uintmax_t{pageSize} * BigEndian(header, 28);
    const bool valid = BigEndian(header, 24) == BigEndian(header, 92);
    if (got < header.size() || (valid && !pending && size < stated)) {
        throw FileError("the file is cut short: " + std::to_string(size) + " of " +
                        std::to_string(std::max<std::uintmax_t>(stated, header.size())) + " bytes");
    }
}

[[noreturn]] void ThrowFileError(const EngineError& error) {
    switch (error.Code()) {
        case SQLITE_BUSY:
        case SQLITE_LOCKED:
            throw FileError("another program has locked the file");
        case SQLITE_NOTADB:
            throw FileError("this is not an embedded database, or it is encrypted");
        case SQLITE_CANTOPEN:
        case SQLITE_PERM:
        case SQLITE_READONLY:
            throw FileError(std::string("the file cannot be opened: ") + error.what());
        default:
            throw FileError(std::string("the file cannot be read: ") + error.what());
    }
}

void rules::Find(Inspected& database, std::vector<std::string>& problems, const std::string& what,
                 const std::string& select, int keyColumns) {
    constexpr int kShown = 5;
    std::int64_t found = 0;
    std::string keys;
    // By key, so that the same file always gives the same answer.
    const auto rows = database.Select(select + " order by 1");
    while (rows->Next()) {
        if (++found > kShown) continue;
        for (int column = 0; column < keyColumns; column++) {
            keys += (column > 0 ? "." : found > 1 ? ", " : "") + rows->Text(column);
        }
    }
    if (found == 0) return;
    problems.push_back(what + ": " + keys +
                       (found > kShown ? ", ... (" + std::to_string(found) + " in all)" : ""));
}

Report CheckSchema(Inspected& database) {
    Report report;
    for (const Table& table : Schema()) {
        const auto columns = database.Columns(table.name);
        if (columns.empty()) {
            report.problems.push_back(std::string("table ") + table.name + " is missing");
            continue;
        }
        for (const std::string_view column : table.columns) {
            if (!columns.contains(text::ToLower(column))) {
                report.problems.push_back(std::string("column ") + table.name + "." +
                                          std::string(column) + " is missing");
            }
        }
        report.counts.emplace_back(
            table.name, database.Number(std::string("select count(*) from ") + table.name));
    }
    for (const TableRule& table : SideTables()) {
        if (database.Columns(table.name).empty()) continue;
        report.counts.emplace_back(table.name,
                                   database.Number("select count(*) from " + table.name));
    }
    return report;
}

Report CheckSchema(Engine& engine) {
    return CheckSchema(*InspectEmbedded(engine));
}

Report CheckContents(Inspected& database) {
    Report report;
    report.problems = database.Damage();
    if (!report.problems.empty()) return report;
    report = CheckSchema(database);
    if (report.problems.empty()) {
        report.problems = database.CheckKeys();
        rules::CheckPlans(database, report.problems);
        rules::CheckItems(database, report.problems);
        rules::CheckRegistry(database, report.problems);
    }
    rules::CheckSideTables(database, report.problems);
    return report;
}

Report CheckDatabase(const std::string& path) {
    CheckFile(path);
    try {
        Engine engine(path);
        engine.Run("pragma query_only=on");
        // One snapshot for all the questions, so that a program at work cannot make them disagree.
        engine.Run("begin; select count(*) from sqlite_master");
        return CheckContents(*InspectEmbedded(engine));
    } catch (const EngineError& error) {
        // Pages may be damaged so badly that even the check for damage gives up.
        if (error.Code() == SQLITE_CORRUPT) {
            return {{}, {std::string("damaged file: ") + error.what()}};
        }
        ThrowFileError(error);
    }
}

}  // namespace zv::zvdb
