#include "zvdb/access/table_rows.h"

#include <string>

namespace zv::zvdb::access {
namespace {

// A row that moves again leaves the way to it behind.
constexpr int kMaxMoves = 64;

void ReadDataPage(MdbFile& file, const TableDefinition& table, std::uint32_t number, Page& page) {
    file.ReadPage(number, page);
    if (!page.IsData() || page.Owner() != table.page) {
        throw Damage("page " + std::to_string(number) + " is not one of its pages");
    }
    // The directory and the rows share the page.
    if (page.RowCount() > kPageSize / 4) {
        throw Damage("page " + std::to_string(number) + " has more rows than room");
    }
}

/// Follows a row from where it was; its bytes are in `page` afterwards.
Bytes Follow(MdbFile& file, const TableDefinition& table, Bytes from, Page& page) {
    std::uint32_t place = from.U32(0);
    for (int moves = 0; moves < kMaxMoves; ++moves) {
        ReadDataPage(file, table, place >> 8, page);
        const std::size_t row = place & 0xFF;
        const Page::RowState state = page.StateOf(row);
        if (state == Page::RowState::MovedHere || state == Page::RowState::Present) {
            return page.Row(row);
        }
        if (page.Row(row).Size() != 4) break;
        place = page.Row(row).U32(0);
    }
    throw Damage("a row that was moved is not where it went");
}

}  // namespace

void ForEachRow(MdbFile& file, const TableDefinition& table,
                const std::function<void(const AccessRow&, const std::string&)>& take) {
    std::uint64_t rows = 0;
    Page page;
    Page other;
    std::string where;
    try {
        for (const std::uint32_t number : table.dataPages) {
            ReadDataPage(file, table, number, page);
            for (std::size_t row = 0; row < page.RowCount(); ++row) {
                const Page::RowState state = page.StateOf(row);
                if (state == Page::RowState::Deleted || state == Page::RowState::MovedHere) {
                    continue;
                }
                where = "row " + std::to_string(row) + " on page " + std::to_string(number);
                Bytes bytes = page.Row(row);
                if (state == Page::RowState::Moved) bytes = Follow(file, table, bytes, other);
                const AccessRow parts(bytes, table.hasVariableColumns);
                if (++rows > table.rows) {
                    throw Damage("it has more rows than the " + std::to_string(table.rows) +
                                 " that its definition tells");
                }
                take(parts, where);
                where.clear();
            }
        }
        if (rows != table.rows) {
            throw Damage("it has " + std::to_string(rows) + " rows, its definition tells " +
                         std::to_string(table.rows));
        }
    } catch (const Damage& damage) {
        throw Damage("the file is damaged: table " + table.name + ": " +
                     (where.empty() ? "" : where + ": ") + damage.what());
    }
}

}  // namespace zv::zvdb::access
