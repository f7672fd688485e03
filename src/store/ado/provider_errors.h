// What the list of errors of a connection object says of an error.
#pragma once

#include <utility>
#include <vector>

#include "base/errors.h"
#include "store/ado/calls.h"

namespace zv::store::ado {

struct ProviderError {
    ErrorNumber number{};  ///< 0 when the object has none
    ServerCode code;
};

/// Of the last operation that failed, recordsets' too; empty when the object has no such list.
/// Throws RuntimeError.
std::vector<ProviderError> ErrorsOf(IDispatch& connection);

/// The error as one of the kind that its provider reports. Errors that are of a kind already, and
/// those of a connection that does not answer, stay as they are.
RuntimeError OfReportedKind(RuntimeError error, IDispatch& connection);

/// Runs `work`; its errors are of the kind that the connection's provider reports.
template <class Work>
auto WithKind(IDispatch& connection, Work work) {
    try {
        return work();
    } catch (const RuntimeError& error) {
        throw OfReportedKind(error, connection);
    }
}

}  // namespace zv::store::ado
