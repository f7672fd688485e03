// What COM promises of any object. Each function answers what is broken, in words, or nothing: so
// the rules themselves can be tested on objects that break them.
#pragma once

#include <windows.h>

#include <oleauto.h>

#include <string>
#include <vector>

namespace zv::ring::com {

/// A success or failure of COM, automation, OLE, the system or the class itself.
bool IsDefined(HRESULT hr);

/// What a late-bound call left behind.
struct Answer {
    HRESULT hr;
    const VARIANT& result;
    const EXCEPINFO& exception;
    UINT badArgument;  ///< UINT_MAX when none was named
    UINT arguments;
    VARTYPE promised;  ///< VT_EMPTY when nothing is handed out
};
std::string InvokeComplaint(const Answer& answer);

/// Whether the system can bring the value into the type: whoever takes one it cannot has made up
/// another.
bool CanBecome(const VARIANT& value, VARTYPE type);

/// Identity, symmetry, transitivity and null pointers, over these interfaces.
std::string InterfaceComplaint(IUnknown& object, const std::vector<IID>& interfaces);

}  // namespace zv::ring::com
