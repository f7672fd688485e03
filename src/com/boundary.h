// Where the component ends: whatever is thrown becomes a result with error information.
#pragma once

#include <string>
#include <utility>

#include "base/win32/com_error.h"
#include "com/ids.h"
#include "com/session_host.h"
#include "resources/error_texts.h"

namespace zv::com {

inline constexpr std::string_view kErrorSource = "zvTask";

/// Runs `body`, which answers an HRESULT or nothing. Every COM method consists of one such call or
/// does nothing that can throw.
template <class Body>
HRESULT Boundary(Body&& body) noexcept {
    return win32::Guarded(
        kErrorSource, kInterfaceId,
        [](const RuntimeError& error) { return SessionHost::Describe(error); },
        std::forward<Body>(body));
}

/// Raises a failed result as an error with the system's text.
inline void ThrowIfFailed(HRESULT hr) {
    if (FAILED(hr)) throw RuntimeError(win32::ToErrorNumber(hr), win32::SystemMessage(hr));
}

}  // namespace zv::com
