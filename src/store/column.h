// A column of a table as the domain describes it.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

namespace zv::store {

enum class ColumnKind { Text, Number, Date };

struct Column {
    std::string_view name;
    ColumnKind kind = ColumnKind::Text;
};

/// The names of a table's columns, in their order.
template <std::size_t N>
constexpr std::array<std::string_view, N> NamesOf(const std::array<Column, N>& columns) {
    std::array<std::string_view, N> names{};
    std::transform(columns.begin(), columns.end(), names.begin(),
                   [](const Column& column) { return column.name; });
    return names;
}

}  // namespace zv::store
