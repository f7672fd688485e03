// How an engine finds, reads and writes the rows of a recordset for writing.
#pragma once

#include <map>
#include <utility>
#include <vector>

#include "store/rows/field_list.h"
#include "store/value.h"

namespace zv::store::rows {

using Row = std::vector<Value>;
/// New values by field.
using Changes = std::map<int, Value>;

/// The rows of a select on one table, one of them current. Operations throw RuntimeError.
class RowTable {
 public:
    virtual ~RowTable() = default;

    const FieldList& Fields() const { return fields_; }

    /// Finds the rows; none is current yet.
    virtual void Find() = 0;
    /// Goes to the next row; false behind the last.
    virtual bool Advance() = 0;
    /// The current row as it stands in the table; false when it is there no longer.
    virtual bool Read(Row& stored) = 0;
    /// The row as its reader sees it: texts that stand for something else become it.
    virtual void Present(const Row& stored, Row& shown) const = 0;

    /// Called before every write.
    virtual void PrepareToWrite() = 0;
    /// Throws DatabaseFailure when the current row cannot be written back.
    virtual void CheckWritable() const {}
    /// Adds a row. It becomes the current one, and the last.
    virtual void Insert(const Changes& changes) = 0;
    /// Changes the current row if the fields to change still are as in `stored`; false when it was
    /// not changed.
    virtual bool Write(const Changes& changes, const Row& stored) = 0;

 protected:
    explicit RowTable(FieldList fields) : fields_(std::move(fields)) {}

 private:
    FieldList fields_;
};

}  // namespace zv::store::rows
