// What all recordsets of an engine have in common.
#pragma once

#include <memory>

#include "store/connection.h"
#include "store/rows/field_list.h"
#include "store/rows/open_recordsets.h"

namespace zv::store::rows {

/// A recordset that is closed with its session at the latest, and knows its fields.
class SessionRecordset : public Recordset {
 public:
    ~SessionRecordset() override;
    SessionRecordset(const SessionRecordset&) = delete;
    SessionRecordset& operator=(const SessionRecordset&) = delete;

    int FieldCount() const final;
    const std::string& FieldName(int column) const final;
    int FieldIndex(std::string_view name) const final;
    /// Changes that were not written are dropped.
    void Close() final;

    /// The session is about to write: hold nothing half-read any longer.
    virtual void Detach() {}
    /// The session closes.
    void Abandon() noexcept;

 protected:
    explicit SessionRecordset(std::shared_ptr<OpenRecordsets> all);

    /// Throws error 3704 when closed.
    void CheckOpen() const;
    /// Asked for while open only.
    virtual const FieldList& Fields() const = 0;
    /// Gives up all rows; what is asked of a closed recordset afterwards is refused by CheckOpen.
    virtual void Release() noexcept = 0;

 private:
    std::shared_ptr<OpenRecordsets> all_;
    bool open_ = true;
};

}  // namespace zv::store::rows
