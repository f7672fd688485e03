#include "zvdb/import/server_rows.h"

namespace zv::zvdb {

ServerRows::ServerRows(ServerLink& link, const std::string& table,
                       const std::vector<std::string>& columns, int key)
    : link_(link), table_(link.Quoted(table)), key_(key) {
    for (const std::string& column : columns) {
        columns_ += (columns_.empty() ? "" : ",") + link.Quoted(column);
    }
    if (key >= 0) keyName_ = link.Quoted(columns[static_cast<std::size_t>(key)]);
    Open("");
}

void ServerRows::Open(const std::string& after) {
    inPart_ = 0;
    rows_ = link_.Select(
        key_ < 0 ? "select " + columns_ + " from " + table_
                 : link_.Bulk().SelectPart(columns_, table_, keyName_, after, kRowsInPart));
}

bool ServerRows::Next(std::vector<store::Value>& row) {
    if (inPart_ > 0) rows_->MoveNext();
    if (rows_->Eof()) {
        if (key_ < 0 || inPart_ < kRowsInPart) return false;
        Open(last_);
        if (rows_->Eof()) return false;
    }
    ++inPart_;
    row.resize(static_cast<std::size_t>(rows_->FieldCount()));
    for (std::size_t i = 0; i < row.size(); ++i) row[i] = rows_->Field(static_cast<int>(i));
    if (key_ >= 0) last_ = row[static_cast<std::size_t>(key_)].ToText();
    return true;
}

}  // namespace zv::zvdb
