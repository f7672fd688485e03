// What the codes and words of servers and drivers mean to a user, whatever way they come.
#pragma once

#include <cstdint>
#include <string_view>

#include "base/errors.h"

namespace zv::store {

/// By the server's own number alone.
ErrorKind KindOfServerNumber(std::int32_t native);

/// By the server's number, then by SQLSTATE; Other when neither says anything. A number of 0 says
/// nothing.
ErrorKind KindOfServerCode(const ServerCode& code);

/// For drivers without codes of their own.
ErrorKind KindOfDriverWords(std::string_view text);

}  // namespace zv::store
