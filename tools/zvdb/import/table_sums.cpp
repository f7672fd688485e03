#include "zvdb/import/table_sums.h"

#include <bit>
#include <functional>
#include <string_view>

namespace zv::zvdb {
namespace {

// Spreads the bits of a number over all places.
std::uint64_t Mix(std::uint64_t number) {
    number ^= number >> 32;
    number *= 0x9E3779B97F4A7C15;
    number ^= number >> 29;
    number *= 0xBF58476D1CE4E5B9;
    return number ^ number >> 32;
}

struct Hash {
    std::uint64_t operator()(std::monostate) const { return 0; }
    std::uint64_t operator()(std::int64_t number) const {
        return Mix(static_cast<std::uint64_t>(number) + 1);
    }
    std::uint64_t operator()(double number) const {
        return Mix(std::bit_cast<std::uint64_t>(number) + 2);
    }
    std::uint64_t operator()(const std::string& text) const {
        return Mix(std::hash<std::string_view>()(text) + 3);
    }
    std::uint64_t operator()(DateTime date) const {
        return Mix(static_cast<std::uint64_t>(date.Seconds()) + 4);
    }
};

}  // namespace

void TableSums::Add(const std::vector<store::Value>& row) {
    ++rows_;
    std::uint64_t all = 0;
    for (std::size_t i = 0; i < columns_.size(); ++i) {
        const std::uint64_t hash = std::visit(Hash(), row[i].Data());
        all = all * 31 + hash;
        if (row[i].IsNull()) continue;
        Column& column = columns_[i];
        ++column.filled;
        column.contents += hash;
        if (const auto* number = std::get_if<std::int64_t>(&row[i].Data())) {
            column.numbers += static_cast<std::uint64_t>(*number);
        }
    }
    rowContents_ += Mix(all);
}

std::string TableSums::Difference(const TableSums& other,
                                  const std::vector<ColumnRule>& columns) const {
    if (rows_ != other.rows_) {
        return std::to_string(rows_) + " rows were read and " + std::to_string(other.rows_) +
               " written";
    }
    for (std::size_t i = 0; i < columns_.size(); ++i) {
        const Column& here = columns_[i];
        const Column& there = other.columns_[i];
        if (here.filled != there.filled) {
            return "column " + columns[i].name + " has " + std::to_string(here.filled) +
                   " values at the source and " + std::to_string(there.filled) + " at the target";
        }
        if (here.numbers != there.numbers || here.contents != there.contents) {
            return "column " + columns[i].name + " has another sum at the target";
        }
    }
    return rowContents_ == other.rowContents_ ? "" : "cells are in other rows at the target";
}

}  // namespace zv::zvdb
