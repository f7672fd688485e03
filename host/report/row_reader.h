// The rows of a list of items, from stored values to what is printed.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "base/date_time.h"
#include "report/document.h"
#include "store/value.h"

namespace zv::report {

class RowReader {
 public:
    /// `fields` are the names of the printed columns, in their order. A row that prints its state
    /// and its due time says beside the state whether it is due on `today` or overdue.
    RowReader(Table& table, std::vector<std::string> fields, DateTime today, std::int16_t language);

    /// The values of one row, one for each column.
    void Add(const std::vector<store::Value>& values);

 private:
    std::string SignOf(const std::vector<store::Value>& values) const;

    Table& table_;
    std::vector<std::string> fields_;
    DateTime today_;
    std::int16_t language_;
    std::optional<std::size_t> state_;
    std::optional<std::size_t> dueTime_;
};

}  // namespace zv::report
