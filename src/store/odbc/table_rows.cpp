#include "store/odbc/table_rows.h"

#include <algorithm>
#include <utility>

namespace zv::store::odbc {

// Describing the statement finds its errors now and not at the first look.
TableRows::TableRows(const std::shared_ptr<Session>& session, const std::string& sql,
                     const std::string& table)
    : TableRows(session, sql, table, session->Describe(sql)) {}

TableRows::TableRows(std::shared_ptr<Session> session, std::string sql, const std::string& table,
                     std::vector<Column> columns)
    : RowTable(FieldsOf(columns)),
      session_(std::move(session)),
      sql_(std::move(sql)),
      columns_(std::move(columns)),
      statements_(*session_, session_->TableOf(table), columns_) {}

Result TableRows::Run(RowStatement statement, bool asStored) {
    return session_->Run(statement.sql, std::move(statement.parameters), asStored);
}

void TableRows::ReadFrom(const RowStore& source, rows::Row& row) const {
    row.resize(columns_.size());
    for (int field = 0; field < Fields().Count(); field++) {
        source.Read(field, row[static_cast<std::size_t>(field)]);
    }
}

void TableRows::Find() {
    rows_ = std::move(session_->Run(sql_, {}, true).rows);
}

bool TableRows::Advance() {
    isFresh_ = !std::exchange(passed_, true);
    if (!rows_.Advance()) return false;
    ReadFrom(rows_, current_);
    keyValues_.clear();
    for (const int field : statements_.Key()) {
        keyValues_.push_back(current_[static_cast<std::size_t>(field)]);
    }
    return true;
}

bool TableRows::Read(rows::Row& stored) {
    if (isFresh_ || !statements_.CanSelect() || keyValues_.empty()) {
        stored = current_;
        return true;
    }
    Result result = Run(statements_.Select(keyValues_), true);
    if (!result.rows.Advance()) return false;
    ReadFrom(result.rows, stored);
    return true;
}

void TableRows::Present(const rows::Row& stored, rows::Row& shown) const {
    shown = stored;
    if (!session_->Facts().reading.readsTexts) return;
    for (std::size_t field = 0; field < columns_.size(); field++) {
        if (const std::string* text = stored[field].TextIf()) {
            TakeStoredText(shown[field], *text, columns_[field]);
        }
    }
}

void TableRows::PrepareToWrite() {
    session_->CheckOpen();
    isFresh_ = false;
}

void TableRows::CheckWritable() const {
    if (!keyValues_.empty()) return;
    throw RuntimeError(ErrorNumber::DatabaseFailure,
                       "the rows have no key by which they could be written", kErrorSource)
        .Of(ErrorKind::RowsReadOnly);
}

void TableRows::Insert(const rows::Changes& changes) {
    Result inserted = Run(statements_.Insert(changes), false);
    keyValues_ = KeyOfNewRow(changes, inserted);
    current_.assign(columns_.size(), Value());
    for (const auto& [field, value] : changes) current_[static_cast<std::size_t>(field)] = value;
    rows_.Clear();
}

rows::Row TableRows::KeyOfNewRow(const rows::Changes& changes, Result& inserted) {
    if (!statements_.IsCounted(changes)) return statements_.KeyIn(changes);
    const std::string lastKey = session_->Facts().engine->facts->LastKey();
    if (!lastKey.empty()) inserted = session_->Run(lastKey);
    rows::Row key;
    if (inserted.rows.Advance()) inserted.rows.Read(0, key.emplace_back());
    return key;
}

bool TableRows::Write(const rows::Changes& changes, const rows::Row& stored) {
    const Result result = Run(statements_.Update(changes, keyValues_, stored), false);
    if (result.changed == 0) return false;
    const std::vector<int>& keyFields = statements_.Key();
    for (const auto& [field, value] : changes) {
        current_[static_cast<std::size_t>(field)] = value;
        const auto key = std::find(keyFields.begin(), keyFields.end(), field);
        if (key != keyFields.end()) {
            keyValues_[static_cast<std::size_t>(key - keyFields.begin())] = value;
        }
    }
    return true;
}

}  // namespace zv::store::odbc
