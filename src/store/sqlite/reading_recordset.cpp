#include "store/sqlite/reading_recordset.h"

#include <sqlite3.h>

#include <utility>

#include "base/errors.h"
#include "store/sqlite/database_file.h"

namespace zv::store::sqlite {

ReadingRecordset::ReadingRecordset(std::shared_ptr<Session> session, Statement statement)
    : session_(std::move(session)),
      statement_(std::move(statement)),
      columns_(statement_, session_->DatesAsText()),
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
    if (statement_) {
        hasRow_ = false;
        hasRow_ = statement_.Step();
        if (!hasRow_) statement_.Release();
        return;
    }
    hasRow_ = !rest_.empty();
    if (!hasRow_) return;
    fields_ = std::move(rest_.front());
    rest_.pop_front();
    readAt_.assign(readAt_.size(), row_);
}

int ReadingRecordset::FieldCount() const {
    CheckOpen();
    return columns_.Count();
}

const std::string& ReadingRecordset::FieldName(int column) const {
    CheckOpen();
    return columns_.Name(column);
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
        Read(column, fields_[at]);
        readAt_[at] = row_;
    }
    return fields_[at];
}

void ReadingRecordset::Read(int column, Value& value) const {
    sqlite3_stmt* handle = statement_.Handle();
    if (sqlite3_column_type(handle, column) != SQLITE_TEXT) {
        value = statement_.ColumnValue(column);
        return;
    }
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(handle, column));
    const auto bytes = static_cast<std::size_t>(sqlite3_column_bytes(handle, column));
    AssignText(value, std::string_view(text ? text : "", text ? bytes : 0), columns_.Use(column));
}

void ReadingRecordset::Detach() {
    if (!statement_) return;
    if (hasRow_) {
        for (int column = 0; column < columns_.Count(); column++) Field(column);
        while (statement_.Step()) {
            std::vector<Value> row(fields_.size());
            for (int column = 0; column < columns_.Count(); column++) {
                Read(column, row[static_cast<std::size_t>(column)]);
            }
            rest_.push_back(std::move(row));
        }
    }
    statement_.Release();
}

void ReadingRecordset::Abandon() noexcept {
    statement_.Release();
    rest_.clear();
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

}  // namespace zv::store::sqlite
