// The statements of tests/fixtures.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zv::store {

struct NamedStatement {
    std::string name;
    std::string sql;

    bool IsSelect() const;
};

/// Of statements.txt, in its order. Throws std::runtime_error for a line that has no name.
std::vector<NamedStatement> ReadStatements();
/// Of statement_data.sql: one statement a line.
std::vector<std::string> ReadDataStatements();

/// The statement with its values replaced: texts by T, dates by D however they are written, numbers
/// by N.
std::string FormOf(std::string_view sql);

}  // namespace zv::store
