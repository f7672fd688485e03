// Reads the plans and dates of tests/corpus/recurrence. A case is a paragraph:
//
//   case NAME
//   # the reason
//   plan KIND step N [month M] [day D] [week W] begin DATE end DATE type T width N
//   DATE  FIRST .. LAST      a row and its alert window, or DATE  none
//   ...                      any number of rows that are not written out
//   count N                  how many rows there are; needed where some are not written out
//   error N                  the run-time error that ends the rows
//
// A case without rows says "no rows" or the error.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "plans/occurrences.h"

namespace zv::plans::corpus {

struct Row {
    DateTime date;
    AlertWindow window;
    bool operator==(const Row&) const = default;
};

struct Case {
    std::string file;
    int line = 0;
    std::string name;
    std::string reason;
    Plan plan;
    std::vector<Row> head;
    std::optional<std::vector<Row>> tail;  ///< rows behind the gap; nothing without a gap
    std::size_t count = 0;
    int error = 0;
};

/// Every case of every file in the folder, in the order of file names. Throws std::runtime_error
/// naming file and line for anything that it does not understand.
std::vector<Case> Load(const std::string& folder);

}  // namespace zv::plans::corpus
