// The texts of a table, a row in one piece of memory: a million rows are a matter of their texts.
#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <string_view>
#include <vector>

namespace zv::forms {

/// Rows and columns are counted from 0. A row that was never written takes a pointer's room.
class PackedRows {
 public:
    PackedRows() = default;
    PackedRows(PackedRows&&) = default;
    PackedRows& operator=(PackedRows&&) = default;
    PackedRows Copy() const;

    std::size_t Count() const { return rows_.size(); }
    std::size_t Columns() const { return columns_; }
    /// Rows keep the texts of the columns that remain.
    void SetColumns(std::size_t columns);
    /// New rows are empty.
    void Resize(std::size_t count) { rows_.resize(count); }
    /// Gives back the room that rows no longer there have left.
    void Clear();
    /// Missing texts are empty; those beyond the columns are left out.
    void Append(std::span<const std::string_view> texts);
    /// Holds until the row changes.
    std::string_view Get(std::size_t row, std::size_t column) const;
    void Set(std::size_t row, std::size_t column, std::string_view text);
    /// Texts, lengths and places of the rows, without what the heap adds to each.
    std::size_t MemoryBytes() const;
    /// Row i becomes what row order[i] was.
    void Permute(const std::vector<std::size_t>& order);

 private:
    /// The lengths of the texts, seven bits a byte, the lowest first and the last byte below 128;
    /// then the texts.
    using Row = std::unique_ptr<char[]>;

    static Row Pack(std::span<const std::string_view> texts);
    std::vector<std::string_view> Texts(std::size_t row) const;

    std::vector<Row> rows_;
    std::size_t columns_ = 0;
    std::vector<std::string_view> texts_;  ///< of the row being appended
};

}  // namespace zv::forms
