// The rows of the report of one item: captions in one column, values in another, the content in a
// box across both.
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
    /// The caption of the content stands above its box.
    bool KeepsWithNext(std::size_t row) const override;

 private:
    std::vector<Row> rows_;
};

}  // namespace zv::report
