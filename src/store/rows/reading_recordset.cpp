#include "store/rows/reading_recordset.h"

#include <utility>

#include "base/errors.h"

namespace zv::store::rows {

ReadingRecordset::ReadingRecordset(std::shared_ptr<OpenRecordsets> all,
                                   std::unique_ptr<RowSource> source)
    : SessionRecordset(std::move(all)),
      source_(std::move(source)),
      values_(static_cast<std::size_t>(source_->Fields().Count())),
      readAt_(values_.size()) {
    Advance();
}

bool ReadingRecordset::Eof() const {
    CheckOpen();
    return !hasRow_;
}

void ReadingRecordset::ThrowNoRow() const {
    CheckOpen();
    throw RuntimeError(ErrorNumber::NoCurrentRecord);
}

void ReadingRecordset::MoveNext() {
    if (!hasRow_) ThrowNoRow();
    Advance();
}

void ReadingRecordset::Advance() {
    row_++;
    hasRow_ = false;
    hasRow_ = source_->Advance();
}

const Value& ReadingRecordset::Field(int column) const {
    if (!hasRow_) ThrowNoRow();
    source_->Fields().Check(column);
    const auto at = static_cast<std::size_t>(column);
    if (readAt_[at] != row_) {
        source_->Read(column, values_[at]);
        readAt_[at] = row_;
    }
    return values_[at];
}

void ReadingRecordset::Detach() {
    if (hasRow_) {
        for (int column = 0; column < Fields().Count(); column++) Field(column);
    }
    source_->Detach();
}

void ReadingRecordset::AddNew() {
    Update();
}
void ReadingRecordset::SetField(std::string_view, Value) {
    Update();
}
void ReadingRecordset::Update() {
    CheckOpen();
    throw RuntimeError(ErrorNumber::DatabaseFailure, "the recordset is read-only",
                       Fields().ErrorSource())
        .Of(ErrorKind::RowsReadOnly);
}

void ReadingRecordset::Release() noexcept {
    hasRow_ = false;
    source_.reset();
}

}  // namespace zv::store::rows
