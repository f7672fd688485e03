#include "store/sqlite/table_rows.h"

#include <utility>

#include "store/dialect/expression.h"
#include "store/rows/date_text.h"
#include "store/rows/writing_statements.h"
#include "store/sqlite/fields.h"

namespace zv::store::sqlite {
namespace {

rows::FieldList FieldsOf(Session& session, const dialect::Translation& translation,
                         const std::string& source) {
    // Preparing the whole statement finds its errors now and not at the first look.
    session.Prepare(translation.keySql, source);
    return FieldsOf(session.Prepare(translation.rowSql, source), session.DatesAsText());
}

}  // namespace

TableRows::TableRows(std::shared_ptr<Session> session,
                     std::shared_ptr<const dialect::Translation> translation, std::string source)
    : RowTable(FieldsOf(*session, *translation, source)),
      session_(std::move(session)),
      translation_(std::move(translation)),
      source_(std::move(source)) {}

void TableRows::Find() {
    Statement find = session_->Prepare(translation_->keySql, source_);
    std::vector<std::int64_t> keys;
    while (find.Step()) keys.push_back(std::get<std::int64_t>(find.ColumnValue(0).Data()));
    keys_ = std::move(keys);
}

bool TableRows::Advance() {
    if (next_ == keys_.size()) return false;
    current_ = keys_[next_++];
    return true;
}

bool TableRows::Read(rows::Row& stored) {
    Statement row = session_->Prepare(translation_->rowSql, source_);
    row.Bind(1, current_);
    if (!row.Step()) return false;
    stored.clear();
    for (int field = 0; field < Fields().Count(); field++) {
        stored.push_back(row.ColumnValue(field));
    }
    return true;
}

void TableRows::Present(const rows::Row& stored, rows::Row& shown) const {
    shown = stored;
    for (int field = 0; field < Fields().Count(); field++) {
        const auto at = static_cast<std::size_t>(field);
        if (const std::string* text = stored[at].TextIf()) {
            rows::TakeStoredDate(shown[at], *text, Fields().Use(field));
        }
    }
}

void TableRows::PrepareToWrite() {
    session_->Recordsets()->Detach();
}

std::vector<std::string> TableRows::Names(const rows::Changes& changes) const {
    std::vector<std::string> names;
    for (const auto& [field, value] : changes) {
        names.push_back(dialect::QuoteName(Fields().Name(field)));
    }
    return names;
}

void TableRows::Insert(const rows::Changes& changes) {
    const std::string table = dialect::QuoteName(translation_->table);
    Statement insert = session_->Prepare(rows::InsertStatement(table, Names(changes)), source_);
    int parameter = 1;
    for (const auto& [field, value] : changes) insert.Bind(parameter++, value);
    insert.Step();
    current_ = session_->LastRowId();
    keys_.clear();
    next_ = 0;
}

bool TableRows::Write(const rows::Changes& changes, const rows::Row& stored) {
    const std::vector<std::string> names = Names(changes);
    std::string sql = rows::UpdateStatement(dialect::QuoteName(translation_->table), names) +
                      " where \"rowid\"=?";
    // Only an exact comparison notices a change of letter case.
    for (const std::string& name : names) sql += " and " + name + " collate binary is ?";
    Statement update = session_->Prepare(sql, source_);
    int parameter = 1;
    for (const auto& [field, value] : changes) update.Bind(parameter++, value);
    update.Bind(parameter++, current_);
    for (const auto& [field, value] : changes) {
        update.Bind(parameter++, stored[static_cast<std::size_t>(field)]);
    }
    const int before = session_->TotalChanges();
    update.Step();
    return session_->TotalChanges() != before;
}

}  // namespace zv::store::sqlite
