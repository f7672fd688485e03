// What the engine's result codes mean to a user.
#pragma once

#include "base/errors.h"

namespace zv::store::sqlite {

/// `code` is an extended result code; `number` distinguishes the kinds of bad statements, for which
/// the engine has one code only.
ErrorKind KindOf(int code, ErrorNumber number);

}  // namespace zv::store::sqlite
