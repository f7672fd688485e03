// Where the rows of a recordset for reading come from.
#pragma once

#include <utility>

#include "store/rows/field_list.h"
#include "store/value.h"

namespace zv::store::rows {

/// Rows in one pass, as an engine gives them. Operations throw RuntimeError.
class RowSource {
 public:
    virtual ~RowSource() = default;

    const FieldList& Fields() const { return fields_; }
    /// Goes to the next row; false behind the last. Before the first call no row is current.
    virtual bool Advance() = 0;
    /// A field of the current row. Each is asked for once at most; `value` keeps its memory from
    /// one row to the next.
    virtual void Read(int field, Value& value) = 0;
    /// The session is about to write. The current row has been read whole.
    virtual void Detach() {}

 protected:
    explicit RowSource(FieldList fields) : fields_(std::move(fields)) {}

 private:
    FieldList fields_;
};

}  // namespace zv::store::rows
