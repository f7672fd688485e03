#include "zvdb/access/page.h"

#include <string>

namespace zv::zvdb::access {

std::uint16_t Page::Entry(std::size_t row) const {
    if (row >= RowCount()) throw Damage("row " + std::to_string(row) + " is not on its page");
    return All().U16(kDirectoryAt + 2 * row);
}

Page::RowState Page::StateOf(std::size_t row) const {
    switch (Entry(row) & (kMoved | kHidden)) {
        case 0:
            return RowState::Present;
        case kMoved:
            return RowState::Moved;
        case kHidden:
            return RowState::MovedHere;
        default:
            return RowState::Deleted;
    }
}

Bytes Page::Row(std::size_t row) const {
    const std::size_t start = Entry(row) & kOffset;
    const std::size_t end = row == 0 ? kPageSize : std::size_t{Entry(row - 1)} & kOffset;
    if (start > end || end > kPageSize || start < kDirectoryAt + 2 * RowCount()) {
        throw Damage("row " + std::to_string(row) + " lies outside of its page");
    }
    return All().Part(start, end);
}

}  // namespace zv::zvdb::access
