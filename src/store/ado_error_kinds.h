// What the error numbers of ADO and its providers mean to a user.
#pragma once

#include "base/errors.h"

namespace zv::store {

/// Other for a number that says nothing, of which providers have many.
ErrorKind KindOfAdoError(ErrorNumber number);

}  // namespace zv::store
