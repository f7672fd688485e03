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
        if (statement_.Step()) return true;
        statement_.Release();
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
    const auto* bytes = reinterpret_cast<const char*>(sqlite3_column_text(handle, field));
    const auto size = static_cast<std::size_t>(sqlite3_column_bytes(handle, field));
    const std::string_view text(bytes ? bytes : "", bytes ? size : 0);
    if (!rows::TakeStoredDate(value, text, Fields().Use(field))) value.AssignText(text);
}

void ResultRows::Detach() {
    if (!statement_) return;
    std::deque<std::vector<Value>> rest;
    while (statement_.Step()) {
        std::vector<Value>& row = rest.emplace_back(static_cast<std::size_t>(Fields().Count()));
        for (int field = 0; field < Fields().Count(); field++) {
            ReadStep(field, row[static_cast<std::size_t>(field)]);
        }
    }
    rest_ = std::move(rest);
    statement_.Release();
}

}  // namespace zv::store::sqlite
