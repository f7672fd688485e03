// The database port, in the shape of ADO's Connection and Recordset. Engines stand behind it:
// sqlite/ (embedded), odbc/ (servers) and ado/ (automation objects handed over by the host).
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "store/value.h"

namespace zv::store {

enum class CursorType { ForwardOnly = 0, Keyset = 1, Dynamic = 2, Static = 3 };
enum class LockType { ReadOnly = 1, Pessimistic = 2, Optimistic = 3, BatchOptimistic = 4 };

/// Rows of an opened statement, one of them current. Every operation throws RuntimeError: the
/// database's own number and text, 3021 without a current row, 3704 when closed.
class Recordset {
 public:
    virtual ~Recordset() = default;

    virtual bool Eof() const = 0;
    virtual void MoveNext() = 0;

    virtual int FieldCount() const = 0;
    virtual const std::string& FieldName(int column) const = 0;
    /// Column of a field, compared without regard to case; throws DatabaseColumn when unknown.
    virtual int FieldIndex(std::string_view name) const = 0;
    /// A field of the current row, or of the row being added. The reference holds until the next
    /// move, write or close.
    virtual const Value& Field(int column) const = 0;
    const Value& Field(std::string_view name) const { return Field(FieldIndex(name)); }

    /// Starts a new row; fields not set keep the table's defaults.
    virtual void AddNew() = 0;
    virtual void SetField(std::string_view name, Value value) = 0;
    /// Writes the row being added, or the changed fields of the current row.
    virtual void Update() = 0;
    virtual void Close() = 0;
};

class Connection {
 public:
    static constexpr int kStateClosed = 0;
    static constexpr int kStateOpen = 1;

    virtual ~Connection() = default;

    virtual int State() const = 0;
    virtual void Close() = 0;
    /// Runs a statement that yields no rows; answers the number of rows it changed, -1 when the
    /// engine does not report it.
    virtual int Execute(const std::string& sql) = 0;
    virtual std::unique_ptr<Recordset> Open(const std::string& sql, CursorType cursor,
                                            LockType lock) = 0;
    /// Whether there is a table that a database may do without. Other errors than that it is
    /// missing are thrown.
    virtual bool HasTable(std::string_view table);
};

}  // namespace zv::store
