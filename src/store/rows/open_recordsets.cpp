#include "store/rows/open_recordsets.h"

#include <utility>

#include "store/rows/session_recordset.h"

namespace zv::store::rows {

void OpenRecordsets::Detach() {
    for (SessionRecordset* recordset : recordsets_) recordset->Detach();
}

void OpenRecordsets::Abandon() noexcept {
    for (SessionRecordset* recordset : std::exchange(recordsets_, {})) recordset->Abandon();
}

}  // namespace zv::store::rows
