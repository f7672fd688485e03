#include "store/rows/session_recordset.h"

#include <utility>

#include "base/errors.h"

namespace zv::store::rows {

SessionRecordset::SessionRecordset(std::shared_ptr<OpenRecordsets> all) : all_(std::move(all)) {
    all_->Add(this);
}

SessionRecordset::~SessionRecordset() {
    if (open_) all_->Remove(this);
}

void SessionRecordset::CheckOpen() const {
    if (!open_) throw RuntimeError(ErrorNumber::ObjectClosed);
}

int SessionRecordset::FieldCount() const {
    CheckOpen();
    return Fields().Count();
}

const std::string& SessionRecordset::FieldName(int column) const {
    CheckOpen();
    return Fields().Name(column);
}

int SessionRecordset::FieldIndex(std::string_view name) const {
    CheckOpen();
    return Fields().Index(name);
}

void SessionRecordset::Abandon() noexcept {
    open_ = false;
    Release();
}

void SessionRecordset::Close() {
    CheckOpen();
    all_->Remove(this);
    Abandon();
}

}  // namespace zv::store::rows
