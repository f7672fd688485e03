// The connection opener: picks the engine by what it is given.
#pragma once

#include <span>

#include "automation/dispatch.h"
#include "store/ado/ado_opener.h"
#include "store/connection_opener.h"

namespace zv::host {

using automation::Arguments;
using automation::DispatchObject;
using automation::MemberEntry;

class OpenerObject final : public DispatchObject<OpenerObject> {
 public:
    static constexpr IID kInterfaceId = store::ado::kOpenerInterface;
    static constexpr std::string_view kSourceName = "zv_Host.Opener";
    static std::span<const MemberEntry<OpenerObject>> Members();

 private:
    ~OpenerObject() override = default;
    /// OpenConnection(kind, path, password, login, database): the opened connection.
    win32::Variant OpenConnection(const Arguments& arguments);
    /// OpenShared(kind, connection, path, password, login, database): stores the opened
    /// connection into the second argument; answers 1.
    win32::Variant OpenShared(const Arguments& arguments);
};

/// Kind 0 (or less): an embedded database file or an Access file, distinguished by its content;
/// kind 1 or more: a server, over ODBC when the path says so (store/odbc/connection_string.h) and
/// by ADO otherwise. Throws RuntimeError with the path and the reason.
win32::ComPtr<IDispatch> OpenDatabase(const store::ConnectionSettings& settings);

}  // namespace zv::host
