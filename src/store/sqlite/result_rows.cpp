#include "store/sqlite/result_rows.h"

#include <sqlite3.h>

#include <utility>

#include "store/rows/date_text.h"
#include "store/sqlite/fields.h"

namespace zv::store::sqlite {

ResultRows::ResultRows(std::shared_ptr<Session> session, Statement statement)
    : RowSource(FieldsOf(statement, session->DatesAsText())),
      session_(std::move(session)),
      statement_(std::move(statement)) {}

bool ResultRows::Advance() {
    if (statement_) {
        if (statement_.Step()) {
            if (session_->ReadersStandAside()) return true;
            TakeAll();
        } else {
            statement_.Release();
        }
    }
    if (rest_.empty()) return false;
    current_ = std::move(rest_.front());
    rest_.pop_front();
    return true;
}

void ResultRows::Read(int field, Value& value) {
    if (statement_) {
        ReadStep(field, value);
    } else {
        value = std::move(current_[static_cast<std::size_t>(field)]);
    }
}

void ResultRows::ReadStep(int field, Value& value) const {
    sqlite3_stmt* handle = statement_.Handle();
    if (sqlite3_column_type(handle, field) != SQLITE_TEXT) {
        value = statement_.ColumnValue(field);
        return;
    }
    const std::string_view text = statement_.ColumnText(field);
    if (!rows::TakeStoredDate(value, text, Fields().Use(field))) value.AssignText(text);
}

void ResultRows::TakeStep(std::deque<std::vector<Value>>& rows) const {
    std::vector<Value>& row = rows.emplace_back(static_cast<std::size_t>(Fields().Count()));
    for (int field = 0; field < Fields().Count(); field++) {
        ReadStep(field, row[static_cast<std::size_t>(field)]);
    }
}

void ResultRows::TakeAll() {
    std::deque<std::vector<Value>> rows;
    do {
        TakeStep(rows);
    } while (statement_.Step());
    rest_ = std::move(rows);
    statement_.Release();
}

void ResultRows::Detach() {
    if (!statement_) return;
    std::deque<std::vector<Value>> rest;
    while (statement_.Step()) TakeStep(rest);
    rest_ = std::move(rest);
    statement_.Release();
}

}  // namespace zv::store::sqlite
