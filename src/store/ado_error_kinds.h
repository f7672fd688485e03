// What the error numbers of ADO and its providers mean to a user.
#pragma once

#include <vector>

#include "base/errors.h"

namespace zv::store {

/// Other for a number that says nothing, of which providers have many.
ErrorKind KindOfAdoError(ErrorNumber number);

/// What stands beside the number of such an error may say more.
bool IsGeneral(ErrorKind kind);

/// The kind that the error is of already, otherwise by the number; and where that one is general by
/// what the provider lists of the same error, first to last: SQLSTATE, the server's own number
/// where the source is a provider for SQL Server, and for "unspecified error" the words.
ErrorKind KindOfProviderError(const RuntimeError& error, const std::vector<ServerCode>& said);

}  // namespace zv::store
