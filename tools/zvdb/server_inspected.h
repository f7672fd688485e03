// A database on a server under the eyes of the check.
#pragma once

#include <memory>

#include "zvdb/import/server_link.h"
#include "zvdb/inspected.h"

namespace zv::zvdb {

/// `link` must outlive the result and is in a transaction from here on.
std::unique_ptr<Inspected> InspectServer(ServerLink& link);

}  // namespace zv::zvdb
