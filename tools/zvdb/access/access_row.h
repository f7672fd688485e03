// A row of an Access table, taken apart into the bytes of its fields.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "zvdb/access/page.h"

namespace zv::zvdb::access {

enum class FieldType {
    Boolean = 1,
    Byte = 2,
    Integer = 3,
    Long = 4,
    Money = 5,
    Single = 6,
    Double = 7,
    Date = 8,
    Binary = 9,
    Text = 10,
    Object = 11,
    Memo = 12,
    Guid = 15,
    Decimal = 16,
    Complex = 18,
};

struct AccessColumn {
    std::string name;
    FieldType type = FieldType::Text;
    std::size_t size = 0;
    std::size_t scale = 0;        ///< digits behind the point of a decimal
    bool fixed = false;           ///< lies at a fixed place in the row
    std::size_t fixedOffset = 0;  ///< that place, behind the count of columns
    std::size_t variable = 0;     ///< number among the columns of variable length
    std::size_t number = 0;       ///< in rows, deleted columns counted
};

class AccessRow {
 public:
    /// Throws Damage when the parts do not fit into `row`.
    AccessRow(Bytes row, bool hasVariableColumns);

    /// Nothing for NULL. A boolean is never NULL: its bytes are one, or none for False.
    std::optional<Bytes> Field(const AccessColumn& column) const;

 private:
    bool Bit(std::size_t column) const;
    std::size_t VariableOffset(std::size_t index) const;

    Bytes row_;
    std::size_t columns_ = 0;
    std::size_t variables_ = 0;
    std::size_t maskAt_ = 0;
};

/// Bytes of a field of fixed length; 0 when its length is the column's own.
std::size_t FixedSize(FieldType type);

}  // namespace zv::zvdb::access
