// The bare engine: a statement prepared, stepped and read as text, with nothing around it.
#pragma once

#include <sqlite3.h>

#include <functional>
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

 private:
    struct Close {
        void operator()(sqlite3* handle) const { sqlite3_close(handle); }
    };
    [[noreturn]] void Fail(const std::string& what);
    std::unique_ptr<sqlite3, Close> handle_;
};

/// The list of all items in the order of the task manager.
std::string ListStatement();
/// The undone items whose window covers `day` ("YYYY-MM-DD 00:00:00").
std::string AlertStatement(const std::string& day);
/// The same for a table whose widest window is known: the start is bounded on both sides.
std::string BoundedAlertStatement(const std::string& day, int widestDays);

}  // namespace zv::bench
