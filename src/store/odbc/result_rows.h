// The rows of a statement, for reading.
#pragma once

#include <utility>

#include "store/odbc/link.h"
#include "store/rows/row_source.h"

namespace zv::store::odbc {

/// Holds all rows from the beginning, so that neither connection nor server is kept busy.
class ResultRows final : public rows::RowSource {
 public:
    explicit ResultRows(Result result)
        : RowSource(FieldsOf(result.columns)), rows_(std::move(result.rows)) {}

    bool Advance() override { return rows_.Advance(); }
    void Read(int field, Value& value) override { rows_.Read(field, value); }

 private:
    RowStore rows_;
};

}  // namespace zv::store::odbc
