// A database connection that some automation object with the members of ADO's Connection offers.
#pragma once

#include <memory>

#include "base/win32/com_ptr.h"
#include "store/connection.h"

struct IDispatch;

namespace zv::store::ado {

/// Recordsets that only run forward and only read come from the object's Execute. Others come
/// from its member CreateRecordset where it has one, else from the class ADODB.Recordset.
/// Errors carry the number, text and source that the object reports.
std::unique_ptr<Connection> WrapConnection(win32::ComPtr<IDispatch> connection);

/// Name of the member by which a connection offers recordsets of its own kind: it answers a
/// closed recordset whose Open takes the connection.
inline constexpr wchar_t kRecordsetFactory[] = L"CreateRecordset";

}  // namespace zv::store::ado
