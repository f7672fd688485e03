// Rows in memory, packed, for one pass from the first to the last.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <string_view>
#include <vector>

#include "store/value.h"

namespace zv::store::odbc {

/// Written row by row, then read row by row; memory of rows that were passed is given back.
class RowStore {
 public:
    explicit RowStore(int columns = 0) : columns_(columns) {}

    void BeginRow();
    void AddNull() { AddTag(Tag::Null); }
    void AddNumber(std::int64_t number) { AddPlain(Tag::Number, number); }
    void AddReal(double number) { AddPlain(Tag::Real, number); }
    void AddDate(DateTime date) { AddPlain(Tag::Date, date.Seconds()); }
    void AddText(std::string_view text);
    /// From UTF-16; a half of a surrogate pair becomes U+FFFD.
    void AddText(const char16_t* text, std::size_t units);
    void EndRow();

    /// Rows not passed yet, the current one among them.
    std::size_t Left() const { return left_; }
    /// Goes to the next row; false behind the last. Before the first call no row is current.
    bool Advance();
    /// A field of the current row.
    void Read(int column, Value& value) const;
    /// The current row is the last that is needed: gives back all memory.
    void Clear();

 private:
    enum class Tag : std::uint8_t { Null, Number, Real, Date, Text };
    struct Block {
        std::vector<char> bytes;
        std::size_t rows = 0;
    };

    void AddTag(Tag tag);
    template <class T>
    void AddPlain(Tag tag, T value) {
        AddTag(tag);
        Append(&value, sizeof value);
    }
    void Append(const void* data, std::size_t size);

    int columns_;
    std::deque<Block> blocks_;
    std::size_t left_ = 0;
    // Reading: where each field of the current row begins in the first block.
    bool started_ = false;
    std::size_t next_ = 0;
    std::size_t passedInBlock_ = 0;
    std::vector<std::size_t> fields_;
};

}  // namespace zv::store::odbc
