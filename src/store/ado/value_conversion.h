// Field values between the database port and automation.
#pragma once

#include "base/win32/variant.h"
#include "store/value.h"

namespace zv::store::ado {

/// Empty and null become null, every whole number (currency and decimals without a fraction too)
/// a whole number, true 1 and false 0, other numbers a real number. Throws TypeMismatch for
/// objects, arrays and error values.
Value FromVariant(const VARIANT& value);

/// A whole number becomes a 32-bit one where it fits, else a real number or, beyond its exact
/// range, a decimal: 64-bit integers are unknown to many automation clients.
win32::Variant ToVariant(const Value& value);

}  // namespace zv::store::ado
