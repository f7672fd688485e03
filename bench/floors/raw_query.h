// The bare engine: a statement prepared, stepped and read as text, with nothing around it.
#pragma once

#include <sqlite3.h>

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace zv::bench {

class RawDatabase {
 public:
    explicit RawDatabase(const std::string& path);

    /// Columns of one row as text; null pointers for NULL. They hold until the next row.
    using Reader = std::function<void(const char* const* columns)>;
    /// Answers the number of rows.
    int Read(const std::string& sql, const Reader& reader);
    void Run(const std::string& sql);
    /// The same, prepared at the first call only.
    void RunKept(const std::string& sql);

 private:
    struct Close {
        void operator()(sqlite3* handle) const { sqlite3_close(handle); }
    };
    struct Finalize {
        void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
    };
    [[noreturn]] void Fail(const std::string& what);
    std::unique_ptr<sqlite3, Close> handle_;
    std::map<std::string, std::unique_ptr<sqlite3_stmt, Finalize>> kept_;
};

/// The list of all items in the order of the task manager.
std::string ListStatement();
/// What the lists of items read: columns of ListStatement and the two below.
inline constexpr int kItemColumns = 6;
/// The undone items whose window covers `day` ("YYYY-MM-DD 00:00:00").
std::string AlertStatement(const std::string& day);
/// The same for a table whose widest window is known: the start is bounded on both sides.
std::string BoundedAlertStatement(const std::string& day, int widestDays);
/// The cards whose birthday falls between two days ("YYYY-MM-DD") of one year, the anniversary put
/// together by the engine's own functions.
std::string BirthdayStatement(const std::string& from, const std::string& until);
/// Writes the state and the doer of one item.
std::string MarkStatement(int item, int state, const std::string& doer);

}  // namespace zv::bench
