// statement_forms FOLDER: looks the statements over that the scenarios sent (a file each in FOLDER,
// a line a statement) and fails when there is one whose form is not in tests/fixtures. What the
// embedded engine refuses is no form of the system but an accident that a scenario plays: a quote
// in a text, a table that is not there.
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <map>
#include <set>
#include <string>

#include "base/errors.h"
#include "fixture.h"
#include "store/sqlite/create_database.h"
#include "store/sqlite/sqlite_connection.h"

namespace {

using namespace zv::store;

struct Sent {
    std::string statement;
    std::string scenario;
};

/// By form.
std::map<std::string, Sent> ReadLogs(const std::filesystem::path& folder) {
    std::map<std::string, Sent> sent;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
        if (!entry.is_regular_file()) continue;
        std::ifstream log(entry.path());
        for (std::string line; std::getline(log, line);) {
            sent.try_emplace(FormOf(line), Sent{line, entry.path().stem().string()});
        }
    }
    return sent;
}

bool IsRefused(Connection& empty, const std::string& sql) {
    try {
        if (NamedStatement{{}, sql}.IsSelect()) {
            empty.Open(sql, CursorType::ForwardOnly, LockType::ReadOnly)->Close();
        } else {
            empty.Execute(sql);
        }
        return false;
    } catch (const zv::RuntimeError&) {
        return true;
    }
}

int Run(const std::filesystem::path& folder) {
    std::set<std::string> known;
    for (const NamedStatement& statement : ReadStatements()) known.insert(FormOf(statement.sql));
    const auto sent = ReadLogs(folder);
    // The scenarios cannot all have stopped talking to the database.
    if (sent.size() < known.size() / 3) {
        std::cerr << "only " << sent.size() << " forms in the logs in " << folder << '\n';
        return 2;
    }
    const std::filesystem::path file =
        std::filesystem::temp_directory_path() /
        ("statement_forms_" + std::to_string(std::filesystem::hash_value(folder)) + ".db");
    std::filesystem::remove(file);
    CreateSqliteDatabase(file.string());
    const auto empty = OpenSqlite(file.string());
    int unknown = 0;
    int refused = 0;
    for (const auto& [form, first] : sent) {
        if (known.contains(form)) continue;
        if (IsRefused(*empty, first.statement)) {
            refused++;
            continue;
        }
        unknown++;
        std::cout << "not in tests/fixtures/statements.txt (" << first.scenario << "):\n  "
                  << first.statement << '\n';
    }
    empty->Close();
    for (const char* suffix : {"", "-wal", "-shm"}) {
        std::filesystem::remove(file.string() + suffix);
    }
    std::cout << sent.size() << " forms sent, " << refused << " refused by the engine, " << unknown
              << " not known\n";
    return unknown == 0 ? 0 : 1;
}

}  // namespace

int main(int count, char** words) {
    if (count != 2) {
        std::cerr << "usage: statement_forms FOLDER\n";
        return 2;
    }
    try {
        return Run(words[1]);
    } catch (const zv::RuntimeError& error) {
        std::cerr << "statement_forms: " << error.Text() << '\n';
    } catch (const std::exception& error) {
        std::cerr << "statement_forms: " << error.what() << '\n';
    }
    return 2;
}
