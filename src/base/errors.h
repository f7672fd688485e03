// Run-time errors: what an operation raises, what a window shows and what a host receives.
#pragma once

#include <cstdint>
#include <exception>
#include <string>
#include <utility>

namespace zv {

/// The classic run-time error numbers, the only place that lists them.
enum class ErrorNumber : std::int32_t {
    InvalidProcedureCall = 5,
    Overflow = 6,
    OutOfMemory = 7,
    SubscriptOutOfRange = 9,
    TypeMismatch = 13,
    InternalError = 51,
    FileNotFound = 53,
    FileAlreadyExists = 58,
    DiskFull = 61,
    PermissionDenied = 70,
    PathFileAccess = 75,
    PathNotFound = 76,
    ObjectNotSet = 91,
    ResourceNotFound = 326,
    PropertyNotReadable = 394,
    FormAlreadyShown = 400,
    ModalFormShown = 401,
    CannotCreateObject = 429,
    MemberNotFound = 438,
    PrinterError = 482,
    ClipboardInUse = 521,
    KeyNotFound = 35601,
    KeyNotUnique = 35602,
    NoCurrentRecord = 3021,
    ObjectClosed = 3704,
    DatabaseStatement = static_cast<std::int32_t>(0x80040E14),
    DatabaseTable = static_cast<std::int32_t>(0x80040E37),
    DatabaseColumn = static_cast<std::int32_t>(0x80040E10),
    DatabaseConflict = static_cast<std::int32_t>(0x80040E38),
    DatabaseFailure = static_cast<std::int32_t>(0x80004005),
};

/// What a database server says of an error beside its text: the five characters of its SQLSTATE and
/// the server's or driver's own number. Empty and 0 for errors of any other kind.
struct ServerCode {
    std::string sqlState;
    std::int32_t native = 0;
};

/// An error that a user or a host is told of. Without a text of its own it takes the catalogue's
/// text for its number (resources/error_texts.h).
class RuntimeError : public std::exception {
 public:
    explicit RuntimeError(ErrorNumber number, std::string text = {}, std::string source = {},
                          ServerCode code = {})
        : number_(number),
          text_(std::move(text)),
          source_(std::move(source)),
          code_(std::move(code)) {}

    ErrorNumber Number() const { return number_; }
    /// Empty when the number says everything.
    const std::string& Text() const { return text_; }
    /// The component that failed, for example the database engine; empty for the system itself.
    const std::string& Source() const { return source_; }
    const ServerCode& Code() const { return code_; }
    const char* what() const noexcept override { return text_.c_str(); }

 private:
    ErrorNumber number_;
    std::string text_;
    std::string source_;
    ServerCode code_;
};

}  // namespace zv
