#include "store/odbc/reading_recordset.h"

#include <utility>

namespace zv::store::odbc {

ReadingRecordset::ReadingRecordset(std::shared_ptr<Session> session, Result result)
    : session_(std::move(session)),
      columns_(std::move(result.columns)),
      rows_(std::move(result.rows)),
      fields_(static_cast<std::size_t>(columns_.Count())),
      readAt_(static_cast<std::size_t>(columns_.Count())) {
    Advance();
    session_->Register(this);
}

ReadingRecordset::~ReadingRecordset() {
    if (open_) session_->Unregister(this);
}

void ReadingRecordset::CheckOpen() const {
    if (!open_) throw RuntimeError(ErrorNumber::ObjectClosed);
}

bool ReadingRecordset::Eof() const {
    CheckOpen();
    return !hasRow_;
}

void ReadingRecordset::MoveNext() {
    CheckOpen();
    if (!hasRow_) throw RuntimeError(ErrorNumber::NoCurrentRecord);
    Advance();
}

void ReadingRecordset::Advance() {
    row_++;
    hasRow_ = rows_.Advance();
}

int ReadingRecordset::FieldCount() const {
    CheckOpen();
    return columns_.Count();
}

const std::string& ReadingRecordset::FieldName(int column) const {
    CheckOpen();
    columns_.Check(column);
    return columns_.At(column).name;
}

int ReadingRecordset::FieldIndex(std::string_view name) const {
    CheckOpen();
    return columns_.Index(name);
}

const Value& ReadingRecordset::Field(int column) const {
    CheckOpen();
    if (!hasRow_) throw RuntimeError(ErrorNumber::NoCurrentRecord);
    columns_.Check(column);
    const auto at = static_cast<std::size_t>(column);
    if (readAt_[at] != row_) {
        rows_.Read(column, fields_[at]);
        readAt_[at] = row_;
    }
    return fields_[at];
}

void ReadingRecordset::Abandon() noexcept {
    rows_.Clear();
    open_ = false;
    hasRow_ = false;
}

void ReadingRecordset::AddNew() {
    Update();
}
void ReadingRecordset::SetField(std::string_view, Value) {
    Update();
}
void ReadingRecordset::Update() {
    CheckOpen();
    throw RuntimeError(ErrorNumber::DatabaseFailure, "the recordset is read-only", kErrorSource);
}

void ReadingRecordset::Close() {
    CheckOpen();
    session_->Unregister(this);
    Abandon();
}

}  // namespace zv::store::odbc
