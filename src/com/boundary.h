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

/// The name of the class, as scripts create it.
inline constexpr std::string_view kErrorSource = "zv_Task.zvTask";

/// The error with a text that says which member, parameter or key it is about, unless it has one
/// of its own.
inline RuntimeError Naming(std::string_view what, const RuntimeError& error) {
    if (error.Kind() != ErrorKind::Own || !error.Text().empty()) return error;
    return RuntimeError(error.Number(), std::string(what) + ": " + SessionHost::Describe(error),
                        error.Source());
}

/// Runs `body`, which answers an HRESULT or nothing. Every COM method consists of one such call or
/// does nothing that can throw.
template <class Body>
HRESULT Boundary(Body&& body) noexcept {
    return win32::Guarded(
        kErrorSource, kInterfaceId,
        [](const RuntimeError& error) { return SessionHost::Describe(error); },
        std::forward<Body>(body));
}

/// The same for a member: an error that says no more than its number says the member too.
template <class Body>
HRESULT Boundary(std::string_view member, Body&& body) noexcept {
    return Boundary([&] {
        try {
            return body();
        } catch (const RuntimeError& error) {
            throw Naming(member, error);
        }
    });
}

using automation::ThrowIfFailed;

}  // namespace zv::com
