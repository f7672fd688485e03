// The error numbers of ADO that clients of the automation objects test for.
#pragma once

#include <string>

#include "base/errors.h"

namespace zv::host {

enum class AdoError {
    InvalidArgument = 3001,
    FeatureNotAvailable = 3251,
    ItemNotFound = 3265,
    ObjectOpen = 3705,
    ObjectNotValid = 3420,
};

inline RuntimeError MakeAdoError(AdoError error, std::string text) {
    return RuntimeError(static_cast<ErrorNumber>(error), std::move(text));
}
inline RuntimeError ClosedError() {
    return RuntimeError(ErrorNumber::ObjectClosed,
                        "Operation is not allowed when the object is closed.");
}
inline RuntimeError NoRecordError() {
    return RuntimeError(ErrorNumber::NoCurrentRecord,
                        "Either BOF or EOF is True, or the current record has been deleted.");
}

}  // namespace zv::host
