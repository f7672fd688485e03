#include "zvdb/access/access_row.h"

namespace zv::zvdb::access {
namespace {

constexpr std::size_t kColumnCount = 2;  // bytes before the fixed fields
constexpr std::uint8_t kTrue[] = {1};

}  // namespace

std::size_t FixedSize(FieldType type) {
    switch (type) {
        case FieldType::Boolean:
        case FieldType::Byte:
            return 1;
        case FieldType::Integer:
            return 2;
        case FieldType::Long:
        case FieldType::Single:
        case FieldType::Complex:
            return 4;
        case FieldType::Money:
        case FieldType::Double:
        case FieldType::Date:
            return 8;
        case FieldType::Guid:
            return 16;
        case FieldType::Decimal:
            return 17;
        case FieldType::Binary:
        case FieldType::Text:
        case FieldType::Object:
        case FieldType::Memo:
            return 0;
    }
    return 0;
}

AccessRow::AccessRow(Bytes row, bool hasVariableColumns) : row_(row) {
    columns_ = row.U16(0);
    const std::size_t mask = (columns_ + 7) / 8;
    if (columns_ == 0 || row.Size() < kColumnCount + mask) throw Damage("a row is cut short");
    maskAt_ = row.Size() - mask;
    if (!hasVariableColumns) return;
    if (maskAt_ < kColumnCount + 2) throw Damage("a row is cut short");
    variables_ = row.U16(maskAt_ - 2);
    if (variables_ > columns_ || maskAt_ < kColumnCount + 4 + 2 * variables_) {
        throw Damage("a row has more fields than bytes");
    }
}

bool AccessRow::Bit(std::size_t column) const {
    return (row_.U8(maskAt_ + column / 8) >> (column % 8) & 1) != 0;
}

std::size_t AccessRow::VariableOffset(std::size_t index) const {
    return row_.U16(maskAt_ - 4 - 2 * index);
}

std::optional<Bytes> AccessRow::Field(const AccessColumn& column) const {
    // A column that was added after the row was written.
    const bool present = column.number < columns_ && Bit(column.number);
    if (column.type == FieldType::Boolean) return Bytes(kTrue, present ? 1 : 0);
    if (!present) return std::nullopt;
    if (column.fixed) {
        const std::size_t size = FixedSize(column.type) ? FixedSize(column.type) : column.size;
        const std::size_t from = kColumnCount + column.fixedOffset;
        if (from + size > maskAt_) throw Damage("a field lies outside of its row");
        return row_.Part(from, from + size);
    }
    if (column.variable >= variables_) return std::nullopt;
    const std::size_t to = VariableOffset(column.variable + 1);
    if (to > maskAt_ - 4 - 2 * variables_) throw Damage("a field lies outside of its row");
    return row_.Part(VariableOffset(column.variable), to);
}

}  // namespace zv::zvdb::access
