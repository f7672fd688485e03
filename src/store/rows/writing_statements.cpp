#include "store/rows/writing_statements.h"

namespace zv::store::rows {

std::string InsertStatement(const std::string& table, const std::vector<std::string>& names) {
    if (names.empty()) return "insert into " + table + " default values";
    std::string list;
    std::string places;
    for (const std::string& name : names) {
        list += (list.empty() ? "" : ",") + name;
        places += places.empty() ? "?" : ",?";
    }
    return "insert into " + table + "(" + list + ") values(" + places + ")";
}

std::string UpdateStatement(const std::string& table, const std::vector<std::string>& names) {
    std::string assignments;
    for (const std::string& name : names) {
        assignments += (assignments.empty() ? "" : ",") + name + "=?";
    }
    return "update " + table + " set " + assignments;
}

}  // namespace zv::store::rows
