// Counts and sums by which the rows of a table are compared without keeping them.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "store/value.h"
#include "zvdb/import/system_tables.h"

namespace zv::zvdb {

class TableSums {
 public:
    explicit TableSums(std::size_t columns) : columns_(columns) {}

    void Add(const std::vector<store::Value>& row);
    std::int64_t Rows() const { return rows_; }
    /// What differs, "" when nothing does; `columns` gives the names.
    std::string Difference(const TableSums& other, const std::vector<ColumnRule>& columns) const;

 private:
    struct Column {
        std::int64_t filled = 0;
        std::uint64_t numbers = 0;   ///< sum, modulo 2^64
        std::uint64_t contents = 0;  ///< sum of a hash of each cell: the order does not matter
    };
    std::vector<Column> columns_;
    std::uint64_t rowContents_ = 0;  ///< distinguishes rows that swapped single cells
    std::int64_t rows_ = 0;
};

}  // namespace zv::zvdb
