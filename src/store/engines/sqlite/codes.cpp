#include "store/engines/codes.h"

#include <array>

#include "store/engines/parts.h"

namespace zv::store::engines::sqlite {
namespace {

// Its ODBC driver reports everything under one code.
constexpr auto kWords = std::to_array<WordsKind>({
    {"database is locked", ErrorKind::Busy},
    {"database table is locked", ErrorKind::Busy},
    {"database or disk is full", ErrorKind::DiskFull},
    {"readonly database", ErrorKind::ReadOnly},
    {"unique constraint failed", ErrorKind::Duplicate},
    {"constraint failed", ErrorKind::RuleBroken},
    {"disk i/o error", ErrorKind::InputOutput},
    {"disk image is malformed", ErrorKind::Damaged},
    {"file is not a database", ErrorKind::NotADatabase},
    {"unable to open database", ErrorKind::CannotOpen},
    {"string or blob too big", ErrorKind::TooLarge},
    {"datatype mismatch", ErrorKind::WrongValue},
});
constexpr auto kStatementWords = std::to_array<WordsKind>({
    {"no such table", ErrorKind::NoTable},
    {"no such column", ErrorKind::NoColumn},
    {"has no column named", ErrorKind::NoColumn},
    {"ambiguous column", ErrorKind::NoColumn},
    {"syntax error", ErrorKind::BadStatement},
    {"no such function", ErrorKind::BadStatement},
    {"unrecognized token", ErrorKind::BadStatement},
    {"incomplete input", ErrorKind::BadStatement},
    {"wrong number of arguments", ErrorKind::BadStatement},
    {"misuse of aggregate", ErrorKind::BadStatement},
    {"values for", ErrorKind::BadStatement},
});

}  // namespace

const Codes& TheCodes() {
    static constexpr Codes kCodes{
        .name = "SQLite", .words = kWords, .statementWords = kStatementWords};
    return kCodes;
}

}  // namespace zv::store::engines::sqlite
