// Owners of the embedded engine's handles, for a tool that reads and writes the file directly.
#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>

namespace zv::zvdb {

/// A statement or the file failed; the text names the engine's reason.
class EngineError : public std::runtime_error {
 public:
    EngineError(int code, const std::string& text) : std::runtime_error(text), code_(code) {}
    int Code() const { return code_; }  ///< primary result code of the engine

 private:
    int code_;
};

/// Why a file was not written, for its user.
std::string WhyNotWritten(const EngineError& error);

/// The file is in a mode that is not safe where it lies; the text holds path and remedy.
class ShareError : public std::runtime_error {
 public:
    using std::runtime_error::runtime_error;
};

class Engine {
 public:
    enum class Users {
        Others,  ///< other programs may have the file open
        Alone,   ///< nobody else has it, or may get it; throws when somebody has
    };

    /// Opens an existing file; never creates one. `flags` as the engine knows them. Throws
    /// ShareError when others may have it open and its mode is not safe for that.
    explicit Engine(const std::string& path, int flags = SQLITE_OPEN_READWRITE,
                    Users users = Users::Others);

    void Run(const std::string& sql);
    /// First column of the first row, as text; empty without a row.
    std::string Text(const std::string& sql);
    std::int64_t Number(const std::string& sql);
    sqlite3* Handle() const { return handle_.get(); }
    [[noreturn]] void Fail(const std::string& what) const;

 private:
    struct Close {
        void operator()(sqlite3* handle) const { sqlite3_close_v2(handle); }
    };
    std::unique_ptr<sqlite3, Close> handle_;
};

/// A prepared statement. Parameters are bound in the order of the calls to Bind.
class Statement {
 public:
    Statement(Engine& engine, const std::string& sql);

    Statement& Bind(std::int64_t number);
    /// The text must stay alive until Run or Step.
    Statement& Bind(std::string_view text);
    Statement& Bind(double number);
    Statement& BindNull();
    /// Runs to the end and makes ready for the next row of parameters.
    void Run();

    bool Step();
    int ColumnCount() const { return sqlite3_column_count(handle_.get()); }
    bool IsNull(int column) const;
    std::int64_t Number(int column) const;
    std::string Text(int column) const;
    sqlite3_stmt* Handle() const { return handle_.get(); }

 private:
    struct Finalize {
        void operator()(sqlite3_stmt* handle) const { sqlite3_finalize(handle); }
    };
    void Check(int code) const;

    Engine& engine_;
    std::unique_ptr<sqlite3_stmt, Finalize> handle_;
    int next_ = 1;
};

}  // namespace zv::zvdb
