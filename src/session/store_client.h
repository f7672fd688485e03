// What a change of the store means for the windows that are open.
#pragma once

#include <vector>

#include "changes/row_change.h"

namespace zv {

class Session;

/// A window that shows what is in the store.
class StoreClient {
 public:
    virtual ~StoreClient() = default;
    /// The user is about to write something to the present store.
    virtual bool HoldsInput() const { return false; }
    /// Takes away what came from the store.
    virtual void ForgetStore() {}
    /// Shows what the present store has. Database errors reach the caller.
    virtual void ShowStore() {}
    /// Shows what the store has after rows were changed that the window may show, by an act of the
    /// user that was none of this window. Database errors reach the caller.
    virtual void ShowRows(const std::vector<changes::RowChange>&) {}
};

/// Some window holds input for the present store.
bool EditUnderWay(const Session& session);
/// Fills the windows from the store that was opened. Everything of the former store is taken away
/// first: whatever fails, nothing of it may stay. Database errors reach the caller.
void ShowNewStore(Session& session);
void ShowChangedRows(const Session& session, const std::vector<changes::RowChange>& rows);

}  // namespace zv
