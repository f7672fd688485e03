// Where the component ends: whatever is thrown becomes a result with error information.
#pragma once

#include <string>
#include <utility>

#include "automation/variant_readers.h"
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

using automation::ThrowIfFailed;

}  // namespace zv::com
