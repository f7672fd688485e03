#include "store/odbc/error_kinds.h"

#include "store/server_error_kinds.h"

namespace zv::store::odbc {
namespace {

ErrorKind KindOfOther(const Diagnosis& diagnosis) {
    const ErrorKind kind = KindOfServerCode(diagnosis.code);
    return kind == ErrorKind::Other ? KindOfDriverWords(diagnosis.text) : kind;
}

}  // namespace

ErrorKind KindOf(const Diagnosis& diagnosis) {
    switch (diagnosis.fault) {
        case Fault::Table:
            return ErrorKind::NoTable;
        case Fault::Column:
            return ErrorKind::NoColumn;
        case Fault::Statement:
            // SQL Server has one SQLSTATE for nearly everything.
            if (const ErrorKind kind = KindOfOther(diagnosis); kind != ErrorKind::Other) {
                return kind;
            }
            return ErrorKind::BadStatement;
        case Fault::TimeLimit:
            return ErrorKind::TimeLimit;
        case Fault::ConnectionLost:
            return ErrorKind::ConnectionLost;
        case Fault::LoginRefused:
            return ErrorKind::LoginRefused;
        case Fault::ServerUnknown:
            return ErrorKind::ServerUnknown;
        case Fault::DatabaseUnknown:
            return ErrorKind::DatabaseUnknown;
        case Fault::TooManyConnections:
            return ErrorKind::TooManyConnections;
        case Fault::DriverMissing:
            return ErrorKind::DriverMissing;
        case Fault::Other:
            break;
    }
    return KindOfOther(diagnosis);
}

}  // namespace zv::store::odbc
