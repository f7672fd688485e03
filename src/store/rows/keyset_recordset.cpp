#include "store/rows/keyset_recordset.h"

#include <utility>

#include "base/errors.h"
#include "store/rows/date_text.h"

namespace zv::store::rows {
namespace {

constexpr const char* kDeleted = "the row has been deleted";
constexpr const char* kChanged = "the row has been changed by another user since it was read";

}  // namespace

KeysetRecordset::KeysetRecordset(std::shared_ptr<OpenRecordsets> all,
                                 std::unique_ptr<RowTable> table)
    : SessionRecordset(std::move(all)), table_(std::move(table)) {}

bool KeysetRecordset::Eof() const {
    CheckOpen();
    if (adding_) return false;
    if (!found_) {
        table_->Find();
        found_ = true;
        hasRow_ = table_->Advance();
    }
    return !hasRow_;
}

void KeysetRecordset::CheckRow() const {
    if (Eof()) throw RuntimeError(ErrorNumber::NoCurrentRecord);
}

void KeysetRecordset::MoveNext() {
    CheckRow();
    WriteIfChanged();
    rowRead_ = false;
    hasRow_ = table_->Advance();
}

const Value& KeysetRecordset::Field(int column) const {
    CheckRow();
    Fields().Check(column);
    if (const auto change = changes_.find(column); change != changes_.end()) return change->second;
    if (adding_) {
        static const Value null;
        return null;
    }
    ReadRow();
    return shown_[static_cast<std::size_t>(column)];
}

void KeysetRecordset::ReadRow() const {
    if (rowRead_) return;
    if (!table_->Read(stored_)) ThrowConflict(kDeleted);
    table_->Present(stored_, shown_);
    rowRead_ = true;
}

void KeysetRecordset::AddNew() {
    CheckOpen();
    WriteIfChanged();
    adding_ = true;
}

void KeysetRecordset::SetField(std::string_view name, Value value) {
    CheckRow();
    const int column = Fields().Index(name);
    if (!adding_) {
        table_->CheckWritable();
        // The values that the change is made against are those of now, not of the time of writing.
        ReadRow();
    }
    if (Fields().Use(column) == FieldUse::Date) TakeGivenDate(value);
    changes_.insert_or_assign(column, std::move(value));
}

void KeysetRecordset::WriteIfChanged() {
    if (adding_ || !changes_.empty()) Update();
}

void KeysetRecordset::Update() {
    CheckRow();
    table_->PrepareToWrite();
    if (adding_) {
        table_->Insert(changes_);
        found_ = true;
        hasRow_ = true;
    } else if (!changes_.empty() && !table_->Write(changes_, stored_)) {
        // A look of its own: the change stays one against the row as it was read.
        Row now;
        ThrowConflict(table_->Read(now) ? kChanged : kDeleted);
    }
    changes_.clear();
    adding_ = false;
    rowRead_ = false;
}

void KeysetRecordset::ThrowConflict(const char* text) const {
    throw RuntimeError(ErrorNumber::DatabaseConflict, text, Fields().ErrorSource())
        .Of(ErrorKind::Changed);
}

void KeysetRecordset::Release() noexcept {
    changes_.clear();
    table_.reset();
}

}  // namespace zv::store::rows
