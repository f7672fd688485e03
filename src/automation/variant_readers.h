// Automation values as what the reader needs: converted without regard to the user's locale, null
// pointers read as empty texts.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "base/errors.h"
#include "base/win32/variant.h"

namespace zv::automation {

/// The error of a result, with the system's text.
RuntimeError ErrorOfResult(HRESULT hr);
inline void ThrowIfFailed(HRESULT hr) {
    if (FAILED(hr)) throw ErrorOfResult(hr);
}

/// How a value that cannot be read is reported.
enum class Misfit {
    Result,        ///< the number of the result, with the system's text
    TypeMismatch,  ///< error 13 whatever the reason, without a text of its own
};

std::int32_t ToNumber(win32::Variant value, Misfit misfit);
bool ToFlag(win32::Variant value, Misfit misfit);
std::string ToText(win32::Variant value, Misfit misfit);
/// Null and empty are no text.
std::string ToTextOrNone(win32::Variant value, Misfit misfit);

/// Nothing for what is no number.
std::optional<std::int32_t> TryNumber(win32::Variant value);
std::optional<std::string> TryText(win32::Variant value);

}  // namespace zv::automation
