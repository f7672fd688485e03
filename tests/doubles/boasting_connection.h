// A connection that is wrong on purpose: it acknowledges writes that have failed. Harnesses prove
// with it that they find such a fault.
#pragma once

#include <memory>

#include "store/connection.h"

namespace zv::doubles {

/// Errors of Execute, and of Update of its recordsets, reach nobody.
std::unique_ptr<store::Connection> Boast(std::unique_ptr<store::Connection> connection);

}  // namespace zv::doubles
