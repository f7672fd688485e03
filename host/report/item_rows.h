// The rows of the report of one item: its fields with their captions, short ones in pairs.
#pragma once

#include "report/document.h"
#include "report/font_set.h"
#include "report/rows.h"

namespace zv::report {

class ItemRows final : public RowSource {
 public:
    /// `width` of the body.
    ItemRows(const std::vector<Field>& fields, const FontSet& fonts, double width);

    std::size_t Count() const override { return rows_.size(); }
    Row At(std::size_t row) const override { return rows_[row]; }
    Row Heading() const override { return {}; }
    double TextSize() const override;
    bool HasBoxes() const override { return true; }

 private:
    std::vector<Row> rows_;
};

}  // namespace zv::report
