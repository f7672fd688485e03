// A database without an engine: tables in memory that tests fill and look into.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "store/connection.h"

namespace zv::doubles {

struct Table {
    std::vector<std::string> columns;
    std::vector<std::vector<store::Value>> rows;
};

/// What the connections of a test share; outlives them.
struct Script {
    std::map<std::string, Table> answers;  ///< by statement
    std::vector<std::string> executed;
    std::vector<std::string> opened;
    int opens = 0;  ///< connections made
    int openRecordsets = 0;
    int affected = 0;  ///< what Execute answers
};

std::unique_ptr<store::Connection> MakeScriptedConnection(Script& script);

}  // namespace zv::doubles
