#include "doubles/recorded_statements.h"

#include <utility>

#include "base/errors.h"
#include "base/text.h"

namespace zv::doubles {
namespace {

void Check(const std::string& failure) {
    if (!failure.empty()) throw RuntimeError(ErrorNumber::DatabaseFailure, failure);
}

}  // namespace

void RecordedStatements::PlannedFailure::Count() {
    if (left == 0 || --left > 0) return;
    throw RuntimeError(ErrorNumber::DatabaseFailure, text);
}

void RecordedStatements::OnStatement(const std::string& sql) {
    lines.push_back(sql);
    if (onStatement) onStatement(sql);
    step_.Count();
    if (!failing.empty() && text::Contains(sql, failing)) Check(failing);
}

void RecordedStatements::OnRowUpdate() {
    rows++;
    if (onRow) onRow();
    if (tellsRows) lines.emplace_back("row");
    step_.Count();
    row_.Count();
    Check(failingUpdate);
}

std::vector<std::string> RecordedStatements::Take() {
    return std::exchange(lines, {});
}

void RecordedStatements::Fail(int position, std::string text) {
    step_ = {position, std::move(text)};
}

void RecordedStatements::FailRow(int count) {
    row_ = {count, "disk full"};
}

}  // namespace zv::doubles
