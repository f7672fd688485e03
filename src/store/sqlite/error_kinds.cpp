#include "store/sqlite/error_kinds.h"

#include <sqlite3.h>

namespace zv::store::sqlite {

ErrorKind KindOf(int code, ErrorNumber number) {
    switch (code) {
        case SQLITE_CONSTRAINT_UNIQUE:
        case SQLITE_CONSTRAINT_PRIMARYKEY:
        case SQLITE_CONSTRAINT_ROWID:
            return ErrorKind::Duplicate;
        case SQLITE_IOERR_NOMEM:
            return ErrorKind::OutOfMemory;
        default:
            break;
    }
    switch (code & 0xFF) {
        case SQLITE_BUSY:
        case SQLITE_LOCKED:
        case SQLITE_PROTOCOL:
            return ErrorKind::Busy;
        case SQLITE_FULL:
            return ErrorKind::DiskFull;
        case SQLITE_NOMEM:
            return ErrorKind::OutOfMemory;
        case SQLITE_READONLY:
        case SQLITE_PERM:
        case SQLITE_AUTH:
            return ErrorKind::ReadOnly;
        case SQLITE_CANTOPEN:
            return ErrorKind::CannotOpen;
        case SQLITE_NOTADB:
            return ErrorKind::NotADatabase;
        case SQLITE_CORRUPT:
            return ErrorKind::Damaged;
        case SQLITE_IOERR:
            return ErrorKind::InputOutput;
        case SQLITE_CONSTRAINT:
            return ErrorKind::RuleBroken;
        case SQLITE_TOOBIG:
            return ErrorKind::TooLarge;
        case SQLITE_MISMATCH:
        case SQLITE_RANGE:
            return ErrorKind::WrongValue;
        default:
            break;
    }
    switch (number) {
        case ErrorNumber::DatabaseTable:
            return ErrorKind::NoTable;
        case ErrorNumber::DatabaseColumn:
            return ErrorKind::NoColumn;
        case ErrorNumber::DatabaseStatement:
            return ErrorKind::BadStatement;
        default:
            return ErrorKind::Other;
    }
}

}  // namespace zv::store::sqlite
