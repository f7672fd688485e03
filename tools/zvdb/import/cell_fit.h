// Brings a value into the form of the column that it goes to, and reports when it does not fit.
#pragma once

#include <optional>
#include <string>
#include <utility>

#include "store/value.h"
#include "zvdb/import/import_report.h"
#include "zvdb/import/table_target.h"

namespace zv::zvdb {

struct Misfit {
    Weight weight;
    const char* what;  ///< "texts longer than the column"
};

class CellFit {
 public:
    CellFit(ColumnRule column, const TargetLimits& limits)
        : column_(std::move(column)), limits_(limits) {}

    /// NULL fits everywhere. What a lenient target keeps as it is, is a remark; what it would
    /// change or lose, a refusal.
    std::optional<Misfit> Fit(store::Value& value) const;

 private:
    std::optional<Misfit> FitNumber(store::Value& value) const;
    std::optional<Misfit> FitText(store::Value& value) const;
    std::optional<Misfit> FitDate(store::Value& value) const;
    Misfit Keep(const char* refused, const char* kept) const;

    ColumnRule column_;
    TargetLimits limits_;
};

}  // namespace zv::zvdb
