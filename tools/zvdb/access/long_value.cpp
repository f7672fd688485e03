#include "zvdb/access/long_value.h"

#include <string>

namespace zv::zvdb::access {
namespace {

constexpr std::size_t kHead = 12;
constexpr std::uint32_t kLengthMask = 0x3FFFFFFF;
constexpr std::uint32_t kInRow = 0x80000000;
constexpr std::uint32_t kOnePiece = 0x40000000;
constexpr std::uint32_t kOwner = 0x4C41564C;  // "LVAL"

/// A place in the file: the page in the upper three bytes, the row in the lowest.
Bytes Piece(MdbFile& file, std::uint32_t place, Page& page) {
    file.ReadPage(place >> 8, page);
    if (!page.IsData() || page.Owner() != kOwner) {
        throw Damage("page " + std::to_string(place >> 8) + " holds no long values");
    }
    if (page.StateOf(place & 0xFF) != Page::RowState::Present) {
        throw Damage("a piece of it was deleted");
    }
    return page.Row(place & 0xFF);
}

void Append(std::vector<std::uint8_t>& value, Bytes piece) {
    value.insert(value.end(), piece.Data(), piece.Data() + piece.Size());
}

}  // namespace

std::vector<std::uint8_t> ReadLongValue(MdbFile& file, Bytes field) {
    const std::uint32_t head = field.U32(0);
    const std::size_t length = head & kLengthMask;
    const std::uint32_t place = field.U32(4);
    if (length > std::size_t{file.PageCount()} * kPageSize) {
        throw Damage("it is longer than the file");
    }
    std::vector<std::uint8_t> value;
    if ((head & kInRow) != 0) {
        Append(value, field.Part(kHead, kHead + length));
        return value;
    }
    Page page;
    if ((head & kOnePiece) != 0) {
        Append(value, Piece(file, place, page));
        // The row may be longer than what is in use.
        if (value.size() > length) value.resize(length);
    } else {
        for (std::uint32_t next = place; next != 0 && value.size() < length;) {
            const Bytes piece = Piece(file, next, page);
            next = piece.U32(0);
            if (piece.Size() == 4) throw Damage("a piece of it is empty");
            Append(value, piece.Part(4, piece.Size()));
        }
    }
    if (value.size() != length) {
        throw Damage("it has " + std::to_string(value.size()) + " of " + std::to_string(length) +
                     " bytes");
    }
    return value;
}

}  // namespace zv::zvdb::access
