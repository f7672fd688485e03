// What the codes of servers and drivers mean to a user.
#pragma once

#include <string_view>

#include "base/errors.h"
#include "store/odbc/diagnostics.h"

namespace zv::store::odbc {

ErrorKind KindOf(const Diagnosis& diagnosis);

}  // namespace zv::store::odbc
