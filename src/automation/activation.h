// Where the side-by-side context of a host says what its components are. A host that registers
// nothing may put such a context in force only while it creates an object, as scripts do; what that
// object looks for later is in the same context.
#pragma once

#include <windows.h>

namespace zv::automation {

/// Remembers the calling thread's activation context, unless it has none of its own; the last one
/// remembered counts, for all threads. Called while an object is created for a host.
void RememberActivation() noexcept;
/// Before the file is unloaded.
void ForgetActivation() noexcept;

/// The context that is remembered is in force on this thread as long as this lives.
class ActivationInForce {
 public:
    ActivationInForce() noexcept;
    ~ActivationInForce();
    ActivationInForce(const ActivationInForce&) = delete;
    ActivationInForce& operator=(const ActivationInForce&) = delete;

 private:
    HANDLE context_;
    bool active_ = false;
    ULONG_PTR cookie_ = 0;
};

}  // namespace zv::automation
