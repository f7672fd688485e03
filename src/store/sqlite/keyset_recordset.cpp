#include "store/sqlite/keyset_recordset.h"

#include <utility>

#include "base/errors.h"
#include "store/dialect/expression.h"
#include "store/dialect/lexer.h"
#include "store/sqlite/database_file.h"

namespace zv::store::sqlite {

KeysetRecordset::KeysetRecordset(std::shared_ptr<Session> session,
                                 std::shared_ptr<const dialect::Translation> translation,
                                 std::string source)
    : session_(std::move(session)),
      translation_(std::move(translation)),
      source_(std::move(source)) {
    // Preparing the whole statement finds its errors now and not at the first look.
    session_->Prepare(translation_->keySql, source_);
    columns_ = Columns(session_->Prepare(translation_->rowSql, source_), session_->DatesAsText());
    session_->Register(this);
}

KeysetRecordset::~KeysetRecordset() {
    if (open_) session_->Unregister(this);
}

void KeysetRecordset::CheckOpen() const {
    if (!open_) throw RuntimeError(ErrorNumber::ObjectClosed);
}

void KeysetRecordset::TakeKeys() const {
    if (keysTaken_) return;
    Statement keys = session_->Prepare(translation_->keySql, source_);
    while (keys.Step()) keys_.push_back(std::get<std::int64_t>(keys.ColumnValue(0).Data()));
    keysTaken_ = true;
}

bool KeysetRecordset::Eof() const {
    CheckOpen();
    if (adding_) return false;
    TakeKeys();
    return at_ >= keys_.size();
}

void KeysetRecordset::CheckRow() const {
    if (Eof()) throw RuntimeError(ErrorNumber::NoCurrentRecord);
}

void KeysetRecordset::MoveNext() {
    CheckRow();
    if (adding_ || !changes_.empty()) Update();
    at_++;
    rowRead_ = false;
}

int KeysetRecordset::FieldCount() const {
    CheckOpen();
    return columns_.Count();
}

const std::string& KeysetRecordset::FieldName(int column) const {
    CheckOpen();
    return columns_.Name(column);
}

int KeysetRecordset::FieldIndex(std::string_view name) const {
    CheckOpen();
    return columns_.Index(name);
}

const Value& KeysetRecordset::Field(int column) const {
    CheckRow();
    columns_.Check(column);
    if (const auto change = changes_.find(column); change != changes_.end()) return change->second;
    if (adding_) {
        static const Value null;
        return null;
    }
    ReadRow();
    return fields_[static_cast<std::size_t>(column)];
}

void KeysetRecordset::ReadRow() const {
    if (rowRead_) return;
    Statement row = session_->Prepare(translation_->rowSql, source_);
    row.Bind(1, keys_[at_]);
    if (!row.Step()) {
        throw RuntimeError(ErrorNumber::DatabaseConflict, "the row has been deleted", kErrorSource);
    }
    stored_.clear();
    fields_.clear();
    for (int column = 0; column < columns_.Count(); column++) {
        stored_.push_back(row.ColumnValue(column));
        fields_.push_back(stored_.back());
        if (const std::string* text = stored_.back().TextIf()) {
            AssignText(fields_.back(), *text, columns_.Use(column));
        }
    }
    rowRead_ = true;
}

void KeysetRecordset::AddNew() {
    CheckOpen();
    if (adding_ || !changes_.empty()) Update();
    adding_ = true;
}

void KeysetRecordset::SetField(std::string_view name, Value value) {
    CheckRow();
    const int column = columns_.Index(name);
    // The values that the change is made against are those of now, not of the time of writing.
    if (!adding_) ReadRow();
    if (const std::string* text = value.TextIf(); text && columns_.Use(column) == ColumnUse::Date) {
        if (const std::string date = dialect::StoredDate(*text); !date.empty()) value = Value(date);
        AssignText(value, std::string(*value.TextIf()), ColumnUse::Date);
    }
    changes_.insert_or_assign(column, std::move(value));
}

void KeysetRecordset::Update() {
    CheckRow();
    session_->DetachRecordsets();
    if (adding_) {
        Insert();
    } else if (!changes_.empty()) {
        Write();
    }
    changes_.clear();
    adding_ = false;
    rowRead_ = false;
}

void KeysetRecordset::Insert() {
    std::string names, places;
    for (const auto& [column, value] : changes_) {
        names += (names.empty() ? "" : ",") + dialect::QuoteName(columns_.Name(column));
        places += places.empty() ? "?" : ",?";
    }
    const std::string target = "insert into " + dialect::QuoteName(translation_->table);
    Statement insert =
        session_->Prepare(changes_.empty() ? target + " default values"
                                           : target + "(" + names + ") values(" + places + ")",
                          source_);
    int parameter = 1;
    for (const auto& [column, value] : changes_) insert.Bind(parameter++, value);
    insert.Step();

    // The new row becomes the current one, behind those of the result.
    const std::int64_t key = session_->LastRowId();
    if (!keysTaken_) {
        keys_.clear();
        keysTaken_ = true;
    }
    keys_.push_back(key);
    at_ = keys_.size() - 1;
}

void KeysetRecordset::Write() {
    std::string assignments, unchanged;
    for (const auto& [column, value] : changes_) {
        const std::string name = dialect::QuoteName(columns_.Name(column));
        assignments += (assignments.empty() ? "" : ",") + name + "=?";
        // Only an exact comparison notices a change of letter case.
        unchanged += " and " + name + " collate binary is ?";
    }
    Statement update =
        session_->Prepare("update " + dialect::QuoteName(translation_->table) + " set " +
                              assignments + " where \"rowid\"=?" + unchanged,
                          source_);
    int parameter = 1;
    for (const auto& [column, value] : changes_) update.Bind(parameter++, value);
    update.Bind(parameter++, keys_[at_]);
    for (const auto& [column, value] : changes_) {
        update.Bind(parameter++, stored_[static_cast<std::size_t>(column)]);
    }
    const int before = session_->TotalChanges();
    update.Step();
    if (session_->TotalChanges() == before) ThrowLost();
}

void KeysetRecordset::ThrowLost() {
    Statement row = session_->Prepare(translation_->rowSql, source_);
    row.Bind(1, keys_[at_]);
    throw RuntimeError(ErrorNumber::DatabaseConflict,
                       row.Step() ? "the row has been changed by another user since it was read"
                                  : "the row has been deleted",
                       kErrorSource);
}

void KeysetRecordset::Abandon() noexcept {
    open_ = false;
    changes_.clear();
    keys_.clear();
}

void KeysetRecordset::Close() {
    CheckOpen();
    session_->Unregister(this);
    Abandon();
}

}  // namespace zv::store::sqlite
