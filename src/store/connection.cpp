#include "store/connection.h"

#include "base/errors.h"

namespace zv::store {

bool Connection::HasTable(std::string_view table) {
    // Every engine says of a statement that its table is missing, and few let their list of tables
    // be read.
    const std::string nothing = "select * from " + std::string(table) + " where 1=0";
    try {
        Open(nothing, CursorType::ForwardOnly, LockType::ReadOnly)->Close();
        return true;
    } catch (const RuntimeError& error) {
        if (error.Kind() != ErrorKind::NoTable) throw;
        return false;
    }
}

}  // namespace zv::store
