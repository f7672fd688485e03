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
    UserInterrupt = 18,
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
    NamedArgumentNotFound = 448,
    ArgumentMissing = 449,
    WrongArgumentCount = 450,
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

/// What went wrong with a database, whatever its engine calls it: by this the user learns
/// (resources/error_texts.h).
enum class ErrorKind : std::uint8_t {
    Own,    ///< an error of the system itself: its text, if it has one, can be read as it stands
    Other,  ///< an engine's or a component's, of none of the kinds below
    Busy,   ///< locked by another program or statement; trying again helps
    DiskFull,
    OutOfMemory,
    ReadOnly,
    CannotOpen,
    FileMissing,
    NotADatabase,
    Damaged,
    InputOutput,  ///< disk or network drive failed
    Duplicate,    ///< a value that may be there once
    RuleBroken,   ///< a value missing or out of what the tables allow
    TooLarge,
    WrongValue,  ///< a value that is not of the column's type
    Changed,     ///< the optimistic lock: somebody else was quicker
    NoTable,
    NoColumn,
    BadStatement,
    Refused,  ///< no such statement is let through
    NoPermission,
    LoginRefused,
    ServerUnknown,
    ConnectionLost,
    TimeLimit,
    DatabaseUnknown,
    TooManyConnections,
    DriverMissing,
    WriteAheadOnShare,  ///< the file's mode would destroy it where it lies
    RowsReadOnly,       ///< rows that were read in a way in which they cannot be written
    Last = RowsReadOnly,
};

/// What a database server says of an error beside its text: the five characters of its SQLSTATE and
/// the server's or driver's own number. Empty and 0 for errors of any other kind.
struct ServerCode {
    std::string sqlState;
    std::int32_t native = 0;
};

/// An error that a user or a host learns of. Without a text of its own it takes the catalogue's
/// text for its number; an engine's text is put behind one in the user's language
/// (resources/error_texts.h).
class RuntimeError : public std::exception {
 public:
    explicit RuntimeError(ErrorNumber number, std::string text = {}, std::string source = {},
                          ServerCode code = {})
        : number_(number),
          text_(std::move(text)),
          source_(std::move(source)),
          code_(std::move(code)),
          kind_(source_.empty() ? ErrorKind::Own : ErrorKind::Other) {}
    /// The same error as one of this kind.
    RuntimeError Of(ErrorKind kind) && {
        kind_ = kind;
        return std::move(*this);
    }

    ErrorNumber Number() const { return number_; }
    /// Empty when the number says everything.
    const std::string& Text() const { return text_; }
    /// The component that failed, for example the database engine; empty for the system itself.
    const std::string& Source() const { return source_; }
    const ServerCode& Code() const { return code_; }
    /// An error that names its source is of no kind known until one is set.
    ErrorKind Kind() const { return kind_; }
    const char* what() const noexcept override { return text_.c_str(); }

 private:
    ErrorNumber number_;
    std::string text_;
    std::string source_;
    ServerCode code_;
    ErrorKind kind_;
};

}  // namespace zv
