// A component of the host suite, known by its name only.
#pragma once

#include <windows.h>

#include "base/win32/com_ptr.h"
#include "base/win32/variant.h"

namespace zv::platform::win32 {

class LateBound {
 public:
    /// Throws error 429, naming the class, when it is not registered or cannot be created.
    static LateBound Create(const wchar_t* progId);

    explicit LateBound(zv::win32::ComPtr<IDispatch> object) : object_(std::move(object)) {}

    /// Both throw the component's own error, 438 for a member that it does not have.
    void Put(const wchar_t* name, const zv::win32::Variant& value);
    void Call(const wchar_t* name);

 private:
    zv::win32::ComPtr<IDispatch> object_;
};

}  // namespace zv::platform::win32
