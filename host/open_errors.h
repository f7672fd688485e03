// Texts of a database that cannot be opened: the path and the reason, never a password.
#pragma once

#include <string>
#include <string_view>

#include "base/errors.h"

namespace zv::host {

RuntimeError CannotOpen(ErrorNumber number, std::string_view path, std::string_view reason,
                        ErrorKind kind = ErrorKind::Other);
/// With the system's reason for its error code.
RuntimeError CannotOpenFile(std::string_view path, unsigned long systemError);

}  // namespace zv::host
