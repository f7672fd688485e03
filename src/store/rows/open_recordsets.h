// The recordsets that are open on a session.
#pragma once

#include <vector>

namespace zv::store::rows {

class SessionRecordset;

/// A session's way to its recordsets. Recordsets enter and leave by themselves.
class OpenRecordsets {
 public:
    void Add(SessionRecordset* recordset) { recordsets_.push_back(recordset); }
    void Remove(SessionRecordset* recordset) { std::erase(recordsets_, recordset); }

    /// The session is about to write.
    void Detach();
    /// The session closes.
    void Abandon() noexcept;

 private:
    std::vector<SessionRecordset*> recordsets_;
};

}  // namespace zv::store::rows
